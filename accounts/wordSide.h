#pragma once

#include <string>

#include "accounts/AccountAnswer.h"
#include "platform/outlook.h"

namespace accounts {
class clsSendAcct;
}

namespace mail {
struct Globals;
}

/// The questions of the account step where Word is the editor of mails: a macro of the add-in's Word template
/// asks each of them, in Word's process. Its answers come back as texts and numbers, which go no further than
/// here.
namespace accounts::wordSide {

/// Why the dialog for an entry of the list is opened, by the numbers that the macros know.
enum class DialogMode {
    None = 0,
    Add = 1,
    Edit = 2,
    /// The answer that was left is not to be acted upon.
    AnswerIgnored = 3,
    MissingAccount = 4
};

/// What was answered. The list of preferred accounts carries it, as both sides have that.
struct Answers {
    /// "CHANGE" or "CANCEL"; empty while nothing was answered.
    std::wstring strChangeAcct{};
    /// The account to change to.
    std::wstring strAccount{};
    DialogMode dialogMode = DialogMode::None;

    /// What says the same to the other side.
    static Answers of(const AccountAnswer& answer, DialogMode mode);
    /// Keep where nothing was answered, or nothing that counts.
    AccountAnswer answer() const;
};

// Each runs its macro in the Word of the mail's window; where that cannot be done nothing is asked, and the
// mail leaves as it is.

AccountAnswer offerToAdd(mail::Globals& globals, clsSendAcct& list, const outlook::Inspector& window,
                         const std::wstring& address, const std::wstring& accountInUse);
AccountAnswer replaceMissing(mail::Globals& globals, clsSendAcct& list, const outlook::Inspector& window,
                             const std::wstring& accountInUse, const std::wstring& address,
                             const std::wstring& message);
AccountAnswer select(mail::Globals& globals, clsSendAcct& list, const outlook::Inspector& window,
                     const std::wstring& accountInUse, const std::wstring& preferred,
                     const std::wstring& address);

}  // namespace accounts::wordSide
