#pragma once

#include <atomic>

namespace platform::windows {

/// Counts the COM objects that code of this module implements and that somebody holds. While there are any,
/// the module must not be unloaded. The counter must outlive them all.
class LiveObjects {
  public:
    LiveObjects() = default;
    LiveObjects(const LiveObjects&) = delete;
    LiveObjects& operator=(const LiveObjects&) = delete;

    long count() const noexcept { return count_.load(); }
    void add() noexcept { ++count_; }
    void remove() noexcept { --count_; }

  private:
    std::atomic<long> count_{0};
};

}  // namespace platform::windows
