#pragma once

#include <string>
#include <utility>

#include "platform/MemorySettingsStore.h"
#include "platform/Platform.h"
#include "platform/native/FakeRegistry.h"
#include "platform/native/FileResources.h"
#include "platform/native/FixedSystemInfo.h"

namespace platform::native {

/// The ports of a native world, with those in memory that it is not given. What it is given outlives it.
struct MemoryPorts {
    /// `store` takes the place of `settings`. The resource library is looked for in `addInFolder`.
    MemoryPorts(automation::Automation& automation, Desktop& desktop, Clock& clock,
                SettingsStore* store = nullptr, std::wstring addInFolder = L".")
        : system(std::move(addInFolder)), platform{automation, desktop,   store ? *store : settings,
                                                   registry,   resources, clock,
                                                   system} {}
    MemoryPorts(const MemoryPorts&) = delete;
    MemoryPorts& operator=(const MemoryPorts&) = delete;

    MemorySettingsStore settings;
    FakeRegistry registry;
    FileResources resources;
    FixedSystemInfo system;
    Platform platform;
};

}  // namespace platform::native
