#include "host/windows/PrivateUser.h"

#include <cwchar>

#include "host/windows/leftBehind.h"
#include "platform/SettingsStore.h"
#include "platform/windows/RegKey.h"
#include "platform/windows/comErrors.h"

namespace host::windows {

namespace {

using platform::windows::RegKey;

constexpr wchar_t parentPath[] = L"Software\\Veltro host";

/// Deletes what processes left that ended before their time.
void sweep() {
    RegKey parent;
    if (parent.open(HKEY_CURRENT_USER, parentPath, KEY_READ) != ERROR_SUCCESS) {
        return;
    }
    std::vector<std::wstring> abandoned;
    std::wstring name;
    for (DWORD index = 0; parent.enumerateKey(index, name) == ERROR_SUCCESS; ++index) {
        if (isLeftBehind(std::wcstoul(name.c_str(), nullptr, 10))) {
            abandoned.push_back(name);
        }
    }
    for (const std::wstring& left : abandoned) {
        platform::windows::deleteKeyTree(HKEY_CURRENT_USER, parentPath + (L'\\' + left));
    }
}

std::wstring pathOf(DWORD process) {
    return parentPath + (L'\\' + std::to_wstring(process));
}

void check(LONG status) {
    platform::windows::check(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

}  // namespace

PrivateUser::PrivateUser() : path_(pathOf(GetCurrentProcessId())) {
    sweep();
    check(RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                          nullptr));
    if (const LONG status = RegOverridePredefKey(HKEY_CURRENT_USER, key_); status != ERROR_SUCCESS) {
        RegCloseKey(key_);
        platform::windows::deleteKeyTree(HKEY_CURRENT_USER, path_);
        check(status);
    }
}

PrivateUser::PrivateUser(DWORD otherProcess) {
    const std::wstring path = pathOf(otherProcess);
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_ALL_ACCESS, &key_) == ERROR_SUCCESS) {
        RegOverridePredefKey(HKEY_CURRENT_USER, key_);
    }
}

PrivateUser::~PrivateUser() {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    if (key_) {
        RegCloseKey(key_);
    }
    if (!path_.empty()) {
        platform::windows::deleteKeyTree(HKEY_CURRENT_USER, path_);
        RegDeleteKeyW(HKEY_CURRENT_USER, parentPath);  // Fails while another host uses it.
    }
}

std::vector<std::pair<std::wstring, std::wstring>> PrivateUser::settings() {
    std::vector<std::pair<std::wstring, std::wstring>> settings;
    const std::wstring path = std::wstring(L"Software\\VB and VBA Program Settings\\") +
                              platform::settingsApplication + L'\\' + platform::settingsSection;
    RegKey key;
    if (key.open(HKEY_CURRENT_USER, path, KEY_READ) != ERROR_SUCCESS) {
        return settings;
    }
    std::wstring name;
    platform::RegistryData data;
    for (DWORD index = 0; key.enumerateValue(index, name, data) == ERROR_SUCCESS; ++index) {
        if (const auto text = key.text(name)) {
            settings.emplace_back(name, *text);
        }
    }
    return settings;
}

}  // namespace host::windows
