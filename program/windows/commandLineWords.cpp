#include "program/windows/commandLineWords.h"

#include <windows.h>

#include <shellapi.h>

namespace program::windows {

std::vector<std::wstring> commandLineWords() {
    int count = 0;
    LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
    const std::vector<std::wstring> result(words + 1, words + count);
    LocalFree(words);
    return result;
}

}  // namespace program::windows
