#pragma once

#include <windows.h>

#include <string>

namespace platform::windows {

/// The module that this code is part of: the add-in's DLL, not the program that loaded it.
HMODULE ownModule() noexcept;

/// The full path of a loaded module's file. Throws std::bad_alloc or automation::Error.
std::wstring modulePath(HMODULE module);

}  // namespace platform::windows
