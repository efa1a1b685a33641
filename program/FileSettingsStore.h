#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/SettingsStore.h"
#include "program/json.h"

namespace program {

/// Settings in a file that holds one JSON object of texts. A missing or empty file holds none; it is made by
/// the first write. The file is read at each use, so that a change made by hand or by another run counts at
/// once, and locked while it is changed, so that runs at the same time lose nothing of each other.
class FileSettingsStore : public platform::SettingsStore {
  public:
    /// Throws automation::Error when the file cannot be read or written, or holds anything else.
    explicit FileSettingsStore(std::filesystem::path file);

    /// Keys and values, in the file's order. Throws as read() does.
    std::vector<std::pair<std::wstring, std::wstring>> all();
    /// Throws as the constructor does.
    std::optional<std::wstring> read(const std::wstring& key) override;
    /// Throws as the constructor does.
    void write(const std::wstring& key, const std::wstring& value) override;

  private:
    Json load() const;
    [[noreturn]] void fail(const std::string& why) const;

    std::filesystem::path file_;
};

}  // namespace program
