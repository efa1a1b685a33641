#include "accounts/SharedSendAcct.h"
#include "accounts/basSendAcct.h"
#include "addin/Connect.h"
#include "mail/errorTrap.h"

/// Connect as other programs reach it.
namespace addin {

using automation::Value;
using Arguments = std::span<const Value>;

automation::Object Connect::exposed() {
    exposed_ = std::make_shared<automation::FunctionTarget>(std::vector<automation::FunctionTarget::Member>{
        {L"TutorialScreen", 0, [this](Arguments) { return Value(TutorialScreen()); }},
        {L"WordEditorVariablesGet", 1,
         [this](Arguments given) {
             given[0].variable() = WordEditorVariablesGet();
             return Value();
         }},
        {L"WordEditorVariablesSet", 2,
         [this](Arguments given) {
             WordEditorVariablesSet(given[0].toBool(), given[1].toObject());
             return Value();
         }},
    });
    return automation::Object(exposed_);
}

/// An Outlook that has not disconnected the add-in shuts down fast, and must not be called any more.
Connect::~Connect() {
    if (exposed_) {
        exposed_->close();
    }
}

/// Whoever holds the object beyond this finds nothing behind it.
void Connect::unexpose() {
    if (!exposed_) {
        return;
    }
    exposed_->close();
    exposed_.reset();
    if (addInInst_) {
        mail::skipErrors([&] { addInInst_.put(L"Object", automation::Object()); });
    }
}

automation::Object Connect::WordEditorVariablesGet() {
    return accounts::shareWithWord(accounts::basSendAcct::TheList(globals_));
}

/// The flag first: it is a user's No, and must not be lost with the list.
void Connect::WordEditorVariablesSet(bool cancel, const automation::Object& list) {
    globals_.sendCancelled = cancel;
    accounts::basSendAcct::TheList(globals_)->answeredInWord = accounts::answersIn(list);
}

}  // namespace addin
