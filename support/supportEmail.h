#pragma once

#include "mail/Globals.h"

namespace support {

/// Prepares an e-mail to the product's support, with a report of the user's system below the place for the
/// question, and shows it; the user sends it, or not. When it fails, what there is by then stays on the
/// screen, without a word. Never throws.
void ComposeSupportEmail(const mail::Globals& globals);

}  // namespace support
