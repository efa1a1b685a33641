#pragma once

#include <windows.h>

#include <oleauto.h>

#include <utility>

namespace platform::windows {

/// An owned VARIANT.
class Variant {
  public:
    Variant() noexcept { VariantInit(&value_); }
    Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }

    VARIANT& get() noexcept { return value_; }
    const VARIANT& get() const noexcept { return value_; }
    VARIANT* address() noexcept { return &value_; }
    VARIANT* operator->() noexcept { return &value_; }
    /// Gives the value away; the receiver clears it.
    [[nodiscard]] VARIANT detach() noexcept {
        const VARIANT value = value_;
        VariantInit(&value_);
        return value;
    }

  private:
    VARIANT value_;
};

}  // namespace platform::windows
