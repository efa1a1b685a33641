#include "platform/formPages.h"

#include <gtest/gtest.h>

#include "platform/formLists.h"
#include "platform/text.h"

namespace {

using forms::Frame;

/// Two pages, a group of options on each and two on the second, and a box that complains of "x".
struct PagedForm : forms::Form {
    PagedForm() : Form(L"frmPaged", L"Paged", 100, 100) {
        lstRows.setRows({{L"Ann", false}, {L"Bob", false}});
        tabs.setPages({&first, &second});
        txtNumber.onLeave = [this] {
            ++complaints;
            return txtNumber.text() != L"x";
        };
        cmdSave.onClick = cmdCancel.onClick = lnkMore.onClick = [this] { noted = true; };
        chkOn.onClick = optOne.onClick = [this] { noted = true; };
        lstNames.setItems({L"Ann"});
        lstNames.onChange = [this] { noted = true; };
    }

    int complaints = 0;
    bool noted = false;
    forms::TabStrip tabs{*this, L"tabs", {}};
    Frame first{*this, L"fraStep(0)", {}, L"First", Frame::Border::None};
    forms::TextBox txtNumber{first, L"txtNumber", {}};
    forms::TextBox txtOther{first, L"txtOther", {}};
    forms::CheckBox chkOn{first, L"chkOn", {}, L"On"};
    forms::OptionButton optOne{first, L"optOne", {}, L"One"};
    forms::SelectionList lstRows{first, L"lstRows", {}};
    forms::ListBox lstNames{first, L"lstNames", {}};
    forms::Link lnkMore{first, L"lnkMore", {}, L"More"};
    Frame second{*this, L"fraStep(1)", {}, L"Second", Frame::Border::None};
    Frame left{second, L"fraLeft", {}, L"Left", Frame::Border::Box};
    forms::OptionButton optLeft{left, L"optLeft", {}, L"Left"};
    forms::OptionButton optRight{left, L"optRight", {}, L"Right"};
    forms::OptionButton optPage{second, L"optPage", {}, L"Page"};
    forms::Button cmdSave{*this, L"cmdSave", {}, L"Save", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {}, L"Cancel", forms::Button::Role::Cancel};
};

TEST(FormPages, ShowThePageThatTheUserTurnsTo) {
    PagedForm form;
    EXPECT_TRUE(form.txtNumber.visible());
    EXPECT_FALSE(form.optLeft.visible());
    EXPECT_TRUE(form.tabs.enter(L"sECOND"));
    EXPECT_EQ(form.tabs.value(), L"Second");
    EXPECT_FALSE(form.txtNumber.visible());
    EXPECT_TRUE(form.optLeft.visible());
    EXPECT_FALSE(form.tabs.enter(L"Third"));
    form.left.setVisible(false);
    EXPECT_FALSE(form.optLeft.visible());
    EXPECT_TRUE(form.optPage.visible());
}

TEST(FormPages, HaveGroupsOfOptionsOfTheirOwn) {
    PagedForm form;
    form.optPage.select();
    form.optOne.select();
    form.optLeft.select();
    EXPECT_TRUE(form.optRight.enter(L"1"));
    EXPECT_FALSE(form.optLeft.selected());
    EXPECT_TRUE(form.optPage.selected());
    EXPECT_TRUE(form.optOne.selected());
}

/// A box that complains holds up whatever the user has left it for, but not the way out.
TEST(FormPages, AreHeldByABoxThatComplains) {
    const struct {
        const wchar_t* control;
        const wchar_t* value;
        bool heldUp;
    } cases[] = {
        {L"cmdSave", L"", true},     {L"lnkMore", L"", true},     {L"chkOn", L"1", true},
        {L"optOne", L"1", true},     {L"lstNames", L"Ann", true}, {L"lstRows", L"1", true},
        {L"txtOther", L"new", true}, {L"tabs", L"Second", true},  {L"cmdCancel", L"", false},
        {L"txtNumber", L"y", false},
    };
    for (const auto& [name, value, heldUp] : cases) {
        const std::string label = text::toUtf8(name);
        for (const bool complains : {true, false}) {
            PagedForm form;
            forms::Control& control = *form.find(name);
            const std::wstring before = control.value();
            EXPECT_TRUE(form.txtNumber.enter(complains ? L"x" : L"1"));
            EXPECT_TRUE(control.enter(value)) << label;
            EXPECT_EQ(form.complaints, heldUp ? 1 : 0) << label;
            EXPECT_EQ(control.value() != before || form.noted, !complains || !heldUp) << label;
            EXPECT_TRUE(control.enter(value))
                << label;  // The box has lost the keyboard, and no say any more.
            EXPECT_EQ(form.complaints, heldUp ? 1 : 0) << label;
        }
    }
}

TEST(FormPages, HideWhatAPasswordIs) {
    PagedForm form;
    forms::TextBox password(form, L"txtPassword", {}, forms::TextBox::Lines::Hidden);
    EXPECT_TRUE(password.enter(L"s3cret"));
    EXPECT_EQ(password.value(), L"******");
    EXPECT_EQ(password.text(), L"s3cret");
}

}  // namespace
