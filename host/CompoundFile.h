#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace host {

/// What a compound file (structured storage) holds: a file system of storages and streams in one file.
struct CompoundFile {
    /// Sixteen bytes that say what the file is.
    std::string classId{};
    /// The streams by their paths, in which "/" stands between the names of storages and stream.
    std::map<std::string, std::string> streams{};
};

/// Reads version 3 up to seven megabytes, whose allocation table fits into the header, with names in ASCII.
/// Throws automation::Error for anything else, and for what is damaged.
CompoundFile readCompoundFile(std::string_view bytes);

/// What is thrown for a damaged file.
[[noreturn]] void damagedFile();

/// An unsigned number in the file's order of bytes. Throws when it does not stand there whole.
template <class Number>
Number numberAt(std::string_view bytes, std::size_t place) {
    if (place + sizeof(Number) > bytes.size()) {
        damagedFile();
    }
    Number number = 0;
    for (std::size_t index = sizeof(Number); index > 0; --index) {
        const auto byte = static_cast<std::uint8_t>(bytes[place + index - 1]);
        number = static_cast<Number>((number << 8) | byte);
    }
    return number;
}

}  // namespace host
