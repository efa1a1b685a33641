#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The sources of the modules of a Word template's VBA project, from the bytes of its file. Throws
/// automation::Error for a file that is no Word template with macros, or that is damaged.
std::vector<std::string> readMacroModules(std::string_view templateFile);

/// The same of the file at that path. Throws automation::Error, too, when there is none.
std::vector<std::string> macroModulesOf(const std::wstring& path);

}  // namespace host
