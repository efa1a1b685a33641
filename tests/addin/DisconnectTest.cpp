#include <gtest/gtest.h>

#include "addin/Connect.h"
#include "tests/TestWorld.h"

namespace {

/// Another add-in or a script can switch the add-in off while it waits for an answer.
TEST(Disconnection, DuringAQuestionLetsTheSendFinish) {
    TestWorld world({L"Confirm Email Send=Yes", L"Veltro=OK"});
    world.settings.write(L"DisplayConfirmation", L"1");
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

}  // namespace
