#include "platform/windows/RegKey.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace platform::windows {

namespace {

/// The registry's limit for the name of a key, with its closing NUL.
constexpr DWORD keyNameLimit = 256;
/// The same for the name of a value.
constexpr DWORD valueNameLimit = 16384;

}  // namespace

LONG RegKey::open(HKEY root, const std::wstring& path, REGSAM access) {
    close();
    return RegOpenKeyExW(root, path.c_str(), 0, access, &key_);
}

LONG RegKey::create(HKEY root, const std::wstring& path) {
    close();
    return RegCreateKeyExW(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                           nullptr, &key_, nullptr);
}

LONG RegKey::close() noexcept {
    HKEY key = std::exchange(key_, nullptr);
    return key ? RegCloseKey(key) : ERROR_SUCCESS;
}

LONG RegKey::query(const std::wstring& name, RegistryData& data) const {
    for (;;) {
        DWORD size = 0;
        LONG status = RegQueryValueExW(key_, name.c_str(), nullptr, nullptr, nullptr, &size);
        if (status != ERROR_SUCCESS) {
            return status;
        }
        // Never empty: without room Windows would tell the size of a value that grew, and give nothing of it.
        size = std::max(size, DWORD{1});
        data.bytes.resize(size);
        DWORD type = 0;
        status = RegQueryValueExW(key_, name.c_str(), nullptr, &type, data.bytes.data(), &size);
        if (status == ERROR_MORE_DATA) {  // It grew meanwhile.
            continue;
        }
        data.type = type;
        data.bytes.resize(size);
        return status;
    }
}

LONG RegKey::enumerateValue(DWORD index, std::wstring& name, RegistryData& data) const {
    std::vector<wchar_t> buffer(valueNameLimit);
    DWORD length = valueNameLimit;
    const LONG status =
        RegEnumValueW(key_, index, buffer.data(), &length, nullptr, nullptr, nullptr, nullptr);
    if (status != ERROR_SUCCESS) {
        return status;
    }
    name.assign(buffer.data(), length);
    return query(name, data);
}

LONG RegKey::enumerateKey(DWORD index, std::wstring& name) const {
    wchar_t buffer[keyNameLimit];
    DWORD length = keyNameLimit;
    const LONG status = RegEnumKeyExW(key_, index, buffer, &length, nullptr, nullptr, nullptr, nullptr);
    if (status == ERROR_SUCCESS) {
        name.assign(buffer, length);
    }
    return status;
}

std::optional<std::wstring> RegKey::text(const std::wstring& name) const {
    RegistryData data;
    if (query(name, data) != ERROR_SUCCESS || (data.type != REG_SZ && data.type != REG_EXPAND_SZ)) {
        return std::nullopt;
    }
    // Nothing makes sure that a stored text has one closing NUL, or whole characters.
    const auto* characters = reinterpret_cast<const wchar_t*>(data.bytes.data());
    const std::wstring_view stored(characters, data.bytes.size() / sizeof(wchar_t));
    return std::wstring(text::before(stored, L'\0'));
}

std::optional<DWORD> RegKey::number(const std::wstring& name) const {
    DWORD value = 0;
    DWORD type = 0;
    DWORD size = sizeof value;
    const LONG status =
        RegQueryValueExW(key_, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
    return status == ERROR_SUCCESS && type == REG_DWORD ? std::optional(value) : std::nullopt;
}

LONG RegKey::setText(const std::wstring& name, const std::wstring& text) const {
    return RegSetValueExW(key_, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

LONG RegKey::remove(const std::wstring& name) const {
    return RegDeleteValueW(key_, name.c_str());
}

LONG RegKey::setNumber(const std::wstring& name, DWORD number) const {
    return RegSetValueExW(key_, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                          sizeof number);
}

bool RegKey::isEmpty() const {
    DWORD keys = 0;
    DWORD values = 0;
    return !key_ || (RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                      nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
                     keys == 0 && values == 0);
}

LONG deleteKeyTree(HKEY root, const std::wstring& path) {
    RegKey key;
    LONG status = key.open(root, path, KEY_READ);
    if (status == ERROR_FILE_NOT_FOUND) {
        return ERROR_SUCCESS;
    }
    std::wstring name;
    while (status == ERROR_SUCCESS && key.enumerateKey(0, name) == ERROR_SUCCESS) {
        status = deleteKeyTree(root, path + L'\\' + name);
    }
    key.close();
    return status == ERROR_SUCCESS ? RegDeleteKeyW(root, path.c_str()) : status;
}

}  // namespace platform::windows
