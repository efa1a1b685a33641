#include <gtest/gtest.h>

#include "mail/product.h"
#include "platform/text.h"
#include "tests/scenarios/Bench.h"

namespace {

void press(Bench& bench, const wchar_t* command) {
    bench.outlook().choose(bench.outlook().explorers().front(), {L"Tarnwell", L"Veltro", command});
}

std::wstring productLine() {
    return std::wstring(L"Veltro ") + mail::product::versionText;
}

TEST(Support, PreparesAnEmailWithAReport) {
    for (const auto& [provider, outlook] :
         {std::pair{Provider::Redemption, L"Outlook 2010: 14.0.0.4760\r\n"},
          {Provider::Outlook, L"Outlook Version Unknown: 16.0.17328.20550\r\n"}}) {
        Bench bench({.provider = provider});
        press(bench, L"Contact Support");
        const auto inspectors = bench.outlook().inspectors();
        ASSERT_EQ(inspectors.size(), 1U);
        const host::ItemView mail = bench.outlook().view(bench.outlook().itemOf(inspectors.front()));
        ASSERT_EQ(mail.recipients.size(), 1U);
        EXPECT_EQ(mail.recipients.front().address.name, L"support@corvane.example");
        EXPECT_EQ(mail.subject, L"Veltro");
        const std::wstring start =
            L"\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n[Enter your question above]\r\n"
            L"----------------------------------------------------------\r\n\r\n" +
            std::wstring(outlook) + productLine() + L"\r\nWindows ";
        EXPECT_EQ(mail.body.substr(0, start.size()), start);
        const auto user = mail.body.find(L"-bit)\r\n\r\nList of Current User Add-ins:\r\n");
        const auto machine = mail.body.find(L"\r\nList of Local Machine Add-ins:\r\n");
        EXPECT_TRUE(user != std::wstring::npos && machine != std::wstring::npos && user < machine);
        EXPECT_TRUE(mail.body.ends_with(L"\r\n============================================================"));
        EXPECT_EQ(bench.outlook().errors().size(), 0U);
    }
}

TEST(Support, SaysNothingWhenTheEmailCannotBePrepared) {
    for (std::size_t call = 1; call <= 12; ++call) {
        Bench bench;
        bench.outlook().failCall(call + 1);  // The first one asks which button it is.
        press(bench, L"Contact Support");
        EXPECT_LE(bench.outlook().inspectors().size(), 1U);
        EXPECT_TRUE(bench.prompts().empty()) << call;
    }
}

TEST(About, ShowsTheProductAndOpensItsHomePage) {
    Bench bench({.answers = {L"frmAbout=lblHomePage", L"frmAbout=cmdOK"}});
    press(bench, L"About Veltro");
    ASSERT_EQ(bench.prompts().size(), 2U);
    const auto& box = bench.prompts().front();
    EXPECT_EQ(box.text, L"About Veltro");
    EXPECT_EQ(box.control(L"lblTitle").caption, L"Veltro");
    EXPECT_EQ(box.control(L"lblVersion").caption, L"Version " + std::wstring(mail::product::versionText));
    EXPECT_EQ(box.control(L"lblHomePage").caption, L"https://www.corvane.example");
    EXPECT_TRUE(box.control(L"imgLogo").visible);
    EXPECT_EQ(bench.opened(), std::vector<std::wstring>{L"https://www.corvane.example"});
}

}  // namespace
