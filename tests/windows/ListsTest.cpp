#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <map>
#include <string>
#include <vector>

#include "platform/formLists.h"
#include "platform/windows/dialogProperties.h"
#include "tests/windows/AnsweredDialogs.h"
#include "tests/windows/Keyboard.h"

namespace dialogDriver = robot::dialogDriver;

namespace {

using Texts = std::vector<std::wstring>;

const std::wstring longText = std::wstring(150, L'W') + L" the end";

/// A form with one of each list, and with options, that notes what its user does.
class ListForm : public forms::Form {
  public:
    ListForm() : Form(L"frmLists", L"Lists - Veltro", 240, 190) {
        lstAccounts.setItems({L"", L"AT&T", L"Grüße", L"AT&T"});
        cboAccount.setItems({L"Work", L"Home", L"10"});
        lstRows.setRows({{L"Ann & Bob", true}, {L"Zoë", false}, {L"", true}, {longText, false}});
        lstAccounts.onChange = [this] { note(lstAccounts); };
        lstAccounts.onDoubleClick = [this] {
            noted.push_back(L"double click on " + lstAccounts.value());
            hide();
        };
        cboAccount.onChange = [this] { note(cboAccount); };
        for (forms::OptionButton* option : {&optFirst, &optSecond, &optThird}) {
            option->onClick = [this, option] { note(*option); };
        }
        cmdOK.onClick = [this] {
            focused = platform::windows::attachedName(GetFocus(), platform::windows::controlNameProperty)
                          .value_or(L"");
            hide();
        };
        cmdCancel.onClick = [this] { hide(); };
    }

    void note(const forms::Control& control) { noted.push_back(control.name() + L"=" + control.value()); }

    Texts noted;
    /// The control that had the focus when OK was pressed.
    std::wstring focused;

    forms::Label lblAccounts{*this, L"lblAccounts", {7, 7, 60, 9}, L"&Accounts:"};
    forms::ListBox lstAccounts{*this, L"lstAccounts", {7, 18, 100, 50}};
    forms::ComboBox cboAccount{*this, L"cboAccount", {120, 18, 100, 13}};
    forms::Label lblRows{*this, L"lblRows", {7, 74, 60, 9}, L"&Rows:"};
    forms::CheckList lstRows{*this, L"lstRows", {7, 85, 100, 60}};
    forms::OptionButton optFirst{*this, L"optFirst", {120, 85, 100, 11}, L"&First"};
    forms::CheckBox chkBetween{*this, L"chkBetween", {120, 124, 100, 11}, L"&Between"};
    forms::OptionButton optSecond{*this, L"optSecond", {120, 98, 100, 11}, L"&Second"};
    forms::OptionButton optThird{*this, L"optThird", {120, 111, 100, 11}, L"&Third"};
    forms::Button cmdOK{*this, L"cmdOK", {128, 165, 50, 14}, L"OK", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {182, 165, 50, 14}, L"Cancel", forms::Button::Role::Cancel};
};

HWND find(HWND dialog, const wchar_t* name) {
    return dialogDriver::findControl(dialog, name);
}

using ListsTest = AnsweredDialogs;

TEST_F(ListsTest, TheWindowsShowWhatTheFormSays) {
    ListForm form;
    show(form, {{{}, L"cmdCancel"}});
    expectShown(form);
    form.lstAccounts.select(2);
    form.cboAccount.select(1);
    form.optSecond.select();
    form.lstRows.markAll(true);
    show(form, {{{}, L"cmdCancel"}});
    expectShown(form);
    EXPECT_EQ(form.noted, Texts{}) << "what the form shows by itself is no user's doing";
}

TEST_F(ListsTest, AUserSelectsAndTicks) {
    const struct {
        const wchar_t* control;
        const wchar_t* value;
        Texts noted;
    } cases[] = {
        {L"lstAccounts", L"Grüße", {L"lstAccounts=Grüße"}},
        {L"lstAccounts", L"AT&T", {L"lstAccounts=AT&T"}},
        {L"lstAccounts", L"", {L"lstAccounts="}},
        {L"cboAccount", L"10", {L"cboAccount=10"}},
        {L"optThird", L"1", {L"optThird=1"}},
        {L"optSecond", L"1", {}},  // It is selected already.
        {L"lstRows", L"1,3", {}},
        {L"lstRows", L"4", {}},
        {L"lstRows", L"", {}},
    };
    for (const auto& [control, value, noted] : cases) {
        ListForm form;
        form.optSecond.select();
        show(form, {{{{control, value}}, L"cmdOK"}});
        EXPECT_EQ(unanswered, std::nullopt) << control << value;
        EXPECT_EQ(form.find(control)->value(), value) << control << value;
        EXPECT_EQ(form.noted, noted) << control << value;
        EXPECT_EQ(form.optSecond.selected(), control != std::wstring(L"optThird"));
    }
}

TEST_F(ListsTest, WhatAUserCannotDoIsNoAnswer) {
    const platform::FormAnswer::Entry cases[] = {
        {L"lstAccounts", L"Home"}, {L"lstAccounts", L"grüße"}, {L"cboAccount", L""},
        {L"optFirst", L"0"},       {L"lstRows", L"5"},         {L"lstRows", L"1,x"},
    };
    for (const auto& entry : cases) {
        ListForm form;
        const std::wstring before = form.find(entry.control)->value();
        show(form, {{{entry}, L"cmdOK"}});
        EXPECT_NE(unanswered.value_or(L"").find(entry.control), std::wstring::npos);
        EXPECT_EQ(form.find(entry.control)->value(), before);
        EXPECT_EQ(form.noted, Texts{});
    }
}

/// Handlers may change the very list that called them.
TEST_F(ListsTest, AListFollowsItsFormWhileItIsShown) {
    ListForm form;
    form.lstAccounts.onChange = [&form] {
        form.lstAccounts.setItems({L"x", L"y"});
        form.cboAccount.setItems({});
        form.lstRows.setRows({{L"only", true}});
        form.optThird.select();
    };
    form.cboAccount.select(1);
    show(form, {{{{L"lstAccounts", L"AT&T"}}, L""}, {{{L"lstRows", L""}}, L"cmdOK"}});
    EXPECT_EQ(form.lstAccounts.value(), L"");
    EXPECT_EQ(form.lstRows.value(), L"");
    EXPECT_EQ(form.optThird.value(), L"1");
    form.lstRows.markAll(true);
    expectShown(form);
}

TEST_F(ListsTest, ADoubleClickIsTold) {
    ListForm form;
    meanwhile = [](HWND dialog) {
        HWND list = find(dialog, L"lstAccounts");
        RECT place{};
        SendMessageW(list, LB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&place));
        const LPARAM point = MAKELPARAM(place.left + 2, place.top + 2);
        for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
            SendNotifyMessageW(list, message, 0, point);
        }
    };
    show(form, {{{}, L""}});
    EXPECT_EQ(form.noted, (Texts{L"lstAccounts=Grüße", L"double click on Grüße"}));
}

