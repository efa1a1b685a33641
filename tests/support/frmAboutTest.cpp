#include "support/frmAbout.h"

#include <gtest/gtest.h>

#include "tests/TemporaryFolder.h"
#include "tests/TestWorld.h"

namespace {

constexpr wchar_t tool[] = L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr wchar_t location[] = L"SOFTWARE\\Microsoft\\Shared Tools Location";

TEST(About, StartsTheSystemsReportWhereTheRegistrySays) {
    TemporaryFolder folder;
    folder.write("MSINFO32.EXE", "");
    const std::wstring here = folder.file(".").parent_path().wstring();
    const struct {
        const char* name;
        const wchar_t* path;
        std::wstring shared;
        std::wstring started;
    } cases[] = {
        {"its own key", L"C:\\Tools\\msinfo32.exe", L"", L"C:\\Tools\\msinfo32.exe"},
        {"its own key first", L"C:\\Tools\\msinfo32.exe", here, L"C:\\Tools\\msinfo32.exe"},
        {"the shared tools", L"", here, here + L"\\MSINFO32.EXE"},
        {"no such file", L"", here + L"/nowhere", L""},
        {"nothing", L"", L"", L""},
    };
    for (const auto& given : cases) {
        TestWorld world({L"frmAbout=cmdSysInfo", L"Veltro=OK", L"frmAbout=cmdOK"});
        if (*given.path) {
            world.registry.setText(platform::RootKey::LocalMachine, tool, L"PATH", given.path);
        }
        if (!given.shared.empty()) {
            world.registry.setText(platform::RootKey::LocalMachine, location, L"MSINFO", given.shared);
        }
        support::frmAbout form(world.globals);
        world.platform.desktop.showModal(form);
        ASSERT_EQ(world.log.messages.size(), given.started.empty() ? 1U : 0U) << given.name;
        EXPECT_EQ(world.log.programs, given.started.empty() ? std::vector<std::wstring>{}
                                                            : std::vector<std::wstring>{given.started})
            << given.name;
        if (given.started.empty()) {
            EXPECT_EQ(world.log.messages.front().text, L"System Information Is Unavailable At This Time");
            EXPECT_EQ(world.log.messages.front().style.icon, platform::Icon::None);
        }
    }
}

TEST(About, ShowsAnAmpersandAsSuch) {
    TestWorld world({L"frmAbout=lblHomePage", L"frmAbout={Escape}"});
    world.globals.product.title = L"Salt & Pepper";
    world.globals.product.webSite = L"javascript:alert(1)";
    support::frmAbout form(world.globals);
    EXPECT_EQ(form.caption(), L"About Salt & Pepper");
    EXPECT_EQ(form.find(L"lblTitle")->caption(), L"Salt && Pepper");
    world.platform.desktop.showModal(form);
    EXPECT_TRUE(world.log.openedAddresses.empty());
}

}  // namespace
