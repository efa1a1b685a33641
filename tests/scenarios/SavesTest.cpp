#include <gtest/gtest.h>

#include <algorithm>

#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

namespace {

/// How often a send saves the mail. A save takes long, and marks a mail that is open as one of the Drafts.
TEST(Saves, AreMadeOnlyForWhatIsReadAsStored) {
    const std::map<std::wstring, std::wstring> off{{L"CheckAttachMissing", L"False"}};
    const auto with = [&off](std::map<std::wstring, std::wstring> settings) {
        settings.insert(off.begin(), off.end());
        return settings;
    };
    const Entries bobAtHome{{L"bob@example.org", L"Home"}};
    const struct {
        const char* name;
        std::map<std::wstring, std::wstring> settings;
        Entries list;
        std::ptrdiff_t saves;
        /// With Outlook's own objects, which see what was typed.
        std::ptrdiff_t ownSaves = 0;
    } cases[] = {
        {"everything off", off, {}, 0},
        {"attachments", {}, {}, 1},
        {"delay of all", with({{L"DelayEmails", L"True"}, {L"NotifyBeforeDelaying", L"False"}}), {}, 0},
        {"number of recipients", with({{L"ConfirmForXRecipients", L"True"}}), {}, 1},
        {"all that looks at recipients",
         with({{L"DisplayConfirmation", L"2"},
               {L"ConfirmEmailAddrs", L"ann@example.org"},
               {L"ConfirmForXRecipients", L"True"},
               {L"DelayEmails", L"True"},
               {L"AutoDelayAll", L"0"},
               {L"DelayedEmailAddrs", L"ann@example.org"}}),
         {{L"ann@example.org", L"Home"}},
         1},
        {"another account", with({{L"DoNotShowSelect", L"1"}}), bobAtHome, 2, 1},
        {"attachments and another account", {{L"DoNotShowSelect", L"1"}}, bobAtHome, 3, 1},
    };
    for (const auto& given : cases) {
        Bench bench(
            {.profile = profileWith(listText(given.list), corvaneFolder), .settings = given.settings});
        host::Message message = plainMail();
        message.to[0].address = L"bob@example.org";
        bench.outlook().meter()->record(true);
        bench.send(message);
        const bool redemption = usualProvider == Provider::Redemption;
        EXPECT_EQ(std::ranges::count(bench.outlook().meter()->log(),
                                     redemption ? L"SafeMailItem.Save" : L"MailItem.Save"),
                  redemption ? given.saves : given.ownSaves)
            << given.name;
    }
}

/// Outlook disables an add-in whose start takes long, and the user waits for each call of a send.
TEST(Calls, StayFewWithOutlooksOwnObjects) {
    Given setup{.profile = profileWith(listText({{L"bob@example.org", L"Home"}}), corvaneFolder),
                .provider = Provider::Outlook,
                .settings = {{L"DoNotShowSelect", L"1"},
                             {L"MsgAddAddress", L"0"},
                             {L"DisplayConfirmation", L"2"},
                             {L"ConfirmEmailAddrs", L"nobody@example.org"},
                             {L"ConfirmForXRecipients", L"True"},
                             {L"DelayEmails", L"True"},
                             {L"AutoDelayAll", L"0"},
                             {L"DelayedEmailAddrs", L"bob@example.org"},
                             {L"NotifyBeforeDelaying", L"False"}},
                .connected = false};
    for (int other = 0; other < 50; ++other) {
        setup.profile.messages.push_back({corvaneFolder, {.subject = L"Other"}});
    }
    Bench bench(setup);
    bench.outlook().meter()->record(true);
    bench.connect();
    EXPECT_LE(bench.outlook().calls(), 80U) << testing::PrintToString(bench.outlook().meter()->log());
    host::Message message = plainMail();
    message.to[0].address = L"bob@example.org";
    const auto window = bench.outlook().openNewMail(message);
    const std::size_t before = bench.outlook().calls();
    EXPECT_EQ(bench.outlook().send(window).mail.account, L"Home");
    EXPECT_LE(bench.outlook().calls() - before, 45U)
        << testing::PrintToString(bench.outlook().meter()->log());
}

}  // namespace
