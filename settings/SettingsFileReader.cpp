#include "settings/SettingsFileReader.h"

#include <fstream>
#include <istream>
#include <iterator>
#include <optional>
#include <utility>

#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/settingsFile.h"

namespace settings {

namespace {

using modRegKeys::IgnoreTextValue;
using platform::SettingsStore;

constexpr auto npos = std::wstring_view::npos;

constexpr std::size_t signatureLength = std::size(settingsFile::signature) - 1;
constexpr std::size_t signatureEndLength = std::size(settingsFile::signatureEnd) - 1;

/// The next line without its end; false when there is none. CR LF ends a line, and so does either alone: an
/// administrator's editor may have saved the file as other systems write theirs, and its lines read as one
/// would lose all settings without a word.
bool nextLine(std::istream& file, std::string& line) {
    line.clear();
    for (char byte = 0; file.get(byte);) {
        if (byte == '\n') {
            return true;
        }
        if (byte == '\r') {
            if (file.peek() == '\n') {
                file.ignore();
            }
            return true;
        }
        line += byte;
    }
    return !file.bad() && !line.empty();
}

/// How a line begins that holds this setting.
std::wstring entryOf(const std::wstring& key) {
    return key + L'=';
}

/// What stands between the markers of a signature, found by their lengths alone; nothing when the line is too
/// short for both.
std::optional<std::wstring_view> signatureIn(std::wstring_view value) {
    if (value.size() < signatureLength + signatureEndLength) {
        return std::nullopt;
    }
    value.remove_prefix(signatureLength);
    value.remove_suffix(signatureEndLength);
    return value;
}

/// A key that no settings store can have: binary noise makes such.
bool isNoKey(std::wstring_view key) {
    return key.empty() || key.find(L'\0') != npos;
}

void store(SettingsStore& settings, const std::wstring& key, std::wstring_view value) {
    mail::skipErrors([&] { settings.write(key, std::wstring(value)); });
}

std::wstring storedId(SettingsStore& settings) {
    const auto stored = mail::attempt([&] { return settings.read(modRegKeys::SettingsID.key); });
    return stored.value_or(std::nullopt).value_or(L"");
}

/// Puts the lines of a signature together.
class Collector {
  public:
    /// The entry that is complete with this line: the line itself outside of signatures. Nothing while one
    /// goes on.
    std::optional<std::wstring> add(std::wstring line) {
        const bool starts = line.find(start_) != npos;
        if (!starts && !collecting_) {
            return line;
        }
        const bool ends = line.find(settingsFile::signatureEnd) != npos;
        collecting_ = !ends;
        if (starts) {
            collected_ = std::move(line);
        } else {
            collected_ += text::lineBreak;
            collected_ += line;
        }
        return ends ? std::optional(std::exchange(collected_, {})) : std::nullopt;
    }

  private:
    /// Starts a signature wherever in a line it stands.
    const std::wstring start_ = entryOf(IgnoreTextValue.key);
    bool collecting_ = false;
    std::wstring collected_;
};

}  // namespace

bool SettingsFileReader::read(const std::filesystem::path& file, SettingsStore& settings) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored)) {
        return false;
    }
    std::ifstream stream(file, std::ios::binary);
    return stream && read(stream, settings);
}

bool SettingsFileReader::read(std::istream& file, SettingsStore& settings) {
    fileId_.clear();
    if (!readLines(file, settings)) {
        return false;
    }
    if (storedId(settings) != fileId_) {
        store(settings, modRegKeys::SettingsID.key, fileId_);
    }
    return true;
}

bool SettingsFileReader::readLines(std::istream& file, SettingsStore& settings) {
    const std::wstring appliedId = storedId(settings);
    std::string bytes;
    if (nextLine(file, bytes)) {
        takeLine(text::fromCodePage(bytes), settings);
    }
    Collector collector;
    // The identifier stands before all settings, so that of a file that was applied no more is read.
    while ((appliedId.empty() || appliedId != fileId_) && nextLine(file, bytes)) {
        if (const auto entry = collector.add(text::fromCodePage(bytes))) {
            takeLine(*entry, settings);
        }
    }
    return !file.bad();
}

void SettingsFileReader::takeLine(std::wstring_view line, SettingsStore& settings) {
    if (!inLockBlock_) {
        inLockBlock_ = text::trim(line) == settingsFile::lockBlock;
    } else if (takeLockLine(line, settings)) {
        return;
    }
    if (!line.starts_with(settingsFile::comment)) {
        takeSetting(line, settings);
    }
}

bool SettingsFileReader::takeLockLine(std::wstring_view line, SettingsStore& settings) {
    const std::wstring_view trimmed = text::trim(line);
    if (trimmed == settingsFile::lockBlockEnd) {
        inLockBlock_ = false;
        store(settings, modRegKeys::LockFields.key, lockedFields_);
        return true;
    }
    if (line.starts_with(entryOf(modRegKeys::Password.key))) {
        return false;
    }
    if (trimmed != std::wstring_view(&settingsFile::comment, 1)) {
        lockedFields_ += (lockedFields_.empty() ? L"" : L";");
        lockedFields_ += line;
    }
    return true;
}

void SettingsFileReader::takeSetting(std::wstring_view line, SettingsStore& settings) {
    const auto cut = line.find(L'=');
    if (cut == npos) {
        return;
    }
    const std::wstring key(line.substr(0, cut));
    std::optional<std::wstring_view> value = line.substr(cut + 1);
    if (key == IgnoreTextValue.key) {
        value = signatureIn(*value);
    }
    if (key == modRegKeys::SettingsID.key) {
        fileId_ = *value;
    } else if (value && !isNoKey(key)) {
        store(settings, key, *value);
    }
}

}  // namespace settings
