#pragma once

#include <utility>

namespace kv {

/// Holds one reference to a COM interface and releases it at the end.
template <class Interfaz>
class PunteroCom {
  public:
    PunteroCom() = default;
    /// Takes a reference of its own.
    explicit PunteroCom(Interfaz* p) : p_(p) {
        if (p_ != nullptr) p_->AddRef();
    }
    PunteroCom(const PunteroCom& otro) : PunteroCom(otro.p_) {}
    PunteroCom(PunteroCom&& otro) noexcept : p_(std::exchange(otro.p_, nullptr)) {}
    PunteroCom& operator=(PunteroCom otro) noexcept {
        std::swap(p_, otro.p_);
        return *this;
    }
    ~PunteroCom() {
        if (p_ != nullptr) p_->Release();
    }

    Interfaz* Get() const { return p_; }
    Interfaz* operator->() const { return p_; }
    explicit operator bool() const { return p_ != nullptr; }

    /// Where a call leaves a reference that it hands over; what was held is released first.
    Interfaz** Recibir() {
        *this = PunteroCom();
        return &p_;
    }
    void** RecibirVoid() { return reinterpret_cast<void**>(Recibir()); }

  private:
    Interfaz* p_ = nullptr;
};

}  // namespace kv
