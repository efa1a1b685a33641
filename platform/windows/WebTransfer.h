#pragma once

#include <windows.h>

#include <wininet.h>

#include <mutex>
#include <optional>
#include <utility>

#include "platform/Http.h"

namespace platform::windows {

/// An owned handle of WinINet.
class InternetHandle {
  public:
    explicit InternetHandle(HINTERNET handle = nullptr) noexcept : handle_(handle) {}
    InternetHandle(InternetHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    InternetHandle& operator=(InternetHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
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
    /// What is under way fails soon, or at the latest when its time is over.
    void abandon();

  private:
    Http::Answer fetch();
    /// Nothing when the transfer was abandoned meanwhile.
    HINTERNET open();
    InternetHandle request(HINTERNET internet, const WebAddress& address) const;
    Http::Answer read(HINTERNET request) const;
    /// In milliseconds; 0 when it is over.
    DWORD timeLeft() const;

    const WebAddress address_;
    DWORD started_ = 0;

    std::mutex mutex_;
    bool abandoned_ = false;
    InternetHandle internet_;
};

}  // namespace platform::windows
