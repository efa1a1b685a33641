#pragma once

#include <memory>

#include "platform/Platform.h"
#include "platform/windows/ComAutomation.h"
#include "platform/windows/Exporter.h"
#include "platform/windows/LiveObjects.h"
#include "platform/windows/RegistrySettingsStore.h"
#include "platform/windows/WinInetHttp.h"
#include "platform/windows/WindowsClock.h"
#include "platform/windows/WindowsDesktop.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsResources.h"
#include "platform/windows/WindowsSystemInfo.h"

namespace platform::windows {

/// The ports of a process on Windows. Made and used in a single-threaded apartment; must outlive what uses
/// platform().
class WindowsPlatform {
  public:
    /// `liveObjects` counts the COM objects that are made on the way.
    explicit WindowsPlatform(LiveObjects& liveObjects)
        : exporter_(Exporter::make(liveObjects)), automation_(exporter_) {}
    WindowsPlatform(const WindowsPlatform&) = delete;
    WindowsPlatform& operator=(const WindowsPlatform&) = delete;

    Platform& platform() noexcept { return platform_; }
    /// Turns COM's objects into automation objects and back.
    Exporter& exporter() noexcept { return *exporter_; }

  private:
    std::shared_ptr<Exporter> exporter_;
    ComAutomation automation_;
    OwnerLock owner_ = [this] { return exporter_->owner(); };
    WindowsDesktop desktop_{owner_};
    RegistrySettingsStore settings_;
    WindowsRegistry registry_;
    WindowsResources resources_;
    WindowsClock clock_;
    WindowsSystemInfo system_;
    WinInetHttp http_{owner_};
    Platform platform_{automation_, desktop_, settings_, registry_, resources_, clock_, system_, http_};
};

}  // namespace platform::windows
