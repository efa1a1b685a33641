#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "program/MessageJson.h"

namespace program {

/// The contents of a regular file. Throws std::runtime_error with the reason.
std::string readFile(const std::filesystem::path& file);

/// Replaces the file as a whole, or makes it: a reader finds the old contents or the new ones, never half of
/// them. Throws std::runtime_error with the reason.
void replaceFile(const std::filesystem::path& file, std::string_view contents);

/// Reads an e-mail in the Internet format; throws std::runtime_error with the reason.
using Importer = std::function<host::Message(std::string_view)>;

/// The messages of the files: JSON when the name ends in ".json", else e-mails for `importer`, which may be
/// none. Throws std::runtime_error, in one line with the file's name.
std::vector<MessageFile> readMessages(const std::vector<std::wstring>& files, const Importer& importer);

/// The file that a command line names.
std::filesystem::path pathOf(const std::wstring& argument);

}  // namespace program
