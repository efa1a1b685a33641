#pragma once

#include <cstdint>
#include <string_view>

#include "platform/automation.h"

/// The errors that Outlook's objects raise, in Outlook's words where they are known.
namespace host::raise {

inline constexpr std::int32_t badArgumentCount = -2147352562;  // DISP_E_BADPARAMCOUNT
inline constexpr std::int32_t badIndex = -2147352567;          // DISP_E_EXCEPTION, as Outlook numbers it
inline constexpr std::int32_t aborted = -2147467260;           // E_ABORT
inline constexpr std::int32_t accessDenied = -2147024891;      // E_ACCESSDENIED
inline constexpr std::int32_t notFound = -2147221233;          // MAPI_E_NOT_FOUND
inline constexpr std::int32_t objectChanged = -2147221239;     // MAPI_E_OBJECT_CHANGED
inline constexpr std::int32_t objectDeleted = -2147221238;     // MAPI_E_OBJECT_DELETED
inline constexpr std::int32_t disconnected = -2147417848;      // RPC_E_DISCONNECTED
inline constexpr std::int32_t noSuchEvents = 459;

[[noreturn]] void memberNotFound(std::wstring_view name);
[[noreturn]] void wrongArgumentCount(std::wstring_view name);
[[noreturn]] void typeMismatch();
[[noreturn]] void outOfBounds();
[[noreturn]] void operationFailed();
[[noreturn]] void operationAborted();
[[noreturn]] void noPermission();
[[noreturn]] void objectNotFound();
/// Outlook's words for a property that an accessor does not find.
[[noreturn]] void noSuchProperty(std::wstring_view name);
[[noreturn]] void outOfMemory();
[[noreturn]] void cannotParse();
[[noreturn]] void itemGone();
[[noreturn]] void messageChanged();
[[noreturn]] void explorerClosed();
[[noreturn]] void inspectorClosed();
[[noreturn]] void outlookGone();

}  // namespace host::raise
