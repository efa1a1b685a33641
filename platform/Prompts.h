#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/Desktop.h"

/// Prompts answered by a script instead of by a person, and reported while they are; natively and for real
/// dialogs alike.
namespace platform {

/// A message box as the user sees it.
struct MessagePrompt {
    std::wstring title;
    std::wstring text;
    MessageStyle style;
};

struct ControlState {
    std::wstring name;
    std::wstring caption;
    std::wstring value;
    bool enabled = true;
    bool visible = true;
    /// A text box or a list, which an answer can fill in even when it shows nothing yet.
    bool fillable = false;
};

/// A form as it stood when it asked for an answer; the controls in tab order.
struct FormPrompt {
    std::wstring form;
    std::wstring caption;
    std::vector<ControlState> controls;
    /// True when the form goes on without an answer: see forms::Form::waits().
    bool waits = false;
};

/// What a user does with a form: brings controls to values, in this order, then presses a button.
struct FormAnswer {
    struct Entry {
        std::wstring control;
        std::wstring value;
    };
    std::vector<Entry> entries;
    /// The button's name, or a key: "{Enter}" for the default button, "{Escape}" for the close box, "{Alt+x}"
    /// for the button with the access key x. Empty when only values change; the form then asks again.
    std::wstring button;
};

/// The folder browser.
struct FolderPrompt {
    /// Tells what the folder is for.
    std::wstring title;
};

/// The folder that a user chooses; an empty path cancels.
struct FolderAnswer {
    std::wstring path;
};

/// An answer given beforehand. `what` says what it is for: message boxes whose title starts with `where`, the
/// form of that name, letter case ignored, or the folder browser, which has no name.
struct PromptAnswer {
    std::wstring where;
    std::variant<Answer, FormAnswer, FolderAnswer> what;
};

/// Answers given beforehand; each is used once. A prompt takes the first unused answer that fits it, so that
/// answers to the same prompt are used in their order.
class AnswerList {
  public:
    AnswerList() = default;
    explicit AnswerList(std::vector<PromptAnswer> answers) : answers_(std::move(answers)) {}

    /// Nothing when no answer fits. An answer that the box has no button for does not fit.
    std::optional<Answer> take(const MessagePrompt& prompt);
    std::optional<FormAnswer> take(const FormPrompt& prompt);
    std::optional<FolderAnswer> take(const FolderPrompt& prompt);
    /// Those that no prompt has taken yet.
    const std::vector<PromptAnswer>& unused() const { return answers_; }

  private:
    std::vector<PromptAnswer> answers_;
};

/// Told of every prompt and sound, in the order in which the user meets them: a form is reported before its
/// answer is carried out, and with it the prompts that the answer raises.
class PromptObserver {
  public:
    virtual ~PromptObserver() = default;
    /// `answer` is nothing for the prompt that found none.
    virtual void message(const MessagePrompt& prompt, std::optional<Answer> answer) = 0;
    virtual void form(const FormPrompt& prompt, const std::optional<FormAnswer>& answer) = 0;
    virtual void folder(const FolderPrompt& prompt, const std::optional<FolderAnswer>& answer) = 0;
    virtual void beep() = 0;
    // Nothing is to be answered, and few want to know.
    virtual void opened(const WebAddress& /*address*/) {}
    virtual void started(const std::wstring& /*program*/) {}
    virtual void help(const std::wstring& /*file*/, const std::wstring& /*topic*/, HelpView /*view*/) {}
};

/// The buttons of a message box from left to right.
std::vector<Answer> answersOf(Buttons buttons);
/// The answer that changes least: No, else Cancel, else OK.
Answer neutralAnswer(Buttons buttons);
/// "OK", "Cancel", "Yes" or "No".
std::wstring_view nameOf(Answer answer);
/// The answer of that name, letter case ignored.
std::optional<Answer> answerNamed(std::wstring_view name);

}  // namespace platform
