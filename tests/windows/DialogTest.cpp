#include <gtest/gtest.h>
#include <windows.h>

#include <optional>
#include <stdexcept>
#include <string>

#include "platform/formLists.h"
#include "platform/windows/windowText.h"
#include "robot/listDriver.h"
#include "tests/windows/AnsweredDialogs.h"

using forms::Button;
using platform::Answer;
using platform::Buttons;
using platform::FormPrompt;
using platform::Icon;
using platform::MessagePrompt;

namespace {

/// A form with one of each control, and handlers as the product's forms have them.
class SampleForm : public forms::Form {
  public:
    SampleForm() : Form(L"frmSample", L"Empty Subject - Veltro", 220, 130) {
        cmdOK.onClick = [this] {
            if (txtSubject.text().empty()) {
                refused = true;
                txtSubject.setFocus();
                return;
            }
            pressed = L"cmdOK";
            hide();
        };
        cmdCancel.onClick = [this] {
            pressed = L"cmdCancel";
            hide();
        };
        txtSubject.onChange = [this] {
            ++changes;
            lblCount.setCaption(std::to_wstring(txtSubject.text().size()));
        };
        chkNever.onClick = [this] { txtReason.setEnabled(chkNever.ticked()); };
        txtReason.setEnabled(false);
        chkHidden.setVisible(false);
    }

    std::wstring pressed;
    bool refused = false;
    int changes = 0;

