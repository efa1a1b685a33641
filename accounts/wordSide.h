#pragma once

#include <string>

#include "accounts/AccountAnswer.h"

namespace accounts {
class clsSendAcct;
}

namespace mail {
struct Globals;
}

/// The questions of the account step where Word is the editor of mails: a macro of the add-in's Word template
/// asks each of them. Macros know neither the add-in's types nor its memory; what they leave are texts,
/// numbers and flags, which go no further than here.
namespace accounts::wordSide {

/// Why a macro opens the dialog for an entry of the list, by its numbers.
enum class DialogMode {
    None = 0,
    Add = 1,
    Edit = 2,
    /// The answer that was left is not to be acted upon.
    AnswerIgnored = 3,
    MissingAccount = 4
};

/// What strChangeAcct may hold.
inline constexpr wchar_t answerChange[] = L"CHANGE";
inline constexpr wchar_t answerCancel[] = L"CANCEL";

/// What the macros leave. The list of preferred accounts carries it, as both sides have that.
struct Answers {
    /// Empty while nothing was answered.
    std::wstring strChangeAcct{};
    /// The account that was chosen; empty: the preferred one.
    std::wstring strAccount{};
    /// Raised by the offer to add an address, to stop the send.
    bool sendCancelled = false;
    DialogMode dialogMode = DialogMode::None;
};

// Each runs its macro; where that cannot be done nothing is asked, and the mail leaves as it is. The list is
// loaded anew afterwards, as the macro may have stored something.

AccountAnswer offerToAdd(const mail::Globals& globals, clsSendAcct& list, const std::wstring& address,
                         const std::wstring& accountInUse);
AccountAnswer replaceMissing(const mail::Globals& globals, clsSendAcct& list,
                             const std::wstring& accountInUse, const std::wstring& address,
                             const std::wstring& message);
AccountAnswer select(const mail::Globals& globals, clsSendAcct& list, const std::wstring& accountInUse,
                     const std::wstring& preferred, const std::wstring& address);

}  // namespace accounts::wordSide
