#pragma once

#include "platform/SystemInfo.h"

namespace platform::windows {

class WindowsSystemInfo final : public SystemInfo {
  public:
    /// Begins each line that a debugger gets, which hears many programs.
    static constexpr char debugPrefix[] = "Veltro: ";

    std::wstring addInFolder() override;
    std::optional<WindowsVersion> windowsVersion() override;
    bool is64Bit() override;
    std::wstring programVersion() override;
    /// Of any file with a version; empty for one without.
    static std::wstring fileVersion(const std::wstring& path);
    std::uint32_t screenDpi() override;
    void debug(std::string_view line) override;
};

}  // namespace platform::windows
