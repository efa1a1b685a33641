#pragma once

#include <windows.h>

#include <string>

namespace server {

// {77FDA4DD-F8B7-45DE-9324-31C913538BA5}
inline constexpr CLSID connectClass = {
    0x77FDA4DD, 0xF8B7, 0x45DE, {0x93, 0x24, 0x31, 0xC9, 0x13, 0x53, 0x8B, 0xA5}};

// {697A9D62-0FD6-4831-AC1A-44B2D8E14F22}
inline constexpr CLSID buttonsClass = {
    0x697A9D62, 0x0FD6, 0x4831, {0xAC, 0x1A, 0x44, 0xB2, 0xD8, 0xE1, 0x4F, 0x22}};

/// Registers the classes and the add-in: for the machine when its registry may be written, else for the user.
/// What the user had registered for himself goes when the machine's takes its place. `path` is the DLL's.
/// When the registry cannot be written nothing is left behind. Returns a registry status code.
LONG registerServer(const std::wstring& path);

/// Removes what registerServer writes, for the machine and for the user. Returns the first failure's status
/// code.
LONG unregisterServer();

}  // namespace server
