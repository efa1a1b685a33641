#include "addin/settingsFolder.h"

#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"

namespace addin::settingsFolder {

namespace {

using accounts::listFolder::newParentName;
using accounts::listFolder::oldParentName;
using mail::attempt;
using mail::Globals;
using mail::skipErrors;

constexpr wchar_t dataFolderName[] = L"Veltro";
constexpr wchar_t done[] = L"1";

struct OldPlace {
    outlook::Folder parent;
    outlook::Folder dataFolder;
};

outlook::Folder named(const accounts::listFolder::Folders& top, const wchar_t* name) {
    return outlook::Folder(top.object().get(L"Item", name).toObject());
}

OldPlace findOldPlace(const accounts::listFolder::Folders& top) {
    OldPlace place;
    place.parent = named(top, oldParentName);
    place.dataFolder = place.parent.folder(dataFolderName);
    return place;
}

/// The item that holds the list of preferred accounts.
bool holdsList(const outlook::Folder& folder) {
    for (const outlook::Item item : folder.items()) {
        if (text::equalsTrimmed(item.subject(), accounts::listFolder::listSubject)) {
            return true;
        }
    }
    return false;
}

void tellMoved(const Globals& globals) {
    const std::wstring& title = globals.product.title;
    globals.platform.desktop.messageBox(
        L"We have made a small change on how " + title +
            L" saves its data. This will make no difference to the way you use " + title +
            L".\r\n\r\nYour settings have been now moved from the 'Tarnwell Settings\\Veltro' email folder "
            L"to the 'Corvane Settings\\" +
            title + L"' email folder.\r\nThis message will not be displayed again.",
        {platform::Buttons::Ok, platform::Icon::Information}, L"Move " + title + L" Settings - " + title);
}

void removeIfEmpty(const outlook::Folder& folder) {
    if (folder.folders().count() == 0 && folder.items().count() == 0) {
        folder.remove();
    }
}

}  // namespace

void MoveVeltroDataFolder(const accounts::listFolder::Folders& top, const outlook::Folder& dataFolder) {
    const auto existing = attempt([&] { return named(top, newParentName); });
    dataFolder.moveTo(existing && *existing ? *existing
                                            : accounts::listFolder::addedFolder(top, newParentName));
}

void moveToCurrentPlace(Globals& globals, const accounts::listFolder::Folders& top) {
    if (modRegKeys::blnMoveVT.read(globals) == done) {
        return;
    }
    const auto place = attempt([&] { return findOldPlace(top); });
    if (!place || !place->dataFolder) {
        return;
    }
    const auto found = attempt([&] { return holdsList(place->dataFolder); });
    if (!found) {
        return;  // Unread is not empty: the next start looks again.
    }
    const bool moved = *found && skipErrors([&] { MoveVeltroDataFolder(top, place->dataFolder); });
    skipErrors([&] { modRegKeys::blnMoveVT.write(globals, done); });
    if (moved) {
        skipErrors([&] { tellMoved(globals); });
        skipErrors([&] { removeIfEmpty(place->parent); });
    }
}

}  // namespace addin::settingsFolder
