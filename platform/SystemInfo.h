#pragma once

#include <string>
#include <string_view>

namespace platform {

class SystemInfo {
  public:
    virtual ~SystemInfo() = default;
    /// The folder that holds the add-in, without a separator at its end.
    virtual std::wstring addInFolder() = 0;
    /// Tells a debugger, if one listens; a line of ASCII without its end.
    virtual void debug(std::string_view line) = 0;
};

}  // namespace platform
