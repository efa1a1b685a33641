#pragma once

#include <functional>
#include <memory>
#include <string>

#include "accounts/EntryStore.h"
#include "accounts/wordSide.h"
#include "addin/Surroundings.h"
#include "mail/OutgoingMail.h"
#include "mail/basWordMail.h"
#include "platform/automation.h"

namespace addin {

/// What the macros of the Word template call, in the process of the Word that edits a mail: the questions of
/// a send. The answers go to the add-in in Outlook's process; where that cannot be reached nothing is asked.
///
/// Each is true when the mail must not leave: the user does not want it to, or has chosen an account of which
/// the add-in could not be told. None lets an error out.
class Buttons {
  public:
    /// The world of the ports outlives this.
    explicit Buttons(const platform::Platform& ports);
    Buttons(const Buttons&) = delete;
    Buttons& operator=(const Buttons&) = delete;

    /// It as an automation object, which holds it.
    static automation::Object object(std::shared_ptr<Buttons> buttons);

    // Of the mail `item`. `cancel` is set where it is passed by reference.

    bool EmptySubjectCheck(const automation::Value& item, const automation::Value& cancel);
    bool DelayEmailSending(const automation::Value& item, const automation::Value& cancel);

    /// Offers to put an unknown address on the list.
    bool AddEmailAddressToList(const std::wstring& address, const std::wstring& accountInUse);
    /// Asks for another account in place of one that is gone. `mode` is a wordSide::DialogMode as a number.
    bool PrefAcctExistsFalse(std::int32_t mode, const std::wstring& accountInUse, const std::wstring& address,
                             const std::wstring& message);
    /// Asks which account to use.
    bool SelPostroute(const std::wstring& accountInUse, const std::wstring& preferred,
                      const std::wstring& address);

  private:
    using Check = void (*)(mail::Globals&, mail::OutgoingMail&, bool&);
    using Question = std::function<accounts::AccountAnswer(accounts::EntryStore& list)>;

    bool runCheck(const automation::Value& item, const automation::Value& cancel, Check check);
    bool ask(accounts::wordSide::DialogMode mode, const Question& question);

    Surroundings around_;
    mail::Globals& globals_ = around_.globals;
};

}  // namespace addin
