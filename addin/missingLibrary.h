#pragma once

#include "mail/Globals.h"

/// What the user is told when the library that reads mails is missing.
namespace missingLibrary {

/// Finds out whether the library can be had, without a word.
void lookFor(basGlobals::Globals& globals);

/// Says what is missing and what is not done without it.
void tell(const basGlobals::Globals& globals);

}  // namespace missingLibrary
