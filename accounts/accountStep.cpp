#include "accounts/accountStep.h"

#include "accounts/basSendAcct.h"
#include "accounts/frmAddEmailToList.h"
#include "accounts/frmEmailAddressEdit.h"
#include "accounts/frmSelectSendAcct.h"
#include "accounts/wordSide.h"
#include "mail/OutlookVersion.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace accounts::accountStep {

namespace {

using mail::Globals;
using Decision = AccountAnswer::Decision;

/// The step at one send.
class Step {
  public:
    Step(Globals& globals, clsSendAcct& list, mail::OutgoingMail& mail, bool& cancel)
        : globals_(globals), list_(list), mail_(mail), cancel_(cancel) {}

    void run(const listFolder::Place& found);

  private:
    bool concerns() const;
    void offerUnknown();
    void useListed();
    AccountAnswer replaceMissingAccount();
    std::wstring accountInUse() const;
    void actOn(const AccountAnswer& answer);
    void switchTo(const std::wstring& account);

    Globals& globals_;
    clsSendAcct& list_;
    mail::OutgoingMail& mail_;
    bool& cancel_;
    std::wstring address_;
    std::wstring accountInUse_;
    std::wstring preferred_;
};

void Step::run(const listFolder::Place& found) {
    const auto version = mail::outlookVersion(globals_);
    if (version == mail::outlook2000 || version == mail::outlook2002) {
        return;
    }
    if (!globals_.provider->hasAccounts()) {
        mail::note(mail::Skipped::LibraryMissing);
        return;
    }
    const bool offers = modRegKeys::MsgAddAddress.read(globals_) != 1;
    const bool loaded = list_.LoadFound(found);
    if (loaded && list_.count() == 0 && !offers) {
        return;  // Whoever the mail is to: it need not be read.
    }
    if (!concerns()) {
        return;
    }
    if (!list_.isLoaded() && !list_.LoadList()) {
        return;  // A list that cannot be read has nothing to say, and nothing can be added to it.
    }
    const basSendAcct::Membership membership = basSendAcct::ListMembership(list_, mail_);
    if (!list_.isLoaded()) {
        return;  // Another send, inside of one of the calls, could not read it: nobody is known to be on it.
    }
    address_ = membership.address;
    if (membership.listed) {
        useListed();
    } else if (offers) {
        offerUnknown();
    }
}

bool Step::concerns() const {
    mail_.stored();
    if (mail_.recipientCount() == 0) {
        return false;
    }
    const outlook::AddressEntry entry = mail_.firstRecipient();
    if (!entry) {
        return false;  // Nobody that Outlook knows: it will refuse the mail itself.
    }
    return !entry.isList();
}

/// The account set on the mail, else the one that Outlook takes by default.
std::wstring Step::accountInUse() const {
    std::wstring selected = clsSendAcct::GetSelectedMailAccount(mail_);
    return selected.empty() ? clsSendAcct::GetAccountInUse(mail_) : selected;
}

void Step::offerUnknown() {
    if (address_.empty()) {
        return;
    }
    accountInUse_ = accountInUse();
    actOn(mail_.editsInWord() ? wordSide::offerToAdd(globals_, list_, mail_.window(), address_, accountInUse_)
                              : offerToAdd(globals_, list_, address_, accountInUse_));
}

void Step::useListed() {
    preferred_ = basSendAcct::PreferredAccount(list_, address_);
    // An address that is but the end of a listed one has no account of its own.
    if (text::trim(preferred_).empty() || text::equalsTrimmed(preferred_, noAccount)) {
        return;
    }
    const auto accounts = mail::attempt([&] { return mail_.accounts(); });
    if (!accounts || accounts->size() < 2) {
        return;
    }
    accountInUse_ = accountInUse();
    if (text::equalsTrimmed(accountInUse_, preferred_)) {
        return;
    }
    // Of the accounts as they were read: one must not count as gone because a second reading failed.
    if (!basSendAcct::HasAccount(*accounts, preferred_)) {
        actOn(replaceMissingAccount());
    } else if (modRegKeys::DoNotShowSelect.read(globals_) == 1) {
        switchTo(preferred_);
    } else {
        actOn(mail_.editsInWord()
                  ? wordSide::select(globals_, list_, mail_.window(), accountInUse_, preferred_, address_)
                  : select(globals_, list_, accountInUse_, preferred_, address_));
    }
}

AccountAnswer Step::replaceMissingAccount() {
    const std::wstring message =
        L"Veltro has detected that the preffered account \r\n(" + preferred_ + L") for " + address_ +
        L" is not available.\r\n\r\nThis may be due to the account being renamed or deleted.\r\n\r\nPlease "
        L"select another preferred account for this e-mail address.\r\n\r\nIf you click Cancel, then the "
        L"currently selected account will be used.";
    return mail_.editsInWord()
               ? wordSide::replaceMissing(globals_, list_, mail_.window(), accountInUse_, address_, message)
               : replaceMissing(globals_, list_, accountInUse_, address_, message);
}

void Step::actOn(const AccountAnswer& answer) {
    if (answer.decision == Decision::Change) {
        switchTo(answer.account);
    } else if (answer.decision == Decision::GoBack) {
        cancel_ = true;
    }
}

/// A mail whose account cannot be changed leaves with the one that Outlook chose.
void Step::switchTo(const std::wstring& account) {
    if (!account.empty() && !text::equalsTrimmed(account, noAccount)) {
        clsSendAcct::SendUsingPrefAccount(mail_, account);
    }
}

}  // namespace

