#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "program/MessageJson.h"

namespace program {

/// Reads an e-mail in the Internet format; throws std::runtime_error with the reason.
using Importer = std::function<host::Message(std::string_view)>;

/// Told of a file that cannot be read and why, in one line.
using Unreadable = std::function<void(const std::wstring& file, const std::string& why)>;

/// The messages of the files, "-" being the standard input: JSON when the name ends in ".json" or the
/// contents begin with "[", as no mail can, else e-mails for `importer`, which may be none. A file that
/// cannot be read is told of and passed over.
std::vector<MessageFile> readMessages(const std::vector<std::wstring>& files, const Importer& importer,
                                      const Unreadable& unreadable);

}  // namespace program
