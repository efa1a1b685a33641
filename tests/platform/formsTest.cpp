#include "platform/formLists.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

using Texts = std::vector<std::wstring>;

/// A form with one of each list, and with options, that notes what its user does.
struct ListForm : forms::Form {
    ListForm() : Form(L"frmLists", L"Lists", 100, 100) {
        lstNames.setItems({L"Ann", L"Bob", L"Ann", L""});
        cboNames.setItems({L"Ann", L"Bob"});
        lstRows.setRows({{L"Ann", true}, {L"Bob", false}, {L"Zoë", true}});
        lstNames.onChange = [this] { noted += L"lstNames "; };
        cboNames.onChange = [this] { noted += L"cboNames "; };
        optLeft.onClick = [this] { noted += L"optLeft "; };
        optRight.onClick = [this] { noted += L"optRight "; };
    }

    std::wstring noted;
    forms::ListBox lstNames{*this, L"lstNames", {}};
    forms::OptionButton optLeft{*this, L"optLeft", {}, L"&Left"};
    forms::ComboBox cboNames{*this, L"cboNames", {}};
    forms::OptionButton optRight{*this, L"optRight", {}, L"&Right"};
    forms::CheckList lstRows{*this, L"lstRows", {}};
};

TEST(Forms, ListsAndOptionsTakeTheValuesThatAUserCanGiveThem) {
    const struct {
        const wchar_t* control;
        const wchar_t* value;
        bool taken;
        const wchar_t* held;
        const wchar_t* noted;
    } cases[] = {
        {L"lstNames", L"Bob", true, L"Bob", L"lstNames "},
        {L"lstNames", L"", true, L"", L"lstNames "},
        {L"lstNames", L"bob", false, L"", L""},
        {L"cboNames", L"Bob", true, L"Bob", L"cboNames "},
        {L"cboNames", L"", false, L"", L""},
        {L"optRight", L"1", true, L"1", L"optRight "},
        {L"optLeft", L"1", true, L"1", L""},  // It is selected already.
        {L"optLeft", L"0", false, L"1", L""},
        {L"lstRows", L"2", true, L"2", L""},
        {L"lstRows", L"3,1,3", true, L"1,3", L""},
        {L"lstRows", L"", true, L"", L""},
        {L"lstRows", L"0", false, L"1,3", L""},
        {L"lstRows", L"1,4", false, L"1,3", L""},
        {L"lstRows", L"1.5", false, L"1,3", L""},
        {L"lstRows", L"1,", false, L"1,3", L""},
    };
    for (const auto& [name, value, taken, held, noted] : cases) {
        ListForm form;
        form.optLeft.select();
        const std::string label = text::toUtf8(std::wstring(name) + L"=" + value);
        forms::Control* control = form.find(name);
        EXPECT_EQ(control->enter(value), taken) << label;
        EXPECT_EQ(control->value(), held) << label;
        EXPECT_EQ(form.noted, noted) << label;
    }
}

TEST(Forms, ADisabledListTakesNothing) {
    ListForm form;
    for (forms::Control* control : form.controls()) {
        control->setEnabled(false);
        const std::wstring before = control->value();
        for (const wchar_t* value : {L"Ann", L"1"}) {
            EXPECT_FALSE(control->enter(value)) << text::toUtf8(control->name());
        }
        EXPECT_EQ(control->value(), before) << text::toUtf8(control->name());
    }
    EXPECT_EQ(form.noted, L"");
}

TEST(Forms, NewEntriesLeaveNothingSelectedAndAreTheCaptionLineByLine) {
    ListForm form;
    form.lstNames.select(1);
    form.lstNames.setItems({L"", L"AT&T", L""});
    EXPECT_EQ(form.lstNames.selected(), forms::List::none);
    EXPECT_EQ(form.lstNames.caption(), L"\nAT&T\n");
    form.lstNames.select(3);
    EXPECT_EQ(form.lstNames.selected(), forms::List::none);
    form.lstRows.setRows({{L"", false}, {L"b", true}});
    EXPECT_EQ(form.lstRows.caption(), L"\nb");
    EXPECT_EQ(form.lstRows.value(), L"2");
}

TEST(Forms, OneOptionIsSelectedAtATime) {
    ListForm form;
    form.optLeft.select();
    form.optRight.select();
    EXPECT_EQ(form.optLeft.value() + form.optRight.value(), L"01");
    EXPECT_EQ(form.noted, L"") << "code that selects is no user";
}

}  // namespace
