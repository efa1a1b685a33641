#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/SettingsStore.h"

namespace platform {

/// Settings that live as long as the store.
class MemorySettingsStore : public SettingsStore {
  public:
    std::optional<std::wstring> read(const std::wstring& key) override;
    void write(const std::wstring& key, const std::wstring& value) override;

    struct Setting {
        /// As it was first written.
        std::wstring key;
        std::wstring value;
        bool operator==(const Setting&) const = default;
    };
    /// By upper-cased key.
    const std::map<std::wstring, Setting>& settings() const { return settings_; }

  private:
    std::map<std::wstring, Setting> settings_;
};

}  // namespace platform
