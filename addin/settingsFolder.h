#pragma once

#include "mail/Globals.h"

namespace addin::settingsFolder {

/// Moves the folder with the product's data once from "Tarnwell Settings" to "Corvane Settings" in the store
/// of the Inbox, and tells the user. Errors are skipped; a profile whose old folder could not be found is
/// looked at again at the next start.
void moveToCurrentPlace(mail::Globals& globals);

/// Moves the data folder into "Corvane Settings" of the store, which is added when missing. Throws
/// automation::Error.
void MoveVeltroDataFolder(const outlook::Folder& store, const outlook::Folder& dataFolder);

}  // namespace addin::settingsFolder
