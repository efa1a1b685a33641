#include <filesystem>

#include "addin/Buttons.h"
#include "addin/Connect.h"
#include "platform/native/CurlHttp.h"
#include "platform/native/MemoryPorts.h"
#include "platform/native/ScriptedDesktop.h"
#include "platform/native/SystemClock.h"
#include "platform/text.h"
#include "tests/TemporaryFolder.h"
#include "tests/scenarios/AddInWorld.h"
#include "tests/scenarios/native/CountedObjects.h"

namespace {

/// A folder of this world's own for the add-in: other tests run beside this one.
class AddInFolder {
  public:
    explicit AddInFolder(const Given& setup) {
        if (setup.settingsFile) {
            folder_.write("Veltro_Settings.ini", *setup.settingsFile);
        }
        take("Tags.txt", std::nullopt);
        take("Resource.dll", setup.resourceLibrary ? std::nullopt : std::optional(""));
        take("Introducing_Veltro.msg", setup.introduction);
        take("Veltro.dot", setup.wordTemplate);
    }
    std::wstring path() const { return folder_.file(".").wstring(); }

  private:
    void take(const char* name, const std::optional<std::string>& bytes) {
        if (!bytes) {
            std::filesystem::create_symlink(addInFolder() / name, folder_.file(name));
        } else if (!bytes->empty()) {
            folder_.write(name, *bytes);
        }
    }

    TemporaryFolder folder_;
};

class NativeWorld : public AddInWorld {
  public:
    NativeWorld(host::Outlook& outlook, const Given& setup, platform::AnswerList answers,
                platform::PromptObserver& observer)
        : outlook_(outlook),
          objects_(outlook.automation()),
          desktop_(std::move(answers), observer),
          clock_(setup.now),
          folder_(setup),
          http_(desktop_.events()),
          ports_(objects_, desktop_, clock_, nullptr, folder_.path(), &http_) {
        if (setup.buttonsRegistered) {
            outlook_.registerForMacros(L"Veltro.Buttons", [this] { return makeButtons(); });
        }
        for (const auto& [key, value] : setup.settings) {
            ports_.settings.write(key, value);
        }
        for (const auto& [name, value] : setup.presets) {
            ports_.registry.setText(platform::RootKey::LocalMachine, L"SOFTWARE\\Corvane\\Veltro", name,
                                    value);
        }
    }

    ~NativeWorld() override { outlook_.dropRibbons(); }

    bool connect() override {
        ports_.system.program = outlook_.version();
        outlook_.addRibbon(
            {[this](const std::wstring& ribbonId) { return connection_.GetCustomUI(ribbonId); },
             objects_.countingArguments(connection_.ribbonCallbacks())});
        try {
            connection_.OnConnection(objects_.counted(outlook_.application()), 1,
                                     objects_.counted(outlook_.makeAddIn(L"Veltro.Connect")));
            return true;
        } catch (const automation::Error&) {
            return false;
        }
    }
    void disconnect(int removeMode) override { connection_.OnDisconnection(removeMode); }
    std::optional<std::wstring> setting(const std::wstring& key) override {
        return ports_.settings.read(key);
    }
    void set(const std::wstring& key, const std::wstring& value) override {
        ports_.settings.write(key, value);
    }
    void settle() override { desktop_.events().settle(); }
    bool fireTimer() override { return desktop_.events().fireTimer(); }
    void setNow(automation::Date now) override { clock_.set(now); }
    void killWord() override {
        outlook_.endWord();
        if (const auto process = word_.lock()) {
            process->objects.lose();
        }
    }
    std::optional<std::wstring> unanswered() override { return desktop_.unanswered(); }
    std::size_t heldObjects() override {
        const auto process = word_.lock();
        return objects_.count() + (process ? process->objects.count() : 0);
    }
    std::vector<std::string> debugLines() override { return ports_.system.debugLines(); }

  private:
    /// The add-in's part in Word's process: what it reaches of Outlook is not what the other part reaches.
    struct WordProcess {
        WordProcess(host::Outlook& outlook, NativeWorld& world)
            : objects(outlook.automation()),
              ports(objects, world.desktop_, world.clock_, &world.ports_.settings, world.folder_.path()),
              buttons(ports.platform) {}

        CountedObjects objects;
        platform::native::MemoryPorts ports;
        addin::Buttons buttons;
    };

    automation::Object makeButtons() {
        const auto process = std::make_shared<WordProcess>(outlook_, *this);
        word_ = process;
        return addin::Buttons::object({process, &process->buttons});
    }

    host::Outlook& outlook_;
    CountedObjects objects_;
    platform::native::ScriptedDesktop desktop_;
    platform::native::SetClock clock_;
    AddInFolder folder_;
    platform::native::CurlHttp http_;
    platform::native::MemoryPorts ports_;
    std::weak_ptr<WordProcess> word_;
    addin::Connect connection_{ports_.platform};
};

}  // namespace

std::filesystem::path addInFolder() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

std::unique_ptr<AddInWorld> makeAddInWorld(host::Outlook& outlook, const Given& setup,
                                           platform::AnswerList answers, platform::PromptObserver& observer) {
    return std::make_unique<NativeWorld>(outlook, setup, std::move(answers), observer);
}
