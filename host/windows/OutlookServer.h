#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "host/Outlook.h"
#include "platform/windows/Exporter.h"

namespace host::windows {

/// Shows a simulated Outlook to COM: its application object as the running Outlook, which other processes
/// find and create too, the Word that it has started as the running Word, and its classes, Redemption's and
/// Word's included, to everything in this process. ProgIDs that the machine does not know are registered for
/// as long as this lives; those that a killed host left are deleted.
///
/// Lives in a single-threaded apartment and no longer than the Outlook. An add-in registered for the present
/// user stays visible only if HKEY_CURRENT_USER is replaced after this was made and restored before it ends.
class OutlookServer {
  public:
    /// Throws automation::Error when COM or the registry refuses.
    OutlookServer(Outlook& outlook, std::shared_ptr<platform::windows::Exporter> exporter);
    OutlookServer(const OutlookServer&) = delete;
    OutlookServer& operator=(const OutlookServer&) = delete;
    ~OutlookServer();

  private:
    class ProgId;
    struct Class;

    void wordRuns(const automation::Object& word);

    Outlook& outlook_;
    std::shared_ptr<platform::windows::Exporter> exporter_;
    std::vector<std::unique_ptr<Class>> classes_;
    DWORD running_ = 0;
    /// Word's, 0 while it does not run.
    DWORD wordRunning_ = 0;
};

}  // namespace host::windows
