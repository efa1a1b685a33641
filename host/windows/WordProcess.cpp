#include "host/windows/WordProcess.h"

#include <objbase.h>
#include <oleauto.h>

#include "host/BasicInterpreter.h"
#include "host/VbaProject.h"
#include "host/windows/PrivateUser.h"
#include "platform/FunctionTarget.h"
#include "platform/windows/ComAutomation.h"
#include "platform/windows/comErrors.h"
#include "platform/windows/ownModule.h"

namespace host::windows {

using namespace platform::windows;
using automation::Object;
using automation::Value;

namespace {

constexpr wchar_t programName[] = L"veltro-word.exe";
/// How long the process may take to show itself and to end, in milliseconds.
constexpr DWORD patience = 30000;
constexpr DWORD lookAgain = 20;

std::wstring textOf(const GUID& id) {
    constexpr int room = 40;
    wchar_t text[room];
    return std::wstring(text, static_cast<std::size_t>(StringFromGUID2(id, text, room)) - 1);
}

/// The object that the process has shown under the id; nothing as long as there is none.
ComPtr<IUnknown> shownAs(const GUID& id) {
    ComPtr<IUnknown> found;
    return SUCCEEDED(GetActiveObject(id, nullptr, found.put())) ? found : ComPtr<IUnknown>();
}

/// The macros of a template, for a process that is not Outlook's.
Value runMacro(const std::wstring& templatePath, const std::wstring& macro,
               const automation::Array& arguments, const BasicInterpreter::CreateObject& createObject) {
    const ArgumentCopies copies(arguments);
    return BasicInterpreter(macroModulesOf(templatePath), createObject).run(macro, copies.references());
}

/// Handles this thread's messages, COM's calls among them, until the other process ends or this one is to.
void serveUntilEndOf(HANDLE other) {
    while (MsgWaitForMultipleObjects(1, &other, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                return;
            }
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

}  // namespace

WordProcess::~WordProcess() {
    if (!process_.hProcess) {
        return;
    }
    try {
        macros_.call(L"Quit");
        WaitForSingleObject(process_.hProcess, patience);
    } catch (const automation::Error&) {
        // It has ended already.
    }
    kill();
    release();
}

Value WordProcess::run(const std::wstring& templatePath, const std::wstring& macro,
                       std::span<const Value> arguments) {
    if (!runs()) {
        release();
        start();
    }
    macros_.call(L"StopClock", now_());
    return macros_.call(L"Run", templatePath, macro, automation::Array(arguments.begin(), arguments.end()));
}

void WordProcess::start() {
    GUID id{};
    check(CoCreateGuid(&id));
    const std::wstring program = modulePath(ownModule());
    std::wstring line = L'"' + program.substr(0, program.find_last_of(L'\\') + 1) + programName + L"\" " +
                        textOf(id) + L' ' + std::to_wstring(GetCurrentProcessId());
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process_)) {
        throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
    }
    for (DWORD waited = 0; waited < patience && runs(); waited += lookAgain) {
        if (const auto shown = shownAs(id)) {
            macros_ = exporter_.toObject(shown.get());
            started_(process_.dwProcessId);
            return;
        }
        Sleep(lookAgain);
    }
    kill();
    release();
    throw automation::Error(automation::errors::failed, L"Word does not start.");
}

bool WordProcess::runs() const {
    return process_.hProcess && WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

void WordProcess::kill() {
    if (process_.hProcess) {
        TerminateProcess(process_.hProcess, 1);
        WaitForSingleObject(process_.hProcess, patience);
    }
}

void WordProcess::release() {
    macros_ = {};
    if (process_.hProcess) {
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
        process_ = {};
    }
}

int playWord(std::span<const std::wstring> arguments,
             const std::function<void(automation::Date)>& stopClock) {
    CLSID id{};
    if (arguments.size() != 2 || FAILED(CLSIDFromString(arguments[0].c_str(), &id))) {
        return 2;
    }
    const DWORD outlook = std::wcstoul(arguments[1].c_str(), nullptr, 10);
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, outlook);
    if (!process) {
        return 1;
    }
    const PrivateUser user(outlook);
    LiveObjects objects;
    const auto exporter = Exporter::make(objects);
    ComAutomation automation(exporter);
    automation::Date now;
    const auto createObject = [&](const std::wstring& progId) {
        const Object made = automation.createObject(progId);
        stopClock(now);
        return made;
    };
    using Arguments = std::span<const Value>;
    const Object macros(
        std::make_shared<automation::FunctionTarget>(std::vector<automation::FunctionTarget::Member>{
            {L"StopClock", 1,
             [&](Arguments given) {
                 now = given[0].toDate();
                 return Value();
             }},
            {L"Run", 3,
             [&](Arguments given) {
                 return runMacro(given[0].toText(), given[1].toText(), given[2].toArray(), createObject);
             }},
            {L"Quit", 0,
             [](Arguments) {
                 PostQuitMessage(0);
                 return Value();
             }},
        }));
    DWORD shown = 0;
    check(RegisterActiveObject(exporter->exportObject(macros).get(), id, ACTIVEOBJECT_STRONG, &shown));
    serveUntilEndOf(process);
    RevokeActiveObject(shown, nullptr);
    CloseHandle(process);
    return 0;
}

}  // namespace host::windows
