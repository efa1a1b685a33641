#include <stdexcept>

#include "fuzz/fuzzInput.h"
#include "platform/terminalText.h"
#include "program/MessageJson.h"

/// Any text is a list of messages or refused in one line; what was read is written so that it reads the same,
/// and nothing in it drives a terminal.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<program::MessageFile> messages;
    try {
        messages = program::parseMessages({reinterpret_cast<const char*>(data), size});
    } catch (const std::runtime_error& error) {
        fuzz::require(std::string_view(error.what()).find('\n') == std::string_view::npos);
        return 0;
    }
    const std::string json = program::toJson(messages);
    for (const wchar_t character : text::fromUtf8(json)) {
        fuzz::require(character == L'\n' || !platform::drivesTerminal(character));
    }
    const auto again = program::parseMessages(json);
    fuzz::require(again.size() == messages.size());
    for (std::size_t index = 0; index < messages.size(); ++index) {
        fuzz::require(again[index].name == messages[index].name);
        fuzz::require(again[index].message.subject == messages[index].message.subject);
        fuzz::require(again[index].message.body == messages[index].message.body);
    }
    fuzz::require(program::toJson(again) == json);
    return 0;
}
