#include "platform/native/PromptedDesktop.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "platform/native/ScriptedDesktop.h"
#include "platform/native/TerminalDesktop.h"
#include "platform/text.h"

namespace {

using platform::Answer;
using platform::Buttons;
using platform::FolderAnswer;
using platform::FormAnswer;
using platform::PromptAnswer;

struct Log : platform::PromptObserver {
    std::vector<std::wstring> lines;
    void message(const platform::MessagePrompt& prompt, std::optional<Answer> answer) override {
        lines.push_back(prompt.title + L"=" + (answer ? std::wstring(platform::nameOf(*answer)) : L"?"));
    }
    void form(const platform::FormPrompt& prompt, const std::optional<FormAnswer>& answer) override {
        lines.push_back(prompt.form + L"=" + (answer ? answer->button : L"?"));
    }
    void folder(const platform::FolderPrompt& prompt,
                const std::optional<platform::FolderAnswer>& answer) override {
        lines.push_back(prompt.title + L"=" + (answer ? answer->path : L"?"));
    }
    void beep() override { lines.push_back(L"beep"); }
};

/// Stays open while its text is empty, saying so; Cancel closes it.
struct frmName : forms::Form {
    explicit frmName(platform::Desktop& owner) : Form(L"frmName", L"Your name", 200, 100), desktop(owner) {
        cmdOK.onClick = [this] { cmdOK_Click(); };
        cmdCancel.onClick = [this] { hide(); };
        chkTitle.onClick = [this] { txtTitle.setEnabled(chkTitle.ticked()); };
        txtTitle.setEnabled(false);
    }
    void cmdOK_Click() {
        if (txtName.text().empty()) {
            desktop.messageBox(L"Enter a name.", {Buttons::Ok, platform::Icon::Information}, L"Missing");
            return;
        }
        accepted = true;
        hide();
    }

