#include "host/VbaProject.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>

#include "host/CompoundFile.h"
#include "platform/automation.h"
#include "platform/files.h"

namespace host {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view wordClassId = "\x06\x09\x02\x00\x00\x00\x00\x00\xC0\x00\x00\x00\x00\x00\x00\x46"sv;

/// Records of the project's directory.
namespace record {
constexpr std::uint16_t version = 0x0009;
constexpr std::uint16_t streamName = 0x001A;
constexpr std::uint16_t moduleOffset = 0x0031;
}  // namespace record

std::uint8_t byteAt(std::string_view bytes, std::size_t place) {
    return numberAt<std::uint8_t>(bytes, place);
}

/// A copy of what came before in the chunk. The longer the chunk is by now, the more bits tell the distance.
void copyEarlier(std::string& chunk, std::uint16_t token) {
    unsigned bits = 4;
    while ((std::size_t{1} << bits) < chunk.size()) {
        ++bits;
    }
    const unsigned lengthMask = 0xFFFFU >> bits;
    const std::size_t distance = (token >> (16 - bits)) + std::size_t{1};
    if (distance > chunk.size()) {
        damagedFile();
    }
    for (std::size_t left = (token & lengthMask) + std::size_t{3}; left > 0; --left) {
        chunk.push_back(chunk[chunk.size() - distance]);
    }
}

std::string expanded(std::string_view packed) {
    std::string chunk;
    std::size_t place = 0;
    while (place < packed.size()) {
        std::uint8_t flags = byteAt(packed, place++);
        for (int token = 0; token < 8 && place < packed.size(); ++token, flags >>= 1) {
            if ((flags & 1) == 0) {
                chunk.push_back(packed[place++]);
            } else {
                copyEarlier(chunk, numberAt<std::uint16_t>(packed, place));
                place += 2;
            }
        }
    }
    return chunk;
}

/// The data of a compressed container, which consists of chunks.
std::string decompressed(std::string_view container) {
    if (byteAt(container, 0) != 1) {
        damagedFile();
    }
    std::string data;
    std::size_t place = 1;
    while (place < container.size()) {
        const auto header = numberAt<std::uint16_t>(container, place);
        const std::size_t size = (header & 0x0FFFU) + std::size_t{1};
        const std::string_view chunk = container.substr(place + 2, size);
        if (chunk.size() < size) {
            damagedFile();
        }
        data += (header & 0x8000U) != 0 ? expanded(chunk) : std::string(chunk);
        place += 2 + size;
    }
    return data;
}

const std::string& streamOf(const CompoundFile& file, const std::string& name) {
    const auto found = file.streams.find("Macros/VBA/" + name);
    if (found == file.streams.end()) {
        damagedFile();
    }
    return found->second;
}

}  // namespace

std::vector<std::string> readMacroModules(std::string_view templateFile) {
    const CompoundFile file = readCompoundFile(templateFile);
    if (file.classId != wordClassId) {
        damagedFile();
    }
    const std::string directory = decompressed(streamOf(file, "dir"));
    std::vector<std::string> modules;
    std::string stream;
    for (std::size_t place = 0; place < directory.size();) {
        const auto id = numberAt<std::uint16_t>(directory, place);
        // The record of the version is two bytes longer than it says.
        const std::size_t size =
            numberAt<std::uint32_t>(directory, place + 2) + (id == record::version ? std::size_t{2} : 0);
        const std::string_view data = std::string_view(directory).substr(place + 6, size);
        if (id == record::streamName) {
            stream = data;
        } else if (id == record::moduleOffset) {
            const std::string_view source = streamOf(file, stream);
            const auto start = std::min<std::size_t>(numberAt<std::uint32_t>(data, 0), source.size());
            modules.push_back(decompressed(source.substr(start)));
        }
        place += 6 + size;
    }
    return modules;
}

std::vector<std::string> macroModulesOf(const std::wstring& path) {
    std::ifstream file(platform::filePath(path), std::ios::binary);
    if (!file) {
        throw automation::Error(5174, L"This file could not be found.", L"Microsoft Word");
    }
    return readMacroModules(std::string(std::istreambuf_iterator<char>(file), {}));
}

}  // namespace host
