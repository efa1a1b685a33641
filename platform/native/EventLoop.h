#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <mutex>

#include "platform/Desktop.h"

namespace platform::native {

/// Stands in for the message loop of Outlook's thread: what is to happen on that thread later waits here
/// until somebody lets it. Time is simulated as far as timers go: the next one is due as soon as there is
/// nothing else to wait for.
class EventLoop {
  public:
    using Task = std::function<void()>;
    /// Something that another thread is going to post, for as long as it is held.
    using Expected = std::shared_ptr<void>;

    EventLoop() = default;
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// From any thread.
    void post(Task task);
    Expected expect();
    std::unique_ptr<Timer> startTimer(std::chrono::milliseconds interval, Task due);

    /// Waits for the next event and lets it happen. False when none will come any more.
    bool step();
    /// Lets everything happen that is going to.
    void settle();
    /// Has the timer that is due next be due now. False when none runs.
    bool fireTimer();

  private:
    class RunningTimer;

    std::mutex mutex_;
    std::condition_variable posted_;
    std::deque<Task> tasks_;
    std::size_t expected_ = 0;
    // Of this thread alone.
    std::list<RunningTimer*> timers_;
    std::chrono::milliseconds time_{0};
};

}  // namespace platform::native
