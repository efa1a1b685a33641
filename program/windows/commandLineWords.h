#pragma once

#include <string>
#include <vector>

namespace program::windows {

/// The words of the command line behind the program's name.
std::vector<std::wstring> commandLineWords();

}  // namespace program::windows
