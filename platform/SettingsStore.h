#pragma once

#include <optional>
#include <string>

namespace platform {

/// Where the user's settings live: the application and section names under which Windows keeps them in
/// HKEY_CURRENT_USER\Software\VB and VBA Program Settings.
inline constexpr wchar_t settingsApplication[] = L"quellwork";
inline constexpr wchar_t settingsSection[] = L"0x155473194";

/// The user's settings: one text a key, keys without regard to letter case. Absent and empty differ.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    /// Nothing when the key is absent. Throws automation::Error when the store cannot be read.
    virtual std::optional<std::wstring> read(const std::wstring& key) = 0;
    /// Stored at once: a host that shuts down fast says no good-bye. Throws automation::Error when the
    /// store cannot be written.
    virtual void write(const std::wstring& key, const std::wstring& value) = 0;
};

}  // namespace platform