    platform::Desktop& desktop;
    bool accepted = false;
    forms::Label lblName{*this, L"lblName", {5, 6, 40, 8}, L"&Name:"};
    forms::TextBox txtName{*this, L"txtName", {50, 5, 100, 12}};
    forms::CheckBox chkTitle{*this, L"chkTitle", {5, 25, 100, 10}, L"with a &title"};
    forms::TextBox txtTitle{*this, L"txtTitle", {50, 40, 100, 12}};
    forms::Button cmdOK{*this, L"cmdOK", {5, 60, 50, 14}, L"OK", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {60, 60, 50, 14}, L"&Cancel", forms::Button::Role::Cancel};
};

PromptAnswer forForm(std::vector<FormAnswer::Entry> entries, std::wstring button) {
    return {L"FRMNAME", FormAnswer{std::move(entries), std::move(button)}};
}

using Lines = std::vector<std::wstring>;

TEST(ScriptedDesktop, AnswersThroughTheFormsOwnHandlers) {
    Log log;
    platform::native::ScriptedDesktop desktop(
        platform::AnswerList(
            {forForm({}, L"cmdOK"),
             {L"missing", Answer::Ok},
             forForm({{L"chkTitle", L"1"}, {L"txtTitle", L"Dr"}, {L"txtname", L"Ann"}}, L"cmdOK"),
             {L"folder", FolderAnswer{L"C:\\here"}},
             {L"Sure", Answer::No},
             {L"folder", FolderAnswer{}}}),
        log);
    desktop.beep();
    frmName form(desktop);
    desktop.showModal(form);
    EXPECT_TRUE(form.accepted);
    EXPECT_EQ(form.txtName.text(), L"Ann");
    EXPECT_EQ(form.txtTitle.text(), L"Dr");
    EXPECT_FALSE(form.shown());
    EXPECT_EQ(desktop.messageBox(L"?", {Buttons::YesNo}, L"Sure? - Veltro"), Answer::No);
    EXPECT_EQ(desktop.chooseFolder(L"Where?"), L"C:\\here");
    EXPECT_EQ(desktop.chooseFolder(L"And where?"), L"");
    EXPECT_EQ(log.lines, (Lines{L"beep", L"frmName=cmdOK", L"Missing=OK", L"frmName=cmdOK",
                                L"Sure? - Veltro=No", L"Where?=C:\\here", L"And where?="}));
    EXPECT_FALSE(desktop.unanswered());
}

TEST(ScriptedDesktop, PressesButtonsByKey) {
    struct Case {
        const wchar_t* key;
        bool accepted;
    };
    for (const auto& [key, accepted] : {Case{L"{Enter}", true}, {L"{Escape}", false}, {L"{Alt+c}", false}}) {
        Log log;
        platform::native::ScriptedDesktop desktop(
            platform::AnswerList({forForm({{L"txtName", L"Ann"}}, key)}), log);
        frmName form(desktop);
        desktop.showModal(form);
        EXPECT_EQ(form.accepted, accepted) << text::toUtf8(key);
        EXPECT_FALSE(desktop.unanswered()) << text::toUtf8(key);
    }
}

TEST(ScriptedDesktop, TakesTheFirstUnusedAnswerThatFits) {
    Log log;
    platform::native::ScriptedDesktop desktop(
        platform::AnswerList(
            {{L"B", Answer::Yes}, {L"A", Answer::Ok}, {L"A", Answer::No}, {L"A", Answer::Yes}}),
        log);
    EXPECT_EQ(desktop.messageBox(L"", {Buttons::YesNo}, L"A"), Answer::No);
    EXPECT_EQ(desktop.messageBox(L"", {Buttons::YesNo}, L"A"), Answer::Yes);
    EXPECT_EQ(desktop.messageBox(L"", {Buttons::Ok}, L"A"), Answer::Ok);
    EXPECT_FALSE(desktop.unanswered());
    const auto unused = desktop.unusedAnswers();
    ASSERT_EQ(unused.size(), 1U);
    EXPECT_EQ(unused[0].where, L"B");
}

TEST(ScriptedDesktop, AnswersNothingAnyMoreOnceAPromptFoundNoAnswer) {
    struct Case {
        std::vector<PromptAnswer> answers;
        const wchar_t* told;
    };
    const Case cases[] = {
        {{}, L"frmName"},
        {{forForm({}, L"cmdOK")}, L"Missing"},
        {{forForm({{L"txtFirstName", L"Ann"}}, L"cmdOK")}, L"txtFirstName"},
        {{forForm({{L"txtTitle", L"Dr"}}, L"cmdOK")}, L"txtTitle"},
        {{forForm({{L"lblName", L"Ann"}}, L"cmdOK")}, L"lblName"},
        {{forForm({{L"chkTitle", L"maybe"}}, L"cmdOK")}, L"chkTitle"},
        {{forForm({}, L"cmdApply")}, L"cmdApply"},
        {{forForm({}, L"{Alt+x}")}, L"{Alt+x}"},
        {{forForm({}, L"{Alt+n}")}, L"{Alt+n}"},
    };
    for (const Case& test : cases) {
        Log log;
        auto answers = test.answers;
        answers.push_back({L"Sure", Answer::Yes});
        answers.push_back({L"folder", FolderAnswer{L"C:\\here"}});
        platform::native::ScriptedDesktop desktop(platform::AnswerList(answers), log);
        frmName form(desktop);
        desktop.showModal(form);
        EXPECT_FALSE(form.accepted);
        ASSERT_TRUE(desktop.unanswered());
        EXPECT_NE(desktop.unanswered()->find(test.told), std::wstring::npos)
            << text::toUtf8(*desktop.unanswered());
        const auto reported = log.lines.size();
        EXPECT_EQ(desktop.messageBox(L"?", {Buttons::YesNo}, L"Sure"), Answer::No);
        EXPECT_EQ(desktop.messageBox(L"?", {Buttons::OkCancel}, L"Sure"), Answer::Cancel);
        EXPECT_EQ(desktop.chooseFolder(L"Where?"), L"");
        EXPECT_EQ(log.lines.size(), reported);
    }
}

TEST(ScriptedDesktop, LeavesTheFormClosedWhenItsHandlerFails) {
    Log log;
    platform::native::ScriptedDesktop desktop(platform::AnswerList({forForm({}, L"cmdOK")}), log);
    frmName form(desktop);
    form.cmdOK.onClick = [] { throw std::runtime_error("broken"); };
    EXPECT_THROW(desktop.showModal(form), std::runtime_error);
    EXPECT_FALSE(form.shown());
}

TEST(ScriptedDesktop, MissesAnAnswerForTheFolderBrowser) {
    Log log;
    platform::native::ScriptedDesktop desktop(platform::AnswerList({{L"folder", Answer::Ok}}), log);
    EXPECT_EQ(desktop.chooseFolder(L"Where?"), L"");
    EXPECT_NE(desktop.unanswered().value_or(L"").find(L"Where?"), std::wstring::npos);
    EXPECT_EQ(log.lines, Lines{L"Where?=?"});
}

TEST(TerminalDesktop, LetsAPersonChooseAFolder) {
    Log log;
    std::istringstream input("/tmp/a b\n\n");
    std::ostringstream output;
    platform::native::TerminalDesktop desktop(input, output, log);
    EXPECT_EQ(desktop.chooseFolder(L"Where\x1B?"), L"/tmp/a b");
    EXPECT_NE(output.str().find("Where??"), std::string::npos) << output.str();
    EXPECT_EQ(desktop.chooseFolder(L"Where?"), L"");
    EXPECT_FALSE(desktop.unanswered());
    desktop.chooseFolder(L"Where?");
    EXPECT_TRUE(desktop.unanswered());
}

TEST(TerminalDesktop, LetsAPersonAnswer) {
    struct Case {
        const char* typed;
        bool accepted;
        const wchar_t* name;
        bool title;
    };
    const Case cases[] = {
        {"1=Ann\n\n", true, L"Ann", false},
        {"1\nAnn B\n3\n", true, L"Ann B", false},
        {"n=Ann\nt\n5\n", false, L"Ann", true},
        {"9\n\nok\ntxtName=Ann\ncmdok\n", true, L"Ann", false},
        {"chkTitle=yes\nn=Ann\nok\n\n", true, L"Ann", false},
        {"c\n", false, L"", false},
    };
    for (const Case& test : cases) {
        Log log;
        std::istringstream input(test.typed);
        std::ostringstream output;
        platform::native::TerminalDesktop desktop(input, output, log);
        frmName form(desktop);
        desktop.showModal(form);
        EXPECT_EQ(form.accepted, test.accepted) << test.typed << output.str();
        EXPECT_EQ(form.txtName.text(), test.name) << test.typed;
        EXPECT_EQ(form.chkTitle.ticked(), test.title) << test.typed;
        EXPECT_FALSE(desktop.unanswered()) << test.typed << output.str();
    }
}

TEST(TerminalDesktop, ShowsTheFormReadablyAndNothingThatDrivesTheTerminal) {
    Log log;
    std::istringstream input("y\n");
    std::ostringstream output;
    platform::native::TerminalDesktop desktop(input, output, log);
    desktop.beep();
    EXPECT_EQ(output.str(), "\a");
    EXPECT_EQ(desktop.messageBox(L"Send \x1B[2J\x9B it?\r\n\r\nReally?", {Buttons::YesNo}, L"Sure"),
              Answer::Yes);
    frmName form(desktop);
    form.txtName.setText(L"Ann");
    form.chkTitle.setState(1);
    desktop.showModal(form);
    EXPECT_TRUE(desktop.unanswered());
    const std::string shown = output.str();
    EXPECT_EQ(shown.find('\x1B'), std::string::npos);
    EXPECT_EQ(shown.find('\r'), std::string::npos);
    for (const char* part : {"Send ?[2J? it?\n\nReally?", "[Yes] (Enter)  [No] ? ", "Your name",
                             "Name:   1 [Ann]\n", "2 [x] with a title", "3 [ OK ] (Enter)   4 [ Cancel ]"}) {
        EXPECT_NE(shown.find(part), std::string::npos) << part << "\n" << shown;
    }
}

}  // namespace
