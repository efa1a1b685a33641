#include <gtest/gtest.h>

#include "addin/Connect.h"
#include "addin/ExplorerWrap.h"
#include "settings/frmIntroWizard.h"
#include "tests/TestWorld.h"

namespace {

TEST(Help, IsOpenedAtItsTopic) {
    TestWorld world;
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

}  // namespace
