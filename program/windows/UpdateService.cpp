#include "program/windows/UpdateService.h"

#include <windows.h>

#include <stdexcept>

#include "platform/windows/RegKey.h"

namespace program::windows {

namespace {

constexpr wchar_t machineKey[] = L"SOFTWARE\\Corvane\\Veltro";
constexpr wchar_t value[] = L"UpdateService";

}  // namespace

UpdateService::UpdateService(const std::wstring& service) {
    platform::windows::RegKey key;
    if (key.create(HKEY_LOCAL_MACHINE, machineKey) == ERROR_SUCCESS) {
        before_ = key.text(value);
    }
    if (key.setText(value, service) != ERROR_SUCCESS) {
        throw std::runtime_error("--service needs the right to write to the machine's registry");
    }
}

UpdateService::~UpdateService() {
    platform::windows::RegKey key;
    if (key.create(HKEY_LOCAL_MACHINE, machineKey) != ERROR_SUCCESS) {
        return;
    }
    if (before_) {
        key.setText(value, *before_);
        return;
    }
    key.remove(value);
    const bool left = !key.isEmpty();
    key.close();
    if (!left) {
        platform::windows::deleteKeyTree(HKEY_LOCAL_MACHINE, machineKey);
    }
}

}  // namespace program::windows