/// An access key leads to the list behind its label; the keyboard alone must do there what the mouse does.
TEST_F(ListsTest, KeysReachTheListsAndWorkThere) {
    const struct {
        wchar_t accessKey;
        std::vector<WPARAM> keys;
        const wchar_t* control;
        const wchar_t* value;
    } cases[] = {
        {L'a', {VK_DOWN, VK_DOWN}, L"lstAccounts", L"AT&T"},
        {L'a', {VK_DOWN, VK_DOWN, VK_DOWN}, L"lstAccounts", L"Grüße"},
        {L'r', {VK_SPACE}, L"lstRows", L"3"},
        {L'r', {VK_DOWN, VK_SPACE}, L"lstRows", L"1,2,3"},
        {L'r', {VK_DOWN, VK_SPACE, VK_SPACE}, L"lstRows", L"1,3"},
    };
    const Keyboard keyboard;
    for (const auto& [accessKey, keys, control, value] : cases) {
        ListForm form;
        meanwhile = [&, key = accessKey, &pressed = keys](HWND dialog) {
            keyboard.focus(dialog, L"cmdOK");
            keyboard.accessKey(dialog, key);
            keyboard.press(dialog, pressed);
        };
        show(form, {{{}, L"{Enter}"}});
        EXPECT_EQ(form.focused, control);
        EXPECT_EQ(form.find(control)->value(), value);
    }
}

TEST_F(ListsTest, ArrowsMoveWithinTheOptions) {
    const struct {
        std::vector<WPARAM> keys;
        const wchar_t* focused;
    } cases[] = {
        {{VK_DOWN}, L"optThird"},
        {{VK_UP}, L"optFirst"},
        {{VK_DOWN, VK_DOWN}, L"optFirst"},
        {{VK_DOWN, VK_DOWN, VK_DOWN}, L"optSecond"},
    };
    const Keyboard keyboard;
    for (const auto& [keys, focused] : cases) {
        ListForm form;
        form.optSecond.select();
        meanwhile = [&keyboard, &pressed = keys](HWND dialog) {
            keyboard.focus(dialog, L"optSecond");
            keyboard.press(dialog, pressed);
        };
        show(form, {{{}, L"{Enter}"}});
        EXPECT_EQ(form.focused, focused);
        EXPECT_EQ(form.find(focused)->value(), L"1");
        EXPECT_EQ(form.noted.size(), keys.size());
    }
}

