#pragma once

#include <string>

#include "platform/automation.h"

namespace host {

/// "Monday, January 1, 2024 12:00 PM", as Outlook writes the time into a quoted header.
std::wstring longDate(automation::Date date);

}  // namespace host
