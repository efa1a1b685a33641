#include "addin/Buttons.h"

#include <gtest/gtest.h>

#include <map>

#include "accounts/SharedSendAcct.h"
#include "addin/Connect.h"
#include "platform/FunctionTarget.h"
#include "tests/TestWorld.h"

/// The questions of a send in Word's process, and how the answers leave it.
namespace {

using automation::Object;
using automation::Value;
using Arguments = std::span<const Value>;

/// An add-in in Outlook whose list is this object, and to which nothing can be told if it is deaf.
Object addIn(const Object& list, bool deaf, std::vector<std::wstring>& told) {
    return Object(
        std::make_shared<automation::FunctionTarget>(std::vector<automation::FunctionTarget::Member>{
            {L"WordEditorVariablesGet", 1,
             [list](Arguments given) {
                 given[0].variable() = list;
                 return Value();
             }},
            {L"WordEditorVariablesSet", 2,
             [deaf, &told](Arguments given) {
                 if (deaf) {
                     throw automation::Error(automation::errors::failed, L"The RPC server is unavailable.");
                 }
                 told.push_back(accounts::answersIn(given[1].toObject()).strAccount);
                 return Value();
             }},
        }));
}

/// A list that Outlook answers no more once an entry was stored in it.
Object brokenList() {
    const auto answer = std::make_shared<std::map<std::wstring, Value>>();
    const auto property = [answer](const wchar_t* name) {
        return automation::FunctionTarget::Member{
            name, 0, [answer, name](Arguments) { return (*answer)[name]; },
            [answer, name](const Value& value) { (*answer)[name] = value; }};
    };
    return Object(
        std::make_shared<automation::FunctionTarget>(std::vector<automation::FunctionTarget::Member>{
            property(L"strChangeAcct"),
            property(L"strAccount"),
            property(L"DialogMode"),
            {L"LoadAccounts", 0,
             [](Arguments) {
                 return Value(automation::Array{L"Work", L"Home"});
             }},
            {L"SetAccount", 2, [](Arguments) { return Value(L""); }}}));
}

TEST(Buttons, SetsTheCancelFlagThatItIsGiven) {
    TestWorld world({L"frmNoSubject=cmdCancel"});
    world.settings.write(L"ShowStartupWizard", L"False");
    addin::Connect connection(world.platform);
    connection.OnConnection(world.outlook.application(), 1, world.outlook.makeAddIn(L"Veltro.Connect"));
    addin::Buttons buttons(world.platform);
    Value cancel = false;
    const Value mail = world.outlook.itemOf(world.outlook.openNewMail({}));
    EXPECT_TRUE(buttons.EmptySubjectCheck(mail, Value::reference(cancel)));
    EXPECT_TRUE(cancel.toBool());
    connection.OnDisconnection(0);
}

TEST(Buttons, HoldTheMailWhenAnAnswerCannotBeTold) {
    const struct {
        std::vector<std::wstring> answers;
        bool deaf;
        bool held;
        std::vector<std::wstring> told;
    } cases[] = {
        {{L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK"}, false, false, {L"Home"}},
        {{L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK", L"Send Account - Veltro=OK"}, true, true, {}},
        {{L"frmEmailAddressEdit=cmdCancel"}, false, true, {L""}},
        {{L"frmEmailAddressEdit=cmdCancel"}, true, true, {}},
    };
    for (const auto& [answers, deaf, held, expected] : cases) {
        TestWorld world(answers);
        std::vector<std::wstring> told;
        world.outlook.makeAddIn(L"Veltro.Connect").put(L"Object", addIn(brokenList(), deaf, told));
        addin::Buttons buttons(world.platform);
        EXPECT_EQ(buttons.PrefAcctExistsFalse(4, L"Work", L"bob@example.org", L"Gone."), held);
        EXPECT_EQ(told, expected);
        EXPECT_EQ(world.log.forms.size() + world.log.messages.size(), answers.size());
    }
}

}  // namespace
