#include "program/Report.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using program::Report;

constexpr wchar_t hostile[] = L"a\x1B[2J\u009B\u202E\r\n  sent: b";

/// Everything that a report can tell, with a hostile text wherever a mail has a say.
std::string everything(Report::Format format) {
    std::ostringstream output;
    Report report(output, format);
    host::ItemView mail;
    mail.subject = mail.account = hostile;
    mail.recipients = {{.address = {.name = hostile, .address = hostile}}};
    report.beep();
    report.help(hostile, hostile, platform::HelpView::Contents);
    report.received(mail);
    report.begin(hostile);
    report.message({hostile, hostile, {}}, platform::Answer::Ok);
    report.form({L"frmX", hostile, {{L"txtX", hostile, hostile, true, true, true}}},
                platform::FormAnswer{{{L"txtX", hostile}}, L"cmdOK"});
    report.folder({hostile}, platform::FolderAnswer{hostile});
    report.sent(mail);
    report.cancelled(mail);
    report.reply(host::ReplyKind::Reply, mail);
    report.replyCancelled();
    report.error(hostile);
    report.end();
    report.unreadable(hostile, "gone");
    return output.str();
}

TEST(Report, NeverDrivesATerminal) {
    for (const auto format : {Report::Format::Text, Report::Format::JsonLines}) {
        const std::string told = everything(format);
        for (const char* part : {"\x1B", "\r", "\u009B", "\u202E"}) {
            EXPECT_EQ(told.find(part), std::string::npos) << told;
        }
    }
    std::istringstream text(everything(Report::Format::Text));
    int outcomes = 0;
    for (std::string line; std::getline(text, line);) {
        outcomes += line.starts_with("  sent: ") ? 1 : 0;
    }
    EXPECT_EQ(outcomes, 1) << "a subject makes itself a line";
}

TEST(Report, NamesTheFileInEveryEvent) {
    std::istringstream events(everything(Report::Format::JsonLines));
    std::vector<std::pair<std::string, bool>> named;
    for (std::string line; std::getline(events, line);) {
        const auto event = program::parseJson(line);
        named.emplace_back(event["event"], event["file"].is_string());
    }
    EXPECT_EQ(named, (std::vector<std::pair<std::string, bool>>{{"beep", false},
                                                                {"help", false},
                                                                {"received", false},
                                                                {"message", true},
                                                                {"form", true},
                                                                {"folder", true},
                                                                {"sent", true},
                                                                {"cancelled", true},
                                                                {"reply", true},
                                                                {"reply-cancelled", true},
                                                                {"error", true},
                                                                {"error", true}}));
}

TEST(Report, TellsWhichFolderWasChosen) {
    const struct {
        std::optional<platform::FolderAnswer> answer;
        const char* text;
        const char* json;
    } cases[] = {
        {platform::FolderAnswer{L"/a b"}, "/a b", "\"/a b\""},
        {platform::FolderAnswer{}, "cancelled", "\"\""},
        {std::nullopt, "none", "null"},
    };
    for (const auto& [answer, text, json] : cases) {
        std::ostringstream lines;
        Report(lines, Report::Format::Text).folder({L"Where?"}, answer);
        EXPECT_EQ(lines.str(), std::string("  folder: Where?\n    answer: ") + text + "\n");
        std::ostringstream events;
        Report(events, Report::Format::JsonLines).folder({L"Where?"}, answer);
        EXPECT_EQ(program::parseJson(events.str())["path"].dump(), json);
        EXPECT_EQ(program::parseJson(events.str())["title"], "Where?");
    }
}

TEST(Report, NamesWhatAnAnswerCanFillIn) {
    std::ostringstream output;
    Report report(output, Report::Format::Text);
    report.form({L"frmX",
                 L"X",
                 {{L"lblX", L"", L"", true, true, false},
                  {L"txtEmpty", L"", L"", true, true, true},
                  {L"lstRows", L"Ann\nBo", L"", true, true, true},
                  {L"txtHidden", L"", L"x", true, false, true},
                  {L"txtLocked", L"", L"x", false, true, true},
                  {L"cmdOK", L"OK", L"", true, true, false}}},
                std::nullopt);
    EXPECT_EQ(output.str(),
              "  form frmX: X\n      txtEmpty: []\n      lstRows: Ann\n          Bo []\n      txtLocked: [x] "
              "(disabled)\n      cmdOK: OK\n    answer: none\n");
}

}  // namespace
