#pragma once

#include <unknwn.h>
#include <windows.h>

namespace kv {

/// Creates the DLL's one class. Lives as long as the DLL; its references keep the DLL loaded.
class Fabrica final : public IClassFactory {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** objeto) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* exterior, REFIID iid, void** objeto) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL retener) override;
};

}  // namespace kv
