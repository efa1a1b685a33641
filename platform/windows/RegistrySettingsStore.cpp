#include "platform/windows/RegistrySettingsStore.h"

#include <windows.h>

#include "platform/windows/RegKey.h"
#include "platform/windows/comErrors.h"

namespace platform::windows {

namespace {

[[noreturn]] void throwStatus(const wchar_t* what, LONG status) {
    const automation::Error reason = errorOf(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
    throw automation::Error(reason.number(), what + reason.description());
}

}  // namespace

RegistrySettingsStore::RegistrySettingsStore(const std::wstring& application, const std::wstring& section)
    : path_(L"Software\\VB and VBA Program Settings\\" + application + L'\\' + section) {}

std::optional<std::wstring> RegistrySettingsStore::read(const std::wstring& key) {
    RegKey settings;
    const LONG status = settings.open(HKEY_CURRENT_USER, path_, KEY_READ);
    if (status == ERROR_FILE_NOT_FOUND) {
        return std::nullopt;
    }
    if (status != ERROR_SUCCESS) {
        throwStatus(L"The settings cannot be read: ", status);
    }
    return settings.text(key);
}

void RegistrySettingsStore::write(const std::wstring& key, const std::wstring& value) {
    RegKey settings;
    LONG status = settings.create(HKEY_CURRENT_USER, path_);
    if (status == ERROR_SUCCESS) {
        status = settings.setText(key, value);
    }
    if (status != ERROR_SUCCESS) {
        throwStatus(L"The settings cannot be written: ", status);
    }
}

}  // namespace platform::windows
