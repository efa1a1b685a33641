#pragma once

#include "mail/Globals.h"
#include "mail/OpenPrompt.h"

namespace settings {

/// The desktop as the add-in uses it: the alert sound precedes every message box when the user wants it, from
/// whichever room the box comes, reports of errors included. Dialogs differ, since the user opens some of
/// them from the menu: those that come unasked are shown by prompts::show(). All of them are counted.
class AlertingDesktop final : public platform::Desktop {
  public:
    /// Both outlive this one.
    AlertingDesktop(platform::Desktop& shown, mail::Globals& globals) : shown_(shown), globals_(globals) {}

    platform::Answer messageBox(const std::wstring& prompt, platform::MessageStyle style,
                                const std::wstring& title) override;
    void beep() override { shown_.beep(); }
    void showModal(forms::Form& form) override {
        const mail::OpenPrompt open(globals_);
        shown_.showModal(form);
    }
    platform::HelpOutcome showHelp(const std::wstring& file, const std::wstring& topic,
                                   platform::HelpView view) override {
        return shown_.showHelp(file, topic, view);
    }
    std::wstring chooseFolder(const std::wstring& title) override {
        const mail::OpenPrompt open(globals_);
        return shown_.chooseFolder(title);
    }
    void openAddress(const platform::WebAddress& address) override { shown_.openAddress(address); }
    void startProgram(const std::wstring& path) override { shown_.startProgram(path); }
    std::unique_ptr<platform::Timer> startTimer(std::chrono::milliseconds interval,
                                                std::function<void()> due) override {
        return shown_.startTimer(interval, std::move(due));
    }
    void processPendingEvents() override { shown_.processPendingEvents(); }

  private:
    platform::Desktop& shown_;
    mail::Globals& globals_;
};

}  // namespace settings
