#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Desktop.h"
#include "platform/Prompts.h"
#include "platform/forms.h"
#include "platform/native/EventLoop.h"

namespace platform::native {

/// A desktop whose prompts are answered by whatever derives from it, through the real form objects: bringing
/// a control to a value and pressing a button run the form's own handlers, which may prompt in their turn. A
/// form that stays open after its button asks again.
///
/// A prompt that finds no answer cannot be raised as an exception, since the add-in traps those. The desktop
/// remembers it instead, and answers everything from then on so that nothing happens: No, Cancel, the close
/// box. Whoever runs the desktop must ask unanswered() before believing an outcome.
class PromptedDesktop : public Desktop {
  public:
    explicit PromptedDesktop(PromptObserver& observer) : observer_(observer) {}

    Answer messageBox(const std::wstring& prompt, MessageStyle style, const std::wstring& title) final;
    void beep() final;
    void showModal(forms::Form& form) final;
    HelpOutcome showHelp(const std::wstring& file, const std::wstring& topic, HelpView view) final;
    std::wstring chooseFolder(const std::wstring& title) final;
    void openAddress(const WebAddress& address) final;
    void startProgram(const std::wstring& path) final;
    std::unique_ptr<Timer> startTimer(std::chrono::milliseconds interval, std::function<void()> due) final {
        return events_.startTimer(interval, std::move(due));
    }
    /// Events of the simulated host never wait.
    void processPendingEvents() final {}

    /// What showing help comes to; no help file is looked at.
    HelpOutcome helpOutcome = HelpOutcome::Shown;

    /// What is to happen on this thread later. While a form is open that waits for something else than the
    /// user, it happens.
    EventLoop& events() { return events_; }

    /// Which prompt found no answer, and why, in words for the user; nothing as long as all found one.
    const std::optional<std::wstring>& unanswered() const { return unanswered_; }
    /// Answers given beforehand that no prompt has taken.
    virtual std::vector<PromptAnswer> unusedAnswers() const { return {}; }

  protected:
    /// Sounds the alert, where there is somebody to hear it.
    virtual void sound() {}
    /// Nothing when there is no answer.
    virtual std::optional<Answer> ask(const MessagePrompt& prompt) = 0;
    virtual std::optional<FormAnswer> ask(const FormPrompt& prompt, const forms::Form& form) = 0;
    virtual std::optional<FolderAnswer> ask(const FolderPrompt& prompt) = 0;

  private:
    void runForm(forms::Form& form);
    void apply(const FormAnswer& answer, forms::Form& form);
    void press(forms::Form& form, const std::wstring& key);
    bool enter(forms::Form& form, const std::wstring& controlName, const std::wstring& value);

    PromptObserver& observer_;
    EventLoop events_;
    std::optional<std::wstring> unanswered_;
};

/// What a user sees of the form.
FormPrompt describe(const forms::Form& form);

/// The control of that name, letter case ignored; null when there is none.
forms::Control* findControl(const forms::Form& form, std::wstring_view name);

}  // namespace platform::native
