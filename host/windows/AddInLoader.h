#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "host/RibbonCommand.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/Exporter.h"
#include "platform/windows/extensibility.h"

namespace host::windows {

/// An add-in that Outlook would load at its start.
struct RegisteredAddIn {
    std::wstring progId;
    std::wstring friendlyName;
    std::wstring description;
};

/// The add-ins with load behaviour 3, first the user's, then the machine's; one that is in both is the
/// user's.
std::vector<RegisteredAddIn> registeredAddIns();

/// A loaded add-in, called as Outlook calls it. The calls throw automation::Error when the add-in fails.
class LoadedAddIn {
  public:
    /// Makes the add-in's object. Throws automation::Error when the class cannot be made or is no add-in.
    explicit LoadedAddIn(const std::wstring& progId);

    /// What it offers for the ribbon; nothing for one that has no such interface. It holds the add-in's
    /// object.
    std::optional<RibbonAddIn> ribbon(platform::windows::Exporter& exporter) const;
    void connect(IDispatch* application, platform::windows::ConnectMode mode, IDispatch* addInInstance);
    void startupComplete();
    void beginShutdown();
    void disconnect(platform::windows::RemoveMode mode);

  private:
    platform::windows::ComPtr<platform::windows::IDTExtensibility2> addIn_;
};

}  // namespace host::windows
