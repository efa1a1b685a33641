#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace platform::windows {

/// An owned BSTR. Its length is counted, so embedded NULs survive.
class Bstr {
  public:
    Bstr() noexcept = default;
    explicit Bstr(std::wstring_view text) : text_(SysAllocStringLen(text.data(), length(text))) {
        if (!text_) {
            throw std::bad_alloc();
        }
    }
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }

    static Bstr adopt(BSTR text) noexcept {
        Bstr result;
        result.text_ = text;
        return result;
    }

    BSTR get() const noexcept { return text_; }
    [[nodiscard]] BSTR detach() noexcept { return std::exchange(text_, nullptr); }

    /// A null BSTR is an empty text.
    static std::wstring toText(BSTR text) {
        return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
    }

  private:
    static UINT length(std::wstring_view text) {
        if (text.size() > 0x3FFFFFFF) {
            throw std::bad_alloc();
        }
        return static_cast<UINT>(text.size());
    }

    BSTR text_ = nullptr;
};

}  // namespace platform::windows
