#include <gtest/gtest.h>

#include "addin/Connect.h"
#include "tests/TestWorld.h"

namespace {

/// Another add-in or a script can switch the add-in off while it waits for an answer.
TEST(Disconnection, DuringAQuestionLetsTheSendFinish) {
    TestWorld world({L"Confirm Email Send=Yes", L"Veltro=OK"});
    world.settings.write(L"DisplayConfirmation", L"1");
    world.settings.write(L"ShowStartupWizard", L"False");
    addin::Connect connection(world.platform);
    connection.OnConnection(world.outlook.application(), 1, world.outlook.makeAddIn(L"Veltro.Connect"));
    world.log.meanwhile = [&] {
        world.log.meanwhile = nullptr;
        connection.OnDisconnection(1);
    };
    host::Message message;
    message.to = {{.name = L"Bob", .address = L"bob@example.org"}};
    message.subject = L"Budget";

    EXPECT_EQ(world.outlook.send(world.outlook.openNewMail(message)).state, host::SendState::Sent);
    EXPECT_EQ(world.log.messages.at(0).title, L"Confirm Email Send - Veltro");
}

/// While a reply's question is open the user answers another mail in another window.
TEST(ReplyDuringAQuestion, IsCheckedAsWell) {
    TestWorld world({L"BCCed e-mail=No", L"frmReplyMultRecipt=cmdOK"});
    world.settings.write(L"UseOutlookSettings", L"True");
    world.settings.write(L"ShowStartupWizard", L"False");
    addin::Connect connection(world.platform);
    connection.OnConnection(world.outlook.application(), 1, world.outlook.makeAddIn(L"Veltro.Connect"));
    const auto mailTo = [&](const wchar_t* address) {
        host::Message message;
        message.from = {.name = L"Ann", .address = L"ann@example.com"};
        message.to = {{.name = L"To", .address = address}, {.name = L"Bob", .address = L"bob@example.com"}};
        return world.outlook.receive(message);
    };
    const auto asked = mailTo(L"carl@example.com");
    const auto other = mailTo(L"me@example.org");
    world.outlook.select(world.outlook.explorers().front(), {asked});
    world.outlook.select(world.outlook.openExplorer(), {other});
    world.log.meanwhile = [&] {
        world.log.meanwhile = nullptr;
        world.outlook.reply(other);
    };
    world.outlook.replyAll(asked);
    ASSERT_EQ(world.log.forms.size(), 1U);
    EXPECT_EQ(world.log.forms[0].form, L"frmReplyMultRecipt");
    connection.OnDisconnection(0);
}

}  // namespace
