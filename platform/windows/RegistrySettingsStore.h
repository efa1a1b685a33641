#pragma once

#include "platform/SettingsStore.h"

namespace platform::windows {

/// Settings as text values of HKEY_CURRENT_USER\Software\VB and VBA Program Settings\<application>\<section>.
class RegistrySettingsStore final : public SettingsStore {
  public:
    explicit RegistrySettingsStore(const std::wstring& application = settingsApplication,
                                   const std::wstring& section = settingsSection);

    std::optional<std::wstring> read(const std::wstring& key) override;
    void write(const std::wstring& key, const std::wstring& value) override;

  private:
    std::wstring path_;
};

}  // namespace platform::windows