void checkPreferredAccount(Globals& globals, clsSendAcct& list, mail::OutgoingMail& mail,
                           const listFolder::Place& found, bool& cancel) noexcept {
    try {
        Step(globals, list, mail, cancel).run(found);
    } catch (...) {
        const automation::Error error = mail::currentError();
        if (mail::isRefusal(globals, error)) {
            return;  // Nobody has let the add-in look: there is nothing that it could ask by.
        }
        cancel = true;
        mail::skipErrors([&] {
            globals.platform.desktop.messageBox(L"Error Number : " + std::to_wstring(error.number()) +
                                                    L"\r\nError Description : " + error.description(),
                                                {platform::Buttons::Ok, platform::Icon::Critical},
                                                globals.product.title);
        });
        mail::skipErrors([&] { mail::cleanUpMapi(globals); });
    }
}

namespace {

/// To the account that the list has when the dialog has closed: meanwhile a send in another window may have
/// changed it. A list that cannot be reached any more leaves what was chosen in the dialog.
AccountAnswer changeTo(EntryStore& list, const std::wstring& address, const std::wstring& chosen) {
    const auto listed = mail::attempt([&] { return list.PreferredAccount(address); });
    return {Decision::Change, listed.value_or(chosen)};
}

}  // namespace

AccountAnswer offerToAdd(Globals& globals, EntryStore& list, const std::wstring& address,
                         const std::wstring& accountInUse) {
    frmAddEmailToList form(globals, list, address, accountInUse);
    prompts::show(globals, form);
    return form.changesAccount() ? changeTo(list, address, form.account()) : AccountAnswer{};
}

/// Despite what the message says, cancelling keeps the e-mail from being sent.
AccountAnswer replaceMissing(Globals& globals, EntryStore& list, const std::wstring& accountInUse,
                             const std::wstring& address, const std::wstring& message) {
    frmEmailAddressEdit form(globals, list, frmEmailAddressEdit::Mode::MissingAccount,
                             {address, accountInUse, message});
    prompts::show(globals, form);
    return form.saved() ? changeTo(list, address, form.account()) : AccountAnswer{Decision::GoBack};
}

AccountAnswer select(Globals& globals, EntryStore& list, const std::wstring& accountInUse,
                     const std::wstring& preferred, const std::wstring& address) {
    frmSelectSendAcct form(globals, list, preferred, address, accountInUse);
    prompts::show(globals, form);
    const auto& account = form.account();
    return account ? AccountAnswer{Decision::Change, *account} : AccountAnswer{Decision::GoBack};
}

}  // namespace accounts::accountStep
