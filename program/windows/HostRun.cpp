#include "program/windows/HostRun.h"

#include <stdexcept>

#include "platform/text.h"
#include "platform/windows/RegistrySettingsStore.h"
#include "program/Console.h"
#include "program/Session.h"
#include "program/SettingsFolder.h"
#include "robot/importTable.h"

namespace program::windows {

HostRun::HostRun(const CommandLine& line)
    : line_(line),
      // Where the add-ins of the present user are registered is out of sight once the user is replaced.
      registered_(host::windows::registeredAddIns()),
      folderLock_(holdSettingsFolder(
          line,
          [&line] { complain("waiting for another run that uses " + text::toUtf8(*line.folderFile)); })),
      outlook_(prepareProfile(line), [this] { return now(); }),
      exporter_(platform::windows::Exporter::make(liveObjects_)),
      server_(outlook_, exporter_) {
    if (line.service) {
        service_.emplace(*line.service);
    }
    platform::windows::RegistrySettingsStore settings;
    if (line.settingsFile) {
        settingsFile_.emplace(pathOf(*line.settingsFile));
        for (const auto& [key, value] : settingsFile_->all()) {
            settings.write(key, value);
        }
    }
    prepareSettings(line, settings);
    keepState();
    outlook_.runMacrosBy([this](const std::wstring& templatePath, const std::wstring& macro,
                                std::span<const automation::Value> arguments) {
        return word_.run(templatePath, macro, arguments);
    });
}

HostRun::~HostRun() {
    outlook_.runMacrosBy(nullptr);
}

void HostRun::connect(Report& report, const std::function<void()>& loaded) {
    if (registered_.empty()) {
        throw std::runtime_error("no add-in is registered with Outlook on this machine");
    }
    addIns_ = std::make_unique<AddIns>(registered_, outlook_, *exporter_, report, [&] {
        robot::tellProgramVersion(outlook_.version());
        loaded();
    });
    if (!addIns_->any()) {
        throw std::runtime_error("no add-in could be loaded");
    }
}

void HostRun::disconnect() {
    if (addIns_) {
        addIns_->disconnect();
    }
}

void HostRun::keepState() {
    keepSettingsFolder(line_, outlook_);
    if (!settingsFile_) {
        return;
    }
    for (const auto& [key, value] : host::windows::PrivateUser::settings()) {
        if (settingsFile_->read(key) != value) {
            settingsFile_->write(key, value);
        }
    }
}

}  // namespace program::windows
