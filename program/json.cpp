#include "program/json.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "platform/terminalText.h"
#include "platform/text.h"

namespace program {

namespace {

/// The library's objects are taken apart and written by functions that call themselves, once a level.
constexpr int deepest = 64;

bool nestsTooDeeply(std::string_view text) {
    int depth = 0;
    bool inString = false;
    for (std::size_t position = 0; position < text.size() && depth <= deepest; ++position) {
        const char character = text[position];
        if (character == '"') {
            inString = !inString;
        } else if (inString) {
            position += character == '\\' ? 1 : 0;
        } else if (character == '[' || character == '{') {
            ++depth;
        } else if (character == ']' || character == '}') {
            --depth;
        }
    }
    return depth > deepest;
}

[[noreturn]] void refuse(std::string_view text, std::size_t position) {
    const std::string_view read = text.substr(0, position == 0 ? 0 : position - 1);
    const auto line = std::ranges::count(read, '\n') + 1;
    throw std::runtime_error("is no JSON: line " + std::to_string(line) + " cannot be read");
}

}  // namespace

Json parseJson(std::string_view text) {
    if (nestsTooDeeply(text)) {
        throw std::runtime_error("nests lists and objects deeper than " + std::to_string(deepest));
    }
    try {
        return Json::parse(text);
    } catch (const Json::parse_error& error) {
        refuse(text, error.byte);
    } catch (const Json::exception&) {
        throw std::runtime_error("is no JSON: it holds a number that is too large");
    }
}

std::string jsonText(const Json& json, int indent) {
    const std::string plain = json.dump(indent, ' ', false, Json::error_handler_t::replace);
    std::string shown;
    for (std::size_t position = 0; position < plain.size();) {
        // The library has escaped what drives a terminal in the first half of ASCII.
        const auto lead = static_cast<unsigned char>(plain[position]);
        const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
        const std::string_view character = std::string_view(plain).substr(position, length);
        const wchar_t wide = lead < 0x7F ? L' ' : text::fromUtf8(character).front();
        if (platform::drivesTerminal(wide)) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(wide) & 0xFFFFU);
            shown += escape;
        } else {
            shown += character;
        }
        position += length;
    }
    return shown;
}

}  // namespace program
