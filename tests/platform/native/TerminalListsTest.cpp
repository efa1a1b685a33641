#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "platform/formLists.h"
#include "platform/native/ScriptedDesktop.h"
#include "platform/native/TerminalDesktop.h"
#include "platform/text.h"

namespace {

struct Quiet : platform::PromptObserver {
    void message(const platform::MessagePrompt&, std::optional<platform::Answer>) override {}
    void form(const platform::FormPrompt&, const std::optional<platform::FormAnswer>&) override {}
    void folder(const platform::FolderPrompt&, const std::optional<platform::FolderAnswer>&) override {}
    void beep() override {}
};

struct frmLists : forms::Form {
    frmLists() : Form(L"frmLists", L"Lists", 200, 200) {
        lstNames.setItems({L"AT&T", L"3", L"Zoë"});
        cboAccount.setItems({L"Work", L"Home"});
        cboAccount.select(0);
        lstRows.setRows({{L"Ann & Bob", true}, {L"Cleo", false}, {L"Tom", true}});
        cmdOK.onClick = [this] { hide(); };
    }

    forms::ListBox lstNames{*this, L"lstNames", {7, 7, 100, 40}};
    forms::Button cmdAdd{*this, L"cmdAdd", {120, 7, 50, 14}, L"A&dd..."};
    forms::Label lblAccount{*this, L"lblAccount", {7, 52, 40, 9}, L"&Account:"};
    forms::ComboBox cboAccount{*this, L"cboAccount", {50, 50, 100, 13}};
    forms::Label lblShared{*this, L"lblShared", {50, 62, 100, 9}, L"&Shared"};
    forms::OptionButton optAll{*this, L"optAll", {7, 70, 100, 11}, L"A&ll"};
    forms::CheckList lstRows{*this, L"lstRows", {7, 90, 100, 40}};
    forms::Button cmdOK{*this, L"cmdOK", {7, 150, 50, 14}, L"OK", forms::Button::Role::Default};
};

std::string valuesOf(const forms::Form& form) {
    std::wstring values = form.find(L"lstNames")->value();
    for (const wchar_t* name : {L"cboAccount", L"optAll", L"lstRows"}) {
        values += L"|" + form.find(name)->value();
    }
    return text::toUtf8(values);
}

TEST(TerminalDesktop, LetsAPersonChooseFromLists) {
    const struct {
        const char* typed;
        const char* values;
    } cases[] = {
        {"", "|Work|0|1,3"},
        {"1=1\n", "AT&T|Work|0|1,3"},
        {"1=Zoë\n", "Zoë|Work|0|1,3"},
        {"1\n2\n", "3|Work|0|1,3"},
        {"1=3\n", "3|Work|0|1,3"},  // The entry "3" comes before the third.
        {"1=4\n1=0\n1=zoë\n1=\n", "|Work|0|1,3"},
        {"a=2\n", "|Home|0|1,3"},
        {"a=Home\na=1\n", "|Work|0|1,3"},
        {"l\n", "|Work|1|1,3"},
        {"5=2\n", "|Work|0|2"},
        {"lstRows\n1, 2\n", "|Work|0|1,2"},
        {"5=\n", "|Work|0|"},
        {"5=4\n5=x\n", "|Work|0|1,3"},
        {"t=1\nb=1\n", "|Work|0|1,3"},  // An "&" in an entry makes no access key,
        {"x\n", "|Work|0|1,3"},         // and none in a text that a label shows.
    };
    for (const auto& [typed, values] : cases) {
        Quiet quiet;
        std::istringstream input(std::string(typed) + "\n");
        std::ostringstream output;
        platform::native::TerminalDesktop desktop(input, output, quiet);
        frmLists form;
        form.lblShared.setCaption(L"with l&x@example.com");
        desktop.showModal(form);
        EXPECT_EQ(desktop.unanswered(), std::nullopt) << typed << output.str();
        EXPECT_EQ(valuesOf(form), values) << typed << output.str();
    }
}

TEST(TerminalDesktop, ShowsListsEntryByEntry) {
    Quiet quiet;
    std::istringstream input;
    std::ostringstream output;
    platform::native::TerminalDesktop desktop(input, output, quiet);
    frmLists form;
    form.lstNames.select(2);
    form.lblShared.setCaption(L"R&D && more");
    desktop.showModal(form);
    const std::string expected =
        "1 [Zoë]\n    1 AT&T\n    2 3\n  > 3 Zoë\n2 [ Add... ]\nAccount:   3 [Work]\n  > 1 Work\n    2 "
        "Home\nR&D && more\n4 ( ) All\n5 [1,3]\n    [x] 1 Ann & Bob\n    [ ] 2 Cleo\n    [x] 3 Tom\n6 [ OK ] "
        "(Enter)\n";
    EXPECT_NE(output.str().find(expected), std::string::npos) << output.str();
}

TEST(ScriptedDesktop, SeesAndAnswersLists) {
    struct Log : Quiet {
        platform::FormPrompt prompt;
        void form(const platform::FormPrompt& shown, const std::optional<platform::FormAnswer>&) override {
            prompt = shown;
        }
    } log;
    const platform::FormAnswer answer{{{L"lstNames", L"Zoë"}, {L"lstRows", L"2,3"}}, L"cmdOK"};
    platform::native::ScriptedDesktop desktop(platform::AnswerList({{L"frmLists", answer}}), log);
    frmLists form;
    desktop.showModal(form);
    EXPECT_EQ(desktop.unanswered(), std::nullopt);
    EXPECT_EQ(valuesOf(form), "Zoë|Work|0|2,3");
    const auto shown = [&log](std::wstring_view name) {
        const auto found = std::ranges::find(log.prompt.controls, name, &platform::ControlState::name);
        return found->caption + L"|" + found->value;
    };
    EXPECT_EQ(shown(L"lstNames"), L"AT&T\n3\nZoë|");
    EXPECT_EQ(shown(L"cboAccount"), L"Work\nHome|Work");
    EXPECT_EQ(shown(L"lstRows"), L"Ann & Bob\nCleo\nTom|1,3");
}

}  // namespace
