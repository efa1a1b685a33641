#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>

#include "platform/SettingsStore.h"

namespace settings {

/// Reads administrators' settings files into the settings. Lives as long as the add-in: whether it is inside
/// the lock block, and the fields read there, outlast a file; the file's identifier does not.
///
/// Nothing of a file is held against it: a line that means nothing is passed over, a value that cannot be
/// stored is left out, and the others are stored.
class SettingsFileReader {
  public:
    /// False when the file cannot be opened or read to its end; the next time then tries it again.
    bool read(const std::filesystem::path& file, platform::SettingsStore& settings);
    /// The same from an open file.
    bool read(std::istream& file, platform::SettingsStore& settings);

  private:
    bool readLines(std::istream& file, platform::SettingsStore& settings);
    void takeLine(std::wstring_view line, platform::SettingsStore& settings);
    /// False when the line is none of the lock block's own.
    bool takeLockLine(std::wstring_view line, platform::SettingsStore& settings);
    void takeSetting(std::wstring_view line, platform::SettingsStore& settings);

    std::wstring fileId_;
    bool inLockBlock_ = false;
    std::wstring lockedFields_;
};

}  // namespace settings
