#include "accounts/accountStep.h"

#include "accounts/basSendAcct.h"
#include "accounts/frmAddEmailToList.h"
#include "accounts/frmEmailAddressEdit.h"
#include "accounts/frmSelectSendAcct.h"
#include "mail/MapiSession.h"
#include "mail/OutlookVersion.h"
#include "mail/SafeItems.h"
#include "mail/basGlobals.h"
#include "mail/basWordMail.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace accountStep {

namespace {

using basGlobals::DialogMode;
using basGlobals::Globals;

/// Kinds of address entry that are lists.
constexpr std::int32_t distributionList = 1;
constexpr std::int32_t personalDistributionList = 5;

/// The step at one send.
class Step {
  public:
    Step(Globals& globals, clsSendAcct& list, const outlook::Item& item, bool& cancel)
        : globals_(globals), list_(list), item_(item), cancel_(cancel) {}

    void run();

  private:
    bool concerns() const;
    void offerUnknown();
    void useListed();
    void replaceMissingAccount();
    void selectAccount();
    void decide();
    void switchTo(const std::wstring& account);
    template <class... Arguments>
    bool runMacro(const wchar_t* macro, const Arguments&... arguments);

    Globals& globals_;
    clsSendAcct& list_;
    const outlook::Item& item_;
    bool& cancel_;
    std::wstring address_;
    std::wstring accountInUse_;
    std::wstring preferred_;
};

void Step::run() {
    if (!concerns()) {
        return;
    }
    list_.strChangeAcct.clear();
    globals_.dialogMode = DialogMode::None;
    globals_.sendCancelled = false;
    if (!list_.LoadList()) {
        return;  // A list that cannot be read has nothing to say, and nothing can be added to it.
    }
    const basSendAcct::Membership membership = basSendAcct::ListMembership(globals_, list_, item_);
    if (!list_.isLoaded()) {
        return;  // Another send, inside of one of the calls, could not read it: nobody is known to be on it.
    }
    address_ = membership.address;
    if (membership.listed) {
        useListed();
    } else {
        offerUnknown();
    }
    globals_.dialogMode = DialogMode::None;
}

bool Step::concerns() const {
    const auto version = basGlobals::outlookVersion(globals_);
    if (version == basGlobals::outlook2000 || version == basGlobals::outlook2002) {
        return false;
    }
    const redemption::SafeItem mail(globals_.platform.automation, item_);
    mail.save();
    const auto recipients = mail.recipients();
    if (recipients.count() == 0) {
        return false;
    }
    const redemption::AddressEntry entry = recipients.item(1).addressEntry();
    if (!entry) {
        return false;  // Nobody that Outlook knows: it will refuse the mail itself.
    }
    const std::int32_t type = entry.displayType();
    return type != distributionList && type != personalDistributionList;
}

/// The account set on the mail, else the one that Outlook takes by default.
std::wstring accountInUseFor(clsSendAcct& list, const outlook::Item& item) {
    std::wstring selected = list.GetSelectedMailAccount(item);
    return selected.empty() ? list.GetAccountInUse() : selected;
}

void Step::offerUnknown() {
    if (address_.empty() || modRegKeys::MsgAddAddress.read(globals_) == 1) {
        return;
    }
    accountInUse_ = accountInUseFor(list_, item_);
    if (!basWordMail::editsInWord(globals_)) {
        offerToAdd(globals_, list_, address_, accountInUse_);
    } else if (!runMacro(L"vtAddEmail", address_, accountInUse_)) {
        return;
    }
    if (globals_.sendCancelled) {
        globals_.sendCancelled = false;
        cancel_ = true;
        return;
    }
    decide();
}

void Step::useListed() {
    preferred_ = basSendAcct::PreferredAccount(list_, address_);
    // An address that is but the end of a listed one has no account of its own.
    if (text::trim(preferred_).empty() || text::equalsTrimmed(preferred_, noAccount)) {
        return;
    }
    // Read once: an account must not count as gone because a second reading failed.
    const std::vector<std::wstring> accounts = basSendAcct::AccountOrder(globals_);
    if (accounts.size() < 2) {
        return;
    }
    accountInUse_ = accountInUseFor(list_, item_);
    if (text::equalsTrimmed(accountInUse_, preferred_)) {
        return;
    }
    if (!basSendAcct::HasAccount(accounts, preferred_)) {
        replaceMissingAccount();
    } else if (modRegKeys::DoNotShowSelect.read(globals_) == 1) {
        switchTo(preferred_);
    } else {
        selectAccount();
    }
}

void Step::replaceMissingAccount() {
    const std::wstring message =
        L"Veltro has detected that the preffered account \r\n(" + preferred_ + L") for " + address_ +
        L" is not available.\r\n\r\nThis may be due to the account being renamed or deleted.\r\n\r\nPlease "
        L"select another preferred account for this e-mail address.\r\n\r\nIf you click Cancel, then the "
        L"currently selected account will be used.";
    globals_.dialogMode = DialogMode::MissingAccount;
    if (!basWordMail::editsInWord(globals_)) {
        replaceMissing(globals_, list_, accountInUse_, address_, message);
    } else if (!runMacro(L"vtPrefAcctExistsFalse", static_cast<std::int32_t>(globals_.dialogMode),
                         accountInUse_, address_, message)) {
        return;
    }
    decide();
}

void Step::selectAccount() {
    std::wstring account;
    if (!basWordMail::editsInWord(globals_)) {
        account = select(globals_, list_, accountInUse_, preferred_, address_);
    } else {
        list_.strAccount.clear();
        if (!runMacro(L"vtSelPostroute", accountInUse_, preferred_, address_) ||
            list_.strChangeAcct.empty()) {
            return;
        }
        account = list_.strAccount.empty() ? preferred_ : list_.strAccount;
    }
    if (globals_.dialogMode == DialogMode::AnswerIgnored) {
        return;
    }
    if (list_.strChangeAcct == answerCancel) {
        cancel_ = true;
    } else {
        switchTo(account);
    }
}

/// Acts on the answer that a dialog about the list has left. The account is the one that the list has now.
void Step::decide() {
    if (globals_.dialogMode == DialogMode::AnswerIgnored) {
        return;
    }
    if (list_.strChangeAcct == answerChange) {
        switchTo(basSendAcct::PreferredAccount(list_, address_));
    } else if (list_.strChangeAcct == answerCancel) {
        cancel_ = true;
    }
}

/// A mail whose account cannot be changed leaves with the one that Outlook chose.
void Step::switchTo(const std::wstring& account) {
    if (account.empty() || text::equalsTrimmed(account, noAccount)) {
        list_.strChangeAcct.clear();
    } else {
        basSendAcct::SetAccount(list_, item_, account);
    }
}

/// False when the macro cannot be run: a template that is missing leaves the question unasked. What the macro
/// has stored is loaded anew, the answer that it has left is kept.
template <class... Arguments>
bool Step::runMacro(const wchar_t* macro, const Arguments&... arguments) {
    const bool ran =
        basGlobals::skipErrors([&] { basWordMail::activeWord(globals_).call(L"Run", macro, arguments...); });
    return ran && list_.LoadList();
}

}  // namespace

