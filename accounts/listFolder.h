#pragma once

#include <string>
#include <vector>

#include "mail/Globals.h"
#include "platform/outlook.h"

/// The folder of the user's own mailbox that holds the list of preferred accounts.
namespace accounts::listFolder {

/// What an item must have as its subject, to the letter, to be the one that holds the list.
inline constexpr wchar_t listSubject[] = L"Email Address";

/// Below which folder of the mailbox it lies: first under the old name, moved once to the new one.
inline constexpr wchar_t oldParentName[] = L"Tarnwell Settings";
inline constexpr wchar_t newParentName[] = L"Corvane Settings";

struct Place {
    /// Nothing when there is none.
    outlook::Folder folder;
    /// The item that holds the list; nothing when the folder has none.
    outlook::Item item;
    /// More items of the list's subject.
    std::vector<outlook::Item> others;
    /// How many prompts had been shown when it was looked for.
    std::size_t asOf = 0;
};

using Folders = outlook::Collection<outlook::Folder>;

/// Those of the user's own mailbox that lie in no other. Throws automation::Error.
Folders topFolders(const mail::Globals& globals);

/// A new one among them. Throws automation::Error.
outlook::Folder addedFolder(const Folders& folders, const std::wstring& name);

/// Looks for the folder in the places where it can be. Throws automation::Error when the mailbox cannot be
/// searched: what could not be seen does not count as missing.
Place find(const mail::Globals& globals);
/// The same below the mailbox's top folders.
Place find(const mail::Globals& globals, const Folders& top);

/// The items of a folder that have the subject of the list, in their order. Throws automation::Error.
std::vector<outlook::Item> listItems(const outlook::Folder& folder);

/// Adds the folder, and its parent when that is missing too. Throws automation::Error.
outlook::Folder make(const mail::Globals& globals);

/// For the user's eyes.
std::wstring pathOf(const mail::Globals& globals, const outlook::Folder& folder);

}  // namespace accounts::listFolder
