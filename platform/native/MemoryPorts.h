#pragma once

#include <string>
#include <utility>

#include "platform/MemorySettingsStore.h"
#include "platform/Platform.h"
#include "platform/native/FakeRegistry.h"
#include "platform/native/FileResources.h"
#include "platform/native/FixedSystemInfo.h"
#include "platform/native/PromptedDesktop.h"
#include "platform/native/ScriptedHttp.h"

namespace platform::native {

/// The ports of a native world, with those in memory that it is not given. What it is given outlives it.
struct MemoryPorts {
    /// `store` takes the place of `settings`, and `http` that of `web`. The resource library is looked for in
    /// `addInFolder`.
    MemoryPorts(automation::Automation& automation, PromptedDesktop& desktop, Clock& clock,
                SettingsStore* store = nullptr, std::wstring addInFolder = L".", Http* http = nullptr)
        : web(desktop.events()),
          system(std::move(addInFolder)),
          platform{automation, desktop, store ? *store : settings, registry, resources,
                   clock,      system,  http ? *http : web} {}
    MemoryPorts(const MemoryPorts&) = delete;
    MemoryPorts& operator=(const MemoryPorts&) = delete;

    MemorySettingsStore settings;
    FakeRegistry registry;
    FileResources resources;
    ScriptedHttp web;
    FixedSystemInfo system;
    Platform platform;
};

}  // namespace platform::native
