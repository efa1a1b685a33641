#include "accounts/wordSide.h"

#include <utility>

#include "accounts/basSendAcct.h"
#include "accounts/clsSendAcct.h"
#include "mail/basWordMail.h"
#include "mail/errorTrap.h"

namespace accounts::wordSide {

namespace {

using mail::Globals;
using Decision = AccountAnswer::Decision;

Decision decisionOf(const Answers& left) {
    if (left.dialogMode == DialogMode::AnswerIgnored) {
        return Decision::Keep;
    }
    if (left.strChangeAcct == answerCancel) {
        return Decision::GoBack;
    }
    return left.strChangeAcct == answerChange ? Decision::Change : Decision::Keep;
}

/// Takes what the macro leaves, so that no other question finds it.
template <class... Arguments>
Answers run(const Globals& globals, clsSendAcct& list, DialogMode mode, const wchar_t* macro,
            const Arguments&... arguments) {
    list.leftByWord = {.dialogMode = mode};
    const bool ran =
        mail::skipErrors([&] { basWordMail::activeWord(globals).call(L"Run", macro, arguments...); });
    const Answers left = std::exchange(list.leftByWord, {});
    return ran && list.LoadList() ? left : Answers();
}

/// The list has the account since the macro has stored it.
AccountAnswer withListedAccount(const clsSendAcct& list, const std::wstring& address, const Answers& left) {
    return {decisionOf(left), basSendAcct::PreferredAccount(list, address)};
}

}  // namespace

AccountAnswer offerToAdd(const Globals& globals, clsSendAcct& list, const std::wstring& address,
                         const std::wstring& accountInUse) {
    const Answers left = run(globals, list, DialogMode::None, L"vtAddEmail", address, accountInUse);
    if (left.sendCancelled) {
        return {Decision::GoBack};
    }
    return withListedAccount(list, address, left);
}

AccountAnswer replaceMissing(const Globals& globals, clsSendAcct& list, const std::wstring& accountInUse,
                             const std::wstring& address, const std::wstring& message) {
    constexpr DialogMode mode = DialogMode::MissingAccount;
    const Answers left = run(globals, list, mode, L"vtPrefAcctExistsFalse", static_cast<std::int32_t>(mode),
                             accountInUse, address, message);
    return withListedAccount(list, address, left);
}

AccountAnswer select(const Globals& globals, clsSendAcct& list, const std::wstring& accountInUse,
                     const std::wstring& preferred, const std::wstring& address) {
    const Answers left =
        run(globals, list, DialogMode::None, L"vtSelPostroute", accountInUse, preferred, address);
    return {decisionOf(left), left.strAccount.empty() ? preferred : left.strAccount};
}

}  // namespace accounts::wordSide
