#pragma once

#include <windows.h>

#include <string>

#include "platform/Prompts.h"
#include "platform/formLists.h"

/// The part of dialogDriver that sees and moves lists.
namespace robot::listDriver {

/// Fills in caption and value, as the control of that kind itself gives them.
void describe(HWND control, forms::Kind kind, platform::ControlState& state);
/// Selects or ticks as the user does; false when the list has no such entry or row.
bool enter(HWND control, forms::Kind kind, const std::wstring& value);

}  // namespace robot::listDriver
