#pragma once

#include "mail/Globals.h"

/// What the user is told when the library that reads mails is missing.
namespace addin::missingLibrary {

/// Finds out whether the library can be had, without a word.
void lookFor(mail::Globals& globals);

/// Says what is missing and what is not done without it.
void tell(const mail::Globals& globals);

}  // namespace addin::missingLibrary
