#pragma once

#include <iosfwd>
#include <string>

#include "host/Outlook.h"
#include "platform/Prompts.h"

namespace program {

/// Tells what happens in a run, as text for people or as one JSON object a line for programs.
class Report : public platform::PromptObserver {
  public:
    enum class Format { Text, Json };
    /// `promptsSeen`: a person has the prompts before them, so that the text need not repeat them.
    Report(std::ostream& output, Format format, bool promptsSeen = false)
        : output_(output), format_(format), promptsSeen_(promptsSeen) {}

    void message(const platform::MessagePrompt& prompt, std::optional<platform::Answer> answer) override;
    void form(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>& answer) override;
    void beep() override;

    /// The next message's turn; text only.
    void begin(const std::string& file);
    void sent(const std::string& file, const host::ItemView& mail);
    void cancelled(const std::string& file, const host::ItemView& mail);
    void reply(host::ReplyKind kind, const host::ItemView& mail);
    void replyCancelled();
    void error(const std::wstring& text);

  private:
    void outcome(const char* event, const std::string& file, const host::ItemView& mail);
    void line(const std::string& text);
    bool json() const { return format_ == Format::Json; }

    std::ostream& output_;
    Format format_;
    bool promptsSeen_;
};

}  // namespace program
