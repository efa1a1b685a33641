#include "accounts/frmEmailAddressEdit.h"

#include <utility>

#include "accounts/basSendAcct.h"
#include "mail/basEmailAddressValidity.h"
#include "mail/errorTrap.h"
#include "platform/text.h"

namespace accounts {

using Mode = frmEmailAddressEdit::Mode;
using platform::Icon;

namespace {

const wchar_t* captionFor(Mode mode) {
    switch (mode) {
        case Mode::Add:
            return L"Add Preferred Account";
        case Mode::Edit:
            return L"Edit";
        case Mode::MissingAccount:
            return L"Select Preferred Account";
    }
    return L"";
}

}  // namespace

frmEmailAddressEdit::frmEmailAddressEdit(mail::Globals& globals, EntryStore& list, Mode mode, Entry entry)
    : Form(L"frmEmailAddressEdit", captionFor(mode), 300,
           70 + (mode == Mode::MissingAccount ? messageHeight : 0)),
      globals_(globals),
      list_(list),
      mode_(mode),
      listedAddress_(entry.address),
      listedAccount_(entry.account) {
    imgBackColor.setVisible(hasMessage());
    lblMsg.setVisible(hasMessage());
    txtEmailAddress.setText(std::move(entry.address));
    if (hasMessage()) {
        lblMsg.setCaption(entry.message);
        txtEmailAddress.setReadOnly(true);
        cmbAccounts.setFocus();
    }
    chooseAccount(entry.account);
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

/// An entry that is edited may name an account which the profile no longer has: it stays on offer, so that a
/// correction of the address alone does not lose it.
void frmEmailAddressEdit::chooseAccount(const std::wstring& account) {
    cmbAccounts.setItems(list_.LoadAccounts());
    if (basSendAcct::SelectAccount(cmbAccounts, account)) {
        return;
    }
    if (mode_ == Mode::Edit && !text::trim(account).empty()) {
        std::vector<std::wstring> names = cmbAccounts.items();
        names.push_back(account);
        cmbAccounts.setItems(std::move(names));
        basSendAcct::SelectAccount(cmbAccounts, account);
    } else {
        basSendAcct::SelectAccount(cmbAccounts, noAccount);
    }
}

void frmEmailAddressEdit::cmdOK_Click() {
    mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmEmailAddressEdit.cmdOK_Click"), [&] {
        if (!isComplete()) {
            return;
        }
        const std::wstring failure = save();
        if (!failure.empty()) {
            tell(failure, Icon::Warning);
            return;
        }
        saved_ = true;
        hide();
    });
}

void frmEmailAddressEdit::cmdCancel_Click() {
    hide();
}

bool frmEmailAddressEdit::isComplete() const {
    if (mode_ == Mode::MissingAccount) {
        return true;  // The address is not the user's to correct here.
    }
    if (address().empty()) {
        tell(L"Please enter the e-mail address name first", Icon::Information);
        return false;
    }
    if (!basEmailAddressValidity::IsValidEmailAddress(address())) {
        tell(L"Please enter a valid email address.", Icon::Warning);
        return false;
    }
    if (mode_ == Mode::Add && list_.IsListed(address())) {
        tell(L"There is already an existing e-mail with this address. Please enter another email address",
             Icon::Warning);
        return false;
    }
    return true;
}

std::wstring frmEmailAddressEdit::save() {
    switch (mode_) {
        case Mode::Add:
            return list_.AddEntry({address(), account()});
        case Mode::Edit:
            return list_.ReplaceEntry({listedAddress_, listedAccount_}, {address(), account()});
        case Mode::MissingAccount:
            return list_.SetAccount(listedAddress_, account());
    }
    return {};
}

std::wstring frmEmailAddressEdit::address() const {
    return std::wstring(text::trim(txtEmailAddress.text()));
}

void frmEmailAddressEdit::tell(const std::wstring& prompt, Icon icon) const {
    globals_.platform.desktop.messageBox(prompt, {platform::Buttons::Ok, icon}, L"Veltro");
}

}  // namespace accounts
