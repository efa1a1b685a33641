#include <gtest/gtest.h>

#include <algorithm>

#include "platform/outlook.h"
#include "platform/text.h"
#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

/// The ribbon of main windows from Outlook 2010 on, and of the windows in which mails are written from
/// Outlook 2007 on.
namespace {

using automation::Object;
using host::RibbonCommand;
using host::SendState;
using Names = std::vector<std::wstring>;

constexpr wchar_t outlook2013[] = L"15.0.4420.1017";
constexpr wchar_t nothingFound[] = L"Nothing to ask about: this e-mail could be sent as it is.";

const Names mainCommands{L"Send Account (Preferred) List",
                         L"Settings",
                         L"Check for Updates",
                         L"Veltro Help",
                         L"Contact Support",
                         L"About Veltro"};

Given with(const Entries& list, Names answers = {}, const wchar_t* version = L"14.0.0.4760") {
    Given setup{.profile = profileWith(listText(list), corvaneFolder), .answers = std::move(answers)};
    setup.profile.version = version;
    return setup;
}

host::Message mailTo(const Names& addresses) {
    host::Message message = plainMail();
    message.to.clear();
    for (const std::wstring& address : addresses) {
        message.to.push_back({.name = address, .address = address});
    }
    return message;
}

Names labels(Bench& bench, const Object& window) {
    Names found;
    for (const RibbonCommand& command : bench.outlook().ribbon(window)) {
        found.push_back(command.label);
    }
    return found;
}

Object mainWindow(Bench& bench) {
    return bench.outlook().explorers().front();
}

/// What the group says of the preferred account, in the last of the window's tabs.
std::wstring account(Bench& bench, const Object& window) {
    const auto commands = bench.outlook().ribbon(window);
    const auto found = std::ranges::find(commands, L"VeltroPreferredAccount", &RibbonCommand::id);
    return found == commands.end() ? L"no group" : found->label;
}

/// A reply to Ann, or another one, in the reading pane.
Object answerAnn(Bench& bench, const wchar_t* sender = L"ann@example.org") {
    host::Message message = mailTo({L"me@example.org"});
    message.from = host::Address{.name = L"Ann", .address = sender};
    const Object item = bench.outlook().receive(message);
    bench.outlook().select(mainWindow(bench), {item});
    return bench.outlook().answerInline(mainWindow(bench), host::ReplyKind::Reply, item).item;
}

TEST(Ribbon, IsTakenByEveryOutlookThatHasOne) {
    for (const wchar_t* version : {L"9.0.0.2711", L"10.0.0.2627", L"11.0.0.5510", L"12.0.0.4518",
                                   L"14.0.0.4760", L"15.0.4420.1017", L"16.0.17328"}) {
        const int major = std::stoi(version);
        for (const bool library : {true, false}) {
            Given setup = with({}, {}, version);
            setup.resourceLibrary = library;
            Bench bench(setup);
            const Object written = bench.outlook().openNewMail(plainMail());
            const Object read = bench.outlook().openItem(bench.outlook().receive(plainMail()));
            EXPECT_EQ(labels(bench, mainWindow(bench)), major >= 14 ? mainCommands : Names{}) << major;
            EXPECT_EQ(labels(bench, written),
                      major >= 12 ? (Names{L"Check now", L"No preferred account", L"Settings"}) : Names{})
                << major;
            EXPECT_EQ(labels(bench, read), Names{}) << major;
            EXPECT_TRUE(bench.outlook().errors().empty())
                << major << text::toUtf8(bench.outlook().errors().front().description);
        }
    }
}

TEST(Ribbon, HasPicturesAndTipsInOneGroupOfTheUsualTab) {
    Bench bench(with({}));
    const Object written = bench.outlook().openNewMail(plainMail());
    std::size_t large = 0;
    for (const auto& [window, tab] :
         {std::pair(mainWindow(bench), L"TabMail"), std::pair(written, L"TabNewMailMessage")}) {
        for (const RibbonCommand& command : bench.outlook().ribbon(window)) {
            EXPECT_EQ(command.tab, tab);
            EXPECT_EQ(command.group, L"Veltro");
            EXPECT_EQ(static_cast<bool>(command.picture), command.button) << text::toUtf8(command.id);
            EXPECT_EQ(command.screentip.empty(), !command.button) << text::toUtf8(command.id);
            EXPECT_EQ(command.supertip.empty(), !command.button) << text::toUtf8(command.id);
            EXPECT_EQ(command.supertip.find(L'%'), std::wstring::npos) << text::toUtf8(command.id);
            large += command.large ? 1 : 0;
        }
    }
    EXPECT_EQ(large, 3U);
}

TEST(Ribbon, DoesWhatTheMenuDoes) {
    const struct {
        std::wstring label;
        Names answers;
        Names prompts;
        std::size_t windows = 0;
    } cases[] = {
        {mainCommands[0], {L"frmEmailAddress=cmdClose"}, {L"frmEmailAddress"}},
        {mainCommands[1], {L"frmIntroWizard=cmdNav(1)"}, {L"frmIntroWizard"}},
        {mainCommands[2], {L"frmConfirmCheckUpdate=cmdClose"}, {L"frmConfirmCheckUpdate"}},
        {mainCommands[4], {}, {}, 1},
        {mainCommands[5], {L"frmAbout=cmdOK"}, {L"frmAbout"}},
    };
    for (const auto& given : cases) {
        Bench bench(with({}, given.answers));
        const Object second = bench.outlook().openExplorer();
        bench.outlook().pressRibbon(second, given.label);
        EXPECT_EQ(bench.promptNames(), given.prompts);
        EXPECT_EQ(bench.outlook().inspectors().size(), given.windows);
        EXPECT_TRUE(bench.outlook().errors().empty());
    }
}

/// From Outlook 2010 on the menu bar is not drawn where it was.
TEST(Ribbon, TakesThePlaceOfTheMenu) {
    Bench bench(with({}));
    EXPECT_THROW(bench.outlook().pressControl(mainWindow(bench), {L"Tarnwell"}), automation::Error);
    EXPECT_THROW(bench.outlook().pressControl(bench.outlook().openExplorer(), {L"Tarnwell"}),
                 automation::Error);
}

TEST(RibbonAccount, IsThatOfTheFirstRecipient) {
    host::Message toList = plainMail();
    toList.to = {{.name = L"All", .address = L"ann@example.org", .type = L"MAPIPDL"}};
    host::Message unresolved = plainMail();
    unresolved.to = {{.name = L"ann@example.org", .resolvable = false}};
    const struct {
        const char* name;
        host::Message mail;
        std::wstring said;
    } cases[] = {
        {"listed", mailTo({L"ann@example.org", L"bob@example.org"}), L"Preferred account: Work"},
        {"in other letter case", mailTo({L"BOB@example.org"}), L"Preferred account: Gone"},
        {"not listed", mailTo({L"eve@example.org", L"ann@example.org"}), L"No preferred account"},
        {"listed without an account", mailTo({L"cy@example.org"}), L"No preferred account"},
        {"a long name", mailTo({L"dan@example.org"}),
         L"Preferred account: " + std::wstring(59, L'x') + L'\x2026'},
        {"nobody", mailTo({}), L"No preferred account"},
        {"a list", toList, L"No preferred account"},
        {"unresolved", unresolved, L"No preferred account"},
    };
    Bench bench(with({{L"ann@example.org", L"Work"},
                      {L"bob@example.org", L"Gone"},
                      {L"cy@example.org", L"No Account Selected"},
                      {L"dan@example.org", std::wstring(80, L'x')}}));
    for (const auto& given : cases) {
        const Object window = bench.outlook().openNewMail(given.mail);
        EXPECT_EQ(account(bench, window), given.said) << given.name;
        EXPECT_TRUE(bench.outlook().view(bench.outlook().itemOf(window)).entryId.empty()) << "saved";
    }
    EXPECT_TRUE(bench.prompts().empty());
    EXPECT_TRUE(bench.outlook().errors().empty());
}

TEST(RibbonAccount, FollowsTheRecipientsAndTheList) {
    for (const bool isInline : {false, true}) {
        Bench bench(with({{L"ann@example.org", L"Work"}, {L"bob@example.org", L"Home"}},
                         {L"frmEmailAddress=lstEmailAddress=bob@example.org (Home); cmdEdit",
                          L"frmEmailAddressEdit=cmbAccounts=Work; cmdOK", L"frmEmailAddress=cmdClose"},
                         outlook2013));
        Object window;
        Object item;
        if (isInline) {
            window = mainWindow(bench);
            item = answerAnn(bench);
        } else {
            window = bench.outlook().openNewMail(mailTo({L"ann@example.org"}));
            item = bench.outlook().itemOf(window);
        }
        EXPECT_EQ(account(bench, window), L"Preferred account: Work");
        const Object recipients = item.get(L"Recipients").toObject();
        recipients.call(L"Remove", 1);
        EXPECT_EQ(account(bench, window), L"No preferred account");
        recipients.call(L"Add", L"bob@example.org").toObject().call(L"Resolve");
        EXPECT_EQ(account(bench, window), L"Preferred account: Home");
        bench.outlook().pressRibbon(mainWindow(bench), mainCommands[0]);
        EXPECT_EQ(account(bench, window), L"Preferred account: Work");
        const std::size_t before = bench.outlook().calls();
        account(bench, window);
        EXPECT_EQ(bench.outlook().calls(), before) << "asked again though nothing has changed";
        EXPECT_TRUE(bench.outlook().errors().empty());
    }
}

/// Outlook has drawn the window by the time that the add-in hears of it.
TEST(RibbonAccount, IsThatOfWhatOthersWriteWhileTheWindowOpens) {
    Given setup = with({{L"ann@example.org", L"Home"}}, {}, outlook2013);
    setup.connected = false;
    Bench bench(setup);
    const auto fill = [](std::int32_t event, std::span<automation::Value> arguments) {
        if (event == outlook::events::newInspector) {
            const Object item = arguments[0].toObject().get(L"CurrentItem").toObject();
            item.get(L"Recipients").toObject().call(L"Add", L"ann@example.org").toObject().call(L"Resolve");
        }
    };
    const auto other = automation::subscribe(bench.outlook().application().get(L"Inspectors").toObject(),
                                             outlook::events::inspectors, fill);
    bench.connect();
    EXPECT_EQ(account(bench, bench.outlook().openNewMail(mailTo({}))), L"Preferred account: Home");
}

TEST(RibbonAccount, IsThatOfEachResponseInTheReadingPane) {
    Bench bench(with({{L"ann@example.org", L"Home"}}, {}, outlook2013));
    answerAnn(bench);
    EXPECT_EQ(account(bench, mainWindow(bench)), L"Preferred account: Home");
    bench.outlook().discardInline(mainWindow(bench));
    EXPECT_EQ(account(bench, mainWindow(bench)), L"no group");
    answerAnn(bench, L"eve@example.org");
    EXPECT_EQ(account(bench, mainWindow(bench)), L"No preferred account");
}

/// A window that was drawn when nothing could be told yet.
TEST(RibbonAccount, IsToldInWindowsFromBeforeTheConnection) {
    Given setup = with({{L"ann@example.org", L"Home"}});
    setup.connected = false;
    Bench bench(setup);
    const Object window = bench.outlook().openNewMail(mailTo({L"ann@example.org"}));
    bench.connect();
    EXPECT_EQ(account(bench, window), L"Preferred account: Home");
}

TEST(RibbonAccount, IsUnknownWhereItCannotBeRead) {
    std::size_t call = 0;
    for (bool failed = true; failed;) {
        Bench bench(with({{L"ann@example.org", L"Work"}}));
        const Object window = bench.outlook().openNewMail(mailTo({L"bob@example.org"}));
        bench.outlook().itemOf(window).get(L"Recipients").toObject().call(L"Add", L"ann@example.org");
        bench.outlook().itemOf(window).get(L"Recipients").toObject().call(L"Remove", 1);
        const std::size_t before = bench.outlook().calls();
        bench.outlook().failCall(++call);
        const std::wstring said = account(bench, window);
        failed = bench.outlook().calls() - before >= call;
        bench.outlook().failCall(0);
        EXPECT_EQ(said, failed ? L"Preferred account: unknown" : L"No preferred account") << call;
        EXPECT_TRUE(bench.prompts().empty());
    }
    EXPECT_GT(call, 4U);
}

TEST(CheckNow, AsksWhatASendWouldAsk) {
    const struct {
        const char* name;
        host::Message mail;
        Names answers;
        Names prompts;
        std::wstring subject;
    } cases[] = {
        {"nothing", plainMail(), {L"Check now=OK"}, {L"Check now - Veltro"}, L"Budget"},
        {"an attachment",
         plainMail(L"Budget", L"See attached"),
         {L"Attachment(s) missing=Yes"},
         {std::wstring(attachmentPrompt)},
         L"Budget"},
        {"an attachment, and No",
         plainMail(L"Budget", L"See attached"),
         {L"Attachment(s) missing=No"},
         {std::wstring(attachmentPrompt)},
         L"Budget"},
        {"a subject", plainMail(L""), {L"frmNoSubject=txtSubject=Plan; cmdOK"}, {L"frmNoSubject"}, L"Plan"},
        {"a subject, and Cancel",
         plainMail(L"", L"See attached"),
         {L"frmNoSubject=cmdCancel"},
         {L"frmNoSubject"},
         L""},
    };
    for (const wchar_t* version : {L"12.0.0.4518", L"14.0.0.4760"}) {
        for (const auto& given : cases) {
            Bench bench(with({}, given.answers, version));
            const Object window = bench.outlook().openNewMail(given.mail);
            bench.outlook().openNewMail(plainMail(L"Other", L"This one promises an attachment"));
            bench.outlook().pressRibbon(window, L"Check now");
            EXPECT_EQ(bench.promptNames(), given.prompts) << given.name;
            EXPECT_EQ(bench.outlook().view(bench.outlook().itemOf(window)).subject, given.subject);
            EXPECT_EQ(bench.outlook().inspectors().size(), 2U) << "nothing was sent";
            EXPECT_TRUE(bench.outlook().errors().empty());
        }
    }
}

TEST(CheckNow, ChecksTheResponseInTheReadingPane) {
    Bench bench(
        with({}, {L"Attachment(s) missing=Yes", L"Check now=OK", L"Attachment(s) missing=No"}, outlook2013));
    const Object response = answerAnn(bench);
    bench.outlook().typeBody(response, L"See attached");
    bench.outlook().pressRibbon(mainWindow(bench), L"Check now");
    bench.outlook().typeBody(response, L"See you");
    bench.outlook().pressRibbon(mainWindow(bench), L"Check now");
    bench.outlook().typeBody(response, L"See attached");
    EXPECT_EQ(bench.outlook().sendInline(mainWindow(bench)).state, SendState::Cancelled)
        << "asked again by the send";
    ASSERT_EQ(bench.prompts().size(), 3U);
    EXPECT_EQ(bench.prompts()[1].text, nothingFound);
}

/// What has been refused is no reason to say that all is well.
TEST(CheckNow, SaysWhatItCouldNotCheck) {
    Given setup = with({}, {L"Check now=OK"}, newestOutlook);
    setup.provider = Provider::Outlook;
    setup.profile.guard = host::GuardMode::Everybody;
    Bench bench(setup);
    const Object window = bench.outlook().openNewMail(plainMail(L"Budget", L"See attached"));
    bench.outlook().pressRibbon(window, L"Check now");
    EXPECT_EQ(bench.prompts().at(0).text,
              L"This e-mail could not be checked, because Outlook did not let it be read.");
}

/// Outlook may go on to draw, and the user to press.
TEST(Ribbon, IsQuietOnceTheAddInHasGone) {
    Bench bench(with({{L"ann@example.org", L"Work"}}));
    const Object window = bench.outlook().openNewMail(plainMail(L"Budget", L"See attached"));
    bench.disconnect(1);
    for (const wchar_t* label : {L"Check now", L"Settings"}) {
        bench.outlook().pressRibbon(window, label);
    }
    bench.outlook().pressRibbon(mainWindow(bench), mainCommands[1]);
    bench.outlook().ribbon(bench.outlook().openNewMail(plainMail()));
    EXPECT_TRUE(bench.prompts().empty());
}

}  // namespace
