#pragma once

#include "mail/Globals.h"

namespace addin {

/// Opens the resource library beside the add-in and takes the product's texts from it. Without the library,
/// or a text in it, the built-in one stands. Nothing is read a second time while the library is open.
void readProductTexts(mail::Globals& globals);

}  // namespace addin
