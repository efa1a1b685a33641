#pragma once

#include "platform/Clock.h"
#include "platform/Desktop.h"
#include "platform/Http.h"
#include "platform/MachineRegistry.h"
#include "platform/ResourceModule.h"
#include "platform/SettingsStore.h"
#include "platform/SystemInfo.h"
#include "platform/automation.h"

namespace platform {

/// Everything the add-in needs of the world it runs in. The world that makes it outlives the add-in.
struct Platform {
    automation::Automation& automation;
    Desktop& desktop;
    SettingsStore& settings;
    MachineRegistry& registry;
    ResourceModule& resources;
    Clock& clock;
    SystemInfo& system;
    Http& http;
};

}  // namespace platform
