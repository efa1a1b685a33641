#include "addin/Buttons.h"

#include "accounts/SharedSendAcct.h"
#include "accounts/accountStep.h"
#include "addin/productTexts.h"
#include "checks/basVeltro.h"
#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "platform/FunctionTarget.h"
#include "settings/prompts.h"

namespace addin {

namespace accountStep = accounts::accountStep;

using accounts::AccountAnswer;
using accounts::EntryStore;
using accounts::wordSide::DialogMode;
using automation::Value;
using Arguments = std::span<const Value>;

Buttons::Buttons(const platform::Platform& ports) : around_(ports) {
    readProductTexts(globals_);
}

automation::Object Buttons::object(std::shared_ptr<Buttons> buttons) {
    return automation::Object(
        std::make_shared<automation::FunctionTarget>(std::vector<automation::FunctionTarget::Member>{
            {L"SelPostroute", 3,
             [buttons](Arguments given) {
                 return buttons->SelPostroute(given[0].toText(), given[1].toText(), given[2].toText());
             }},
            {L"AddEmailAddressToList", 2,
             [buttons](Arguments given) {
                 return buttons->AddEmailAddressToList(given[0].toText(), given[1].toText());
             }},
            {L"PrefAcctExistsFalse", 4,
             [buttons](Arguments given) {
                 return buttons->PrefAcctExistsFalse(given[0].toInteger(), given[1].toText(),
                                                     given[2].toText(), given[3].toText());
             }},
            {L"DelayEmailSending", 2,
             [buttons](Arguments given) { return buttons->DelayEmailSending(given[0], given[1]); }},
            {L"EmptySubjectCheck", 2,
             [buttons](Arguments given) { return buttons->EmptySubjectCheck(given[0], given[1]); }},
        }));
}

bool Buttons::EmptySubjectCheck(const Value& item, const Value& cancel) {
    return runCheck(item, cancel, &checks::vtEmptySubjectCheck);
}

bool Buttons::DelayEmailSending(const Value& item, const Value& cancel) {
    return runCheck(item, cancel, &checks::vtDelayEmailSending);
}

bool Buttons::AddEmailAddressToList(const std::wstring& address, const std::wstring& accountInUse) {
    return ask(DialogMode::None, [&](EntryStore& list) {
        return accountStep::offerToAdd(globals_, list, address, accountInUse);
    });
}

bool Buttons::PrefAcctExistsFalse(std::int32_t mode, const std::wstring& accountInUse,
                                  const std::wstring& address, const std::wstring& message) {
    return ask(static_cast<DialogMode>(mode), [&](EntryStore& list) {
        return accountStep::replaceMissing(globals_, list, accountInUse, address, message);
    });
}

bool Buttons::SelPostroute(const std::wstring& accountInUse, const std::wstring& preferred,
                           const std::wstring& address) {
    return ask(DialogMode::None, [&](EntryStore& list) {
        return accountStep::select(globals_, list, accountInUse, preferred, address);
    });
}

bool Buttons::runCheck(const Value& item, const Value& cancel, Check check) {
    bool cancelled = false;
    if (!mail::hasRedemption(globals_)) {
        globals_.provider = &mail::untrustedProvider();  // Outlook's trust ends with its process.
    }
    mail::skipErrors([&] {
        const basWordMail::Variables variables = basWordMail::GetVariables(globals_);
        mail::OutgoingMail mail(globals_, outlook::Item(item.toObject()));
        check(globals_, mail, cancelled);
        mail.release();
        basWordMail::SetVariables(variables, cancelled);
    });
    if (cancelled && cancel.isReference()) {
        cancel.variable() = true;
    }
    return cancelled;
}

bool Buttons::ask(DialogMode mode, const Question& question) {
    AccountAnswer answer;
    const bool told = mail::skipErrors([&] {
        const basWordMail::Variables variables = basWordMail::GetVariables(globals_);
        accounts::RemoteSendAcct list(variables.list);
        answer = question(list);
        accounts::putAnswers(variables.list, accounts::wordSide::Answers::of(answer, mode));
        basWordMail::SetVariables(variables, false);
    });
    using Decision = AccountAnswer::Decision;
    const bool untold = !told && answer.decision == Decision::Change;
    if (untold) {
        mail::skipErrors([&] {
            prompts::inform(
                globals_, L"Send Account",
                L"Outlook could not be told which account to use, so the e-mail was not sent. Please "
                L"send it again.");
        });
    }
    return untold || answer.decision == Decision::GoBack;
}

}  // namespace addin
