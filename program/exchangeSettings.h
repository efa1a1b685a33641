#pragma once

#include "program/CommandLine.h"
#include "program/ExitStatus.h"

namespace program {

/// Obeys "settings export" and "settings import" by the add-in's own routines; no Outlook is needed. What
/// could not be done is told in a line.
ExitStatus exchangeSettings(const CommandLine& line);

}  // namespace program
