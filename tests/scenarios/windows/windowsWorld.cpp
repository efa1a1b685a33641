#include <windows.h>

#include <filesystem>
#include <fstream>

#include "host/windows/AddInLoader.h"
#include "host/windows/OutlookServer.h"
#include "host/windows/PrivateUser.h"
#include "host/windows/WordProcess.h"
#include "platform/windows/Exporter.h"
#include "platform/windows/LiveObjects.h"
#include "platform/windows/RegKey.h"
#include "platform/windows/RegistrySettingsStore.h"
#include "platform/windows/ownModule.h"
#include "program/windows/DebugListener.h"
#include "robot/DialogRobot.h"
#include "robot/dialogDriver.h"
#include "robot/importTable.h"
#include "robot/messageWindows.h"
#include "tests/scenarios/AddInWorld.h"

namespace {

using namespace platform::windows;

class Apartment {
  public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Apartment() { CoUninitialize(); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

/// The machine-wide presets while a scenario runs.
class Presets {
  public:
    explicit Presets(const std::map<std::wstring, std::wstring>& values) {
        if (values.empty()) {
            return;
        }
        RegKey key;
        key.create(HKEY_LOCAL_MACHINE, path);
        for (const auto& [name, value] : values) {
            key.setText(name, value);
        }
    }
    ~Presets() { deleteKeyTree(HKEY_LOCAL_MACHINE, path); }
    Presets(const Presets&) = delete;
    Presets& operator=(const Presets&) = delete;

  private:
    static constexpr const wchar_t* path = L"SOFTWARE\\Corvane\\Veltro";
};

/// Other bytes in a file beside the add-in while a scenario runs, or no such file when they are empty.
/// Without bytes it stays as it is.
class FileBesideAddIn {
  public:
    FileBesideAddIn(const wchar_t* name, const std::optional<std::string>& bytes)
        : file_(addInFolder() / name), away_(file_.wstring() + L".away"), replaced_(bytes.has_value()) {
        if (replaced_ && std::filesystem::exists(file_)) {
            std::filesystem::rename(file_, away_);
        }
        if (replaced_ && !bytes->empty()) {
            std::ofstream(file_, std::ios::binary) << *bytes;
        }
    }
    ~FileBesideAddIn() {
        if (replaced_) {
            std::error_code notThere;
            std::filesystem::remove(file_, notThere);
            std::filesystem::rename(away_, file_, notThere);
        }
    }
    FileBesideAddIn(const FileBesideAddIn&) = delete;
    FileBesideAddIn& operator=(const FileBesideAddIn&) = delete;

  private:
    std::filesystem::path file_;
    std::filesystem::path away_;
    bool replaced_;
};

/// Has a class be unknown to COM while a scenario runs.
class HiddenClass {
  public:
    HiddenClass(const wchar_t* progId, bool hides)
        : path_(std::wstring(L"Software\\Classes\\") + progId + L"\\CLSID") {
        RegKey key;
        if (hides && key.open(HKEY_LOCAL_MACHINE, path_, KEY_READ) == ERROR_SUCCESS) {
            id_ = key.text(L"");
            key.close();
            deleteKeyTree(HKEY_LOCAL_MACHINE, path_);
        }
    }
    ~HiddenClass() {
        RegKey key;
        if (id_ && key.create(HKEY_LOCAL_MACHINE, path_) == ERROR_SUCCESS) {
            key.setText(L"", *id_);
        }
    }
    HiddenClass(const HiddenClass&) = delete;
    HiddenClass& operator=(const HiddenClass&) = delete;

  private:
    std::wstring path_;
    std::optional<std::wstring> id_;
};

/// Keeps the add-in's DLL in memory till the end of the tests. Each time that it is unloaded, the compiler's
/// run-time library leaves one of the process's 1088 slots of thread-local storage behind: nothing for an
/// Outlook, too much for some thousand scenarios.
void keepLoaded() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"Veltro.dll", &module);
}

/// Runs on the robot's thread, while the scenario's waits inside the dialog.
template <class Prompt, class PromptAnswer, class Report>
PromptAnswer report(const Prompt& prompt, PromptAnswer answer, platform::PromptObserver& observer,
                    Report call) {
    (observer.*call)(prompt, answer);
    return answer;
}

class WindowsWorld : public AddInWorld {
  public:
    WindowsWorld(host::Outlook& outlook, const Given& given, platform::AnswerList answers,
                 platform::PromptObserver& observer)
        : now_(given.now),
          observer_(observer),
          resources_(L"Resource.dll", given.resourceLibrary ? std::nullopt : std::optional("")),
          introduction_(L"Introducing_Veltro.msg", given.introduction),
          wordTemplate_(L"Veltro.dot", given.wordTemplate),
          buttons_(L"Veltro.Buttons", !given.buttonsRegistered),
          settingsFile_(L"Veltro_Settings.ini", given.settingsFile),
          presets_(given.presets),
          outlook_(outlook),
          exporter_(Exporter::make(liveObjects_)),
          server_(outlook, exporter_),
          application_(exporter_->exportObject(outlook.automation().createObject(L"Outlook.Application"))),
          shownBefore_(exporter_->liveAdapters()),
          answers_(std::move(answers)),
          robot_({.message =
                      [this, &observer](const platform::MessagePrompt& prompt) {
                          return report(prompt, answers_.take(prompt), observer,
                                        &platform::PromptObserver::message);
                      },
                  .form =
                      [this, &observer](const platform::FormPrompt& prompt) {
                          auto answer = answers_.take(prompt);
                          return !answer && prompt.waits ? answer
                                                         : report(prompt, std::move(answer), observer,
                                                                  &platform::PromptObserver::form);
                      },
                  .folder =
                      [this, &observer](const platform::FolderPrompt& prompt) {
                          return report(prompt, answers_.take(prompt), observer,
                                        &platform::PromptObserver::folder);
                      }}) {
        for (const auto& [key, value] : given.settings) {
            settings_.write(key, value);
        }
        outlook_.runMacrosBy([this](const std::wstring& templatePath, const std::wstring& macro,
                                    std::span<const automation::Value> arguments) {
            return word_.run(templatePath, macro, arguments);
        });
    }
    ~WindowsWorld() override {
        outlook_.dropRibbons();
        robot::dialogDriver::watchProcess(0);
        outlook_.runMacrosBy(nullptr);
    }

