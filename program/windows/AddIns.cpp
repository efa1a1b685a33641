#include "program/windows/AddIns.h"

namespace program::windows {

using host::windows::LoadedAddIn;
using host::windows::RegisteredAddIn;
using platform::windows::ConnectMode;
using platform::windows::RemoveMode;

AddIns::AddIns(const std::vector<RegisteredAddIn>& registered, host::Outlook& outlook,
               platform::windows::Exporter& exporter, Report& report)
    : report_(report) {
    for (const RegisteredAddIn& addIn : registered) {
        try {
            auto loaded = std::make_unique<LoadedAddIn>(addIn.progId);
            const auto instance = outlook.makeAddIn(addIn.progId, addIn.description);
            loaded->connect(exporter.exportObject(outlook.application()).get(), ConnectMode::Startup,
                            exporter.exportObject(instance).get());
            loaded->startupComplete();
            loaded_.push_back(std::move(loaded));
        } catch (const automation::Error& error) {
            report_.error(addIn.progId + L": " + error.description());
        }
    }
}

void AddIns::disconnect() {
    for (const auto& addIn : loaded_) {
        try {
            addIn->beginShutdown();
            addIn->disconnect(RemoveMode::HostShutdown);
        } catch (const automation::Error& error) {
            report_.error(L"OnDisconnection: " + error.description());
        }
    }
    loaded_.clear();
}

}  // namespace program::windows
