#include <gtest/gtest.h>

#include "tests/TemporaryFolder.h"
#include "tests/scenarios/Bench.h"

namespace {

using host::SendState;

/// A file that makes "budget" promise an attachment.
std::string fileWithId(const std::string& id) {
    return "' Veltro Settings\r\nSettingsID=" + id +
           "\r\nAttachKeyWords=budget;\xFC"
           "berzogen\r\nIgnoreText=True\r\nIgnoreTextValue=<VTSig>Our\r\nbudget "
           "rules</VTSig>\r\n'[Enable Fields]\r\nPassword=v1:00\r\nAttachments_Words_List=Yes\r\n"
           "PlaySound_Every_Prompt=No\r\n'[/Enable Fields]\r\n'\r\n";
}

bool isStopped(Bench& bench, const std::wstring& body) {
    return bench.send(plainMail(L"Figures", body)).state == SendState::Cancelled;
}

TEST(AdministratorsFile, IsAppliedAtTheStart) {
    Bench bench({.answers = {L"Attachment(s) missing=No", L"Attachment(s) missing=No"},
                 .settingsFile = fileWithId("7")});
    EXPECT_TRUE(isStopped(bench, L"the budget"));
    EXPECT_TRUE(isStopped(bench, L"ist \u00FCberzogen"));
    EXPECT_FALSE(isStopped(bench, L"see attached"));
    EXPECT_FALSE(isStopped(bench, L"Hello\r\nOur\r\nbudget rules"));
    EXPECT_EQ(bench.world().setting(L"Password"), L"v1:00");
    EXPECT_EQ(bench.world().setting(L"LockFields"), L"Attachments_Words_List=Yes;PlaySound_Every_Prompt=No");
    EXPECT_EQ(bench.world().setting(L"SettingsID"), L"7");
}

TEST(AdministratorsFile, LeavesWhatTheUserChangedUntilItHasANewIdentifier) {
    for (const auto& [id, words] : {std::pair{"7", L"figures"}, {"8", L"budget;\u00FCberzogen"}}) {
        const TemporaryFolder folder;
        Bench bench({.settingsFile = fileWithId("7")});
        bench.world().set(L"AttachKeyWords", L"figures");
        bench.disconnect();
        bench.world().set(L"VT_Settings_FilePath", folder.write("new.txt", fileWithId(id)).wstring());
        bench.connect();
        EXPECT_EQ(bench.world().setting(L"AttachKeyWords"), words) << id;
    }
}

TEST(AdministratorsFile, IsLookedForBesideTheAddInWhenItIsNowhereElse) {
    const TemporaryFolder folder;
    for (const auto& [name, id] : {std::pair{"", L"7"}, {"none.ini", L"7"}, {"there.ini", L"8"}}) {
        folder.write("there.ini", fileWithId("8"));
        Bench bench({.settings = {{L"VT_Settings_FilePath", L" " + folder.file(name).wstring() + L" "}},
                     .settingsFile = fileWithId("7")});
        EXPECT_EQ(bench.world().setting(L"SettingsID"), id) << name;
    }
}

TEST(AdministratorsFile, NeverStopsTheStart) {
    for (const std::string& file :
         {std::string(), std::string(100'000, '\0'), "=\r\n=" + std::string(70'000, 'k') + "=v",
          std::string("IgnoreTextValue=<VTSig>")}) {
        Bench bench({.answers = {L"Attachment(s) missing=No"}, .connected = false, .settingsFile = file});
        EXPECT_TRUE(bench.connect());
        EXPECT_TRUE(isStopped(bench, L"see attached"));
        EXPECT_EQ(bench.prompts().size(), 1U);
    }
}

TEST(AdministratorsFile, MayBeMissing) {
    Bench bench({.settings = {{L"SettingsID", L"7"}}});
    EXPECT_EQ(bench.world().setting(L"SettingsID"), L"7");
    for (const std::string& line : bench.world().debugLines()) {
        EXPECT_EQ(line.find("SettingsFile"), std::string::npos) << line;
    }
}

}  // namespace
