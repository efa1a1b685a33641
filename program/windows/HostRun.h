#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "host/windows/OutlookServer.h"
#include "host/windows/PrivateUser.h"
#include "host/windows/WordProcess.h"
#include "platform/windows/LiveObjects.h"
#include "platform/windows/WindowsClock.h"
#include "program/CommandLine.h"
#include "program/FileSettingsStore.h"
#include "program/Report.h"
#include "program/files.h"
#include "program/windows/AddIns.h"
#include "program/windows/UpdateService.h"
#include "robot/dialogDriver.h"

namespace program::windows {

/// A simulated Outlook from start to end, shown to COM, with settings of its own and the add-ins that are
/// registered on this machine. Needs a single-threaded apartment.
class HostRun {
  public:
    /// `line` outlives the run. Throws std::exception with the reason when it cannot start.
    explicit HostRun(const CommandLine& line);
    ~HostRun();
    HostRun(const HostRun&) = delete;
    HostRun& operator=(const HostRun&) = delete;

    host::Outlook& outlook() { return outlook_; }
    automation::Date now() { return {clock_.now().days + line_.daysLater}; }
    /// Connects the add-ins; they may prompt. Throws std::runtime_error when none can be loaded.
    /// `loaded` is called before an add-in is connected, when it is in memory.
    void connect(Report& report, const std::function<void()>& loaded);
    void disconnect();
    /// Writes the settings and the items of the settings folder back to the files that the command line
    /// names.
    void keepState();

  private:
    const CommandLine& line_;
    std::vector<host::windows::RegisteredAddIn> registered_;
    std::optional<FileLock> folderLock_;
    std::optional<FileSettingsStore> settingsFile_;
    platform::windows::WindowsClock clock_;
    host::Outlook outlook_;
    platform::windows::LiveObjects liveObjects_;
    std::shared_ptr<platform::windows::Exporter> exporter_;
    host::windows::OutlookServer server_;
    std::optional<UpdateService> service_;
    host::windows::PrivateUser user_;
    std::unique_ptr<AddIns> addIns_;
    host::windows::WordProcess word_{*exporter_, [this] { return now(); },
                                     &robot::dialogDriver::watchProcess};
};

}  // namespace program::windows
