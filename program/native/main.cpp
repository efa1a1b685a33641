/// The simulated Outlook on the developer's own machine: the add-in is linked in, prompts are answered on the
/// terminal or from the command line.

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "addin/Connect.h"
#include "platform/native/FakeRegistry.h"
#include "platform/native/FileResources.h"
#include "platform/native/FixedSystemInfo.h"
#include "platform/native/MemorySettingsStore.h"
#include "platform/native/ScriptedDesktop.h"
#include "platform/native/SystemClock.h"
#include "platform/native/TerminalDesktop.h"
#include "platform/text.h"
#include "program/CommandLine.h"
#include "program/FileSettingsStore.h"
#include "program/MessageFiles.h"
#include "program/Report.h"
#include "program/Session.h"
#include "program/SettingsFolder.h"
#include "program/native/ImportMessage.h"

namespace {

using program::CommandLine;
using program::ExitStatus;

/// Outlook's numbers of the connection and disconnection.
constexpr int atStartup = 1;
constexpr int hostShutdown = 0;

ExitStatus complain(const std::string& why) {
    std::cerr << "veltro-host: " << why << '\n';
    return ExitStatus::BadInput;
}

std::wstring programFolder() {
    std::error_code ignored;
    return text::fromUtf8(std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path().string());
}

std::unique_ptr<platform::SettingsStore> makeSettings(const CommandLine& line) {
    if (line.settingsFile) {
        return std::make_unique<program::FileSettingsStore>(program::pathOf(*line.settingsFile));
    }
    return std::make_unique<platform::native::MemorySettingsStore>();
}

std::unique_ptr<platform::native::PromptedDesktop> makeDesktop(const CommandLine& line, bool person,
                                                               program::Report& report) {
    if (person) {
        return std::make_unique<platform::native::TerminalDesktop>(std::cin,
                                                                   line.json ? std::cerr : std::cout, report);
    }
    return std::make_unique<platform::native::ScriptedDesktop>(platform::AnswerList(line.answers), report);
}

ExitStatus run(const CommandLine& line) {
    const auto messages = program::readMessages(line.files, program::importMessage);
    const bool person = line.answers.empty() && isatty(STDIN_FILENO) == 1;
    program::Report report(std::cout,
                           line.json ? program::Report::Format::Json : program::Report::Format::Text, person);
    platform::native::SystemClock clock;
    host::Outlook outlook(program::prepareProfile(line), [&clock] { return clock.now(); });
    program::keepSettingsFolder(
        line,
        outlook);  // A file that cannot be written is told of before anything is sent.
    const auto settings = makeSettings(line);
    program::prepareSettings(line, *settings);
    const auto desktop = makeDesktop(line, person, report);

    platform::native::FakeRegistry registry;
    platform::native::FileResources resources;
    platform::native::FixedSystemInfo system(programFolder());
    platform::Platform world{outlook.automation(), *desktop, *settings, registry, resources, clock, system};
    addin::Connect connect(world);
    try {
        connect.OnConnection(outlook.application(), atStartup,
                             outlook.makeAddIn(L"Veltro.Connect", L"Veltro"));
    } catch (const automation::Error& error) {
        report.error(L"OnConnection: " + error.description());
    }
    const auto unanswered = [&desktop] { return desktop->unanswered().has_value(); };
    program::Session session(line, outlook, report, unanswered);
    const ExitStatus status = session.run(messages);
    session.quit();
    connect.OnDisconnection(hostShutdown);
    program::keepSettingsFolder(line, outlook);
    if (unanswered()) {
        complain(text::toUtf8(*desktop->unanswered()));
        return ExitStatus::UnansweredPrompt;
    }
    return status;
}

ExitStatus obey(const CommandLine& line) {
    switch (line.command) {
        case program::Command::None:
            return complain("no command given; try --help");
        case program::Command::Help:
            std::cout << program::usage();
            return ExitStatus::Done;
        case program::Command::Import:
            std::cout << program::toJson(program::readMessages(line.files, program::importMessage)) << '\n';
            return ExitStatus::Done;
        default:
            return run(line);
    }
}

}  // namespace

int main(int count, char** arguments) {
    ExitStatus status = ExitStatus::BadInput;
    try {
        std::vector<std::wstring> words;
        for (int index = 1; index < count; ++index) {
            words.push_back(text::fromUtf8(arguments[index]));
        }
        status = obey(program::parseCommandLine(words));
    } catch (const std::exception& error) {
        complain(error.what());
    }
    return static_cast<int>(status);
}
