#include "platform/replaceFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <stdexcept>

namespace platform {

namespace {

[[noreturn]] void fail(int error) {
    throw std::runtime_error(reasonOf(std::error_code(error, std::generic_category())));
}

bool writeAll(int descriptor, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t written = write(descriptor, contents.data(), contents.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        contents.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return true;
}

}  // namespace

std::filesystem::path writeTemporary(const std::filesystem::path& file, std::string_view contents) {
    std::string name = file.string() + ".XXXXXX";
    const int descriptor = mkostemp(name.data(), O_CLOEXEC);  // For the user alone.
    if (descriptor < 0) {
        fail(errno);
    }
    int failure = writeAll(descriptor, contents) ? 0 : errno;
    if (close(descriptor) != 0 && failure == 0) {
        failure = errno;
    }
    if (failure != 0) {
        unlink(name.c_str());
        fail(failure);
    }
    return name;
}

std::error_code moveOver(const std::filesystem::path& file, const std::filesystem::path& other) {
    std::error_code error;
    std::filesystem::rename(file, other, error);
    return error;
}

}  // namespace platform
