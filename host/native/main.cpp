/// The simulated Outlook on the developer's own machine: the add-in is linked in, prompts are answered on the
/// terminal or from the command line.

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "addin/Connect.h"
#include "host/CommandLine.h"
#include "host/FileSettingsStore.h"
#include "host/MessageFiles.h"
#include "host/Report.h"
#include "host/Session.h"
#include "host/SettingsFolder.h"
#include "host/native/ImportMessage.h"
#include "platform/native/FakeRegistry.h"
#include "platform/native/FileResources.h"
#include "platform/native/FixedSystemInfo.h"
#include "platform/native/MemorySettingsStore.h"
#include "platform/native/ScriptedDesktop.h"
#include "platform/native/SystemClock.h"
#include "platform/native/TerminalDesktop.h"
#include "platform/text.h"

namespace {

using host::CommandLine;
using host::ExitStatus;

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
        return std::make_unique<host::FileSettingsStore>(host::pathOf(*line.settingsFile));
    }
    return std::make_unique<platform::native::MemorySettingsStore>();
}

std::unique_ptr<platform::native::PromptedDesktop> makeDesktop(const CommandLine& line, bool person,
                                                               host::Report& report) {
    if (person) {
        return std::make_unique<platform::native::TerminalDesktop>(std::cin,
                                                                   line.json ? std::cerr : std::cout, report);
    }
    return std::make_unique<platform::native::ScriptedDesktop>(platform::AnswerList(line.answers), report);
}

ExitStatus run(const CommandLine& line) {
    const auto messages = host::readMessages(line.files, host::importMessage);
    const bool person = line.answers.empty() && isatty(STDIN_FILENO) == 1;
    host::Report report(std::cout, line.json ? host::Report::Format::Json : host::Report::Format::Text,
                        person);
    platform::native::SystemClock clock;
    host::Outlook outlook(host::prepareProfile(line), [&clock] { return clock.now(); });
    host::keepSettingsFolder(line,
                             outlook);  // A file that cannot be written is told of before anything is sent.
    const auto settings = makeSettings(line);
    host::prepareSettings(line, *settings);
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
    host::Session session(line, outlook, report, unanswered);
    const ExitStatus status = session.run(messages);
    session.quit();
    connect.OnDisconnection(hostShutdown);
    host::keepSettingsFolder(line, outlook);
    if (unanswered()) {
        complain(text::toUtf8(*desktop->unanswered()));
        return ExitStatus::UnansweredPrompt;
    }
    return status;
}

ExitStatus obey(const CommandLine& line) {
    switch (line.command) {
        case host::Command::None:
            return complain("no command given; try --help");
        case host::Command::Help:
            std::cout << host::usage();
            return ExitStatus::Done;
        case host::Command::Import:
            std::cout << host::toJson(host::readMessages(line.files, host::importMessage)) << '\n';
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
        status = obey(host::parseCommandLine(words));
    } catch (const std::exception& error) {
        complain(error.what());
    }
    return static_cast<int>(status);
}
