#include "platform/native/EventLoop.h"

#include <algorithm>
#include <utility>

namespace platform::native {

class EventLoop::RunningTimer : public Timer {
  public:
    RunningTimer(EventLoop& loop, std::chrono::milliseconds interval, Task due)
        : loop_(loop), interval_(interval), next_(loop.time_ + interval), due_(std::move(due)) {
        loop_.timers_.push_back(this);
    }
    ~RunningTimer() override { loop_.timers_.remove(this); }

    std::chrono::milliseconds next() const { return next_; }
    void fire() {
        next_ += interval_;
        const Task due = due_;  // The timer may go.
        due();
    }

  private:
    EventLoop& loop_;
    std::chrono::milliseconds interval_;
    std::chrono::milliseconds next_;
    Task due_;
};

void EventLoop::post(Task task) {
    const std::lock_guard lock(mutex_);
    tasks_.push_back(std::move(task));
    posted_.notify_one();
}

EventLoop::Expected EventLoop::expect() {
    const std::lock_guard lock(mutex_);
    ++expected_;
    return Expected(this, [](EventLoop* loop) {
        const std::lock_guard again(loop->mutex_);
        --loop->expected_;
        loop->posted_.notify_one();
    });
}

std::unique_ptr<Timer> EventLoop::startTimer(std::chrono::milliseconds interval, Task due) {
    return std::make_unique<RunningTimer>(*this, interval, std::move(due));
}

bool EventLoop::step() {
    Task task;
    {
        std::unique_lock lock(mutex_);
        posted_.wait(lock, [this] { return !tasks_.empty() || expected_ == 0; });
        if (!tasks_.empty()) {
            task = std::move(tasks_.front());
            tasks_.pop_front();
        }
    }
    if (!task) {
        return fireTimer();
    }
    task();
    return true;
}

bool EventLoop::fireTimer() {
    const auto earliest = std::ranges::min_element(timers_, {}, &RunningTimer::next);
    if (earliest == timers_.end()) {
        return false;
    }
    time_ = (*earliest)->next();
    (*earliest)->fire();
    return true;
}

void EventLoop::settle() {
    while (step()) {
    }
}

}  // namespace platform::native
