#pragma once

#include "mail/Globals.h"

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
        ++globals_.promptsShown;
        shown_.showModal(form);
    }
    void showHelp(const std::wstring& file, const std::wstring& topic, platform::HelpView view) override {
        shown_.showHelp(file, topic, view);
    }
    std::wstring chooseFolder(const std::wstring& title) override {
        ++globals_.promptsShown;
        return shown_.chooseFolder(title);
    }
    void processPendingEvents() override { shown_.processPendingEvents(); }

  private:
    platform::Desktop& shown_;
    mail::Globals& globals_;
};

}  // namespace settings