    forms::Picture imgIcon{*this, L"imgIcon", {8, 8, 20, 20}, forms::Picture::Image::Warning};
    forms::Label lblSubject{*this, L"lblSubject", {36, 8, 170, 18}, L"&Subject of this e-mail, Q&&A:"};
    forms::TextBox txtSubject{*this, L"txtSubject", {36, 28, 140, 13}};
    forms::Label lblCount{*this, L"lblCount", {182, 30, 30, 9}, L"0"};
    forms::CheckBox chkNever{*this, L"chkNever", {36, 46, 170, 11}, L"Do not ask me &again, because:"};
    forms::TextBox txtReason{*this, L"txtReason", {36, 60, 176, 40}, forms::TextBox::Lines::Many};
    forms::CheckBox chkHidden{*this, L"chkHidden", {8, 100, 20, 11}, L"hidden"};
    forms::Button cmdOK{*this, L"cmdOK", {108, 108, 50, 14}, L"&OK", Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {162, 108, 50, 14}, L"Cancel", Button::Role::Cancel};
};

using DialogTest = AnsweredDialogs;

TEST_F(DialogTest, AFormIsFilledInAndPressed) {
    SampleForm form;
    show(form, {{{{L"txtSubject", L"Grüße & Küsse"}, {L"chkNever", L"1"}, {L"txtReason", L"one\r\ntwo"}},
                 L"cmdOK"}});
    EXPECT_EQ(unanswered, std::nullopt);
    EXPECT_EQ(form.pressed, L"cmdOK");
    EXPECT_EQ(form.txtSubject.text(), L"Grüße & Küsse");
    EXPECT_EQ(form.txtReason.text(), L"one\r\ntwo");
    EXPECT_TRUE(form.chkNever.ticked());
    EXPECT_EQ(form.lblCount.caption(), L"13");
    EXPECT_EQ(form.changes, 1) << "what the form shows by itself is no typing";
    EXPECT_FALSE(form.shown());
}

TEST_F(DialogTest, TheWindowShowsWhatTheFormSays) {
    SampleForm form;
    form.txtSubject.setText(L"Hello");
    form.chkNever.setState(2);
    show(form, {{{}, L"cmdCancel"}});
    expectShown(form);
}

TEST_F(DialogTest, OnlyTheCaptionThatALabelIsMadeWithHasAnAccessKey) {
    SampleForm form;
    std::vector<bool> marked;
    meanwhile = [&](HWND dialog) {
        for (const wchar_t* label : {L"lblSubject", L"lblCount"}) {
            const HWND window = robot::dialogDriver::findControl(dialog, label);
            marked.push_back((GetWindowLongPtrW(window, GWL_STYLE) & SS_NOPREFIX) == 0);
        }
    };
    form.lblSubject.setCaption(L"r&d@example.com");
    show(form, {{{{L"txtSubject", L"x"}}, L""}, {{}, L"cmdCancel"}});
    EXPECT_EQ(marked, (std::vector<bool>{false, true, false, false})) << "the count changes meanwhile";
}

TEST_F(DialogTest, AFormThatStaysOpenAsksAgainAndShowsItsChanges) {
    SampleForm form;
    show(form, {{{}, L"cmdOK"}, {{{L"txtSubject", L"x"}}, L""}, {{}, L"cmdOK"}});
    EXPECT_TRUE(form.refused);
    EXPECT_EQ(form.pressed, L"cmdOK");
    ASSERT_EQ(prompts.size(), 3U);
    EXPECT_EQ(control(prompts[2], L"lblCount").caption, L"1");
}

TEST_F(DialogTest, KeysDoWhatTheyDoInEveryDialog) {
    const struct {
        const wchar_t* key;
        const wchar_t* pressed;
    } cases[] = {{L"{Enter}", L"cmdOK"}, {L"{Escape}", L"cmdCancel"}, {L"{Alt+o}", L"cmdOK"}};
    for (const auto& [key, pressed] : cases) {
        SampleForm form;
        show(form, {{{{L"txtSubject", L"x"}}, key}});
        EXPECT_EQ(form.pressed, pressed);
    }
}

TEST_F(DialogTest, TheKeyboardStartsWhereTheFormSays) {
    const auto focused = [](HWND dialog) {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
        wchar_t text[40] = L"";
        GetWindowTextW(info.hwndFocus, text, 40);
        return std::wstring(text);
    };
    std::wstring start;
    meanwhile = [&](HWND dialog) { start = focused(dialog); };
    SampleForm form;
    form.txtSubject.setText(L"first");
    show(form, {{{}, L"cmdCancel"}});
    EXPECT_EQ(start, L"first");
    SampleForm other;
    other.chkNever.setFocus();
    show(other, {{{}, L"cmdCancel"}});
    EXPECT_EQ(start, other.chkNever.caption());
}

TEST_F(DialogTest, EscapeHidesAFormWithoutACancelButton) {
    forms::Form form(L"frmPlain", L"Plain", 100, 40);
    const forms::TextBox box(form, L"txtOnly", {8, 8, 80, 20}, forms::TextBox::Lines::Many);
    show(form, {{{}, L"{Escape}"}});
    EXPECT_EQ(unanswered, std::nullopt);
}

TEST_F(DialogTest, DialogsOverDialogsAreAnsweredFirst) {
    SampleForm form;
    SampleForm inner;
    inner.txtSubject.setText(L"inner");
    form.chkNever.onClick = [&] {
        desktop.messageBox(L"Really?", {Buttons::YesNo, Icon::Question}, L"Sure - Veltro");
    };
    form.cmdOK.onClick = [&] {
        desktop.showModal(inner);
        form.hide();
    };
    messageAnswer = Answer::Yes;
    show(form, {{{{L"chkNever", L"1"}, {L"txtSubject", L"outer"}}, L"cmdOK"}, {{}, L"cmdOK"}});
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(form.txtSubject.text(), L"outer");
    EXPECT_EQ(inner.pressed, L"cmdOK");
    EXPECT_FALSE(form.shown());
}

TEST_F(DialogTest, MessageBoxesShowTheirPromptAndReturnTheButton) {
    const struct {
        Buttons buttons;
        Icon icon;
        Answer answer;
    } cases[] = {
        {Buttons::Ok, Icon::Information, Answer::Ok},   {Buttons::Ok, Icon::None, Answer::Ok},
        {Buttons::OkCancel, Icon::Warning, Answer::Ok}, {Buttons::OkCancel, Icon::Warning, Answer::Cancel},
        {Buttons::YesNo, Icon::Question, Answer::Yes},  {Buttons::YesNo, Icon::Critical, Answer::No}};
    for (const auto& [buttons, icon, answer] : cases) {
        robot::DialogRobot robot({[&, wanted = answer](const MessagePrompt& prompt) {
                                      messages.push_back(prompt);
                                      return std::optional(wanted);
                                  },
                                  [](const FormPrompt&) { return std::nullopt; }});
        EXPECT_EQ(desktop.messageBox(L"First line\r\n\r\nSecond", {buttons, icon}, L"Title - Veltro"),
                  answer);
        EXPECT_EQ(robot.unanswered(), std::nullopt);
        EXPECT_EQ(messages.back().title, L"Title - Veltro");
        EXPECT_EQ(messages.back().text, L"First line\r\n\r\nSecond");
        EXPECT_EQ(messages.back().style.buttons, buttons);
        EXPECT_EQ(messages.back().style.icon, icon);
    }
}

/// The desktop's window belongs to another process, as the window of any other program does.
TEST_F(DialogTest, AMessageBoxBelongsOverAWindowOfItsOwnProcessOnly) {
    using platform::windows::messageBoxOwner;
    const auto makeWindow = [] {
        return CreateWindowExW(0, L"STATIC", L"own", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                               nullptr, nullptr, nullptr, nullptr);
    };
    HWND behind = makeWindow();
    HWND active = makeWindow();
    SetActiveWindow(active);
    DWORD process = GetCurrentProcessId();
    GetWindowThreadProcessId(GetDesktopWindow(), &process);
    ASSERT_NE(process, GetCurrentProcessId());
    EXPECT_EQ(messageBoxOwner(GetDesktopWindow()), active);
    EXPECT_EQ(messageBoxOwner(nullptr), active);
    EXPECT_EQ(messageBoxOwner(behind), behind);
    DestroyWindow(active);
    DestroyWindow(behind);
}

/// Answers as a control does whose contents have changed since it was asked about them.
LRESULT CALLBACK changedMeanwhile(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == LB_GETTEXTLEN && wParam == 1) {
        return LB_ERR;
    }
    if (message == WM_GETTEXT) {
        return CB_ERR;
    }
    const auto former = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return CallWindowProcW(former, window, message, wParam, lParam);
}

