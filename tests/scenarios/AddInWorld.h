#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Outlook.h"
#include "platform/Prompts.h"

/// Wednesday, 15 May 2024, 12:00.
inline constexpr automation::Date noonOfAnOrdinaryDay{45427.5};

/// What reads mails and profiles: the Redemption library, or Outlook's own object model.
enum class Provider { Redemption, Outlook };
/// Of the scenarios that work with either.
inline Provider usualProvider = Provider::Redemption;
/// The Outlook of those that do not say which, where it reads by itself.
inline constexpr wchar_t newestOutlook[] = L"16.0.17328.20550";

/// How a scenario finds the machine and the user.
struct Given {
    host::Profile profile{};
    /// Given where the scenario is about one of them. An Outlook that cannot do without the library has it.
    std::optional<Provider> provider{};
    /// The user's settings. Unless given here the wizard has been shown ("ShowStartupWizard" is "False"),
    /// unknown addresses are not offered for the list of preferred accounts ("MsgAddAddress" is "1"), and
    /// nothing looks for newer versions ("LastCheckUpdateDate" is "DoNotCheck").
    std::map<std::wstring, std::wstring> settings{};
    /// Values of the machine-wide preset key; none leaves the key away.
    std::map<std::wstring, std::wstring> presets{};
    /// Answers to prompts, as "WHERE=WHAT".
    std::vector<std::wstring> answers{};
    bool resourceLibrary = true;
    /// The local time, at which the clock stands still.
    automation::Date now = noonOfAnOrdinaryDay;
    /// False leaves connect() to the scenario.
    bool connected = true;
    /// The bytes of an administrator's settings file beside the add-in.
    std::optional<std::string> settingsFile{};
    /// The bytes that take the place of the introduction e-mail's file beside the add-in; empty: it is
    /// missing.
    std::optional<std::string> introduction{};
    /// The same of the Word template.
    std::optional<std::string> wordTemplate{};
    /// Whether Word's macros can make Veltro.Buttons.
    bool buttonsRegistered = true;
};

/// Where the add-in lies, with its own files beside it.
std::filesystem::path addInFolder();

/// The add-in beside one simulated Outlook, in the world for which the tests are built: natively linked in,
/// on Windows the registered Veltro.dll behind COM with its real dialogs.
class AddInWorld {
  public:
    virtual ~AddInWorld() = default;
    /// False when the add-in reported a failed start-up.
    virtual bool connect() = 0;
    /// `removeMode` 0: Outlook shuts down, 1: the user takes the add-in off.
    virtual void disconnect(int removeMode) = 0;
    virtual std::optional<std::wstring> setting(const std::wstring& key) = 0;
    virtual void set(const std::wstring& key, const std::wstring& value) = 0;
    /// Lets everything happen that waits: the timers are due now, and the answers of servers are waited for.
    virtual void settle() = 0;
    /// Has one of the add-in's timers be due now; false when none runs.
    virtual bool fireTimer() = 0;
    /// The local time from now on.
    virtual void setNow(automation::Date now) = 0;
    /// Word's process ends as in a crash, with what runs in it; from any thread.
    virtual void killWord() = 0;
    /// Which prompt found no answer; nothing when all did.
    virtual std::optional<std::wstring> unanswered() = 0;
    /// Host objects that the add-in still holds; meaningful once it is disconnected.
    virtual std::size_t heldObjects() = 0;
    /// What the add-in has told a debugger.
    virtual std::vector<std::string> debugLines() = 0;
};

/// `outlook` and `observer` outlive the world.
std::unique_ptr<AddInWorld> makeAddInWorld(host::Outlook& outlook, const Given& setup,
                                           platform::AnswerList answers, platform::PromptObserver& observer);
