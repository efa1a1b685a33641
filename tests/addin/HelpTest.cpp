#include <gtest/gtest.h>

#include "addin/Connect.h"
#include "addin/ExplorerWrap.h"
#include "settings/frmIntroWizard.h"
#include "tests/TestWorld.h"

namespace {

TEST(Help, IsOpenedAtItsTopic) {
    TestWorld world({}, {.version = L"12.0.0.4518"});
    world.settings.write(L"ShowStartupWizard", L"False");
    addin::Connect connection(world.platform);
    connection.OnConnection(world.outlook.application(), 1, world.outlook.makeAddIn(L"Veltro.Connect"));
    world.outlook.pressControl(world.outlook.explorers().front(), {L"Tarnwell", L"Veltro", L"Veltro Help"});

    world.globals.product.helpFile = L"x\\Veltro.chm";
    settings::frmIntroWizard form(world.globals, nullptr);
    form.find(L"cmdNav(0)")->enter({});

    addin::ExplorerWrap window(world.globals, {});
    window.gmnuHelp_Click();
    window.gcmdTWL_Veltro_Tutorial_Click();
    EXPECT_EQ(world.log.helps,
              (std::vector<std::wstring>{L"Veltro.chm|Getting%20Started/Introduction.htm|with contents",
                                         L"Veltro.chm|Using_Veltro/vt_settings.htm|",
                                         L"Postroute_manual.chm||", L"Postroute_tutorial.chm||"}));
    connection.OnDisconnection(0);
}

TEST(Help, IsOpenedFromTheRibbon) {
    TestWorld world;
    world.settings.write(L"ShowStartupWizard", L"False");
    addin::Connect connection(world.platform);
    world.outlook.addRibbon(
        {[&](const std::wstring& id) { return connection.GetCustomUI(id); }, connection.ribbonCallbacks()});
    connection.OnConnection(world.outlook.application(), 1, world.outlook.makeAddIn(L"Veltro.Connect"));
    world.outlook.pressRibbon(world.outlook.explorers().front(), L"Veltro Help");
    EXPECT_EQ(world.log.helps,
              std::vector<std::wstring>{L"Veltro.chm|Getting%20Started/Introduction.htm|with contents"});
    connection.OnDisconnection(0);
    world.outlook.dropRibbons();
}

TEST(Help, SaysWhyThereIsNothingToSee) {
    const std::pair<platform::HelpOutcome, const wchar_t*> cases[] = {
        {platform::HelpOutcome::Missing,
         L"The help file Veltro.chm is missing from the folder where Veltro is installed."},
        {platform::HelpOutcome::OnNetwork,
         L"Windows does not show the help file Veltro.chm, because Veltro is installed on a network drive."}};
    for (const auto& [outcome, said] : cases) {
        TestWorld world({L"Help - Veltro=OK", L"frmIntroWizard=cmdNav(1)"});
        world.desktop.helpOutcome = outcome;
        world.globals.product.helpFile = L"x\\Veltro.chm";
        settings::frmIntroWizard form(world.globals, nullptr);
        form.find(L"cmdNav(0)")->enter({});
        ASSERT_EQ(world.log.messages.size(), 1U);
        EXPECT_EQ(world.log.messages.front().text, said);
    }
}

}  // namespace