TEST_F(DialogTest, ControlsThatAnswerWithAnErrorHaveNoText) {
    HWND list =
        CreateWindowExW(0, L"LISTBOX", L"", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    for (const wchar_t* entry : {L"one", L"two", L"three"}) {
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
    }
    SetWindowLongPtrW(list, GWLP_USERDATA, GetWindowLongPtrW(list, GWLP_WNDPROC));
    SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&changedMeanwhile));
    platform::ControlState state;
    robot::listDriver::describe(list, forms::Kind::ListBox, state);
    EXPECT_EQ(state.caption, L"one");
    EXPECT_EQ(platform::windows::windowText(list), L"");
    DestroyWindow(list);
}

TEST_F(DialogTest, WithoutAnAnswerNothingHappens) {
    SampleForm form;
    form.txtSubject.setText(L"x");
    show(form, {});
    EXPECT_EQ(form.pressed, L"cmdCancel");
    EXPECT_NE(unanswered.value_or(L"").find(L"frmSample"), std::wstring::npos);

    form.pressed.clear();
    show(form, {{{{L"txtReason", L"a user cannot type there"}}, L"cmdOK"}});
    EXPECT_EQ(form.pressed, L"cmdCancel");
    EXPECT_NE(unanswered.value_or(L"").find(L"txtReason"), std::wstring::npos);
}

TEST_F(DialogTest, AHandlersExceptionClosesTheFormAndReachesItsCaller) {
    SampleForm form;
    form.cmdOK.onClick = [] { throw std::runtime_error("handler"); };
    EXPECT_THROW(show(form, {{{}, L"cmdOK"}}), std::runtime_error);
    EXPECT_FALSE(form.shown());
}

TEST_F(DialogTest, ADialogStaysOnTheScreen) {
    HWND corner = CreateWindowExW(0, L"STATIC", L"corner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 5000, -3000, 300,
                                  200, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(corner);
    SampleForm form;
    RECT place{};
    form.txtSubject.onChange = [&place] { GetWindowRect(GetActiveWindow(), &place); };
    show(form, {{{{L"txtSubject", L"x"}}, L"cmdOK"}});
    DestroyWindow(corner);
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    EXPECT_GT(place.right, place.left);
    EXPECT_GE(place.left, area.left);
    EXPECT_GE(place.top, area.top);
    EXPECT_LE(place.right, area.right);
    EXPECT_LE(place.bottom, area.bottom);
}

}  // namespace
