#pragma once

#include <cstdint>

#include "platform/automation.h"

namespace host {

/// A MAPI property tag as callers give it: tags from 0x80000000 on arrive as negative integers or as doubles.
/// Throws automation::Error 13 for anything else.
std::uint32_t mapiTag(const automation::Value& value);

}  // namespace host
