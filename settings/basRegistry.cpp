#include "settings/basRegistry.h"

namespace basRegistry {

namespace {

using platform::RegistryData;
namespace registry = platform::registry;

constexpr std::int32_t unknownType = -1;

/// The UTF-16 units of a stored text; an odd byte at its end counts for nothing.
std::wstring textOf(const std::vector<std::uint8_t>& bytes) {
    std::wstring text;
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2) {
        text += static_cast<wchar_t>(bytes[index] | (bytes[index + 1] << 8));
    }
    return text;
}

std::uint32_t numberOf(const std::vector<std::uint8_t>& bytes) {
    std::uint32_t number = 0;
    for (std::size_t index = 0; index < bytes.size() && index < sizeof number; ++index) {
        number |= static_cast<std::uint32_t>(bytes[index]) << (8 * index);
    }
    return number;
}

void dropClosingNul(std::wstring& text) {
    if (text.ends_with(L'\0')) {
        text.pop_back();
    }
}

std::wstring hexadecimal(const std::vector<std::uint8_t>& bytes) {
    constexpr wchar_t digits[] = L"0123456789ABCDEF";
    std::wstring text;
    for (const std::uint8_t byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 0xF];
    }
    return text;
}

std::wstring rendered(const RegistryData& data) {
    if (data.type == registry::typeNumber) {
        return std::to_wstring(numberOf(data.bytes));
    }
    if (data.type == registry::typeBinary) {
        return hexadecimal(data.bytes);
    }
    std::wstring text = textOf(data.bytes);
    dropClosingNul(text);
    return text;
}

}  // namespace

std::int32_t QueryValue(platform::RegistryKey& key, const std::wstring& name, RegistryValue& value) {
    RegistryData data;
    const std::int32_t status = key.query(name, data);
    if (status != registry::success) {
        return status;
    }
    if (data.type == registry::typeString) {
        value = textOf(data.bytes);
    } else if (data.type == registry::typeNumber) {
        value = numberOf(data.bytes);
    } else {
        return unknownType;
    }
    return registry::success;
}

RegistryValue ReadValue(platform::MachineRegistry& registry, platform::RootKey root, const std::wstring& path,
                        const std::wstring& name) {
    RegistryValue value;
    std::unique_ptr<platform::RegistryKey> key;
    if (registry.open(root, path, 0, key) != registry::success) {
        return value;
    }
    QueryValue(*key, name, value);
    if (auto* text = std::get_if<std::wstring>(&value)) {
        dropClosingNul(*text);
    }
    key->close();
    return value;
}

std::vector<NamedValue> EnumerateValues(platform::MachineRegistry& registry, platform::Desktop& desktop,
                                        platform::RootKey root, const std::wstring& path) {
    std::vector<NamedValue> values;
    std::unique_ptr<platform::RegistryKey> key;
    if (registry.open(root, path, registry::readAccess, key) != registry::success) {
        desktop.messageBox(L"Error opening key.", {}, L"Veltro");
        return values;
    }
    RegistryData data;
    NamedValue value;
    for (std::uint32_t index = 0; key->enumerate(index, value.name, data) == registry::success; ++index) {
        value.type = data.type;
        value.data = rendered(data);
        values.push_back(value);
    }
    if (key->close() != registry::success) {
        desktop.messageBox(L"Error closing key.", {}, L"Veltro");
    }
    return values;
}

}  // namespace basRegistry
