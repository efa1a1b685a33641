#include "settings/modRegKeys.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <stdexcept>

#include "tests/TestWorld.h"

namespace {

using namespace modRegKeys;
using mail::Globals;

template <class Setting>
std::function<std::wstring(Globals&)> reader(const Setting& setting) {
    return [&setting](Globals& globals) {
        if constexpr (std::is_same_v<decltype(setting.read(globals)), bool>) {
            return std::wstring(setting.read(globals) ? L"true" : L"false");
        } else if constexpr (std::is_same_v<decltype(setting.read(globals)), std::int16_t>) {
            return std::to_wstring(setting.read(globals));
        } else if constexpr (std::is_same_v<decltype(setting.read(globals)), double>) {
            return setting.shown(setting.read(globals));
        } else {
            return setting.read(globals);
        }
    };
}

struct Reading {
    const char* name;
    const wchar_t* key;
    std::optional<std::wstring> stored;
    std::function<std::wstring(Globals&)> read;
    std::wstring expected;
};

const std::wstring defaultWords = L"attach;attached;attachment;enclose;enclosed;enclosing";

const Reading readings[] = {
    {"flag absent, default on", L"CheckAttachMissing", {}, reader(CheckAttachMissing), L"true"},
    {"flag in lower case, default on", L"CheckAttachMissing", L"false", reader(CheckAttachMissing), L"true"},
    {"flag off", L"CheckAttachMissing", L"False", reader(CheckAttachMissing), L"false"},
    {"flag absent, default off", L"PlaySound", {}, reader(PlaySound), L"false"},
    {"flag in lower case, default off", L"PlaySound", L"true", reader(PlaySound), L"false"},
    {"flag on", L"PlaySound", L"True", reader(PlaySound), L"true"},
    {"flag with a blank", L"DelayEmails", L"True ", reader(DelayEmails), L"false"},
    {"number flag absent", L"AutoRemoveSpamWords", {}, reader(AutoRemoveSpamWords), L"0"},
    {"number flag empty", L"AutoRemoveSpamWords", L"", reader(AutoRemoveSpamWords), L"1"},
    {"number flag zero with blanks", L"AutoDelayAll", L" 0 ", reader(AutoDelayAll), L"0"},
    {"number flag other text", L"MsgAddAddress", L"no", reader(MsgAddAddress), L"1"},
    {"delay all absent", L"AutoDelayAll", {}, reader(AutoDelayAll), L"1"},
    {"delay all empty", L"AutoDelayAll", L"", reader(AutoDelayAll), L"1"},
    {"choice absent", L"DisplayConfirmation", {}, reader(DisplayConfirmation), L"0"},
    {"choice one", L"DisplayConfirmation", L" 1 ", reader(DisplayConfirmation), L"1"},
    {"choice two", L"DisplayConfirmation", L"2", reader(DisplayConfirmation), L"2"},
    {"choice other", L"DisplayConfirmation", L"3", reader(DisplayConfirmation), L"0"},
    {"days absent", L"OldEmailDays", {}, reader(OldEmailDays), L"28"},
    {"days zero", L"OldEmailDays", L"0", reader(OldEmailDays), L"28"},
    {"days negative", L"OldEmailDays", L"-3", reader(OldEmailDays), L"28"},
    {"days text", L"OldEmailDays", L"abc", reader(OldEmailDays), L"28"},
    {"days empty", L"OldEmailDays", L"", reader(OldEmailDays), L"28"},
    {"days fraction", L"OldEmailDays", L" 3.9 ", reader(OldEmailDays), L"3"},
    {"days exponent", L"OldEmailDays", L"1e2", reader(OldEmailDays), L"100"},
    {"days beyond 32 bits", L"OldEmailDays", L"99999999999", reader(OldEmailDays), L"99999999999"},
    {"days beyond 64 bits", L"OldEmailDays", L"1e20", reader(OldEmailDays), L"100000000000000000000"},
    {"days beyond a double", L"OldEmailDays", L"1e999", reader(OldEmailDays), L"28"},
    {"recipients zero", L"XRecipients", L"0", reader(XRecipients), L"5"},
    {"recipients", L"XRecipients", L"12.7", reader(XRecipients), L"12"},
    {"delay absent", L"DelayTime", {}, reader(DelayTime), L"60"},
    {"delay empty", L"DelayTime", L"", reader(DelayTime), L"0"},
    {"delay unchecked", L"DelayTime", L" soon ", reader(DelayTime), L"soon"},
    {"words absent", L"AttachKeyWords", {}, reader(AttachKeyWords), defaultWords},
    {"words empty", L"AttachKeyWords", L"", reader(AttachKeyWords), L""},
    {"words trimmed", L"SpamKeyWords", L" a;b ", reader(SpamKeyWords), L"a;b"},
    {"addresses absent", L"EmailList", {}, reader(EmailList), L"me@example.org"},
    {"addresses empty", L"EmailList", L"", reader(EmailList), L""},
    {"addresses listed", L"EmailList", L"a@b.org", reader(EmailList), L"a@b.org"},
    {"plain absent", L"strVersionNotNotify", {}, reader(strVersionNotNotify), L"False"},
    {"plain as it stands", L"IgnoreTextValue", L" two\r\nlines ", reader(IgnoreTextValue), L" two\r\nlines "},
};

TEST(Settings, ReadAsTheirEncodingSays) {
    for (const Reading& given : readings) {
        TestWorld world;
        if (given.stored) {
            world.settings.write(given.key, *given.stored);
        }
        EXPECT_EQ(given.read(world.globals), given.expected) << given.name;
    }
}

TEST(Settings, AreWrittenTrimmedAndFlagsOnlyFromATickedBox) {
    TestWorld world;
    for (const auto& [state, stored] :
         {std::pair{0, L"False"}, {1, L"True"}, {2, L"False"}, {-1, L"False"}}) {
        PlaySound.write(world.globals, state);
        EXPECT_EQ(world.settings.read(L"PlaySound"), stored) << state;
    }
    AutoDelayAll.write(world.globals, 2);
    EXPECT_EQ(world.settings.read(L"AutoDelayAll"), L"2");
    XRecipients.write(world.globals, L" 7 ");
    EXPECT_EQ(world.settings.read(L"XRecipients"), L"7");
    EmailList.write(world.globals, L" a@b.org;c@d.org ");
    EXPECT_EQ(world.settings.read(L"EmailList"), L"a@b.org;c@d.org");
}

class BrokenStore : public platform::SettingsStore {
  public:
    std::optional<std::wstring> read(const std::wstring&) override {
        throw automation::Error(75, L"unreadable");
    }
    void write(const std::wstring&, const std::wstring&) override {
        throw automation::Error(75, L"unwritable");
    }
};

TEST(Settings, OfABrokenStoreReadAsTheirDefaults) {
    BrokenStore broken;
    TestWorld world(broken);
    EXPECT_TRUE(CheckAttachMissing.read(world.globals));
    EXPECT_EQ(OldEmailDays.read(world.globals), 28);
    EXPECT_EQ(AutoDelayAll.read(world.globals), 1);
    EXPECT_NO_THROW(PlaySound.write(world.globals, 1));
    EXPECT_THROW(IgnoreTextValue.write(world.globals, L"x"), automation::Error);
}

}  // namespace
