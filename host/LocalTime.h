#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/automation.h"
#include "platform/civilTime.h"

namespace host {

using platform::CivilTime;
using platform::toCivilTime;
using platform::toDate;

/// "2024-05-01T09:30:00".
std::string toIsoTime(automation::Date date);
/// Nothing when the text is no such time.
std::optional<automation::Date> parseIsoTime(std::string_view text);

}  // namespace host
