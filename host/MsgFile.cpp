#include "host/MsgFile.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>

#include "host/CompoundFile.h"
#include "host/hostErrors.h"
#include "platform/automation.h"
#include "platform/files.h"
#include "platform/text.h"

namespace host {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view messageClassId =
    "\x0B\x0D\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46"sv;

namespace type {
constexpr std::uint16_t integer = 0x0003;
constexpr std::uint16_t text = 0x001E;
constexpr std::uint16_t binary = 0x0102;
}  // namespace type

/// Bits of the message's flags.
constexpr std::uint32_t isRead = 1;
constexpr std::uint32_t isUnsent = 8;

/// The message's properties that are numbers or texts, by their ids.
struct Properties {
    std::map<std::uint16_t, std::uint32_t> numbers;
    std::map<std::uint16_t, std::wstring> texts;

    std::wstring text(std::uint16_t id) const {
        const auto found = texts.find(id);
        return found == texts.end() ? std::wstring() : found->second;
    }
    std::optional<Address> address(std::uint16_t name, std::uint16_t kind, std::uint16_t address) const {
        if (!texts.contains(address)) {
            return std::nullopt;
        }
        return Address{.name = text(name), .address = text(address), .type = text(kind)};
    }
};

const std::string& streamOf(const CompoundFile& file, const std::string& name) {
    const auto found = file.streams.find(name);
    if (found == file.streams.end()) {
        damagedFile();
    }
    return found->second;
}

/// The value of a property that has a stream of its own.
const std::string& valueOf(const CompoundFile& file, std::uint16_t id, std::uint16_t kind, std::size_t size) {
    const std::uint8_t tag[] = {static_cast<std::uint8_t>(id >> 8), static_cast<std::uint8_t>(id),
                                static_cast<std::uint8_t>(kind >> 8), static_cast<std::uint8_t>(kind)};
    const std::string& value = streamOf(file, "__substg1.0_" + text::toUtf8(text::hexadecimal(tag)));
    if (value.size() != size) {
        damagedFile();
    }
    return value;
}

Properties propertiesOf(const CompoundFile& file) {
    constexpr std::size_t headerSize = 32;
    constexpr std::size_t entrySize = 16;
    const std::string& table = streamOf(file, "__properties_version1.0");
    if (table.size() < headerSize || (table.size() - headerSize) % entrySize != 0) {
        damagedFile();
    }
    Properties properties;
    for (std::size_t place = headerSize; place < table.size(); place += entrySize) {
        const auto kind = numberAt<std::uint16_t>(table, place);
        const auto id = numberAt<std::uint16_t>(table, place + 2);
        const auto value = numberAt<std::uint32_t>(table, place + 8);
        if (kind == type::integer) {
            properties.numbers[id] = value;
        } else if (kind == type::text) {
            // The zero at its end is counted, though the stream has none.
            const std::string& text = valueOf(file, id, kind, std::size_t{value} - 1);
            if (text.empty()) {
                damagedFile();
            }
            properties.texts[id] = text::fromCodePage(text);
        } else if (kind == type::binary) {
            valueOf(file, id, kind, value);
        }
    }
    return properties;
}

}  // namespace

MsgFile parseMsgFile(std::string_view bytes) {
    const CompoundFile file = readCompoundFile(bytes);
    if (file.classId != messageClassId) {
        damagedFile();
    }
    for (const char* tag : {"00020102", "00030102", "00040102"}) {
        streamOf(file, std::string("__nameid_version1.0/__substg1.0_") + tag);
    }
    const Properties properties = propertiesOf(file);
    const auto flags = properties.numbers.find(0x0E07);
    if (flags == properties.numbers.end()) {
        damagedFile();
    }
    MsgFile result;
    result.messageClass = properties.text(0x001A);
    result.message.subject = properties.text(0x0037);
    result.message.body = properties.text(0x1000);
    result.message.from = properties.address(0x0C1A, 0x0C1E, 0x0C1F);
    result.message.onBehalfOf = properties.address(0x0042, 0x0064, 0x0065);
    result.sent = (flags->second & isUnsent) == 0;
    result.unread = (flags->second & isRead) == 0;
    return result;
}

MsgFile readMsgFile(const std::wstring& path) {
    constexpr std::uintmax_t longest = 8'000'000;  // What lies behind is in no chain.
    const std::filesystem::path file = platform::filePath(path);
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    std::string bytes(error ? 0 : static_cast<std::size_t>(std::min(size, longest)), '\0');
    if (error || !std::ifstream(file, std::ios::binary)
                      .read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        constexpr auto notFound = static_cast<std::int32_t>(0x80030002);  // STG_E_FILENOTFOUND
        throw automation::Error(notFound, L"The file could not be found.");
    }
    return parseMsgFile(bytes);
}

}  // namespace host
