#pragma once

#include "accounts/listFolder.h"
#include "mail/Globals.h"

namespace addin::settingsFolder {

/// Moves the folder with the product's data once from "Tarnwell Settings" to "Corvane Settings" in the store
/// of the Inbox, and tells the user. Errors are skipped; a profile whose old folder could not be found is
/// looked at again at the next start.
void moveToCurrentPlace(mail::Globals& globals, const accounts::listFolder::Folders& top);

/// Moves the data folder into "Corvane Settings" among the mailbox's top folders, which is added when
/// missing. Throws automation::Error.
void MoveVeltroDataFolder(const accounts::listFolder::Folders& top, const outlook::Folder& dataFolder);

}  // namespace addin::settingsFolder
