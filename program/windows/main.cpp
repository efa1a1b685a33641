/// The simulated Outlook on Windows: loads the add-in that is registered on this machine, as Outlook does.
/// Started without a command it shows a window.

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <objbase.h>

#include <algorithm>
#include <cwchar>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "host/windows/MainWindow.h"
#include "platform/text.h"
#include "program/Console.h"
#include "program/Session.h"
#include "program/exchangeSettings.h"
#include "program/windows/DebugListener.h"
#include "program/windows/HostRun.h"
#include "program/windows/commandLineWords.h"
#include "program/windows/sampleMail.h"
#include "robot/DialogRobot.h"
#include "robot/importTable.h"
#include "robot/messageWindows.h"

namespace {

using program::CommandLine;
using program::ExitStatus;

/// The main thread's single-threaded apartment.
class Apartment {
  public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { CoUninitialize(); }
};

bool startedAtConsole() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
}

/// Milliseconds for which each dialog stays up before it is answered from the command line: time to see it,
/// or to take a picture of it. The environment variable VELTRO_HOST_PAUSE says how many.
DWORD pauseBeforeAnswer() {
    constexpr DWORD room = 12;
    wchar_t number[room] = L"";
    // A number that does not fit leaves the buffer in no known state.
    const DWORD length = GetEnvironmentVariableW(L"VELTRO_HOST_PAUSE", number, room);
    return length < room ? static_cast<DWORD>(std::wcstoul(number, nullptr, 10)) : 0;
}

/// Answers the dialogs from the command line, and reports them.
robot::DialogRobot::Answers scripted(platform::AnswerList& answers, program::Report& report) {
    return {[&](const platform::MessagePrompt& prompt) {
                Sleep(pauseBeforeAnswer());
                const auto answer = answers.take(prompt);
                report.message(prompt, answer);
                return answer;
            },
            [&](const platform::FormPrompt& prompt) {
                Sleep(pauseBeforeAnswer());
                const auto answer = answers.take(prompt);
                if (answer || !prompt.waits) {
                    report.form(prompt, answer);
                }
                return answer;
            },
            [&](const platform::FolderPrompt& prompt) {
                Sleep(pauseBeforeAnswer());
                const auto answer = answers.take(prompt);
                report.folder(prompt, answer);
                return answer;
            }};
}

void tellOpened(program::Report& report, const std::wstring& what) {
    if (const auto address = platform::WebAddress::parse(what)) {
        report.opened(*address);
    } else {
        report.started(what);
    }
}

ExitStatus runCommand(const CommandLine& line) {
    const bool person = line.answers.empty() && startedAtConsole();
    program::Report report(
        std::cout, line.json ? program::Report::Format::JsonLines : program::Report::Format::Text, person);
    const program::ReadFiles read = program::readFiles(line, nullptr, &report);
    if (read.messages.empty() && read.status != ExitStatus::Done) {
        return read.status;
    }
    program::windows::HostRun host(line);
    platform::AnswerList answers(line.answers);
    std::optional<robot::DialogRobot> robot;
    if (!person) {
        robot.emplace(scripted(answers, report));
    }
    const auto unanswered = [&robot] { return robot && robot->unanswered().has_value(); };
    std::optional<program::windows::DebugListener> trace;
    if (line.trace) {
        trace.emplace();
    }
    host.connect(report, [&] {
        if (line.daysLater != 0) {
            robot::moveClockOfAddIn(line.daysLater);
        }
        if (!person) {
            robot::catchOpening([&report](const std::wstring& what) { tellOpened(report, what); });
        }
    });
    program::Session session(line, host.outlook(), report, unanswered, &robot::settleAddIn);
    const ExitStatus status = session.run(read.messages);
    session.quit();
    host.disconnect();
    if (trace) {
        report.skipped(trace->lines());
    }
    host.keepState();
    program::tellUnused(answers.unused());
    if (unanswered()) {
        program::complain(text::toUtf8(*robot->unanswered()));
        return ExitStatus::UnansweredPrompt;
    }
    return std::max(read.status, status);
}

ExitStatus runWindow(const CommandLine& line) {
    DWORD console = 0;
    if (GetConsoleProcessList(&console, 1) == 1) {
        FreeConsole();  // Windows made it for this program alone.
    }
    program::Report report(std::cout, program::Report::Format::Text, true);
    program::windows::HostRun host(line);
    for (const host::Message& message :
         program::windows::sampleMail(line.accounts.front().address, host.now())) {
        host.outlook().receive(message);
    }
    host.connect(report, [] {});
    {
        const host::windows::MainWindow window(host.outlook());
        host::windows::runMessageLoop();
    }
    program::Session(
        line, host.outlook(), report, [] { return false; }, [] {})
        .quit();
    host.disconnect();
    host.keepState();
    return ExitStatus::Done;
}

ExitStatus obey(const CommandLine& line) {
    program::tellWarnings(line);
    switch (line.command) {
        case program::Command::None:
            return runWindow(line);
        case program::Command::Help:
            std::cout << program::usage();
            return ExitStatus::Done;
        case program::Command::Version:
            std::cout << program::versionText();
            return ExitStatus::Done;
        case program::Command::Import:
            return program::complain(
                "import is for the developer's own machine; it gives JSON, which can be read here");
        case program::Command::ExportSettings:
        case program::Command::ImportSettings:
            return program::exchangeSettings(line);
        default:
            return runCommand(line);
    }
}

}  // namespace

int main() {
    // The same bytes as on every other machine.
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
    ExitStatus status = ExitStatus::BadInput;
    try {
        const Apartment apartment;
        status = obey(program::parseCommandLine(program::windows::commandLineWords()));
    } catch (const automation::Error& error) {
        program::complain(text::toUtf8(error.description()));
    } catch (const std::exception& error) {
        program::complain(error.what());
    }
    return static_cast<int>(program::finish(status));
}
