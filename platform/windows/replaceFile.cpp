#include "platform/replaceFile.h"

#include <windows.h>

#include <fstream>
#include <stdexcept>

namespace platform {

namespace {

/// Milliseconds between two attempts, and how many to make of what may be refused for a moment.
constexpr DWORD pause = 20;
constexpr int mostRefusals = 250;

}  // namespace

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

}  // namespace platform
