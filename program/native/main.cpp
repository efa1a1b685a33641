/// The simulated Outlook on the developer's own machine: the add-in is linked in, prompts are answered on the
/// terminal or from the command line.

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "addin/Buttons.h"
#include "addin/Connect.h"
#include "platform/native/CurlHttp.h"
#include "platform/native/MemoryPorts.h"
#include "platform/native/ScriptedDesktop.h"
#include "platform/native/SystemClock.h"
#include "platform/native/TerminalDesktop.h"
#include "platform/text.h"
#include "program/CommandLine.h"
#include "program/Console.h"
#include "program/FileSettingsStore.h"
#include "program/MessageFiles.h"
#include "program/Report.h"
#include "program/Session.h"
#include "program/SettingsFolder.h"
#include "program/exchangeSettings.h"
#include "program/files.h"
#include "program/native/ImportMessage.h"

namespace {

using program::CommandLine;
using program::ExitStatus;
using Messages = std::vector<program::MessageFile>;

/// Outlook's numbers of the connection and disconnection.
constexpr int atStartup = 1;
constexpr int hostShutdown = 0;

std::wstring programFolder() {
    std::error_code ignored;
    return text::fromUtf8(std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path().string());
}

/// Whoever answers the prompts: a person, or the command line.
class Answerer {
  public:
    Answerer(const CommandLine& line, bool person, program::Report& report) {
        if (person) {
            // Wherever the output goes, the questions go to the terminal.
            terminal_.open("/dev/tty");
            std::ostream& shown = terminal_ ? terminal_ : std::cerr;
            desktop_ = std::make_unique<platform::native::TerminalDesktop>(std::cin, shown, report);
        } else {
            desktop_ = std::make_unique<platform::native::ScriptedDesktop>(platform::AnswerList(line.answers),
                                                                           report);
        }
    }

    platform::native::PromptedDesktop& desktop() { return *desktop_; }

  private:
    std::ofstream terminal_;
    std::unique_ptr<platform::native::PromptedDesktop> desktop_;
};

ExitStatus use(const CommandLine& line, const Messages& messages, program::Report& report,
               platform::native::PromptedDesktop& desktop) {
    const auto folderLock = program::holdSettingsFolder(line, [&line] {
        program::complain("waiting for another run that uses " + text::toUtf8(*line.folderFile));
    });
    platform::native::SystemClock clock(line.daysLater);
    host::Outlook outlook(program::prepareProfile(line), [&clock] { return clock.now(); });
    // A file that cannot be written is told of before anything is sent.
    program::keepSettingsFolder(line, outlook);
    std::optional<program::FileSettingsStore> store;
    if (line.settingsFile) {
        store.emplace(program::pathOf(*line.settingsFile));
    }
    platform::native::CurlHttp http(desktop.events());
    platform::native::MemoryPorts ports(outlook.automation(), desktop, clock, store ? &*store : nullptr,
                                        programFolder(), &http);
    if (line.service) {
        ports.registry.setText(platform::RootKey::LocalMachine, L"SOFTWARE\\Corvane\\Veltro",
                               L"UpdateService", *line.service);
    }
    program::prepareSettings(line, ports.platform.settings);
    outlook.registerForMacros(L"Veltro.Buttons", [&ports] {
        return addin::Buttons::object(std::make_shared<addin::Buttons>(ports.platform));
    });
    addin::Connect connect(ports.platform);
    ports.system.program = outlook.version();
    outlook.addRibbon({[&connect](const std::wstring& ribbonId) { return connect.GetCustomUI(ribbonId); },
                       connect.ribbonCallbacks()});
    try {
        connect.OnConnection(outlook.application(), atStartup,
                             outlook.makeAddIn(L"Veltro.Connect", L"Veltro"));
    } catch (const automation::Error& error) {
        report.error(L"OnConnection: " + error.description());
    }
    const auto unanswered = [&desktop] { return desktop.unanswered().has_value(); };
    program::Session session(line, outlook, report, unanswered, [&desktop] { desktop.events().settle(); });
    const ExitStatus status = session.run(messages);
    session.quit();
    connect.OnDisconnection(hostShutdown);
    outlook.dropRibbons();
    if (line.trace) {
        report.skipped(ports.system.debugLines());
    }
    program::keepSettingsFolder(line, outlook);
    if (unanswered()) {
        program::complain(text::toUtf8(*desktop.unanswered()));
        return ExitStatus::UnansweredPrompt;
    }
    return status;
}

ExitStatus run(const CommandLine& line) {
    const bool person = line.answers.empty() && isatty(STDIN_FILENO) == 1;
    program::Report report(std::cout,
                           line.json ? program::Report::Format::JsonLines : program::Report::Format::Text,
                           person && isatty(STDOUT_FILENO) == 1);
    const program::ReadFiles read = program::readFiles(line, program::importMessage, &report);
    if (read.messages.empty() && read.status != ExitStatus::Done) {
        return read.status;
    }
    Answerer answerer(line, person, report);
    const ExitStatus status = use(line, read.messages, report, answerer.desktop());
    program::tellUnused(answerer.desktop().unusedAnswers());
    return std::max(read.status, status);
}

/// What can be read as JSON; what cannot is told of.
ExitStatus import(const CommandLine& line) {
    const program::ReadFiles read = program::readFiles(line, program::importMessage);
    std::cout << program::toJson(read.messages) << '\n';
    return read.status;
}

ExitStatus obey(const CommandLine& line) {
    program::tellWarnings(line);
    switch (line.command) {
        case program::Command::None:
            return program::complain("no command given; try --help");
        case program::Command::Help:
            std::cout << program::usage();
            return ExitStatus::Done;
        case program::Command::Version:
            std::cout << program::versionText();
            return ExitStatus::Done;
        case program::Command::Import:
            return import(line);
        case program::Command::ExportSettings:
        case program::Command::ImportSettings:
            return program::exchangeSettings(line);
        default:
            return run(line);
    }
}

}  // namespace

int main(int count, char** arguments) {
    // An output that nobody reads any more is an error like others, not the end before the state is kept.
    std::signal(SIGPIPE, SIG_IGN);
    ExitStatus status = ExitStatus::BadInput;
    try {
        std::vector<std::wstring> words;
        for (int index = 1; index < count; ++index) {
            words.push_back(program::fileNameFromBytes(arguments[index]));
        }
        status = obey(program::parseCommandLine(words));
    } catch (const std::exception& error) {
        program::complain(error.what());
    }
    return static_cast<int>(program::finish(status));
}
