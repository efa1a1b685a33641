#include "program/files.h"

#include <windows.h>

#include <fstream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace program {

namespace {

/// Milliseconds between two attempts, and how many to make of what may be refused for a moment.
constexpr DWORD pause = 20;
constexpr int mostRefusals = 250;

[[noreturn]] void fail(DWORD error) {
    throw std::runtime_error(reasonOf(std::error_code(static_cast<int>(error), std::system_category())));
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

std::filesystem::path writeTemporary(const std::filesystem::path& file, std::string_view contents) {
    std::filesystem::path temporary = file;
    temporary += "." + std::to_string(GetCurrentProcessId()) + ".new";
    std::ofstream stream(temporary, std::ios::binary | std::ios::trunc);
    stream << contents;
    stream.close();
    if (!stream) {
        std::error_code ignored;
        std::filesystem::remove(temporary, ignored);
        throw std::runtime_error("cannot be written");
    }
    return temporary;
}

std::error_code moveOver(const std::filesystem::path& file, const std::filesystem::path& other) {
    // Windows refuses while somebody reads the other.
    for (int refusals = 0;; ++refusals) {
        if (MoveFileExW(file.c_str(), other.c_str(), MOVEFILE_REPLACE_EXISTING)) {
            return {};
        }
        const DWORD error = GetLastError();
        if ((error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION) || refusals == mostRefusals) {
            return {static_cast<int>(error), std::system_category()};
        }
        Sleep(pause);
    }
}

}  // namespace program
