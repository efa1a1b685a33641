#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "host/Outlook.h"
#include "platform/Prompts.h"
#include "program/json.h"

namespace program {

/// Tells what happens in a run, as text for people or as one JSON object a line for programs.
class Report : public platform::PromptObserver {
  public:
    enum class Format { Text, JsonLines };
    /// `promptsSeen`: a person has the prompts before them where the text goes, which need not repeat them.
    Report(std::ostream& output, Format format, bool promptsSeen = false)
        : output_(output), format_(format), promptsSeen_(promptsSeen) {}

    void message(const platform::MessagePrompt& prompt, std::optional<platform::Answer> answer) override;
    void form(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>& answer) override;
    void folder(const platform::FolderPrompt& prompt,
                const std::optional<platform::FolderAnswer>& answer) override;
    void beep() override;
    void help(const std::wstring& file, const std::wstring& topic, platform::HelpView view) override;

    void opened(const platform::WebAddress& address) override;
    void started(const std::wstring& program) override;

    /// The next message's turn: what follows happens to this file, which every event names.
    void begin(const std::wstring& file);
    /// No message's turn any more.
    void end() { file_.reset(); }
    /// A file that has no turn because it cannot be read; events only.
    void unreadable(const std::wstring& file, const std::string& why);
    /// A mail that has come into the Inbox of itself.
    void received(const host::ItemView& mail);
    void sent(const host::ItemView& mail);
    void cancelled(const host::ItemView& mail);
    void reply(host::ReplyKind kind, const host::ItemView& mail);
    void replyCancelled();
    /// A mail that the add-in has prepared and shown.
    void prepared(const host::ItemView& mail);
    void error(const std::wstring& text);
    /// What the add-in left undone, each entry once with how often it came.
    void skipped(const std::vector<std::string>& entries);

  private:
    void formText(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>& answer);
    void outcome(const char* name, const host::ItemView& mail);
    Json event(const char* name) const;
    void line(const std::string& text);
    bool json() const { return format_ == Format::JsonLines; }

    std::ostream& output_;
    Format format_;
    bool promptsSeen_;
    std::optional<std::wstring> file_;
};

}  // namespace program
