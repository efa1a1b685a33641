#pragma once

#include <string>
#include <vector>

#include "host/Message.h"
#include "program/json.h"

namespace program {

/// A message and the file it was read from.
struct MessageFile {
    std::wstring name;
    host::Message message;
};

/// The messages as JSON text, one array. Everything survives; a text with lone surrogates, which JSON cannot
/// hold, becomes an object with its UTF-16 units.
std::string toJson(const std::vector<MessageFile>& messages);

/// Reads what toJson wrote; members may be missing. Throws std::runtime_error, with the reason
/// in one line, when it is anything else.
std::vector<MessageFile> parseMessages(std::string_view json);

/// The text as JSON, lone surrogates included.
Json textToJson(const std::wstring& text);
/// Throws std::runtime_error when it is no text.
std::wstring textFromJson(const Json& json);

}  // namespace program
