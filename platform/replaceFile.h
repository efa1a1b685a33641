#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

/// Files that are replaced as a whole. What throws here throws std::runtime_error with the reason.
namespace platform {

/// Replaces the file as a whole, or makes it for the user alone: a reader finds the old contents or the new
/// ones, never half of them, and what fails leaves the old ones. Symbolic links are followed and permissions
/// kept. Throws.
void replaceFile(const std::filesystem::path& file, std::string_view contents);

/// Throws when the file is there and is none that could be replaced: read-only, a folder, a pipe.
void checkReplaceable(const std::filesystem::path& file);

/// Whether a file is there, and what. Throws when the system does not tell.
std::filesystem::file_status statusOf(const std::filesystem::path& file);

/// Where a symbolic link leads in the end, even if nothing is there. Throws when it leads nowhere.
std::filesystem::path followLinks(std::filesystem::path file);

/// Writes a new file beside `file`, for the user alone and under a name that no other run uses. Each world
/// implements it. Throws.
std::filesystem::path writeTemporary(const std::filesystem::path& file, std::string_view contents);

/// Gives a file another's name, in place of the other. Each world implements it.
std::error_code moveOver(const std::filesystem::path& file, const std::filesystem::path& other);

/// Why the system refused, in one line.
std::string reasonOf(const std::error_code& error);

}  // namespace platform
