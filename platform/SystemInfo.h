#pragma once

#include <string>

namespace platform {

class SystemInfo {
  public:
    virtual ~SystemInfo() = default;
    /// The folder that holds the add-in, without a separator at its end.
    virtual std::wstring addInFolder() = 0;
};

}  // namespace platform
