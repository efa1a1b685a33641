#pragma once

#include <iosfwd>
#include <string>

#include "platform/native/PromptedDesktop.h"

namespace platform::native {

/// A desktop on a text terminal: draws message boxes and forms, and a person answers. The end of the input
/// leaves a prompt without an answer.
class TerminalDesktop : public PromptedDesktop {
  public:
    TerminalDesktop(std::istream& input, std::ostream& output, PromptObserver& observer)
        : PromptedDesktop(observer), input_(input), output_(output) {}

  protected:
    void sound() override;
    std::optional<Answer> ask(const MessagePrompt& prompt) override;
    std::optional<FormAnswer> ask(const FormPrompt& prompt, const forms::Form& form) override;
    std::optional<FolderAnswer> ask(const FolderPrompt& prompt) override;

  private:
    /// Nothing at the end of the input.
    std::optional<std::wstring> readLine(std::wstring_view question);
    /// What the line asks for; nothing when it means nothing here.
    std::optional<FormAnswer> understand(const std::wstring& line, const forms::Form& form);

    std::istream& input_;
    std::ostream& output_;
};

}  // namespace platform::native
