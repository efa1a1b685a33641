#include "accounts/clsSendAcct.h"

#include <algorithm>
#include <utility>

#include "mail/errorTrap.h"
#include "platform/characters.h"
#include "platform/text.h"
#include "settings/prompts.h"

namespace accounts {

/// The list in memory: its current row, and what changes it.
namespace {

/// What the columns hold at most, in the units of the stored text.
constexpr std::size_t longestValue = 255;

constexpr wchar_t noCurrentRecord[] = L"Cannot go to Edit mode as there is no current record";

/// The number that data-access objects give a position outside of the rows.
constexpr std::int32_t badArgument = 3001;

bool hasControl(const std::wstring& value) {
    return std::ranges::any_of(value, text::isControl);
}

}  // namespace

std::int32_t clsSendAcct::AbsolutePosition() const {
    return hasCurrentRow() ? static_cast<std::int32_t>(list_->position()) + 1 : endOfList;
}

void clsSendAcct::AbsolutePosition(std::int32_t position) {
    try {
        if (position < 1 || !list_ || !list_->moveTo(static_cast<std::size_t>(position) - 1)) {
            throw automation::Error(badArgument,
                                    L"There is no row at position " + std::to_wstring(position) + L'.');
        }
        takeCurrentValues();
    } catch (...) {
        const auto report = mail::ErrorReport::usual(L"clsSendAcct.AbsolutePosition");
        show(report.text(mail::currentError()), platform::Icon::None,
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
        fail(noCurrentRecord);
    }
    return true;
}

bool clsSendAcct::Update() {
    strEmailAddress = std::wstring(text::trim(strEmailAddress));
    strAccount = std::wstring(text::trim(strAccount));
    if (strEmailAddress.empty()) {
        return fail(L"Email Address cannot be saved because it has not been entered.");
    }
    if (std::max(strEmailAddress.size(), strAccount.size()) > longestValue) {
        return fail(
            L"Email Address cannot be saved because it or its account is longer than 255 characters.");
    }
    if (hasControl(strEmailAddress) || hasControl(strAccount)) {
        return fail(
            L"Email Address cannot be saved because it or its account contains a control character, such as "
            L"a tab or a line break.");
    }
    // Outlook may deliver another send inside of any call, which uses the current values too.
    const AccountEntry entry{strEmailAddress, strAccount};
    if (!store(entry)) {
        return false;
    }
    strEmailAddress = entry.address;
    strAccount = entry.account;
    return true;
}

bool clsSendAcct::store(const AccountEntry& entry) {
    switch (editMode_) {
        case EditMode::Edit:
            return hasCurrentRow() ? change(ListChange::replacement(*list_, entry)) : fail(noCurrentRecord);
        case EditMode::Add:
            return change(ListChange::addition(entry));
        case EditMode::None:
            break;
    }
    return fail(L"AddNew or Edit method must be done before the Update");
}

bool clsSendAcct::Delete() {
    return hasCurrentRow() ? change(ListChange::removal(*list_)) : fail(L"No active record to delete");
}

bool clsSendAcct::fail(std::wstring report) {
    ErrorReport = std::move(report);
    return false;
}

void clsSendAcct::show(const std::wstring& prompt, platform::Icon icon, const std::wstring& title) const {
    mail::skipErrors([&] {
        globals_.platform.desktop.messageBox(prompt, {platform::Buttons::Ok, icon}, title);
    });
}

}  // namespace accounts
