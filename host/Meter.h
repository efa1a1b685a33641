#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

/// Counts live host objects and the automation calls made to them, fails the calls it is told to, and lets
/// something else happen during one: Outlook handles other messages inside of its calls. Shared by all
/// objects of one Outlook, so that it can still be asked when that Outlook is gone.
class Meter {
  public:
    std::size_t calls() const noexcept { return calls_; }
    std::size_t liveObjects() const noexcept { return live_; }
    /// The calls since recording began, as "Class.Member", oldest first.
    const std::vector<std::wstring>& log() const noexcept { return log_; }
    void record(bool on) {
        recording_ = on;
        log_.clear();
    }
    /// Makes the n-th following call fail (1 is the next one), and those behind it up to `count`; 0 takes
    /// that back.
    void failCall(std::size_t n, std::size_t count = 1) noexcept {
        failFrom_ = calls_ + n;
        failCount_ = n == 0 ? 0 : count;
    }
    /// Has the action happen during the n-th following call, before that call does its own work; once. 0
    /// takes that back.
    void duringCall(std::size_t n, std::function<void()> action) {
        actAt_ = n == 0 ? 0 : calls_ + n;
        action_ = std::move(action);
    }

    void objectMade() noexcept { ++live_; }
    void objectGone() noexcept { --live_; }
    /// Counts one call. Throws automation::Error (E_FAIL) when it is one to fail.
    void called(std::wstring_view className, std::wstring_view member);

  private:
    std::size_t calls_ = 0;
    std::size_t live_ = 0;
    std::size_t failFrom_ = 0;
    std::size_t failCount_ = 0;
    std::size_t actAt_ = 0;
    std::function<void()> action_;
    bool recording_ = false;
    std::vector<std::wstring> log_;
};

}  // namespace host
