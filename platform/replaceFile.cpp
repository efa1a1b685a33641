#include "platform/replaceFile.h"

#include <stdexcept>

namespace platform {

std::string reasonOf(const std::error_code& error) {
    if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted) {
        return "permission denied";
    }
    return error.message();
}

std::filesystem::file_status statusOf(const std::filesystem::path& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (error && status.type() != std::filesystem::file_type::not_found) {
        throw std::runtime_error(reasonOf(error));
    }
    return status;
}

std::filesystem::path followLinks(std::filesystem::path file) {
    constexpr int longestChain = 40;
    std::error_code error;
    for (int links = 0; links < longestChain; ++links) {
        const auto target = std::filesystem::read_symlink(file, error);
        if (error) {
            return file;
        }
        file = target.is_absolute() ? target : file.parent_path() / target;
    }
    throw std::runtime_error("is a symbolic link that leads to itself");
}

void checkReplaceable(const std::filesystem::path& file) {
    using std::filesystem::perms;
    const auto status = statusOf(file);
    if (!std::filesystem::exists(status)) {
        return;
    }
    if (std::filesystem::is_directory(status)) {
        throw std::runtime_error("is a folder");
    }
    if (!std::filesystem::is_regular_file(status)) {
        throw std::runtime_error("is no regular file");
    }
    const perms readable = perms::owner_read | perms::group_read | perms::others_read;
    if ((status.permissions() & readable) == perms::none) {
        throw std::runtime_error("permission denied");
    }
    const perms writable = perms::owner_write | perms::group_write | perms::others_write;
    if ((status.permissions() & writable) == perms::none) {
        throw std::runtime_error("is read-only");
    }
}

void replaceFile(const std::filesystem::path& file, std::string_view contents) {
    checkReplaceable(file);
    const auto status = statusOf(file);
    const auto target = followLinks(file);
    const auto temporary = writeTemporary(target, contents);
    std::error_code error;
    if (std::filesystem::exists(status)) {
        std::filesystem::permissions(temporary, status.permissions(), error);
    }
    if (!error) {
        error = moveOver(temporary, target);
    }
    if (error) {
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
        throw std::runtime_error(reasonOf(error));
    }
}

}  // namespace platform
