#pragma once

#include <utility>

#include "platform/native/PromptedDesktop.h"

namespace platform::native {

/// A desktop whose prompts are answered beforehand.
class ScriptedDesktop : public PromptedDesktop {
  public:
    ScriptedDesktop(AnswerList answers, PromptObserver& observer)
        : PromptedDesktop(observer), answers_(std::move(answers)) {}

    std::vector<PromptAnswer> unusedAnswers() const override { return answers_.unused(); }

  protected:
    std::optional<Answer> ask(const MessagePrompt& prompt) override { return answers_.take(prompt); }
    std::optional<FormAnswer> ask(const FormPrompt& prompt, const forms::Form&) override {
        return answers_.take(prompt);
    }
    std::optional<FolderAnswer> ask(const FolderPrompt& prompt) override { return answers_.take(prompt); }

  private:
    AnswerList answers_;
};

}  // namespace platform::native
