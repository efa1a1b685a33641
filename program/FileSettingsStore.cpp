#include "program/FileSettingsStore.h"

#include <stdexcept>

#include "platform/automation.h"
#include "platform/replaceFile.h"
#include "platform/text.h"
#include "program/MessageJson.h"
#include "program/files.h"

namespace program {

namespace {

Json parse(const std::string& contents) {
    if (contents.find_first_not_of(" \t\r\n") == std::string::npos) {
        return Json::object();
    }
    Json settings = parseJson(contents);
    if (!settings.is_object()) {
        throw std::runtime_error("holds no JSON object");
    }
    for (const auto& [key, value] : settings.items()) {
        try {
            textFromJson(value);
        } catch (const std::runtime_error&) {
            throw std::runtime_error("the value of " + key + " is no text");
        }
    }
    return settings;
}

Json::iterator find(Json& settings, const std::wstring& key) {
    for (auto item = settings.begin(); item != settings.end(); ++item) {
        if (text::equalsIgnoringCase(text::fromUtf8(item.key()), key)) {
            return item;
        }
    }
    return settings.end();
}

}  // namespace

FileSettingsStore::FileSettingsStore(std::filesystem::path file) : file_(std::move(file)) {
    try {
        const FileLock lock(file_);
    } catch (const std::runtime_error& error) {
        fail(error.what());
    }
    load();
}

void FileSettingsStore::fail(const std::string& why) const {
    throw automation::Error(automation::errors::fileAccess,
                            L"settings file " + file_.wstring() + L": " + text::fromUtf8(why));
}

Json FileSettingsStore::load() const {
    try {
        return parse(readKeptFile(file_));
    } catch (const std::runtime_error& error) {
        fail(error.what());
    }
}

std::vector<std::pair<std::wstring, std::wstring>> FileSettingsStore::all() {
    std::vector<std::pair<std::wstring, std::wstring>> settings;
    const Json stored = load();
    for (const auto& [key, value] : stored.items()) {
        settings.emplace_back(text::fromUtf8(key), textFromJson(value));
    }
    return settings;
}

std::optional<std::wstring> FileSettingsStore::read(const std::wstring& key) {
    Json settings = load();
    const auto found = find(settings, key);
    return found == settings.end() ? std::nullopt : std::optional(textFromJson(*found));
}

void FileSettingsStore::write(const std::wstring& key, const std::wstring& value) {
    try {
        const FileLock lock(file_);
        Json settings = parse(readKeptFile(file_));
        const auto found = find(settings, key);
        if (found == settings.end()) {
            settings[text::toUtf8(key)] = textToJson(value);
        } else {
            *found = textToJson(value);
        }
        platform::replaceFile(file_, jsonText(settings, 2) + "\n");
    } catch (const std::runtime_error& error) {
        fail(error.what());
    }
}

}  // namespace program
