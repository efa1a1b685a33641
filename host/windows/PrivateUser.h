#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace host::windows {

/// While this lives the process has a HKEY_CURRENT_USER of its own, empty at first and deleted at the end, so
/// that a run leaves the user's settings alone. The add-in in the same process shares it.
class PrivateUser {
  public:
    /// Throws automation::Error when the registry refuses.
    PrivateUser();
    /// Shares that of another process, which outlives this one's; the user's own where that has none.
    explicit PrivateUser(DWORD otherProcess);
    PrivateUser(const PrivateUser&) = delete;
    PrivateUser& operator=(const PrivateUser&) = delete;
    ~PrivateUser();

    /// The product's settings as they stand: key and text.
    static std::vector<std::pair<std::wstring, std::wstring>> settings();

  private:
    /// Empty where another process owns the key.
    std::wstring path_;
    HKEY key_ = nullptr;
};

}  // namespace host::windows
