#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "host/Outlook.h"
#include "platform/Prompts.h"
#include "tests/scenarios/AddInWorld.h"

/// What the user met, in order.
class PromptLog : public platform::PromptObserver {
  public:
    struct Prompt {
        /// A message box's title, a form's name, or "folder".
        std::wstring where;
        /// A message box's text, a form's caption, or the title of the folder browser.
        std::wstring text;
        platform::MessageStyle style;
        std::vector<platform::ControlState> controls;
        /// The alert sounded right before. Only the native world hears it.
        bool alerted = false;

        const platform::ControlState& control(std::wstring_view name) const;
    };

    void message(const platform::MessagePrompt& prompt, std::optional<platform::Answer> answer) override;
    void form(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>& answer) override;
    void folder(const platform::FolderPrompt& prompt, const std::optional<platform::FolderAnswer>&) override;
    void beep() override { beeped_ = true; }
    void opened(const platform::WebAddress& address) override { opened_.push_back(address.text()); }
    void started(const std::wstring& program) override { opened_.push_back(program); }

    /// Happens while a prompt is open, before it is answered; on Windows on a thread of its own.
    std::function<void()> meanwhile;

    const std::vector<Prompt>& prompts() const { return prompts_; }
    /// Addresses and programs.
    const std::vector<std::wstring>& opened() const { return opened_; }

  private:
    std::vector<Prompt> prompts_;
    std::vector<std::wstring> opened_;
    void keep(Prompt prompt);

    /// Since the last prompt.
    bool beeped_ = false;
};

/// A desk to try the add-in at: a simulated Outlook with its user, the add-in connected, the prompts answered
/// from a list. When it is torn down every prompt must have found its answer and the add-in must have let go
/// of every object.
class Bench {
  public:
    explicit Bench(Given setup = {});
    ~Bench();
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    host::Outlook& outlook() { return outlook_; }
    AddInWorld& world() { return *world_; }
    automation::Date now() const { return setup_.now; }
    bool connect();
    void disconnect(int removeMode = 0);

    /// Opens the message as a new mail and presses Send.
    host::SendOutcome send(const host::Message& message);

    /// What happens while a prompt is open, as PromptLog::meanwhile.
    void meanwhile(std::function<void()> happens) { log_.meanwhile = std::move(happens); }

    const std::vector<PromptLog::Prompt>& prompts() const { return log_.prompts(); }
    /// What the add-in has opened or started, in order.
    const std::vector<std::wstring>& opened() const { return log_.opened(); }
    /// Titles and form names, in order.
    std::vector<std::wstring> promptNames() const;

  private:
    Given setup_;
    PromptLog log_;
    host::Outlook outlook_;
    std::unique_ptr<AddInWorld> world_;
    bool connected_ = false;
};

/// A mail from the user to Bob, with a subject and nothing to complain of.
host::Message plainMail(std::wstring subject = L"Budget", std::wstring body = L"Hello Bob");

inline constexpr std::wstring_view attachmentPrompt = L"Attachment(s) missing - Veltro";
