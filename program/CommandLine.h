#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "host/Profile.h"
#include "platform/Prompts.h"

namespace program {

/// A command line that the program cannot follow; what() says why in one line.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

enum class Command {
    /// No command: on Windows the host's window opens.
    None,
    Help,
    Version,
    Send,
    Reply,
    ReplyAll,
    Forward,
    List,
    Settings,
    Update,
    Support,
    About,
    Start,
    Import,
    ExportSettings,
    ImportSettings
};

struct CommandLine {
    Command command = Command::None;
    std::vector<std::wstring> files;
    std::wstring outlookVersion = L"14.0.0.4760";
    host::Editor editor = host::Editor::Html;
    /// Whether the Redemption library is there to read mails by; else Outlook's own objects are all there is.
    bool redemption = true;
    /// The first is the default account; never empty.
    std::vector<host::Account> accounts;
    /// In the order given: of several for one key the last wins.
    std::vector<std::pair<std::wstring, std::wstring>> settings;
    std::optional<std::wstring> settingsFile;
    /// What the list of preferred accounts holds at the start: addresses and their accounts.
    std::vector<std::pair<std::wstring, std::wstring>> preferredAccounts;
    std::optional<std::wstring> folderFile;
    std::vector<platform::PromptAnswer> answers;
    /// What is odd about the arguments but can be followed; a line each.
    std::vector<std::string> warnings;
    /// What the machine's registry says of the update service.
    std::optional<std::wstring> service;
    /// How far the clock of Outlook and the add-in is ahead.
    int daysLater = 0;
    bool bccMe = false;
    /// The response is written in the reading pane, and sent from there.
    bool inlineResponse = false;
    bool firstRun = false;
    bool json = false;
    /// Tell at the end what the add-in left undone.
    bool trace = false;

    /// The profile described here, without what a file holds.
    host::Profile profile() const;
};

/// `arguments` without the program's name. Throws UsageError.
CommandLine parseCommandLine(const std::vector<std::wstring>& arguments);

/// What --help prints.
const char* usage();
/// What --version prints.
const char* versionText();

}  // namespace program
