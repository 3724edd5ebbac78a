// Runs under Wine, each stage by its filter: Registrada needs the registered class and KV_GRABACION, SinRegistrar that
// it is not registered and KV_MANIFIESTO. KV_ORIGEN names an ODBC data source over an empty SQLite file; without it
// what needs one is skipped, and so is Consola unless KV_PROGRAMA says where kvdatosart.exe lies.

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <iostream>

#include "kvdatosart/tests/com/AdoFalso.h"

namespace {

class SinRestos : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& /*prueba*/) override {
        EXPECT_EQ(0, kv::prueba::vivos) << "referencias sin soltar";
        CoFreeUnusedLibrariesEx(0, 0);
        EXPECT_EQ(nullptr, GetModuleHandleW(L"KVDatosArt.dll")) << "la DLL no se descarga";
    }
};

// Wine's debugger now and then leaves 0 as the code of a program that broke down.
LONG WINAPI Romperse(EXCEPTION_POINTERS* /*que*/) {
    std::cerr << "se rompe en " << testing::UnitTest::GetInstance()->current_test_info()->name() << std::endl;
    _exit(3);
}

}  // namespace

int main(int argc, char** argv) {
    SetUnhandledExceptionFilter(Romperse);
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new SinRestos);
    if (FAILED(CoInitialize(nullptr))) return 2;
    const int fallo = RUN_ALL_TESTS();
    return testing::UnitTest::GetInstance()->test_to_run_count() == 0 ? 2 : fallo;
}
