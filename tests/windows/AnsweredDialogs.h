#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/windows/WindowsDesktop.h"
#include "robot/DialogRobot.h"
#include "robot/dialogDriver.h"

/// Real dialogs, shown to a user whose answers are given beforehand.
class AnsweredDialogs : public testing::Test {
  protected:
    void show(forms::Form& form, std::deque<platform::FormAnswer> answers) {
        robot::DialogRobot robot(
            {[this](const platform::MessagePrompt& prompt) {
                 messages.push_back(prompt);
                 return messageAnswer;
             },
             [this, &answers](const platform::FormPrompt& prompt) -> std::optional<platform::FormAnswer> {
                 prompts.push_back(prompt);
                 if (meanwhile) {
                     meanwhile(robot::dialogDriver::topDialog());
                 }
                 if (answers.empty()) {
                     return std::nullopt;
                 }
                 platform::FormAnswer answer = answers.front();
                 answers.pop_front();
                 return answer;
             }});
        desktop.showModal(form);
        unanswered = robot.unanswered();
        EXPECT_TRUE(answers.empty()) << "the form closed too early";
    }

    static const platform::ControlState& control(const platform::FormPrompt& prompt,
                                                 const std::wstring& name) {
        return *std::ranges::find(prompt.controls, name, &platform::ControlState::name);
    }

    /// What is shown is what the form says.
    void expectShown(const forms::Form& form) const {
        ASSERT_FALSE(prompts.empty());
        const platform::FormPrompt& prompt = prompts.back();
        EXPECT_EQ(prompt.form, form.name());
        EXPECT_EQ(prompt.caption, form.caption());
        ASSERT_EQ(prompt.controls.size(), form.controls().size());
        for (const forms::Control* expected : form.controls()) {
            const platform::ControlState& shown = control(prompt, expected->name());
            EXPECT_EQ(shown.caption, expected->caption()) << expected->name().c_str();
            EXPECT_EQ(shown.value, expected->value()) << expected->name().c_str();
            EXPECT_EQ(shown.enabled, expected->enabled()) << expected->name().c_str();
            EXPECT_EQ(shown.visible, expected->visible()) << expected->name().c_str();
        }
    }

    platform::windows::WindowsDesktop desktop;
    std::vector<platform::FormPrompt> prompts;
    std::vector<platform::MessagePrompt> messages;
    std::optional<platform::Answer> messageAnswer = platform::Answer::Ok;
    /// Called with the form's window before each of its answers, on the user's thread.
    std::function<void(HWND)> meanwhile;
    std::optional<std::wstring> unanswered;
};
