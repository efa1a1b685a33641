#include "accounts/frmAddEmailToList.h"

#include <utility>

#include "accounts/frmEmailAddressEdit.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace accounts {

using platform::Buttons;
using platform::Icon;

frmAddEmailToList::frmAddEmailToList(mail::Globals& globals, EntryStore& list, std::wstring address,
                                     std::wstring accountInUse)
    : Form(L"frmAddEmailToList", L"Add To List", 300, 173),
      globals_(globals),
      list_(list),
      address_(std::move(address)),
      accountInUse_(std::move(accountInUse)) {
    lblMessage.setCaption(
        L"Do you want to add " + address_ +
        L" to Veltro list?\r\n\r\nIf you click Yes, the next screen will let you choose the e-mail\r\n"
        L"account that you use to send e-mails to " +
        address_ +
        L".\r\n\r\nThis will ensure that you always use the correct account to send\r\ne-mails to " +
        address_ + L".\r\n\r\nIf you click Never, then you will not get this reminder for \r\n" + address_ +
        L" again.");
    cmdYes.setFocus();  // Not the check box, which would silence the question for good.
    cmdYes.onClick = [this] { cmdYes_Click(); };
    cmdNo.onClick = [this] { cmdNo_Click(); };
    Command1.onClick = [this] { Command1_Click(); };
    chkDontShowMessAgain.onClick = [this] { chkDontShowMessAgain_Click(); };
}

/// An account chosen here that is not the one in use is meant for this e-mail already.
void frmAddEmailToList::cmdYes_Click() {
    mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmAddEmailToList.cmdYes_Click"), [&] {
        frmEmailAddressEdit editor(globals_, list_, frmEmailAddressEdit::Mode::Add,
                                   {address_, accountInUse_, {}});
        prompts::show(globals_, editor);
        account_ = editor.account();
        changesAccount_ =
            editor.saved() && account_ != noAccount && !text::equalsTrimmed(account_, accountInUse_);
    });
    leave();
}

void frmAddEmailToList::cmdNo_Click() {
    mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmAddEmailToList.cmdNo_Click"), [&] {
        const std::wstring failure = list_.AddEntry({address_, noAccount});
        if (!failure.empty()) {
            globals_.platform.desktop.messageBox(failure, {Buttons::Ok, Icon::Warning}, L"Veltro");
        }
    });
    leave();
}

void frmAddEmailToList::Command1_Click() {
    leave();
}

void frmAddEmailToList::chkDontShowMessAgain_Click() {
    if (!chkDontShowMessAgain.ticked()) {
        return;
    }
    const auto answer = mail::attempt([&] {
        return globals_.platform.desktop.messageBox(
            L"If you tick this box, this message will not appear for any e-mail address.\r\n\r\nWe recommend "
            L"that you leave this unticked as the message will only appear once for each e-mail address.\r\n\r\n"
            L"This is the easist way to add e-mail addresses to the Veltro List.\r\n\r\nDo you still wish to "
            L"stop displaying this message?",
            {Buttons::YesNo, Icon::Question}, L"Veltro");
    });
    if (answer != platform::Answer::Yes) {
        chkDontShowMessAgain.setState(0);
    }
}

void frmAddEmailToList::leave() {
    if (chkDontShowMessAgain.ticked()) {
        modRegKeys::MsgAddAddress.write(globals_, 1);
    }
    hide();
}

}  // namespace accounts
