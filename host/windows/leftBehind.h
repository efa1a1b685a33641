#pragma once

#include <windows.h>

namespace host::windows {

/// Whether what carries a process's id was left by a host that was killed. One with the id of this process
/// was: Windows gives the ids of ended processes to new ones.
bool isLeftBehind(DWORD processId);

}  // namespace host::windows
