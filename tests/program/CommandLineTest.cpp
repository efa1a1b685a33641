#include "program/CommandLine.h"

#include <gtest/gtest.h>

namespace {

using program::Command;
using program::parseCommandLine;
using Words = std::vector<std::wstring>;

TEST(CommandLine, DescribesTheProfileThatItAsksFor) {
    const auto plain = parseCommandLine({L"send", L"a.eml", L"b.eml"});
    EXPECT_EQ(plain.command, Command::Send);
    EXPECT_EQ(plain.files, (Words{L"a.eml", L"b.eml"}));
    EXPECT_EQ(plain.profile().version, L"14.0.0.4760");
    ASSERT_EQ(plain.profile().accounts.size(), 1U);
    EXPECT_EQ(plain.profile().accounts[0].name, L"Work");
    EXPECT_EQ(plain.profile().accounts[0].address, L"me@example.org");
    EXPECT_FALSE(plain.profile().folders.empty());

    const auto full = parseCommandLine({L"--account",
                                        L"Home=me@home.example",
                                        L"reply-all",
                                        L"--account",
                                        L"Work=me@work.example",
                                        L"--outlook=11.0.5510",
                                        L"--editor",
                                        L"word",
                                        L"--bcc-me",
                                        L"--folder",
                                        L"kept.json",
                                        L"--first-run",
                                        L"--set",
                                        L"OldEmailDays=7",
                                        L"--set",
                                        L"DomainName=a=b",
                                        L"--provider",
                                        L"redemption",
                                        L"--json",
                                        L"--",
                                        L"-odd.eml"});
    EXPECT_EQ(full.command, Command::ReplyAll);
    EXPECT_EQ(full.files, Words{L"-odd.eml"});
    EXPECT_EQ(full.profile().version, L"11.0.5510");
    EXPECT_EQ(full.profile().editor, host::Editor::Word);
    ASSERT_EQ(full.profile().accounts.size(), 2U);
    EXPECT_EQ(full.profile().accounts[0].name, L"Home");
    EXPECT_TRUE(full.profile().folders.empty());
    EXPECT_EQ(full.folderFile, L"kept.json");
    EXPECT_TRUE(full.bccMe && full.firstRun && full.json);
    ASSERT_EQ(full.settings.size(), 2U);
    EXPECT_EQ(full.settings[1], (std::pair<std::wstring, std::wstring>(L"DomainName", L"a=b")));
    EXPECT_TRUE(plain.profile().redemptionRegistered && full.profile().redemptionRegistered);

    const auto later =
        parseCommandLine({L"send", L"a.eml", L"--provider", L"outlook", L"--outlook", L"16.0.17328"});
    EXPECT_FALSE(later.profile().redemptionRegistered);
    EXPECT_EQ(later.profile().version, L"16.0.17328");
}

TEST(CommandLine, SaysInOneLineWhatIsWrong) {
    struct Case {
        Words words;
        const char* told;
    };
    const Case cases[] = {
        {{L"fly", L"a.eml"}, "fly"},
        {{L"send"}, "file"},
        {{L"send", L"a.eml", L"--colour"}, "--colour"},
        {{L"send", L"a.eml", L"--set"}, "--set"},
        {{L"send", L"a.eml", L"--set", L"OldEmailDays"}, "OldEmailDays"},
        {{L"send", L"a.eml", L"--set", L"=7"}, "--set"},
        {{L"send", L"a.eml", L"--account", L"Work"}, "--account"},
        {{L"send", L"a.eml", L"--account", L"Work=nobody"}, "nobody"},
        {{L"send", L"a.eml", L"--account", L"A=a@x.org", L"--account", L"a=b@x.org"}, "two accounts"},
        {{L"send", L"a.eml", L"--outlook", L"new"}, "--outlook"},
        {{L"send", L"a.eml", L"--editor", L"vi"}, "--editor"},
        {{L"send", L"a.eml", L"--provider", L"mapi"}, "redemption or outlook, not \"mapi\""},
        {{L"send", L"a.eml", L"--provider", L"Outlook"}, "not \"Outlook\""},
        {{L"send", L"a.eml", L"--provider="}, "--provider"},
        {{L"send", L"a.eml", L"--provider", L"outlook", L"--outlook", L"11.0.5510"}, "version 12"},
        {{L"send", L"a.eml", L"--answer", L"Yes"}, "WHERE=WHAT"},
        {{L"send", L"a.eml", L"--bcc-me"}, "--bcc-me"},
        {{L"send", L"a.eml", L"--outlook", L"15.0", L"--inline"}, "--inline"},
        {{L"reply", L"a.eml", L"--inline"}, "version 15"},
        {{L"send", L"a.eml", L"--json=yes"}, "--json"},
        {{L"send", L"a.eml", L"--list", L"Work"}, "--list"},
        {{L"send", L"a.eml", L"--outlook", L"99999999999"}, "99999999999"},
        {{L"send", L"a.eml", L"--outlook", L"14..0"}, "--outlook"},
        {{L"send", L"a.eml", L"--outlook", L"14.0."}, "--outlook"},
        {{L"send", L"a.eml", L"--set", L"OldEmailsDays=7"}, "\"OldEmailDays\" meant"},
        {{L"send", L"a.eml", L"--set", std::wstring(100000, L'x') + L"=7"}, "there is no setting"},
        {{L"send", L"a.eml", L"--settings", L"-"}, "--settings"},
        {{L"send", L"a.eml", L"--settings="}, "--settings"},
        {{L"send", L"a.eml", L"--folder="}, "--folder"},
        {{L"send", L"-", L"a.eml", L"-"}, "only once"},
        {{L"list", L"a.eml"}, "no message file"},
        {{L"settings", L"expot", L"x"}, "export FOLDER or import FILE"},
        {{L"settings", L"export"}, "one folder"},
        {{L"settings", L"export", L"a", L"b"}, "one folder"},
        {{L"settings", L"import", L"--settings", L"s"}, "one file"},
        {{L"settings", L"import", L"a", L"b", L"--settings", L"s"}, "one file"},
        {{L"settings", L"import", L"a"}, "--settings FILE"},
        {{L"list", L"--first-run", L"--list", L"a@x.org=Work"}, "--first-run"},
    };
    for (const Case& test : cases) {
        try {
            parseCommandLine(test.words);
            ADD_FAILURE() << "accepted, though " << test.told;
        } catch (const program::UsageError& error) {
            const std::string told = error.what();
            EXPECT_NE(told.find(test.told), std::string::npos) << told;
            EXPECT_EQ(told.find('\n'), std::string::npos) << told;
        }
    }
}

TEST(CommandLine, WarnsOfValuesThatASettingReadsAsSomethingElse) {
    const struct {
        const wchar_t* setting;
        const char* reading;
    } cases[] = {
        {L"ReplyAllAny=False", nullptr},      {L"replyallany=False", nullptr},
        {L"ReplyAllAny=false", "\"True\""},   {L"DelayEmails=true", "\"False\""},
        {L"MsgAddAddress=1", nullptr},        {L"MsgAddAddress=yes", "\"1\""},
        {L"MsgAddAddress=", "\"1\""},         {L"DisplayConfirmation=2", nullptr},
        {L"DisplayConfirmation=3", "\"0\""},  {L"OldEmailDays=7", nullptr},
        {L"OldEmailDays=3.9", "\"3\""},       {L"OldEmailDays=soon", "\"28\""},
        {L"DelayTime=60", nullptr},           {L"DelayTime=soon", "\"no number\""},
        {L"DelayTime=1e99", "\"no number\""}, {L"DelayTime=1.6", "\"2\""},
        {L"DomainName= x ", nullptr},         {L"Password=\x1B[2J", nullptr},
    };
    for (const auto& [setting, reading] : cases) {
        const auto line = parseCommandLine({L"send", L"a.eml", L"--set", setting});
        EXPECT_EQ(line.settings.size(), 1U);
        ASSERT_EQ(line.warnings.size(), reading ? 1U : 0U) << testing::PrintToString(setting);
        if (reading) {
            EXPECT_NE(line.warnings[0].find(std::string("reads as ") + reading), std::string::npos)
                << line.warnings[0];
        }
    }
}

TEST(CommandLine, WarnsOfAccountsThatAreNotThere) {
    const auto line = parseCommandLine({L"send", L"a.eml", L"--list", L"a@x.org=Home", L"--list",
                                        L"b@x.org=work", L"--list", L"c@x.org=No Account Selected",
                                        L"--account", L"Work=me@x.org", L"--list", L"d@x.org=Wrok"});
    EXPECT_EQ(line.warnings, (std::vector<std::string>{"--list a@x.org: there is no account \"Home\"",
                                                       "--list d@x.org: there is no account \"Wrok\""}));
}

}  // namespace
