#include "accounts/frmEmailAddress.h"

#include <algorithm>
#include <utility>

#include "accounts/listMessages.h"
#include "mail/errorTrap.h"

namespace accounts {

using Mode = frmEmailAddressEdit::Mode;
using platform::Buttons;
using platform::Icon;

namespace {

template <class Handler>
void trap(mail::Globals& globals, const wchar_t* handler, const Handler& body) {
    mail::trapErrors(globals, mail::ErrorReport::usual(std::wstring(L"frmEmailAddress.") + handler), body);
}

}  // namespace

frmEmailAddress::frmEmailAddress(mail::Globals& globals, clsSendAcct& list)
    : Form(L"frmEmailAddress", L"Veltro Account List", 300, 211), globals_(globals), list_(list) {
    pctAccountList.setVisible(false);
    cmdAdd.onClick = [this] { trap(globals_, L"cmdAdd_Click", [&] { cmdAdd_Click(); }); };
    cmdEdit.onClick = [this] { trap(globals_, L"cmdEdit_Click", [&] { cmdEdit_Click(); }); };
    cmdDelete.onClick = [this] { trap(globals_, L"cmdDelete_Click", [&] { cmdDelete_Click(); }); };
    cmdClose.onClick = [this] { cmdClose_Click(); };
    lstEmailAddress.onDoubleClick = cmdEdit.onClick;
    trap(globals_, L"EmailAddressListFill", [&] { EmailAddressListFill(); });
}

void frmEmailAddress::EmailAddressListFill() {
    list_.LoadList();
    const std::size_t count = list_.count();
    std::vector<std::wstring> lines;
    lines.reserve(count);
    for (std::size_t row = 0; row < count; ++row) {
        lines.push_back(lineOf(row));
    }
    lstEmailAddress.setItems(std::move(lines));
}

std::wstring frmEmailAddress::lineOf(std::size_t row) const {
    return list_.addressAt(row) + L" (" + list_.accountAt(row) + L")";
}

void frmEmailAddress::refillAtCurrentValues() {
    const std::wstring line = list_.strEmailAddress + L" (" + list_.strAccount + L")";
    EmailAddressListFill();
    const auto& lines = lstEmailAddress.items();
    const auto found = std::ranges::find(lines, line);
    lstEmailAddress.select(found == lines.end() ? forms::List::none
                                                : static_cast<int>(found - lines.begin()));
}

bool frmEmailAddress::moveToSelection() {
    if (lstEmailAddress.selected() == forms::List::none) {
        show(L"Please select an item from the list", {Buttons::Ok, Icon::Information});
        return false;
    }
    // By what the user sees: a send in another window may have loaded the list anew.
    const std::wstring& line = lstEmailAddress.items()[static_cast<std::size_t>(lstEmailAddress.selected())];
    for (std::size_t row = 0; row < list_.count(); ++row) {
        if (lineOf(row) == line) {
            list_.AbsolutePosition(static_cast<std::int32_t>(row) + 1);
            return true;
        }
    }
    show(listMessages::changedMeanwhile, {Buttons::Ok, Icon::Warning});
    EmailAddressListFill();
    return false;
}

bool frmEmailAddress::edit(Mode mode, const std::wstring& address, const std::wstring& account) {
    frmEmailAddressEdit editor(globals_, list_, mode, {address, account, {}});
    globals_.platform.desktop.showModal(editor);
    return editor.saved();
}

void frmEmailAddress::cmdAdd_Click() {
    const int selected = lstEmailAddress.selected();
    if (edit(Mode::Add, {}, noAccount)) {
        refillAtCurrentValues();
    } else {
        EmailAddressListFill();
        lstEmailAddress.select(selected);
    }
}

void frmEmailAddress::cmdEdit_Click() {
    if (!moveToSelection()) {
        return;
    }
    const std::wstring address = list_.strEmailAddress;
    const std::wstring account = list_.strAccount;
    if (!edit(Mode::Edit, address, account)) {
        list_.strEmailAddress = address;
        list_.strAccount = account;
    }
    refillAtCurrentValues();
}

void frmEmailAddress::cmdDelete_Click() {
    if (lstEmailAddress.selected() == forms::List::none) {
        moveToSelection();
        return;
    }
    const int selected = lstEmailAddress.selected();
    if (show(L"Do you wish to delete the chosen email address from the list?",
             {Buttons::YesNo, Icon::Question}) != platform::Answer::Yes ||
        !moveToSelection()) {
        return;
    }
    if (!list_.Delete()) {
        show(list_.ErrorReport, {Buttons::Ok, Icon::Warning});
    }
    EmailAddressListFill();
    lstEmailAddress.select(std::min(selected, static_cast<int>(lstEmailAddress.items().size()) - 1));
}

void frmEmailAddress::cmdClose_Click() {
    hide();
}

platform::Answer frmEmailAddress::show(const std::wstring& prompt, platform::MessageStyle style) const {
    return globals_.platform.desktop.messageBox(prompt, style, L"Veltro");
}

}  // namespace accounts
