#include "program/CommandLine.h"

#include <algorithm>
#include <functional>
#include <map>

#include "accounts/clsSendAcct.h"
#include "platform/text.h"
#include "program/Answers.h"
#include "program/SettingsFolder.h"
#include "program/settingKeys.h"

namespace program {

namespace {

constexpr char usageText[] =
    R"(veltro-host: a simulated Outlook that e-mail can be tried out in

  veltro-host send MESSAGE...          open each message as a new mail and press Send; MESSAGE is a file that
                                       holds an e-mail, or messages in JSON, and "-" the standard input
  veltro-host reply MESSAGE...         select each message in the Inbox and press Reply
  veltro-host reply-all MESSAGE...     ... Reply to All
  veltro-host forward MESSAGE...       ... Forward
  veltro-host list                     open the list of preferred sending accounts
  veltro-host settings                 open the settings
  veltro-host update                   check for a newer version
  veltro-host support                  prepare an e-mail to the support
  veltro-host about                    open the about box
  veltro-host start                    start Outlook, let it sit until nothing is left to do, and end it
  veltro-host import MESSAGE.eml...    write the messages as JSON, which the other commands read too
  veltro-host settings export FOLDER   write the settings of --settings and --set into the administrator's file
                                       Veltro_Settings.ini in that folder
  veltro-host settings import FILE     read such a file into the settings of --settings

