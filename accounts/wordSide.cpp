#include "accounts/wordSide.h"

#include <utility>

#include "accounts/clsSendAcct.h"
#include "mail/basWordMail.h"

namespace accounts::wordSide {

namespace {

using mail::Globals;
using Decision = AccountAnswer::Decision;

constexpr wchar_t answerChange[] = L"CHANGE";
constexpr wchar_t answerCancel[] = L"CANCEL";

/// Takes what is answered, so that no other question finds it: one that comes inside of this has answers of
/// its own.
template <class... Arguments>
AccountAnswer ask(Globals& globals, clsSendAcct& list, const outlook::Inspector& window, DialogMode mode,
                  const wchar_t* macro, const Arguments&... arguments) {
    const Answers outer = std::exchange(list.answeredInWord, {.dialogMode = mode});
    const bool held = basWordMail::runMacro(globals, window, macro, arguments...);
    const Answers left = std::exchange(list.answeredInWord, outer);
    return held ? AccountAnswer{Decision::GoBack} : left.answer();
}

}  // namespace

Answers Answers::of(const AccountAnswer& answer, DialogMode mode) {
    switch (answer.decision) {
        case Decision::Change:
            return {answerChange, answer.account, mode};
        case Decision::GoBack:
            return {answerCancel, {}, mode};
        case Decision::Keep:
            break;
    }
    return {{}, {}, mode};
}

AccountAnswer Answers::answer() const {
    if (dialogMode == DialogMode::AnswerIgnored) {
        return {};
    }
    if (strChangeAcct == answerCancel) {
        return {Decision::GoBack};
    }
    return strChangeAcct == answerChange ? AccountAnswer{Decision::Change, strAccount} : AccountAnswer{};
}

AccountAnswer offerToAdd(Globals& globals, clsSendAcct& list, const outlook::Inspector& window,
                         const std::wstring& address, const std::wstring& accountInUse) {
    return ask(globals, list, window, DialogMode::None, L"vtAddEmail", address, accountInUse);
}

AccountAnswer replaceMissing(Globals& globals, clsSendAcct& list, const outlook::Inspector& window,
                             const std::wstring& accountInUse, const std::wstring& address,
                             const std::wstring& message) {
    constexpr DialogMode mode = DialogMode::MissingAccount;
    return ask(globals, list, window, mode, L"vtPrefAcctExistsFalse", static_cast<std::int32_t>(mode),
               accountInUse, address, message);
}

AccountAnswer select(Globals& globals, clsSendAcct& list, const outlook::Inspector& window,
                     const std::wstring& accountInUse, const std::wstring& preferred,
                     const std::wstring& address) {
    return ask(globals, list, window, DialogMode::None, L"vtSelPostroute", accountInUse, preferred, address);
}

}  // namespace accounts::wordSide
