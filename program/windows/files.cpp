#include "program/files.h"

#include <windows.h>

#include <stdexcept>
#include <system_error>

#include "platform/replaceFile.h"

namespace program {

namespace {

/// Milliseconds between two attempts, and how many to make of what may be refused for a moment.
constexpr DWORD pause = 20;
constexpr int mostRefusals = 250;

[[noreturn]] void fail(DWORD error) {
    throw std::runtime_error(
        platform::reasonOf(std::error_code(static_cast<int>(error), std::system_category())));
}

}  // namespace

bool FileLock::takeLockFile(const std::filesystem::path& lockFile, bool wait) {
    // A file that is about to be removed refuses access for a moment, as one without permission does for
    // ever.
    for (int refusals = 0;;) {
        const HANDLE lock = CreateFileW(lockFile.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (lock != INVALID_HANDLE_VALUE) {
            file_ = lockFile;
            handle_ = reinterpret_cast<std::intptr_t>(lock);
            return true;
        }
        const DWORD error = GetLastError();
        const bool held = error == ERROR_SHARING_VIOLATION;
        if (held && !wait) {
            return false;
        }
        if (!held && (error != ERROR_ACCESS_DENIED || ++refusals > mostRefusals)) {
            fail(error);
        }
        Sleep(pause);
    }
}

FileLock::~FileLock() {
    if (handle_ != -1) {
        CloseHandle(reinterpret_cast<HANDLE>(handle_));  // Which removes the file.
    }
}

}  // namespace program