  --outlook VERSION        the version that Outlook tells; 14.0.0.4760 unless given
  --editor html|word       the e-mail editor of item windows; html unless given
  --provider NAME          what mails can be read by: redemption, unless given, is the Redemption library; with
                           outlook it is missing, and Outlook's own objects remain (Outlook 12 and later)
  --account NAME=ADDRESS   an account of the profile, repeatable; the first is the default account
  --set KEY=VALUE          a setting for this run, repeatable; README.md tells of the keys
  --settings FILE          keep the settings in this file, those of --set too; otherwise they live for the run
  --list ADDRESS=ACCOUNT   an entry of the list of preferred accounts, repeatable; they take the place of a list
                           that --folder has kept
  --folder FILE            keep subject and text of the settings folder's items, the list among them, in this
                           file; otherwise they live for the run
  --service ADDRESS|Off    the update service that the machine's registry names
  --days-later N           today is so many days later
  --bcc-me                 the received message reached the user blind (reply commands)
  --inline                 write the response in the reading pane and press Send there (reply commands, Outlook
                           15 and later)
  --first-run              a profile on which the add-in never ran; its start shows the settings, which need an
                           answer then, and brings an e-mail that introduces it
  --answer 'WHERE=WHAT'    an answer to a prompt, repeatable, used in order. WHERE is the start of a message
                           box's title, or a form's name; WHAT is Yes, No, OK or Cancel, or for a form
                           control=value and finally the button, parted by "; " (";;" is a plain ";"). In
                           place of the button {Enter} presses the default one, {Escape} closes the form,
                           and {Alt+x} presses the one with the access key x. "folder=PATH" chooses a folder
                           where the system's browser asks for one, and "folder=" cancels. A tab strip takes
                           the name of a page, whose controls can be used from then on; a list of several rows
                           the numbers of those to tick or select, such as 1,3. The buttons of the settings
                           are cmdNav(0) to cmdNav(4): Help, Cancel, Back, Next, Save. For example
                           'frmIntroWizard=TabStripWizard=Delay Sentry; chkDelay=1; cmdNav(4)'. Without any
                           --answer, prompts are put to you when the program runs at a terminal
  --json                   one JSON object a line instead of text
  --trace                  at the end, what the add-in left undone without a word: procedures, the numbers of
                           the errors, how often
  --help, --version

Exit status: 0 all sent or opened, 1 something was cancelled or could not be exported, 2 bad arguments, a file that
cannot be used or output that cannot be written, 3 a prompt found no answer.
)";

std::string inQuotes(std::wstring_view text) {
    return '"' + text::toUtf8(text) + '"';
}

/// The texts before and after the first "=".
std::pair<std::wstring, std::wstring> parsePair(const std::string& option, const std::string& form,
                                                const std::wstring& value) {
    const auto cut = value.find(L'=');
    if (cut == std::wstring::npos || cut == 0) {
        throw UsageError(option + " needs " + form + ", not " + inQuotes(value));
    }
    return {value.substr(0, cut), value.substr(cut + 1)};
}

void addAccount(CommandLine& line, const std::wstring& value) {
    auto [name, address] = parsePair("--account", "NAME=ADDRESS", value);
    const auto at = address.find(L'@');
    if (at == std::wstring::npos || at == 0 || at + 1 == address.size()) {
        throw UsageError("--account needs an e-mail address, not " + inQuotes(address));
    }
    const bool known = std::ranges::any_of(line.accounts, [&name = name](const host::Account& account) {
        return text::equalsIgnoringCase(account.name, name);
    });
    if (known) {
        throw UsageError("--account: there are two accounts named " + inQuotes(name));
    }
    line.accounts.push_back({.name = name, .address = address});
}

void setVersion(CommandLine& line, const std::wstring& value) {
    constexpr std::size_t mostDigits = 5;  // Each part is a 16-bit number.
    const auto isNumber = [](std::wstring_view part) {
        return !part.empty() && part.size() <= mostDigits &&
               std::ranges::all_of(part, [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    };
    if (value.empty() || !std::ranges::all_of(text::split(value, L'.'), isNumber)) {
        throw UsageError("--outlook needs a version such as 14.0.0.4760, not " + inQuotes(value));
    }
    line.outlookVersion = value;
}

void setEditor(CommandLine& line, const std::wstring& value) {
    if (value != L"html" && value != L"word") {
        throw UsageError("--editor needs html or word, not " + inQuotes(value));
    }
    line.editor = value == L"word" ? host::Editor::Word : host::Editor::Html;
}

void setProvider(CommandLine& line, const std::wstring& value) {
    if (value != L"redemption" && value != L"outlook") {
        throw UsageError("--provider needs redemption or outlook, not " + inQuotes(value));
    }
    line.redemption = value == L"redemption";
}

void addSetting(CommandLine& line, const std::wstring& value) {
    auto [key, setting] = parsePair("--set", "KEY=VALUE", value);
    if (const auto nearest = nearestSetting(key)) {
        throw UsageError("--set: there is no setting " + inQuotes(key) + "; is " + inQuotes(*nearest) +
                         " meant?");
    }
    if (const auto reading = otherReading(key, setting)) {
        line.warnings.push_back("--set " + text::toUtf8(key) + ": " + inQuotes(setting) + " reads as " +
                                inQuotes(*reading));
    }
    line.settings.emplace_back(std::move(key), std::move(setting));
}

/// A file that is kept between runs.
std::wstring keptFile(const std::string& option, const std::wstring& value) {
    if (value.empty() || value == L"-") {
        throw UsageError(option + " needs a file, not " + inQuotes(value));
    }
    return value;
}

void addAnswer(CommandLine& line, const std::wstring& value) {
    try {
        line.answers.push_back(parseAnswer(value));
    } catch (const std::invalid_argument& error) {
        throw UsageError(error.what());
    }
}

void setDaysLater(CommandLine& line, const std::wstring& value) {
    constexpr std::size_t mostDigits = 5;
    const bool isNumber = !value.empty() && value.size() <= mostDigits &&
                          value.find_first_not_of(L"0123456789") == std::wstring::npos;
    if (!isNumber) {
        throw UsageError("--days-later needs a number of days, not " + inQuotes(value));
    }
    line.daysLater = std::stoi(value);
}

struct Option {
    bool takesValue = true;
    std::function<void(CommandLine&, const std::wstring&)> apply;
};

std::map<std::wstring, Option> makeOptions() {
    return {
        {L"--outlook", {true, setVersion}},
        {L"--editor", {true, setEditor}},
        {L"--provider", {true, setProvider}},
        {L"--account", {true, addAccount}},
        {L"--set", {true, addSetting}},
        {L"--settings",
         {true, [](CommandLine& line,
                   const std::wstring& value) { line.settingsFile = keptFile("--settings", value); }}},
        {L"--list",
         {true,
          [](CommandLine& line, const std::wstring& value) {
              line.preferredAccounts.push_back(parsePair("--list", "ADDRESS=ACCOUNT", value));
          }}},
        {L"--folder",
         {true, [](CommandLine& line,
                   const std::wstring& value) { line.folderFile = keptFile("--folder", value); }}},
        {L"--service", {true, [](CommandLine& line, const std::wstring& value) { line.service = value; }}},
        {L"--days-later", {true, setDaysLater}},
        {L"--answer", {true, addAnswer}},
        {L"--bcc-me", {false, [](CommandLine& line, const std::wstring&) { line.bccMe = true; }}},
        {L"--inline", {false, [](CommandLine& line, const std::wstring&) { line.inlineResponse = true; }}},
        {L"--first-run", {false, [](CommandLine& line, const std::wstring&) { line.firstRun = true; }}},
        {L"--trace", {false, [](CommandLine& line, const std::wstring&) { line.trace = true; }}},
        {L"--json", {false, [](CommandLine& line, const std::wstring&) { line.json = true; }}},
        {L"--help", {false, [](CommandLine& line, const std::wstring&) { line.command = Command::Help; }}},
        {L"--version",
         {false, [](CommandLine& line, const std::wstring&) { line.command = Command::Version; }}},
    };
}

Command parseCommand(const std::wstring& word) {
    static const std::map<std::wstring, Command> commands{
        {L"send", Command::Send},         {L"reply", Command::Reply},   {L"reply-all", Command::ReplyAll},
        {L"forward", Command::Forward},   {L"list", Command::List},     {L"import", Command::Import},
        {L"settings", Command::Settings}, {L"update", Command::Update}, {L"support", Command::Support},
        {L"about", Command::About},       {L"start", Command::Start},   {L"help", Command::Help},
    };
    const auto found = commands.find(word);
    if (found == commands.end()) {
        throw UsageError("unknown command " + inQuotes(word) + "; try --help");
    }
    return found->second;
}

/// A command and what it is for: files, or a folder.
void parseWords(CommandLine& line, const std::vector<std::wstring>& words) {
    static const std::map<std::wstring, Command> settingsCommands{{L"export", Command::ExportSettings},
                                                                  {L"import", Command::ImportSettings}};
    std::size_t taken = 1;
    if (words.front() == L"settings" && words.size() > 1) {
        const auto found = settingsCommands.find(words[1]);
        if (found == settingsCommands.end()) {
            throw UsageError("settings goes alone, or with export FOLDER or import FILE");
        }
        line.command = found->second;
        taken = 2;
    } else {
        line.command = parseCommand(words.front());
    }
    line.files.assign(words.begin() + static_cast<std::ptrdiff_t>(taken), words.end());
}

/// The add-in asks about an account that is not there; here a name may just be misspelt.
void warnOfAccounts(CommandLine& line) {
    for (const auto& [address, account] : line.preferredAccounts) {
        const bool known =
            account == accounts::noAccount || std::ranges::any_of(line.accounts, [&](const auto& each) {
                return text::equalsIgnoringCase(each.name, account);
            });
        if (!known) {
            line.warnings.push_back("--list " + text::toUtf8(address) + ": there is no account " +
                                    inQuotes(account));
        }
    }
}

void checkTogether(const CommandLine& line) {
    const bool answering = line.command == Command::Reply || line.command == Command::ReplyAll ||
                           line.command == Command::Forward;
    if (line.bccMe && !answering) {
        throw UsageError("--bcc-me goes with reply, reply-all and forward only");
    }
    if (line.inlineResponse && !answering) {
        throw UsageError("--inline goes with reply, reply-all and forward only");
    }
    const long version = std::wcstol(line.outlookVersion.c_str(), nullptr, 10);
    if (!line.redemption && version < 12) {
        throw UsageError(
            "--provider outlook needs an Outlook of version 12 or later, such as --outlook 16.0.17328");
    }
    if (line.inlineResponse && version < 15) {
        throw UsageError(
            "--inline needs an Outlook of version 15 or later, such as --outlook 15.0.4420.1017");
    }
    if (line.firstRun && !line.preferredAccounts.empty()) {
        throw UsageError("--list goes not with --first-run: such a profile has no list");
    }
    const bool takesFiles = answering || line.command == Command::Send || line.command == Command::Import;
    if (takesFiles && line.files.empty()) {
        throw UsageError("no message file given; try --help");
    }
    if (line.command == Command::List && !line.files.empty()) {
        throw UsageError("list takes no message file");
    }
    const Command alone[] = {Command::Update, Command::Support, Command::About, Command::Start};
    if (std::ranges::count(alone, line.command) > 0 && !line.files.empty()) {
        throw UsageError("the command goes without " + inQuotes(line.files.front()));
    }
    if (line.command == Command::ExportSettings && line.files.size() != 1) {
        throw UsageError("settings export needs one folder");
    }
    if (line.command == Command::ImportSettings && line.files.size() != 1) {
        throw UsageError("settings import needs one file");
    }
    if (line.command == Command::ImportSettings && !line.settingsFile) {
        throw UsageError("settings import needs --settings FILE, where the settings are kept");
    }
    if (std::ranges::count(line.files, L"-") > 1) {
        throw UsageError("\"-\", the standard input, can be read only once");
    }
}

}  // namespace

CommandLine parseCommandLine(const std::vector<std::wstring>& arguments) {
    CommandLine line;
    const auto options = makeOptions();
    std::vector<std::wstring> words;
    bool optionsEnded = false;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::wstring& argument = arguments[index];
        if (optionsEnded || !argument.starts_with(L"-") || argument == L"-") {
            words.push_back(argument);
            continue;
        }
        if (argument == L"--") {
            optionsEnded = true;
            continue;
        }
        const auto cut = argument.find(L'=');
        const std::wstring name = argument.substr(0, cut);
        const auto found = options.find(name == L"-h" ? L"--help" : name);
        if (found == options.end()) {
            throw UsageError("unknown option " + inQuotes(name) + "; try --help");
        }
        const Option& option = found->second;
        if (!option.takesValue && cut != std::wstring::npos) {
            throw UsageError(text::toUtf8(name) + " takes no value");
        }
        if (option.takesValue && cut == std::wstring::npos && ++index == arguments.size()) {
            throw UsageError(text::toUtf8(name) + " needs a value");
        }
        option.apply(line, cut == std::wstring::npos ? arguments[index] : argument.substr(cut + 1));
    }
    const bool informs = line.command == Command::Help || line.command == Command::Version;
    if (!words.empty() && !informs) {
        parseWords(line, words);
    }
    checkTogether(line);
    if (line.accounts.empty()) {
        line.accounts = host::Profile().accounts;
    }
    warnOfAccounts(line);
    return line;
}

host::Profile CommandLine::profile() const {
    host::Profile profile;
    profile.version = outlookVersion;
    profile.accounts = accounts;
    profile.editor = editor;
    profile.redemptionRegistered = redemption;
    if (firstRun) {
        profile.folders.clear();
    }
    if (!preferredAccounts.empty()) {
        profile.messages.push_back({host::settingsFolder, preferredAccountsItem(preferredAccounts)});
    }
    return profile;
}

const char* usage() {
    return usageText;
}

const char* versionText() {
    return "veltro-host " VELTRO_VERSION "\n";
}

}  // namespace program
