#include "program/files.h"

#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "platform/characters.h"
#include "platform/replaceFile.h"
#include "platform/text.h"

namespace program {

namespace {

/// No mail is as large, but a device may go on for ever.
constexpr std::size_t largestFile = std::size_t{256} << 20;

/// Bytes that are no UTF-8 stand for themselves here.
constexpr wchar_t firstRawByte = 0xDC00;

bool isRawByte(wchar_t character) {
    return character >= firstRawByte + 0x80 && character <= firstRawByte + 0xFF;
}

/// How many bytes make the character that starts here; 0 when they are no UTF-8.
std::size_t characterLength(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes.front());
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    const std::wstring character = text::fromUtf8(bytes.substr(0, length));
    const bool same = text::toUtf8(character) == bytes.substr(0, length);
    return same && !text::isSurrogate(static_cast<char32_t>(character.front())) ? length : 0;
}

std::filesystem::path lockFileOf(const std::filesystem::path& file) {
    platform::checkReplaceable(file);
    auto lockFile = platform::followLinks(file);
    const auto folder = lockFile.parent_path();
    if (!folder.empty() && !std::filesystem::exists(platform::statusOf(folder))) {
        throw std::runtime_error("there is no such folder");
    }
    return lockFile += ".lock";
}

}  // namespace

std::wstring fileNameFromBytes(std::string_view bytes) {
    std::wstring name;
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes);
        if (length > 0) {
            name += text::fromUtf8(bytes.substr(0, length));
        } else {
            name += static_cast<wchar_t>(firstRawByte + static_cast<unsigned char>(bytes.front()));
        }
        bytes.remove_prefix(length > 0 ? length : 1);
    }
    return name;
}

std::filesystem::path pathOf(const std::wstring& fileName) {
    if constexpr (std::filesystem::path::preferred_separator == '/') {
        std::string bytes;
        for (const wchar_t character : fileName) {
            bytes += isRawByte(character) ? std::string(1, static_cast<char>(character - firstRawByte))
                                          : text::toUtf8({&character, 1});
        }
        return {bytes};
    } else {
        return {fileName};
    }
}

std::string readAll(std::istream& stream) {
    std::string contents;
    char buffer[1 << 16];
    while (stream.read(buffer, sizeof buffer) || stream.gcount() > 0) {
        contents.append(buffer, static_cast<std::size_t>(stream.gcount()));
        if (contents.size() > largestFile) {
            throw std::runtime_error("is larger than " + std::to_string(largestFile >> 20) + " MB");
        }
    }
    if (stream.bad()) {
        throw std::runtime_error("cannot be read");
    }
    return contents;
}

std::string readFile(const std::filesystem::path& file) {
    const auto status = platform::statusOf(file);
    if (!std::filesystem::exists(status)) {
        throw std::runtime_error("there is no such file");
    }
    if (std::filesystem::is_directory(status)) {
        throw std::runtime_error("is a folder");
    }
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error(errno == 0
                                     ? "cannot be read"
                                     : platform::reasonOf(std::error_code(errno, std::generic_category())));
    }
    return readAll(stream);
}

std::string readKeptFile(const std::filesystem::path& file) {
    platform::checkReplaceable(file);
    return std::filesystem::exists(platform::statusOf(file)) ? readFile(file) : std::string();
}

FileLock::FileLock(const std::filesystem::path& file) {
    take(file, true);
}

std::optional<FileLock> FileLock::tryLock(const std::filesystem::path& file) {
    FileLock lock;
    if (!lock.take(file, false)) {
        return std::nullopt;
    }
    return lock;
}

bool FileLock::take(const std::filesystem::path& file, bool wait) {
    const auto lockFile = lockFileOf(file);
    try {
        return takeLockFile(lockFile, wait);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(std::string("its .lock file: ") + error.what());
    }
}

FileLock::FileLock(FileLock&& other) noexcept
    : file_(std::move(other.file_)), handle_(std::exchange(other.handle_, -1)) {}

}  // namespace program
