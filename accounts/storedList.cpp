#include <utility>

#include "accounts/XmlReader.h"
#include "accounts/clsSendAcct.h"
#include "accounts/emptyList.h"
#include "accounts/listFolder.h"
#include "accounts/listMessages.h"
#include "mail/MapiSession.h"
#include "mail/SafeItems.h"
#include "mail/errorTrap.h"

/// The list in the user's mailbox: the item that holds it, and its folder.
namespace {

using basGlobals::attempt;
using basGlobals::ErrorReport;
using basGlobals::skipErrors;
using platform::Icon;

constexpr std::int32_t mailItem = 0;

/// Writes all of the body or none of it: an item that could not be saved would go on showing, and Outlook
/// perhaps save later, what was only meant to be stored.
void replaceBody(const redemption::SafeItem& item, const std::wstring& before, std::wstring_view body) {
    try {
        item.setBody(body);
        item.save();
    } catch (...) {
        skipErrors([&] {
            item.setBody(before);
            item.save();
        });
        throw;
    }
}

}  // namespace

void clsSendAcct::Initialise() {
    if (const outlook::Folder folder = GetDefaultFolder()) {
        globals_.settingsFolder = listFolder::pathOf(globals_, folder);
    }
}

bool clsSendAcct::LoadList() {
    return !globals_.settingsFolder.empty() && EmailAddressListMailOpen(globals_.settingsFolder);
}

bool clsSendAcct::EmailAddressListMailOpen(const std::wstring& folderPath) {
    list_.reset();
    const auto open = [&] {
        const listFolder::Place place = listFolder::find(globals_);
        if (!place.folder) {
            show(listMessages::folderNotFound(folderPath), Icon::Critical, globals_.product.title);
            return false;
        }
        try {
            load(place.item ? place.item : makeItem(place.folder));
            return true;
        } catch (const rowset::NotARowset&) {
            show(listMessages::corrupted(folderPath), Icon::Information, L"Veltro");
            return false;
        }
    };
    return basGlobals::trapErrors(globals_, ErrorReport::usual(L"clsSendAcct.EmailAddressListMailOpen"), open,
                                  false);
}

void clsSendAcct::load(const outlook::Item& item) {
    list_ = std::make_unique<AccountRows>(redemption::SafeItem(globals_.platform.automation, item).body());
}

bool clsSendAcct::EmailAddressMailSave(const rowset::Rowset& rows, const std::wstring& folderPath) {
    try {
        const outlook::Item item = requireItem();
        if (!item) {
            show(L"Unable to find mail item that is used to save e-mail addresses", Icon::Critical,
                 L"Error: ProjectListMailSave - " + globals_.product.title);
            return false;
        }
        const redemption::SafeItem safe(globals_.platform.automation, item);
        const std::wstring before = safe.body();
        static_cast<void>(AccountRows(before));  // What is no list may be something the user can still mend.
        replaceBody(safe, before, rowset::writeRowset(rows));
        return true;
    } catch (const rowset::NotARowset&) {
        show(listMessages::corrupted(folderPath), Icon::Information, L"Veltro");
    } catch (...) {
        show(L"Error:EmailAddressMailSave - " + basGlobals::currentError().description(), Icon::Critical,
             globals_.product.title);
    }
    return false;
}

outlook::Item clsSendAcct::EmailAddressListMailGet() {
    return basGlobals::trapErrors(globals_, ErrorReport::usual(L"clsSendAcct.EmailAddressListMailGet"),
                                  [&] { return requireItem(); }, {});
}

/// Nothing without a folder. Throws automation::Error.
outlook::Item clsSendAcct::requireItem() {
    const listFolder::Place place = listFolder::find(globals_);
    return place.item || !place.folder ? place.item : makeItem(place.folder);
}

outlook::Item clsSendAcct::EmailAddressListMailMake(const outlook::Folder& folder) {
    return basGlobals::trapErrors(globals_, ErrorReport::usual(L"clsSendAcct.EmailAddressListMailMake"),
                                  [&] { return makeItem(folder); }, {});
}

outlook::Item clsSendAcct::makeItem(const outlook::Folder& folder) {
    const outlook::Item draft(globals_.outlook.object().call(L"CreateItem", mailItem).toObject());
    try {
        draft.setSubject(listFolder::listSubject);
        const redemption::SafeItem safe(globals_.platform.automation, draft);
        safe.setBody(emptyList);
        if (!globals_.googleApps) {  // Its connector would carry the draft to the server before it is moved.
            safe.save();
        }
        outlook::Item item(draft.object().call(L"Move", folder.object()).toObject());
        MarkMailAsRead(item);
        return item;
    } catch (...) {
        skipErrors([&] { draft.object().call(L"Delete"); });  // It may lie among the user's drafts.
        throw;
    }
}

/// So that the folder shows no unread count; one that stays is not worth a message.
void clsSendAcct::MarkMailAsRead(const outlook::Item& item) {
    skipErrors([&] {
        const redemption::MapiCleanUp cleanUp(globals_.platform.automation);
        const redemption::Session session(globals_);
        const outlook::Folder folder(item.object().get(L"Parent").toObject());
        session.message(item.entryId(), folder.storeId()).put(L"UnRead", false);
    });
}

bool clsSendAcct::CreatePostrouteFolder(Asked asked) {
    try {
        outlook::Folder folder = listFolder::find(globals_).folder;
        const bool existed = static_cast<bool>(folder);
        if (!existed) {
            folder = listFolder::make(globals_);
        }
        const std::wstring path = globals_.settingsFolder = listFolder::pathOf(globals_, folder);
        const std::wstring& title = globals_.product.title;
        if (!existed) {
            show(title + L" has created the following folder in Outlook for you:\r\n" + path +
                     L"\r\n\r\nThis folder is used to save your " + title +
                     L" Settings.\r\nPlease do not delete or change the folder or the e-mails in it.",
                 Icon::Information, title);
        } else if (asked == Asked::ByUser) {
            show(L"The folder " + path + L" is there already.", Icon::Information,
                 L"Folder already exists - Veltro");
        }
        return true;
    } catch (...) {
        show(L"Unable to create the folder.", Icon::Critical, globals_.product.title);
        return false;
    }
}

outlook::Folder clsSendAcct::GetDefaultFolder() {
    return attempt([&] { return listFolder::find(globals_).folder; }).value_or(outlook::Folder());
}
