#include "support/StartSysInfo.h"

#include <filesystem>
#include <system_error>

#include "mail/errorTrap.h"
#include "platform/files.h"
#include "platform/text.h"
#include "settings/basRegistry.h"

namespace support {

namespace {

bool exists(const std::wstring& path) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(platform::filePath(path), ignored);
}

/// Empty when there is no such text.
std::wstring GetKeyValue(const mail::Globals& globals, const std::wstring& path, const std::wstring& name) {
    const auto value =
        basRegistry::ReadValue(globals.platform.registry, platform::RootKey::LocalMachine, path, name);
    const auto* const text = std::get_if<std::wstring>(&value);
    return text ? std::wstring(text::trim(*text)) : std::wstring();
}

/// Empty when the tool is not to be had.
std::wstring toolPath(const mail::Globals& globals) {
    std::wstring path = GetKeyValue(globals, L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", L"PATH");
    if (path.empty()) {
        path = GetKeyValue(globals, L"SOFTWARE\\Microsoft\\Shared Tools Location", L"MSINFO");
        path = path.empty() || !exists(path + L"\\MSINFO32.EXE") ? L"" : path + L"\\MSINFO32.EXE";
    }
    return path;
}

}  // namespace

void StartSysInfo(const mail::Globals& globals) {
    const std::wstring tool = toolPath(globals);
    if (!tool.empty() && mail::skipErrors([&] { globals.platform.desktop.startProgram(tool); })) {
        return;
    }
    globals.platform.desktop.messageBox(L"System Information Is Unavailable At This Time", {},
                                        globals.product.title);
}

}  // namespace support