/// The Tab key stops once at the options, at the selected one, and selects nothing by itself.
TEST_F(ListsTest, TheTabKeyChoosesNoOption) {
    const Keyboard keyboard;
    for (const bool selected : {false, true}) {
        ListForm form;
        if (selected) {
            form.optThird.select();
        }
        const struct {
            std::size_t tabs;
            const wchar_t* focused;
        } cases[] = {{1, selected ? L"optThird" : L"optFirst"}, {2, L"chkBetween"}, {3, L"cmdOK"}};
        for (const auto& [tabs, focused] : cases) {
            meanwhile = [&keyboard, count = tabs](HWND dialog) {
                keyboard.focus(dialog, L"lstRows");
                keyboard.press(dialog, std::vector<WPARAM>(count, VK_TAB));
            };
            show(form, {{{}, L"{Enter}"}});
            EXPECT_EQ(form.focused, focused);
            EXPECT_EQ(form.optThird.selected(), selected);
            EXPECT_EQ(form.noted, Texts{});
        }
    }
}

TEST_F(ListsTest, TenThousandRowsAreShownAndAnswered) {
    constexpr int count = 10000;
    Texts texts;
    std::vector<forms::MarkedList::Row> rows;
    for (int index = 1; index <= count; ++index) {
        texts.push_back(L"user" + std::to_wstring(index) + L"@example.org");
        rows.push_back({texts.back(), true});
    }
    ListForm form;
    form.lstAccounts.setItems(texts);
    form.cboAccount.setItems(texts);
    form.lstRows.setRows(rows);
    form.lblRows.setCaption(L"many");
    show(form, {{{{L"lstAccounts", texts.back()}, {L"cboAccount", texts[4999]}, {L"lstRows", L"2,10000"}},
                 L"cmdOK"}});
    EXPECT_EQ(unanswered, std::nullopt);
    EXPECT_EQ(control(prompts.front(), L"lstRows").caption, form.lstRows.caption());
    EXPECT_EQ(control(prompts.front(), L"lstAccounts").caption, form.lstAccounts.caption());
    EXPECT_EQ(form.noted, (Texts{L"lstAccounts=user10000@example.org", L"cboAccount=user5000@example.org"}));
    EXPECT_EQ(form.lstRows.value(), L"2,10000");
}

/// Nothing of a long text stays unreadable, and a drop-down list shows its entries without scrolling.
TEST_F(ListsTest, LongTextsAndDropDownListsHaveRoom) {
    ListForm form;
    form.lstAccounts.setItems({longText, L"short"});
    const std::wstring longName(60, L'W');
    form.cboAccount.setItems({L"Work", longName, L"Home", L"Club", L"Family"});
    meanwhile = [&longName](HWND dialog) {
        HWND rows = find(dialog, L"lstRows");
        const LRESULT width =
            SendMessageW(rows, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(longText.c_str()));
        RECT client{};
        GetClientRect(rows, &client);
        EXPECT_GT(width, client.right) << "the text is not long enough for this test";
        EXPECT_GT(SendMessageW(rows, LVM_GETCOLUMNWIDTH, 0, 0), width);
        EXPECT_GT(SendMessageW(find(dialog, L"lstAccounts"), LB_GETHORIZONTALEXTENT, 0, 0), width);

        HWND comboBox = find(dialog, L"cboAccount");
        RECT closed{};
        GetWindowRect(comboBox, &closed);
        COMBOBOXINFO parts{};
        parts.cbSize = sizeof parts;
        SendMessageW(comboBox, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&parts));
        SendMessageW(comboBox, CB_SHOWDROPDOWN, TRUE, 0);
        GetClientRect(parts.hwndList, &client);
        SendMessageW(comboBox, CB_SHOWDROPDOWN, FALSE, 0);
        const LRESULT entryHeight = SendMessageW(comboBox, CB_GETITEMHEIGHT, 0, 0);
        EXPECT_GE(client.bottom, 5 * entryHeight);
        EXPECT_LT(client.bottom, 6 * entryHeight);
        EXPECT_GT(SendMessageW(comboBox, CB_GETDROPPEDWIDTH, 0, 0),
                  SendMessageW(rows, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(longName.c_str())));
        RECT wanted{0, 0, 100, 13};
        MapDialogRect(dialog, &wanted);
        EXPECT_EQ(closed.bottom - closed.top, wanted.bottom);
    };
    show(form, {{{}, L"cmdOK"}});
}

}  // namespace
