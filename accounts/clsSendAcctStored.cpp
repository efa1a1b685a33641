#include <utility>

#include "accounts/ListChange.h"
#include "accounts/XmlReader.h"
#include "accounts/clsSendAcct.h"
#include "accounts/listBody.h"
#include "accounts/listFolder.h"
#include "accounts/listMessages.h"
#include "mail/Provider.h"
#include "mail/errorTrap.h"

namespace accounts {

/// The list as it is stored in the user's mailbox.
namespace {

using listBody::Outcome;
using mail::ErrorReport;
using mail::Globals;
using platform::Icon;

/// How often a change is made anew because somebody else has stored the list meanwhile.
constexpr int mostAttempts = 5;

mail::SafeItem safe(const Globals& globals, const outlook::Item& item) {
    return {globals, item};
}

/// What the items hold that have the subject of the list.
struct StoredLists {
    /// Of the first one, which is the one in use.
    std::wstring body;
    /// Its rows, and those of the others that it has not.
    AccountRows rows;
    /// Those others, with what they hold; an item that holds no list is none of them.
    std::vector<std::pair<outlook::Item, std::wstring>> others;
};

StoredLists readLists(const Globals& globals, const listFolder::Place& place) {
    const std::wstring body = safe(globals, place.item).body();
    StoredLists lists{body, AccountRows(body), {}};
    for (const outlook::Item& other : place.others) {
        const std::wstring text = safe(globals, other).body();
        try {
            lists.rows.takeMissing(AccountRows(text));
            lists.others.emplace_back(other, text);
        } catch (const rowset::NotARowset&) {
            continue;
        }
    }
    return lists;
}

/// Makes one item of several: two Outlooks that begin on a mailbox at the same moment each make their own.
/// Until it is done no entry can be deleted for good, as another item may still hold it. Throws
/// automation::Error when it cannot be done; false when somebody else was quicker.
bool unite(const Globals& globals, const outlook::Item& first, StoredLists& lists) {
    if (lists.others.empty()) {
        return true;
    }
    std::wstring text = rowset::writeReadable(lists.rows.rowset());
    const listBody::Result result = listBody::replace(safe(globals, first), lists.body, text);
    if (result.outcome == Outcome::Overtaken || result.outcome == Outcome::Overwritten) {
        return false;
    }
    if (result.outcome != Outcome::Stored) {
        throw automation::Error(automation::errors::failed, result.error);
    }
    for (const auto& [other, known] : lists.others) {
        if (!listBody::holdSameList(safe(globals, other).body(), known)) {
            return false;  // Somebody has stored something there since it was read.
        }
        other.object().call(L"Delete");
    }
    lists.body = std::move(text);
    return true;
}

}  // namespace

bool clsSendAcct::LoadList() {
    return !globals_.settingsFolder.empty() && EmailAddressListMailOpen(globals_.settingsFolder);
}

bool clsSendAcct::LoadFound(const listFolder::Place& place) {
    list_.reset();
    if (place.asOf != globals_.promptsShown || !place.item || !place.others.empty()) {
        return false;
    }
    return mail::skipErrors(
        [&] { list_ = std::make_unique<AccountRows>(safe(globals_, place.item).body()); });
}

bool clsSendAcct::EmailAddressListMailOpen(const std::wstring& folderPath) {
    list_.reset();
    const auto open = [&] {
        const listFolder::Place place = requirePlace();
        if (!place.folder) {
            show(listMessages::folderNotFound(folderPath), Icon::Critical, globals_.product.title);
            return false;
        }
        try {
            StoredLists lists = readLists(globals_, place);
            mail::skipErrors([&] { unite(globals_, place.item, lists); });
            list_ = std::make_unique<AccountRows>(std::move(lists.rows));
            return true;
        } catch (const rowset::NotARowset&) {
            show(listMessages::corrupted(listFolder::pathOf(globals_, place.folder)), Icon::Information,
                 L"Veltro");
            return false;
        }
    };
    return mail::trapErrors(globals_, ErrorReport::usual(L"clsSendAcct.EmailAddressListMailOpen"), open,
                            false);
}

bool clsSendAcct::EmailAddressMailSave(const rowset::Rowset& rows, const std::wstring& folderPath) {
    try {
        const std::wstring text = rowset::writeReadable(rows);
        const outlook::Item item = requirePlace().item;
        if (!item) {
            showItemMissing();
            return false;
        }
        const mail::SafeItem mail = safe(globals_, item);
        const std::wstring before = mail.body();
        static_cast<void>(AccountRows(before));  // What is no list may be something the user can still mend.
        const listBody::Result result = listBody::replace(mail, before, text);
        if (result.outcome == Outcome::Stored) {
            return true;
        }
        showNotSaved(result.error.empty() ? listMessages::alwaysOvertaken : result.error);
    } catch (const rowset::NotARowset&) {
        show(listMessages::corrupted(folderPath), Icon::Information, L"Veltro");
    } catch (...) {
        showNotSaved(mail::currentError().description());
    }
    return false;
}

/// Makes the change to the list as it is stored now. Only once it is stored does it take the place of the one
/// in memory.
bool clsSendAcct::change(const ListChange& wanted) {
    ChangeAttempt attempt;
    try {
        if (globals_.settingsFolder.empty() && !CreatePostrouteFolder()) {
            return fail(listMessages::notSaved);
        }
        for (int number = 0; number < mostAttempts; ++number) {
            if (const auto done = changeOnce(wanted, attempt)) {
                return *done;
            }
        }
        return fail(attempt.written ? listMessages::maybeSaved : listMessages::alwaysOvertaken);
    } catch (const rowset::NotARowset&) {
        return fail(listMessages::corrupted(globals_.settingsFolder));
    } catch (...) {
        return fail(attempt.written ? listMessages::maybeSaved : mail::currentError().description());
    }
}

/// Nothing when it is to be tried again with what is stored then. The items are found anew each time: what
/// another Outlook has stored shows in those that have been opened since.
std::optional<bool> clsSendAcct::changeOnce(const ListChange& wanted, ChangeAttempt& former) {
    const listFolder::Place place = requirePlace();
    if (!place.item) {
        showItemMissing();
        return fail(listMessages::notSaved);
    }
    StoredLists lists = readLists(globals_, place);
    if (former.written && wanted.isIn(lists.rows, *former.written)) {
        return keep(std::move(lists.rows));
    }
    if (former.refused && listBody::holdSameList(lists.body, former.before)) {
        showNotSaved(former.error);
        return fail(listMessages::notSaved);
    }
    if (!unite(globals_, place.item, lists)) {
        return std::nullopt;
    }
    if (!wanted.applyTo(lists.rows)) {
        return fail(listMessages::changedMeanwhile);
    }
    const std::wstring text = rowset::writeReadable(lists.rows.rowset());
    const listBody::Result result = listBody::replace(safe(globals_, place.item), lists.body, text);
    former = {std::move(lists.body), std::nullopt, result.outcome == Outcome::Refused, result.error};
    switch (result.outcome) {
        case Outcome::Stored:
            return keep(std::move(lists.rows));
        case Outcome::Overwritten:
            former.written = std::move(lists.rows);
            break;
        case Outcome::Uncertain:
            showNotSaved(result.error);
            return fail(listMessages::maybeSaved);
        case Outcome::Overtaken:
        case Outcome::Refused:
            break;
    }
    return std::nullopt;
}

bool clsSendAcct::keep(AccountRows rows) {
    list_ = std::make_unique<AccountRows>(std::move(rows));
    ErrorReport.clear();
    globals_.tellPreferredAccountChanges();
    return true;
}

void clsSendAcct::showItemMissing() const {
    show(L"Unable to find mail item that is used to save e-mail addresses", Icon::Critical,
         L"Error: ProjectListMailSave - " + globals_.product.title);
}

void clsSendAcct::showNotSaved(const std::wstring& why) const {
    show(L"Error:EmailAddressMailSave - " + why, Icon::Critical, globals_.product.title);
}

}  // namespace accounts
