#include "accounts/listFolder.h"

#include <algorithm>
#include <array>
#include <map>
#include <ranges>
#include <utility>

#include "mail/errorTrap.h"
#include "platform/text.h"

namespace accounts::listFolder {

namespace {

using mail::attempt;
using mail::Globals;
using outlook::Folder;

/// String resources of the folder names.
namespace stringId {
constexpr std::uint32_t parent = 521;
constexpr std::uint32_t folder = 522;
}  // namespace stringId

std::wstring parentName(const Globals& globals) {
    return globals.resourceOr(stringId::parent, oldParentName);
}

std::wstring folderName(const Globals& globals) {
    return globals.resourceOr(stringId::folder, L"Veltro");
}

/// Fails alike for a folder that is missing and for a store that cannot be read just now: nothing is no proof
/// that there is none.
Folder childByName(const Folders& folders, const std::wstring& name) {
    return attempt([&] { return Folder(folders.object().get(L"Item", name).toObject()); }).value_or(Folder());
}

/// Nothing when there surely is none: all sub-folders have been looked at. Throws automation::Error.
Folder searchedChild(const Folders& folders, const std::wstring& name) {
    for (Folder folder : folders) {
        if (text::equalsIgnoringCase(folder.name(), name)) {
            return folder;
        }
    }
    return {};
}

/// In an order that is the same in each Outlook on the mailbox, which that of a folder's items is not: two
/// that unite the items at the same moment must take the same one for the first.
void sortByEntryId(std::vector<outlook::Item>& items) {
    std::multimap<std::wstring, outlook::Item> sorted;  // Items of one id, if ever, all stay.
    for (outlook::Item& item : items) {
        sorted.emplace(item.entryId(), item);
    }
    std::ranges::copy(sorted | std::views::values, items.begin());
}

/// With what it holds. Throws automation::Error.
Place placeOf(const Folder& folder) {
    Place place{folder, {}, folder ? listItems(folder) : std::vector<outlook::Item>()};
    if (place.others.size() > 1) {
        sortByEntryId(place.others);
    }
    if (!place.others.empty()) {
        place.item = place.others.front();
        place.others.erase(place.others.begin());
    }
    return place;
}

}  // namespace

Folders topFolders(const Globals& globals) {
    return globals.outlook.mapiNameSpace().defaultFolder(outlook::folderId::inbox).parent().folders();
}

Folder addedFolder(const Folders& folders, const std::wstring& name) {
    return Folder(folders.object().call(L"Add", name).toObject());
}

Place find(const Globals& globals) {
    return find(globals, topFolders(globals));
}

std::vector<outlook::Item> listItems(const Folder& folder) {
    const outlook::Items items = folder.items();
    const auto withSubject = [](const outlook::Collection<outlook::Item>& searched) {
        std::vector<outlook::Item> found;
        for (outlook::Item item : searched) {
            if (item.subject() == listSubject) {
                found.push_back(std::move(item));
            }
        }
        return found;
    };
    const std::wstring filter = std::wstring(L"[Subject] = '") + listSubject + L'\'';
    auto found = attempt([&] { return withSubject(items.matching(filter)); });
    return found ? *std::move(found) : withSubject(items);  // A store need not know how to search.
}

/// The folder is made under the name that the resource library gives its parent, but does not stay there: the
/// start-up moves it once from "Tarnwell Settings" to "Corvane Settings". Taking it for missing then would
/// put an empty list in the place of the user's. So both places are looked at, that of the resource library
/// first; where both have a folder, the one with the list is it.
Place find(const Globals& globals, const Folders& top) {
    const std::size_t asOf = globals.promptsShown;
    const std::wstring name = folderName(globals);
    const std::array<std::wstring, 3> parents{parentName(globals), newParentName, oldParentName};
    for (const std::wstring& parent : parents) {  // As a rule it is found here, with few calls.
        const Folder above = childByName(top, parent);
        if (const Folder folder = above ? childByName(above.folders(), name) : Folder()) {
            if (Place place = placeOf(folder); place.item) {
                place.asOf = asOf;
                return place;
            }
        }
    }
    Place found;
    for (const std::wstring& candidate : parents) {
        const Folder parent = searchedChild(top, candidate);
        Place place = placeOf(parent ? searchedChild(parent.folders(), name) : Folder());
        if (place.item) {
            found = std::move(place);
            break;
        }
        if (!found.folder) {
            found = std::move(place);
        }
    }
    found.asOf = asOf;
    return found;
}

Folder make(const Globals& globals) {
    const Folders top = topFolders(globals);
    const std::wstring name = parentName(globals);
    const Folder existing = searchedChild(top, name);
    return (existing ? existing : addedFolder(top, name)).addFolder(folderName(globals));
}

std::wstring pathOf(const Globals& globals, const Folder& folder) {
    const auto path = attempt([&] { return folder.path(); });
    return path ? *path : parentName(globals) + L"\\" + folderName(globals);
}

}  // namespace accounts::listFolder
