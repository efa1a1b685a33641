#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "host/Outlook.h"
#include "platform/SettingsStore.h"
#include "platform/automation.h"
#include "program/CommandLine.h"
#include "program/ExitStatus.h"
#include "program/MessageJson.h"
#include "program/Report.h"

namespace program {

/// Makes the settings those of a profile on which the add-in ran before, or never ran, and adds those of the
/// command line. Throws automation::Error when the store cannot be read or written.
void prepareSettings(const CommandLine& line, platform::SettingsStore& settings);

/// The user of one run: sends or answers messages in an Outlook whose add-in is connected. Nothing is sent
/// any more once a prompt has found no answer.
class Session {
  public:
    /// `promptUnanswered` tells whether a prompt has found no answer. Made after the add-in is connected, so
    /// that the last word on a send is the session's.
    ///
    /// `settle` lets what waits in the add-in happen, until there is nothing more.
    Session(const CommandLine& line, host::Outlook& outlook, Report& report,
            std::function<bool()> promptUnanswered, std::function<void()> settle);

    /// Carries out the command of the command line; `messages` are those of its files.
    ExitStatus run(const std::vector<MessageFile>& messages);
    /// Closes all windows and ends Outlook, as a user does.
    void quit();

  private:
    /// False when something was cancelled.
    bool send(const host::Message& message);
    bool tell(const host::SendOutcome& outcome);
    bool sendInline(const automation::Object& window);
    bool answer(host::ReplyKind kind, host::Message message);
    /// What does without messages; nothing for the commands that take them.
    std::optional<ExitStatus> runMenu();
    ExitStatus support();
    /// A command of the menu, or of the ribbon.
    ExitStatus press(const std::wstring& button);
    ExitStatus ended(bool cancelled) const;
    automation::Object opened(const host::ReplyOutcome& outcome) const;
    void reportErrors();

    const CommandLine& line_;
    host::Outlook& outlook_;
    Report& report_;
    std::function<bool()> promptUnanswered_;
    std::function<void()> settle_;
    automation::Subscription veto_;
    std::size_t errorsReported_ = 0;
};

}  // namespace program
