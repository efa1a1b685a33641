#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/SystemInfo.h"

namespace platform::native {

/// A system as it is described to it. What a debugger is told it keeps.
class FixedSystemInfo : public SystemInfo {
  public:
    explicit FixedSystemInfo(std::wstring addInFolder) : addInFolder_(std::move(addInFolder)) {}

    std::wstring addInFolder() override { return addInFolder_; }

    std::optional<WindowsVersion> windowsVersion() override { return version; }
    bool is64Bit() override { return wide; }

    /// That of Windows 10, unless set.
    std::optional<WindowsVersion> version = WindowsVersion{2, 10, 0, 19045, false};
    bool wide = true;

    std::wstring programVersion() override { return program; }
    std::uint32_t screenDpi() override { return dpi; }
    std::wstring program;
    std::uint32_t dpi = 96;

    void debug(std::string_view line) override { debugLines_.emplace_back(line); }
    const std::vector<std::string>& debugLines() const { return debugLines_; }

  private:
    std::wstring addInFolder_;
    std::vector<std::string> debugLines_;
};

}  // namespace platform::native
