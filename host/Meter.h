#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Counts live host objects and the automation calls made to them, and fails the call it is told to. Shared
/// by all objects of one Outlook, so that it can still be asked when that Outlook is gone.
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
    /// Makes the n-th following call fail (1 is the next one); 0 takes that back.
    void failCall(std::size_t n) noexcept { failAt_ = n == 0 ? 0 : calls_ + n; }

    void objectMade() noexcept { ++live_; }
    void objectGone() noexcept { --live_; }
    /// Counts one call. Throws automation::Error (E_FAIL) when it is the one to fail.
    void called(std::wstring_view className, std::wstring_view member);

  private:
    std::size_t calls_ = 0;
    std::size_t live_ = 0;
    std::size_t failAt_ = 0;
    bool recording_ = false;
    std::vector<std::wstring> log_;
};

}  // namespace host
