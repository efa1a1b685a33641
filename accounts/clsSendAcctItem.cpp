#include "accounts/XmlReader.h"
#include "accounts/clsSendAcct.h"
#include "accounts/emptyList.h"
#include "accounts/listFolder.h"
#include "mail/Provider.h"
#include "mail/basGlobals.h"
#include "mail/errorTrap.h"

namespace accounts {

/// The item that holds the list, and its folder.
namespace {

using mail::attempt;
using mail::ErrorReport;
using mail::Globals;
using mail::skipErrors;
using platform::Icon;

bool holdsList(const Globals& globals, const outlook::Item& item) {
    return skipErrors([&] { AccountRows(mail::SafeItem(globals, item).body()); });
}

/// An item of the list's that was made, but could be neither moved to its folder nor deleted: it lies among
/// the user's drafts, of which one may have the same subject.
outlook::Item leftDraft(const Globals& globals) {
    const auto search = [&]() -> outlook::Item {
        const outlook::Folder drafts =
            globals.outlook.mapiNameSpace().defaultFolder(outlook::folderId::drafts);
        for (const outlook::Item& item : listFolder::listItems(drafts)) {
            if (holdsList(globals, item)) {
                return item;
            }
        }
        return {};
    };
    return attempt(search).value_or(outlook::Item());
}

outlook::Item moved(const outlook::Item& draft, const outlook::Folder& folder) {
    return outlook::Item(draft.object().call(L"Move", folder.object()).toObject());
}

/// A new item with an empty list, in the folder.
outlook::Item newItem(Globals& globals, const outlook::Folder& folder) {
    const bool googleApps = mail::GoogleAppConnected(globals);
    const outlook::Item draft = globals.outlook.createMail();
    try {
        draft.setSubject(listFolder::listSubject);
        const mail::SafeItem safe(globals, draft);
        safe.setBody(emptyList);
        if (!googleApps) {  // Its connector would carry the draft to the server before it is moved.
            safe.save();
        }
        return moved(draft, folder);
    } catch (...) {
        skipErrors([&] { draft.object().call(L"Delete"); });  // It may lie among the user's drafts.
        throw;
    }
}

/// `made`: whether it had to be. Throws automation::Error when it cannot be.
listFolder::Place requireFolder(const Globals& globals, bool& made) {
    listFolder::Place place = listFolder::find(globals);
    if (place.folder) {
        return place;
    }
    try {
        place.folder = listFolder::make(globals);
        made = true;
    } catch (...) {
        place = listFolder::find(globals);  // A send in another window may have made it meanwhile.
        if (!place.folder) {
            throw;
        }
    }
    return place;
}

}  // namespace

listFolder::Place clsSendAcct::Initialise() {
    const auto top = attempt([&] { return listFolder::topFolders(globals_); });
    return top ? Initialise(*top) : listFolder::Place();
}

listFolder::Place clsSendAcct::Initialise(const listFolder::Folders& top) {
    listFolder::Place place =
        attempt([&] { return listFolder::find(globals_, top); }).value_or(listFolder::Place());
    if (place.folder) {
        globals_.settingsFolder = listFolder::pathOf(globals_, place.folder);
    }
    return place;
}

outlook::Item clsSendAcct::EmailAddressListMailGet() {
    return mail::trapErrors(globals_, ErrorReport::usual(L"clsSendAcct.EmailAddressListMailGet"),
                            [&] { return requirePlace().item; }, {});
}

/// Without an item only where there is no folder. Throws automation::Error.
listFolder::Place clsSendAcct::requirePlace() {
    listFolder::Place place = listFolder::find(globals_);
    if (place.item || !place.folder) {
        return place;
    }
    place.item = makeItem(place.folder);
    // Meanwhile another Outlook, or a send in another window, may have made one too.
    listFolder::Place found = listFolder::find(globals_);
    return found.item ? found : place;
}

outlook::Item clsSendAcct::EmailAddressListMailMake(const outlook::Folder& folder) {
    return mail::trapErrors(globals_, ErrorReport::usual(L"clsSendAcct.EmailAddressListMailMake"),
                            [&] { return makeItem(folder); }, {});
}

outlook::Item clsSendAcct::makeItem(const outlook::Folder& folder) {
    const outlook::Item left = leftDraft(globals_);
    outlook::Item item = left ? moved(left, folder) : newItem(globals_, folder);
    MarkMailAsRead(item);
    return item;
}

/// So that the folder shows no unread count; one that stays is not worth a message.
void clsSendAcct::MarkMailAsRead(const outlook::Item& item) {
    skipErrors([&] {
        const mail::MapiCleanUp cleanUp(globals_);
        globals_.provider->session(globals_)->markAsRead(item);
    });
}

std::optional<listFolder::Place> clsSendAcct::CreatePostrouteFolder(Asked asked) {
    try {
        bool made = false;
        const listFolder::Place place = requireFolder(globals_, made);
        if (!made && asked == Asked::BySend && !globals_.settingsFolder.empty()) {
            return place;
        }
        const std::wstring path = globals_.settingsFolder = listFolder::pathOf(globals_, place.folder);
        const std::wstring& title = globals_.product.title;
        if (made) {
            show(title + L" has created the following folder in Outlook for you:\r\n" + path +
                     L"\r\n\r\nThis folder is used to save your " + title +
                     L" Settings.\r\nPlease do not delete or change the folder or the e-mails in it.",
                 Icon::Information, title);
        } else if (asked == Asked::ByUser) {
            show(L"The folder " + path + L" is there already.", Icon::Information,
                 L"Folder already exists - Veltro");
        }
        return place;
    } catch (...) {
        mail::noteError(std::source_location::current());
        show(L"Unable to create the folder.", Icon::Critical, globals_.product.title);
        return std::nullopt;
    }
}

outlook::Folder clsSendAcct::GetDefaultFolder() {
    return attempt([&] { return listFolder::find(globals_).folder; }).value_or(outlook::Folder());
}

}  // namespace accounts
