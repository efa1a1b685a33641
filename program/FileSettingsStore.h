#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/SettingsStore.h"

namespace program {

/// Settings in a file that holds one JSON object of texts. A missing file holds none; it is made by the first
/// write. The file is read at each use, so that a change made by hand or by another run counts at once.
class FileSettingsStore : public platform::SettingsStore {
  public:
    explicit FileSettingsStore(std::filesystem::path file) : file_(std::move(file)) {}

    /// Keys and values, in the file's order. Throws as read() does.
    std::vector<std::pair<std::wstring, std::wstring>> all();
    /// Throws std::runtime_error when the file is unreadable or holds anything else.
    std::optional<std::wstring> read(const std::wstring& key) override;
    /// Replaces the file as a whole: a reader finds the old settings or the new ones, never half of them.
    void write(const std::wstring& key, const std::wstring& value) override;

  private:
    std::filesystem::path file_;
};

}  // namespace program
