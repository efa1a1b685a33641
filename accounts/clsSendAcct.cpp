#include "accounts/clsSendAcct.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "accounts/XmlReader.h"
#include "accounts/listMessages.h"
#include "mail/SafeItems.h"
#include "mail/errorTrap.h"
#include "platform/number.h"
#include "platform/text.h"
#include "settings/prompts.h"

/// The list in memory: its current row, and what changes it.
namespace {

/// What the columns hold at most, in the units of the stored text.
constexpr std::size_t longestValue = 255;

/// The number that data-access objects give a position outside of the rows.
constexpr std::int32_t badArgument = 3001;

/// The row of `list` that is the same as the current one of `former`: in most cases at the same place.
std::optional<std::size_t> sameRow(const AccountRows& list, const AccountRows& former) {
    const std::size_t current = former.position();
    const auto isSame = [&](std::size_t row) {
        return list.address(row) == former.address(current) && list.account(row) == former.account(current);
    };
    if (current < list.count() && isSame(current)) {
        return current;
    }
    for (std::size_t row = 0; row < list.count(); ++row) {
        if (isSame(row)) {
            return row;
        }
    }
    return std::nullopt;
}

}  // namespace

std::int32_t clsSendAcct::AbsolutePosition() const {
    return hasCurrentRow() ? static_cast<std::int32_t>(list_->position()) + 1 : endOfList;
}

void clsSendAcct::AbsolutePosition(const std::wstring& position) {
    try {
        const auto number = number::parse(position);
        if (!number) {
            throw automation::Error(automation::errors::typeMismatch, L"Type mismatch");
        }
        const auto row = number::toInteger<std::int32_t>(*number);
        if (row < 1 || !list_ || !list_->moveTo(static_cast<std::size_t>(row) - 1)) {
            throw automation::Error(badArgument, L"There is no row at position " + position + L".");
        }
        takeCurrentValues();
    } catch (...) {
        const auto report = basGlobals::ErrorReport::usual(L"clsSendAcct.AbsolutePosition");
        show(report.text(basGlobals::currentError()), platform::Icon::None,
             prompts::titled(globals_, L"AbsolutePosition_Get_Error"));
    }
}

void clsSendAcct::takeCurrentValues() {
    strEmailAddress = list_->address(list_->position());
    strAccount = list_->account(list_->position());
}

bool clsSendAcct::Find(const std::wstring& address) {
    if (!list_ || address.find(L'\'') != std::wstring::npos || !list_->findForward(address)) {
        return false;
    }
    takeCurrentValues();
    return true;
}

bool clsSendAcct::Edit() {
    ErrorReport.clear();
    if (hasCurrentRow()) {
        editMode_ = EditMode::Edit;
    } else {
        fail(L"Cannot go to Edit mode as there is no current record");
    }
    return true;
}

bool clsSendAcct::Update() {
    ErrorReport.clear();
    strEmailAddress = std::wstring(text::trim(strEmailAddress));
    strAccount = std::wstring(text::trim(strAccount));
    if (strEmailAddress.empty()) {
        return fail(L"Email Address cannot be saved because it has not been entered.");
    }
    if (std::max(strEmailAddress.size(), strAccount.size()) > longestValue) {
        return fail(
            L"Email Address cannot be saved because it or its account is longer than 255 characters.");
    }
    // Copies: a question that comes up while the list is stored may lead to another send, which uses these.
    const auto write = [address = strEmailAddress, account = strAccount](AccountRows& list) {
        list.set({address, account});
    };
    switch (editMode_) {
        case EditMode::Edit:
            return changeCurrentRow(write);
        case EditMode::Add:
            return change([&](AccountRows& list) {
                list.add();
                write(list);
            });
        case EditMode::None:
            break;
    }
    return fail(L"AddNew or Edit method must be done before the Update");
}

bool clsSendAcct::Delete() {
    ErrorReport.clear();
    if (!hasCurrentRow()) {
        return fail(L"No active record to delete");
    }
    return changeCurrentRow([](AccountRows& list) { list.remove(); });
}

bool clsSendAcct::changeCurrentRow(const std::function<void(AccountRows&)>& edit) {
    if (!hasCurrentRow()) {
        return fail(L"Cannot go to Edit mode as there is no current record");
    }
    return change([&](AccountRows& list) {
        const auto row = sameRow(list, *list_);
        if (!row) {
            throw automation::Error(badArgument, listMessages::changedMeanwhile);
        }
        list.moveTo(*row);
        edit(list);
    });
}

/// Edits the list as it is stored now. Only once it is stored does it take the place of the one in memory.
bool clsSendAcct::change(const std::function<void(AccountRows&)>& edit) {
    try {
        if (globals_.settingsFolder.empty() && !CreatePostrouteFolder()) {
            return fail(listMessages::notSaved);
        }
        const outlook::Item item = requireItem();
        if (!item) {
            return fail(listMessages::folderNotFound(globals_.settingsFolder));
        }
        AccountRows list(redemption::SafeItem(globals_.platform.automation, item).body());
        edit(list);
        if (!EmailAddressMailSave(list.rowset(), globals_.settingsFolder)) {
            return fail(listMessages::notSaved);
        }
        list_ = std::make_unique<AccountRows>(std::move(list));
        return true;
    } catch (const rowset::NotARowset&) {
        return fail(listMessages::corrupted(globals_.settingsFolder));
    } catch (...) {
        return fail(basGlobals::currentError().description());
    }
}

bool clsSendAcct::fail(std::wstring report) {
    ErrorReport = std::move(report);
    return false;
}

void clsSendAcct::show(const std::wstring& prompt, platform::Icon icon, const std::wstring& title) const {
    basGlobals::skipErrors([&] {
        globals_.platform.desktop.messageBox(prompt, {platform::Buttons::Ok, icon}, title);
    });
}
