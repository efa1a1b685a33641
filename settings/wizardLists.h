#pragma once

#include "settings/EditedList.h"

/// The texts of the lists that the settings dialog edits.
namespace settings::wizardLists {

extern const EditedListTexts spamWords;
extern const EditedListTexts keywords;
extern const EditedListTexts confirmedAddresses;
extern const EditedListTexts delayedAddresses;
extern const EditedListTexts ownAddresses;

}  // namespace settings::wizardLists
