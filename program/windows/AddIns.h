#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/Outlook.h"
#include "host/windows/AddInLoader.h"
#include "platform/windows/Exporter.h"
#include "program/Report.h"

namespace program::windows {

/// The machine's registered add-ins, connected to a simulated Outlook as Outlook connects them. What an
/// add-in fails at is reported and not raised: Outlook goes on without it. `loaded` is called when one is in
/// memory and not yet connected.
class AddIns {
  public:
    AddIns(const std::vector<host::windows::RegisteredAddIn>& registered, host::Outlook& outlook,
           platform::windows::Exporter& exporter, Report& report, const std::function<void()>& loaded);
    AddIns(const AddIns&) = delete;
    AddIns& operator=(const AddIns&) = delete;

    bool any() const { return !loaded_.empty(); }
    void disconnect();

  private:
    Report& report_;
    host::Outlook& outlook_;
    std::vector<std::unique_ptr<host::windows::LoadedAddIn>> loaded_;
};

}  // namespace program::windows
