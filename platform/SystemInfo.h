#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The version that Windows has, whatever it tells programs that were made for an older one.
struct WindowsVersion {
    /// By the numbers of Windows: 1 is that of Windows 95 to Millennium, 2 NT.
    std::uint32_t platform = 2;
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t build = 0;
    bool server = false;
};

class SystemInfo {
  public:
    virtual ~SystemInfo() = default;
    /// The folder that holds the add-in, without a separator at its end.
    virtual std::wstring addInFolder() = 0;
    /// Nothing when the system does not tell.
    virtual std::optional<WindowsVersion> windowsVersion() = 0;
    /// True on a 64-bit Windows, whatever the word size of Outlook.
    virtual bool is64Bit() = 0;
    /// The version of the program that has loaded the add-in, as its file gives it ("16.0.17328.20000");
    /// empty when it gives none.
    virtual std::wstring programVersion() = 0;
    /// Pixels to the inch of the screen: 96 at 100 %.
    virtual std::uint32_t screenDpi() = 0;
    /// Tells a debugger, if one listens; a line of ASCII without its end.
    virtual void debug(std::string_view line) = 0;
};

}  // namespace platform
