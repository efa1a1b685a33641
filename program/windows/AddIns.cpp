#include "program/windows/AddIns.h"

namespace program::windows {

using host::windows::LoadedAddIn;
using host::windows::RegisteredAddIn;
using platform::windows::ConnectMode;
using platform::windows::RemoveMode;

AddIns::AddIns(const std::vector<RegisteredAddIn>& registered, host::Outlook& outlook,
               platform::windows::Exporter& exporter, Report& report, const std::function<void()>& loaded)
    : report_(report), outlook_(outlook) {
    for (const RegisteredAddIn& addIn : registered) {
        try {
            auto made = std::make_unique<LoadedAddIn>(addIn.progId);
            loaded();
            if (auto ribbon = made->ribbon(exporter)) {
                outlook.addRibbon(std::move(*ribbon));
            }
            const auto instance = outlook.makeAddIn(addIn.progId, addIn.description);
            made->connect(exporter.exportObject(outlook.application()).get(), ConnectMode::Startup,
                          exporter.exportObject(instance).get());
            made->startupComplete();
            loaded_.push_back(std::move(made));
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
    outlook_.dropRibbons();
    loaded_.clear();
}

}  // namespace program::windows