    bool connect() override {
        try {
            addIn_.emplace(L"Veltro.Connect");
            keepLoaded();
            robot::stopClockOfAddIn(now_);
            robot::catchOpening([this](const std::wstring& what) { opened(what); });
            robot::tellProgramVersion(outlook_.version());
            if (auto ribbon = addIn_->ribbon(*exporter_)) {
                outlook_.addRibbon(std::move(*ribbon));
            }
            addIn_->connect(exporter_->exportObject(outlook_.application()).get(), ConnectMode::Startup,
                            exporter_->exportObject(outlook_.makeAddIn(L"Veltro.Connect")).get());
            addIn_->startupComplete();
            return true;
        } catch (const automation::Error&) {
            return false;
        }
    }

    void disconnect(int removeMode) override {
        if (addIn_) {
            addIn_->beginShutdown();
            addIn_->disconnect(static_cast<RemoveMode>(removeMode));
            addIn_.reset();
        }
    }

    std::optional<std::wstring> setting(const std::wstring& key) override { return settings_.read(key); }
    void set(const std::wstring& key, const std::wstring& value) override { settings_.write(key, value); }
    void settle() override { robot::settleAddIn(); }
    bool fireTimer() override { return robot::fireTimer(); }
    void setNow(automation::Date now) override {
        now_ = now;
        robot::stopClockOfAddIn(now);
    }
    void killWord() override { word_.kill(); }
    std::optional<std::wstring> unanswered() override { return robot_.unanswered(); }
    std::size_t heldObjects() override {
        outlook_.endWord();  // Running objects are held by the system's table of them.
        return exporter_->liveAdapters() - shownBefore_;
    }
    std::vector<std::string> debugLines() override { return debugger_.lines(); }

  private:
    void opened(const std::wstring& what) {
        if (const auto address = platform::WebAddress::parse(what)) {
            observer_.opened(*address);
        } else {
            observer_.started(what);
        }
    }

    automation::Date now_;
    platform::PromptObserver& observer_;
    Apartment apartment_;
    FileBesideAddIn resources_;
    FileBesideAddIn introduction_;
    FileBesideAddIn wordTemplate_;
    HiddenClass buttons_;
    FileBesideAddIn settingsFile_;
    Presets presets_;
    host::Outlook& outlook_;
    LiveObjects liveObjects_;
    std::shared_ptr<Exporter> exporter_;
    host::windows::OutlookServer server_;
    /// As other processes get it; the system does not let go of what a killed one has held.
    platform::windows::ComPtr<IDispatch> application_;
    std::size_t shownBefore_;
    host::windows::PrivateUser user_;
    program::windows::DebugListener debugger_;
    RegistrySettingsStore settings_;
    platform::AnswerList answers_;
    robot::DialogRobot robot_;
    std::optional<host::windows::LoadedAddIn> addIn_;
    host::windows::WordProcess word_{*exporter_, [this] { return now_; }, &robot::dialogDriver::watchProcess};
};

}  // namespace

std::filesystem::path addInFolder() {
    return std::filesystem::path(modulePath(nullptr)).parent_path();
}

std::unique_ptr<AddInWorld> makeAddInWorld(host::Outlook& outlook, const Given& given,
                                           platform::AnswerList answers, platform::PromptObserver& observer) {
    return std::make_unique<WindowsWorld>(outlook, given, std::move(answers), observer);
}
