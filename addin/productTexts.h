#pragma once

#include "mail/Globals.h"

namespace addin {

/// Opens the resource library beside the add-in and takes the product's texts from it. Without the library,
/// or a text in it, the built-in one stands.
void readProductTexts(mail::Globals& globals);

}  // namespace addin
