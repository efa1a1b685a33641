#include "program/FileSettingsStore.h"

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "platform/text.h"
#include "program/MessageFiles.h"

namespace program {

namespace {

using Json = nlohmann::ordered_json;

[[noreturn]] void fail(const std::filesystem::path& file, const std::string& why) {
    throw std::runtime_error("settings file " + text::toUtf8(file.wstring()) + ": " + why);
}

Json load(const std::filesystem::path& file) {
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        if (error) {
            fail(file, error.message());
        }
        return Json::object();
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream || !std::filesystem::is_regular_file(file, error)) {
        fail(file, "cannot be read");
    }
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    const Json settings = Json::parse(bytes, nullptr, false);
    if (!settings.is_object()) {
        fail(file, "holds no JSON object");
    }
    for (const auto& [key, value] : settings.items()) {
        try {
            textFromJson(value);
        } catch (const std::exception&) {
            fail(file, "the value of " + key + " is no text");
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

std::vector<std::pair<std::wstring, std::wstring>> FileSettingsStore::all() {
    std::vector<std::pair<std::wstring, std::wstring>> settings;
    const Json stored = load(file_);
    for (const auto& [key, value] : stored.items()) {
        settings.emplace_back(text::fromUtf8(key), textFromJson(value));
    }
    return settings;
}

std::optional<std::wstring> FileSettingsStore::read(const std::wstring& key) {
    Json settings = load(file_);
    const auto found = find(settings, key);
    return found == settings.end() ? std::nullopt : std::optional(textFromJson(*found));
}

void FileSettingsStore::write(const std::wstring& key, const std::wstring& value) {
    Json settings = load(file_);
    const auto found = find(settings, key);
    if (found == settings.end()) {
        settings[text::toUtf8(key)] = textToJson(value);
    } else {
        *found = textToJson(value);
    }
    try {
        replaceFile(file_, settings.dump(2));
    } catch (const std::runtime_error& error) {
        fail(file_, error.what());
    }
}

}  // namespace program
