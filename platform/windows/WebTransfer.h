#pragma once

#include <windows.h>

#include <wininet.h>

#include <atomic>
#include <optional>
#include <utility>

#include "platform/Http.h"

namespace platform::windows {

/// An owned handle of WinINet. Closed by the thread that uses it: its number may be another handle's by then.
class InternetHandle {
  public:
    explicit InternetHandle(HINTERNET handle = nullptr) noexcept : handle_(handle) {}
    InternetHandle(InternetHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    InternetHandle(const InternetHandle&) = delete;
    InternetHandle& operator=(const InternetHandle&) = delete;
    ~InternetHandle() {
        if (handle_) {
            InternetCloseHandle(handle_);
        }
    }

    HINTERNET get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != nullptr; }

  private:
    HINTERNET handle_;
};

/// One GET, with what it is redirected to. run() is for a thread of its own, abandon() for any other.
class WebTransfer {
  public:
    explicit WebTransfer(WebAddress address) : address_(std::move(address)) {}

    Http::Answer run();
    /// The transfer ends at its next step, which has a time limit of its own.
    void abandon() { abandoned_ = true; }

  private:
    InternetHandle request(HINTERNET internet, const WebAddress& address) const;
    Http::Answer read(HINTERNET request) const;
    /// In milliseconds; 0 when it is over.
    DWORD timeLeft() const;

    const WebAddress address_;
    DWORD started_ = 0;
    std::atomic<bool> abandoned_ = false;
};

}  // namespace platform::windows
