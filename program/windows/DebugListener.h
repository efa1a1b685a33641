#pragma once

#include <string>
#include <vector>

namespace program::windows {

/// Hears what the add-in in this process tells a debugger, as none is there. One at a time, on the add-in's
/// thread.
class DebugListener {
  public:
    DebugListener();
    ~DebugListener();
    DebugListener(const DebugListener&) = delete;
    DebugListener& operator=(const DebugListener&) = delete;

    const std::vector<std::string>& lines() const { return lines_; }
    void hear(std::string text);

  private:
    void* handler_;
    std::vector<std::string> lines_;
};

}  // namespace program::windows
