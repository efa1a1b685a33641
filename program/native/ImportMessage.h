#pragma once

#include <string_view>

#include "host/Message.h"

namespace program {

/// Reads an e-mail in the Internet format as Outlook would show it. Throws std::runtime_error, with the
/// reason in one line, when the text is no e-mail: empty, or without any header field that mail has. What is
/// only damaged (cut off, wrongly encoded, malformed dates and addresses) is read as far as it goes.
host::Message importMessage(std::string_view mail);

}  // namespace program
