#include <gtest/gtest.h>

#include "addin/Connect.h"
#include "mail/product.h"
#include "platform/native/CurlHttp.h"
#include "tests/TestWorld.h"
#include "tests/WebServer.h"

namespace {

/// A world whose update check is due, with a service that never answers.
class WaitingWorld : public TestWorld {
  public:
    WaitingWorld() {
        clock.set({45427.5});
        settings.write(L"ShowStartupWizard", L"False");
        settings.write(L"LastCheckUpdateDate", L"5/1/2024");
        registry.setText(platform::RootKey::LocalMachine, L"SOFTWARE\\Corvane\\Veltro", L"UpdateService",
                         silent.address());
    }

    WebServer silent{[](const std::string&) { return WebServer::Reply{"", WebServer::Reply::Then::Wait}; }};
    platform::native::CurlHttp http{desktop.events()};
    platform::Platform ports2{platform.automation, platform.desktop, platform.settings, platform.registry,
                              platform.resources,  platform.clock,   platform.system,   http};
};

TEST(Disconnection, AbandonsWhatIsUnderWay) {
    WaitingWorld world;
    for (int round = 0; round < 1000; ++round) {
        world.settings.write(L"dtmLastUpdateDate", L"5/1/2024");
        addin::Connect connect(world.ports2);
        connect.OnConnection(world.outlook.application(), 1,
                             world.outlook.makeAddIn(L"Veltro.Connect", L"Veltro"));
        ASSERT_TRUE(world.desktop.events().fireTimer()) << round;
        ASSERT_EQ(world.settings.read(L"dtmLastUpdateDate"), L"5/15/2024") << "asked in round " << round;
        connect.OnDisconnection(0);
        ASSERT_FALSE(world.desktop.events().fireTimer()) << round;
    }
    world.desktop.events().settle();
    EXPECT_TRUE(world.log.forms.empty());
}

/// The add-in may go while its offer is on the screen, and while it waits for another prompt to close.
TEST(Disconnection, OutlivesAnOffer) {
    const auto connected = [](TestWorld& world, addin::Connect& connect) {
        world.clock.set({45427.5});
        for (const auto& [key, value] :
             {std::pair{L"ShowStartupWizard", L"False"}, std::pair{L"LastCheckUpdateDate", L"5/1/2024"},
              std::pair{L"dtmLastUpdateDate", L"5/1/2024"}}) {
            world.settings.write(key, value);
        }
        world.ports.web.setPage(L"http://a.example/services/uploadversion.asp?program=veltro&version=" +
                                    std::wstring(mail::product::versionText),
                                "<SOFTWARELIST><FREEVERSION>1.99</FREEVERSION></SOFTWARELIST>");
        world.registry.setText(platform::RootKey::LocalMachine, L"SOFTWARE\\Corvane\\Veltro",
                               L"UpdateService", L"http://a.example");
        connect.OnConnection(world.outlook.application(), 1,
                             world.outlook.makeAddIn(L"Veltro.Connect", L"Veltro"));
    };
    TestWorld open({L"frmDownload=cmdYes"});
    addin::Connect first(open.platform);
    connected(open, first);
    open.log.shown = [&](const platform::FormPrompt&) { first.OnDisconnection(0); };
    open.desktop.events().settle();
    EXPECT_EQ(open.log.forms.size(), 1U);
    EXPECT_EQ(open.log.openedAddresses.size(), 1U);
}

}  // namespace