void checkPreferredAccount(Globals& globals, clsSendAcct& list, const outlook::Item& item,
                           bool& cancel) noexcept {
    try {
        Step(globals, list, item, cancel).run();
    } catch (...) {
        cancel = true;
        const automation::Error error = basGlobals::currentError();
        basGlobals::skipErrors([&] {
            globals.platform.desktop.messageBox(L"Error Number : " + std::to_wstring(error.number()) +
                                                    L"\r\nError Description : " + error.description(),
                                                {platform::Buttons::Ok, platform::Icon::Critical},
                                                globals.product.title);
        });
        const redemption::MapiCleanUp cleanUp(globals.platform.automation);
    }
}

// The answer is the dialog's own until it closes: meanwhile a send in another window may ask, too.

void offerToAdd(Globals& globals, clsSendAcct& list, const std::wstring& address,
                const std::wstring& accountInUse) {
    frmAddEmailToList form(globals, list, address, accountInUse);
    prompts::show(globals, form);
    list.strChangeAcct = form.answer();
}

void replaceMissing(Globals& globals, clsSendAcct& list, const std::wstring& accountInUse,
                    const std::wstring& address, const std::wstring& message) {
    globals.dialogMode = DialogMode::MissingAccount;
    frmEmailAddressEdit form(globals, list, {address, accountInUse, message});
    prompts::show(globals, form);
    list.strChangeAcct = form.answer();
}

std::wstring select(Globals& globals, clsSendAcct& list, const std::wstring& accountInUse,
                    const std::wstring& preferred, const std::wstring& address) {
    frmSelectSendAcct form(globals, list, preferred, address, accountInUse);
    prompts::show(globals, form);
    list.strChangeAcct = form.answer();
    if (form.answer() == answerCancel) {
        return {};
    }
    list.strAccount = form.account();
    return form.account();
}

}  // namespace accountStep
