#include <gtest/gtest.h>

#include <algorithm>

#include "mail/product.h"
#include "platform/text.h"
#include "tests/WebServer.h"
#include "tests/scenarios/Bench.h"

namespace {

using mail::product::version;
using Reply = WebServer::Reply;
using Settings = std::map<std::wstring, std::wstring>;

/// A version of the installed one's first part, so many steps ahead of it.
std::string ahead(int minor, int revision = 0) {
    return std::to_string(version.major) + "." + std::to_string(version.minor + minor) + "." +
           std::to_string(version.revision + revision);
}

std::string answer(const std::string& offered, const std::string& more = {}) {
    return "<SOFTWARELIST><FREEVERSION>" + offered + "</FREEVERSION>" + more + "</SOFTWARELIST>";
}

/// As the service's answers name it and as dialogs show it.
std::wstring announced(const std::string& offered) {
    return L"Version " + text::fromUtf8(offered) + L"0 of Veltro is available. You have version " +
           std::wstring(mail::product::versionText) + L"0.";
}

/// A machine whose add-in asks that service; what was checked last was checked ten days ago.
Given given(const std::wstring& service, std::vector<std::wstring> answers = {}, Settings settings = {}) {
    settings.emplace(L"LastCheckUpdateDate", L"5/14/2024");
    settings.emplace(L"blnAutomaticUpdate", L"1");
    settings.emplace(L"intNumDayUpdate", L"7");
    settings.emplace(L"dtmLastUpdateDate", L"5/5/2024");
    settings.emplace(L"strRegistryInitialise", L"ProgrammerInitialised");
    return {.settings = std::move(settings),
            .presets = {{L"UpdateService", service}},
            .answers = std::move(answers)};
}

void checkForUpdates(Bench& bench) {
    bench.outlook().choose(bench.outlook().explorers().front(),
                           {L"Tarnwell", L"Veltro", L"Check for Updates"});
}

/// What the dialog says when the user asks.
std::wstring statusAfterAsking(const std::wstring& service) {
    Bench bench(given(service, {L"frmConfirmCheckUpdate=cmdCheck", L"frmConfirmCheckUpdate=cmdClose"}));
    checkForUpdates(bench);
    if (bench.prompts().size() != 2) {
        return std::to_wstring(bench.prompts().size()) + L" prompts";
    }
    EXPECT_EQ(bench.prompts()[0].text, L"Veltro Check for Updates");
    EXPECT_EQ(bench.prompts()[1].text, L"Veltro Update Status");
    return bench.prompts()[1].control(L"lblStatus").caption;
}

constexpr wchar_t newest[] = L"You are currently running the latest version of Veltro";
constexpr wchar_t unreachable[] =
    L"The update service could not be reached, or did not answer as it should. Please try again later, and check "
    L"your connection to the internet.";
constexpr wchar_t notUnderstood[] =
    L"The update service gave an answer that Veltro does not understand. Please try again later.";

TEST(UpdateCheck, TellsWhatTheServiceAnswers) {
    const std::string good = answer(ahead(1));
    const struct {
        const char* name;
        Reply reply;
        std::wstring said;
    } cases[] = {
        {"newer", WebServer::page(good), announced(ahead(1))},
        {"newer by a letter", WebServer::page(answer(std::to_string(version.major) + "a99a10")),
         L"Version 1.99.10 of Veltro is available. You have version 1.0.00."},
        {"the same", WebServer::page(answer(ahead(0))), newest},
        {"another first part", WebServer::page(answer("99.0.0")), newest},
        {"an error page", WebServer::page("<html><body>Sorry</body></html>"), notUnderstood},
        {"a version of words", WebServer::page(answer("newest")), notUnderstood},
        {"beyond 32 bits", WebServer::page(answer("1.4294967296.0")), notUnderstood},
        {"five parts", WebServer::page(answer("1.2.3.4.5")), notUnderstood},
        {"one part", WebServer::page(answer("1")), notUnderstood},
        {"a part of many digits", WebServer::page(answer("1." + std::string(1000, '0') + "9")),
         notUnderstood},
        {"no version", WebServer::page(answer("", "<MSG>Hello</MSG>")), newest},
        {"another encoding", WebServer::page("\xFF\xFE<\0S\0O\0"), notUnderstood},
        {"a mebibyte of <", WebServer::page(std::string(1 << 20, '<')), notUnderstood},
        {"compressed",
         WebServer::page("\x1F\x8B\x08" + std::string(40, '\x03'), "Content-Encoding: gzip\r\n"),
         notUnderstood},
        {"too long", WebServer::page(good + std::string(1 << 20, ' ')), unreachable},
        {"endless", {"HTTP/1.1 200 OK\r\n\r\n" + good, Reply::Then::Repeat}, unreachable},
        {"an empty page", WebServer::page(""), unreachable},
        {"not found", {"HTTP/1.1 404 Not Found\r\nContent-Length: 90\r\n\r\n" + good}, unreachable},
        {"cut off", {"HTTP/1.1 200 OK\r\nContent-Length: 5000\r\n\r\n" + good}, unreachable},
        {"closed at once", {""}, unreachable},
        {"no web server", {"220 mail.example ESMTP\r\n"}, unreachable},
        {"to a file", WebServer::redirection("file:///etc/passwd"), unreachable},
    };
    for (const auto& given : cases) {
        WebServer server([&](const std::string&) { return given.reply; });
        EXPECT_EQ(statusAfterAsking(server.address()), given.said) << given.name;
    }
}

TEST(UpdateCheck, FollowsRedirectionsToAnEnd) {
    WebServer server([](const std::string& path) {
        return path.starts_with("/services") ? WebServer::redirection("/there")
               : path == "/there"            ? WebServer::page(answer(ahead(1)))
                                             : Reply();
    });
    EXPECT_EQ(statusAfterAsking(server.address()), announced(ahead(1)));
    WebServer circle([](const std::string& path) { return WebServer::redirection(path); });
    EXPECT_EQ(statusAfterAsking(circle.address()), unreachable);
    EXPECT_LT(circle.requests().size(), 20U);
}

TEST(UpdateCheck, GivesUpWhenNobodyAnswers) {
    EXPECT_EQ(statusAfterAsking(WebServer::deadAddress()), unreachable);
    EXPECT_EQ(statusAfterAsking(L"ftp://127.0.0.1"), unreachable);
    WebServer plain(answer(ahead(1)));
    EXPECT_EQ(statusAfterAsking(L"https" + plain.address().substr(4)), unreachable)
        << "no certificate at all";
    WebServer slow([](const std::string&) {
        return Reply{WebServer::page(answer(ahead(1))).bytes + std::string(200, ' '), Reply::Then::Drip};
    });
    EXPECT_EQ(statusAfterAsking(slow.address()), unreachable) << "longer than it may take";
}

TEST(UpdateCheck, SaysWhichProgramAsks) {
    WebServer server(answer(ahead(0)));
    statusAfterAsking(server.address() + L"/");
    EXPECT_EQ(server.requests(),
              std::vector<std::string>{"/services/uploadversion.asp?program=veltro&version=" + ahead(0)});
}

TEST(UpdateCheck, CanBeCancelled) {
    WebServer silent([](const std::string&) { return Reply{"", Reply::Then::Wait}; });
    Bench bench(given(silent.address(), {L"frmConfirmCheckUpdate=cmdCheck", L"frmCheckUpdate=cmdCancel",
                                         L"frmConfirmCheckUpdate={Escape}"}));
    checkForUpdates(bench);
    ASSERT_EQ(bench.prompts().size(), 3U);
    EXPECT_EQ(bench.prompts()[2].text, L"Veltro Check for Updates") << "no result";
}

TEST(UpdateCheck, OpensWhatIsAnAddressAndShowsTheRest) {
    WebServer server(answer(ahead(1),
                            "<MSG>Faster</MSG><DOWNLOADLINK>https://a.example/d</DOWNLOADLINK>"
                            "<UPGRADEPOLICYLINK>javascript:alert(1)</UPGRADEPOLICYLINK>"));
    Bench bench(
        given(server.address(), {L"frmConfirmCheckUpdate=cmdCheck", L"frmConfirmCheckUpdate=lblDownload",
                                 L"frmConfirmCheckUpdate=cmdClose"}));
    checkForUpdates(bench);
    ASSERT_EQ(bench.prompts().size(), 3U);
    const auto& result = bench.prompts()[1];
    EXPECT_EQ(result.control(L"txtMessage").value, L"Faster");
    const struct {
        const wchar_t* name;
        bool link;
        bool text;
    } rows[] = {
        {L"lblDownload", true, false}, {L"lblUpgradePolicy", false, true}, {L"lblFeatures", false, false}};
    for (const auto& row : rows) {
        EXPECT_EQ(result.control(row.name).visible, row.link) << text::toUtf8(row.name);
        EXPECT_EQ(result.control(row.name + std::wstring(L"Text")).visible, row.text)
            << text::toUtf8(row.name);
    }
    EXPECT_EQ(result.control(L"lblUpgradePolicyText").caption,
              L"Read the upgrade policy: javascript:alert(1)");
    EXPECT_EQ(bench.opened(), std::vector<std::wstring>{L"https://a.example/d"});
}

TEST(UpdateCheck, KeepsWhatTheUserWants) {
    WebServer server(answer(ahead(0)));
    const struct {
        const char* name;
        const wchar_t* before;
        std::vector<std::wstring> answers;
        const wchar_t* last;
        const wchar_t* doNotCheck;
    } cases[] = {
        {"looked", L"5/1/2024", {L"frmConfirmCheckUpdate=cmdClose"}, L"5/1/2024", L"0"},
        {"checked",
         L"5/1/2024",
         {L"frmConfirmCheckUpdate=cmdCheck", L"frmConfirmCheckUpdate=cmdClose"},
         L"5/15/2024",
         L"0"},
        {"never again",
         L"5/1/2024",
         {L"frmConfirmCheckUpdate=chkDoNotCheck=1; cmdClose"},
         L"DoNotCheck",
         L"1"},
        {"still never",
         L"DoNotCheck",
         {L"frmConfirmCheckUpdate=cmdCheck", L"frmConfirmCheckUpdate={Escape}"},
         L"DoNotCheck",
         L"1"},
        {"again", L" DoNotCheck ", {L"frmConfirmCheckUpdate=chkDoNotCheck=0; cmdClose"}, L"5/15/2024", L"0"},
    };
    for (const auto& given : cases) {
        Bench bench(::given(server.address(), given.answers, {{L"LastCheckUpdateDate", given.before}}));
        checkForUpdates(bench);
        EXPECT_EQ(bench.world().setting(L"LastCheckUpdateDate"), given.last) << given.name;
        EXPECT_EQ(bench.world().setting(L"DoNotCheck"), given.doNotCheck) << given.name;
    }
}

TEST(AutomaticUpdate, AsksWhenItsDayHasCome) {
    const struct {
        const char* name;
        Settings settings;
        bool asks;
        const wchar_t* last;
    } cases[] = {
        {"the interval is over", {}, true, L"5/15/2024"},
        {"the interval is reached", {{L"dtmLastUpdateDate", L"5/8/2024"}}, true, L"5/15/2024"},
        {"a day too early", {{L"dtmLastUpdateDate", L"5/9/2024"}}, false, L"5/9/2024"},
        {"the standard's date", {{L"dtmLastUpdateDate", L"2024-05-08"}}, true, L"5/15/2024"},
        {"no date", {{L"dtmLastUpdateDate", L"soon"}}, true, L"5/15/2024"},
        {"no interval",
         {{L"intNumDayUpdate", L"x"}, {L"dtmLastUpdateDate", L"5/9/2024"}},
         false,
         L"5/9/2024"},
        {"switched off", {{L"blnAutomaticUpdate", L"0"}}, false, L"5/5/2024"},
        {"checked today", {{L"LastCheckUpdateDate", L"5/15/2024"}}, false, L"5/5/2024"},
        {"checked yesterday", {{L"LastCheckUpdateDate", L" 5/14/2024 "}}, true, L"5/15/2024"},
        {"not wanted", {{L"LastCheckUpdateDate", L" DoNotCheck "}}, false, L"5/5/2024"},
        {"unknown", {{L"LastCheckUpdateDate", L"?"}}, false, L"5/5/2024"},
    };
    for (const auto& given : cases) {
        WebServer server(answer(ahead(0)));
        Bench bench(::given(server.address(), {}, given.settings));
        bench.world().settle();
        EXPECT_EQ(server.requests().size(), given.asks ? 1U : 0U) << given.name;
        EXPECT_EQ(bench.world().setting(L"dtmLastUpdateDate"), given.last) << given.name;
    }
}

TEST(AutomaticUpdate, BeginsWithTheSecondDay) {
    WebServer server(answer(ahead(1)));
    Given setup = given(server.address(), {L"frmDownload=cmdNo"});
    setup.settings = {{L"LastCheckUpdateDate", L""}};
    Bench bench(setup);
    const auto dayLater = [&bench, now = setup.now](int days) {
        bench.disconnect();
        bench.world().setNow({now.days + days});
        bench.connect();
        bench.world().settle();
    };
    EXPECT_EQ(bench.world().setting(L"LastCheckUpdateDate"), L"5/14/2024");
    EXPECT_EQ(bench.world().setting(L"strRegistryInitialise"), std::nullopt)
        << "a first start only notes its day";
    dayLater(0);
    EXPECT_EQ(bench.world().setting(L"blnAutomaticUpdate"), L"1");
    EXPECT_EQ(bench.world().setting(L"intNumDayUpdate"), L"7");
    EXPECT_EQ(bench.world().setting(L"dtmLastUpdateDate"), L"5/15/2024");
    dayLater(6);
    EXPECT_EQ(server.requests().size(), 0U);
    dayLater(7);
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_EQ(bench.promptNames(), std::vector<std::wstring>{L"frmDownload"});
}

TEST(AutomaticUpdate, LeavesWhatAnAdministratorHasSet) {
    WebServer server(answer(ahead(1)));
    Given setup = given(server.address());
    setup.settings = {{L"LastCheckUpdateDate", L"5/1/2024"}, {L"blnAutomaticUpdate", L"0"}};
    Bench bench(setup);
    bench.world().settle();
    EXPECT_EQ(bench.world().setting(L"blnAutomaticUpdate"), L"0");
    EXPECT_EQ(bench.world().setting(L"strRegistryInitialise"), L"ProgrammerInitialised");
    EXPECT_TRUE(server.requests().empty());
}

TEST(AutomaticUpdate, IsSilentUnlessThereIsSomethingNew) {
    const Reply replies[] = {WebServer::page(answer(ahead(0))), WebServer::page("<html>Sorry</html>"),
                             WebServer::page(answer("1.2.3.4.5")), Reply{""},
                             Reply{"HTTP/1.1 500 Sorry\r\n\r\n"}};
    for (const Reply& reply : replies) {
        WebServer server([&](const std::string&) { return reply; });
        Bench bench(given(server.address()));
        bench.world().settle();
        EXPECT_EQ(server.requests().size(), 1U);
        EXPECT_TRUE(bench.prompts().empty());
        EXPECT_EQ(bench.world().setting(L"dtmLastUpdateDate"), L"5/15/2024");
    }
    Bench bench(given(WebServer::deadAddress()));
    bench.world().settle();
    EXPECT_TRUE(bench.prompts().empty());
    EXPECT_EQ(bench.world().setting(L"dtmLastUpdateDate"), L"5/15/2024");
}

TEST(AutomaticUpdate, NotesItsDayBeforeItAsks) {
    Bench* bench = nullptr;
    std::optional<std::wstring> noted;
    WebServer server([&](const std::string&) {
        noted = bench->world().setting(L"dtmLastUpdateDate");
        return Reply();
    });
    Bench asking(given(server.address()));
    bench = &asking;
    asking.world().settle();
    EXPECT_EQ(noted, L"5/15/2024");
}

TEST(AutomaticUpdate, OffersAVersionUntilTheUserWantsNoMoreOfIt) {
    std::string offered =
        answer(ahead(1), "<FREEDOWNLOAD>https://a.example/d</FREEDOWNLOAD><MSG>Faster</MSG>");
    WebServer server([&](const std::string&) { return WebServer::page(offered); });
    Bench bench(given(server.address(),
                      {L"frmDownload=cmdNo", L"frmDownload=chkNotNotify=1; cmdNo", L"frmDownload=cmdYes"}));
    auto weekLater = [&bench, weeks = 0]() mutable {
        bench.disconnect();
        bench.world().setNow({bench.now().days + 7 * ++weeks});
        bench.connect();
        bench.world().settle();
        return bench.prompts().size();
    };
    bench.world().settle();
    ASSERT_EQ(bench.prompts().size(), 1U);
    const auto& prompt = bench.prompts().front();
    EXPECT_EQ(prompt.text, L"New Version - Veltro");
    EXPECT_EQ(prompt.control(L"lblMessage").caption,
              announced(ahead(1)) + L"\r\nWould you like to go to the download page.");
    EXPECT_EQ(prompt.control(L"txtMessage").value, L"Faster");
    EXPECT_EQ(weekLater(), 2U) << "declined for the moment only";
    EXPECT_EQ(weekLater(), 2U) << "declined for good";
    offered = answer(ahead(1, 1));
    EXPECT_EQ(weekLater(), 3U) << "the next one";
    EXPECT_EQ(bench.opened(),
              std::vector<std::wstring>{L"https://www.corvane.example/veltro/download_process.asp"});
    EXPECT_EQ(bench.world().setting(L"blnNotNotify"), L"0");
}

TEST(AutomaticUpdate, OpensNothingButAnAddress) {
    for (const std::string link : {"file:///C:/x.exe", "http://a.example\\@b.example", "calc"}) {
        WebServer server(answer(ahead(1), "<FREEDOWNLOAD>" + link + "</FREEDOWNLOAD>"));
        Bench bench(given(server.address(), {L"frmNoDownload=cmdOK"}));
        bench.world().settle();
        ASSERT_EQ(bench.prompts().size(), 1U) << link;
        EXPECT_EQ(bench.prompts().front().control(L"txtLink").value, text::fromUtf8(link));
        EXPECT_TRUE(bench.opened().empty());
    }
}

TEST(UpdateService, CanBeSwitchedOffForEverybody) {
    Bench bench(given(L" off ", {L"Check for Updates=OK"}));
    bench.world().settle();
    EXPECT_EQ(bench.world().setting(L"dtmLastUpdateDate"), L"5/5/2024");
    EXPECT_TRUE(bench.prompts().empty());
    checkForUpdates(bench);
    ASSERT_EQ(bench.promptNames(), std::vector<std::wstring>{L"Check for Updates - Veltro"});
    EXPECT_EQ(bench.prompts().front().text, L"Your administrator has switched the check for updates off.");
}

TEST(AutomaticUpdate, EndsWithTheConnection) {
    WebServer silent([](const std::string&) { return Reply{"", Reply::Then::Wait}; });
    for (const bool asked : {false, true}) {
        Bench bench(given(silent.address()));
        EXPECT_TRUE(!asked || bench.world().fireTimer());
        bench.disconnect();
        EXPECT_EQ(bench.world().heldObjects(), 0U);
        EXPECT_FALSE(bench.world().fireTimer());
    }
}

}  // namespace
