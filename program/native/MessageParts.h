#pragma once

#include <gmime/gmime.h>

#include "host/Message.h"

namespace program {

/// Fills body, HTML and attachments of `message` from the parts of the mail, as Outlook shares them out: the
/// first text, or the texts of the first alternative, is the body, and every other part an attachment.
void readParts(GMimeMessage* mail, host::Message& message);

}  // namespace program
