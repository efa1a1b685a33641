#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

/// JSON as the program reads and writes it.
namespace program {

/// Members keep their order.
using Json = nlohmann::ordered_json;

/// Throws std::runtime_error, with the place in one line, when the text is no JSON or nests deeper than
/// anything that the program writes.
Json parseJson(std::string_view text);

/// The JSON text, on one line unless `indent` says otherwise. Whatever could drive a terminal stands in it as
/// an escape, so that nothing is lost and any terminal may show it; what is no character is U+FFFD.
std::string jsonText(const Json& json, int indent = -1);

}  // namespace program
