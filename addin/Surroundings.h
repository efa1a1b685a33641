#pragma once

#include "mail/Globals.h"
#include "mail/Trace.h"
#include "platform/Platform.h"
#include "settings/AlertingDesktop.h"

namespace addin {

/// What the add-in has for itself in the process that made it: Outlook's, or Word's where Word edits the
/// mails.
struct Surroundings {
    /// The world of the ports outlives this.
    explicit Surroundings(const platform::Platform& ports)
        : trace(ports.system),
          desktop(ports.desktop, globals),
          platform{ports.automation, desktop,     ports.settings, ports.registry,
                   ports.resources,  ports.clock, ports.system,   ports.http},
          globals(platform) {}

    /// This thread's while the add-in lives: made before what it hears of, and gone after.
    mail::Trace trace;
    settings::AlertingDesktop desktop;
    /// The ports with that desktop.
    platform::Platform platform;
    mail::Globals globals;
};

}  // namespace addin
