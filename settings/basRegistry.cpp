#include "settings/basRegistry.h"

#include <optional>

#include "platform/automation.h"
#include "platform/text.h"

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

template <class Number>
Number numberOf(const std::vector<std::uint8_t>& bytes) {
    Number number = 0;
    for (std::size_t index = 0; index < bytes.size() && index < sizeof number; ++index) {
        number |= static_cast<Number>(bytes[index]) << (8 * index);
    }
    return number;
}

/// Windows' own programs end a text at its first NUL, wherever the stored one ends.
std::wstring withoutNul(const std::wstring& text) {
    return std::wstring(text::before(text, L'\0'));
}

/// As the settings keep their lists.
std::wstring joined(const std::wstring& texts) {
    std::wstring result;
    for (const std::wstring_view text : text::split(texts, L'\0')) {
        if (!text.empty()) {
            result += (result.empty() ? L"" : L";") + std::wstring(text);
        }
    }
    return result;
}

/// Nothing for what is of no type that a text could stand for.
std::optional<std::wstring> rendered(const RegistryData& data) {
    switch (data.type) {
        case registry::typeString:
        case registry::typeExpandableString:
            return withoutNul(textOf(data.bytes));
        case registry::typeStrings:
            return joined(textOf(data.bytes));
        case registry::typeNumber:
            return std::to_wstring(numberOf<std::uint32_t>(data.bytes));
        case registry::typeLongNumber:
            return std::to_wstring(numberOf<std::uint64_t>(data.bytes));
        case registry::typeBinary:
            return text::hexadecimal(data.bytes);
        default:
            return std::nullopt;
    }
}

std::vector<NamedValue> valuesOf(platform::RegistryKey& key) {
    std::vector<NamedValue> values;
    NamedValue value;
    RegistryData data;
    std::int32_t status = registry::success;
    for (std::uint32_t index = 0;; ++index) {
        status = key.enumerate(index, value.name, data);
        if (status == registry::noMoreItems) {
            return values;
        }
        if (status != registry::success) {
            throw automation::Error(status, L"The values of a registry key cannot all be read.");
        }
        if (auto text = rendered(data)) {
            value.type = data.type;
            value.data = std::move(*text);
            values.push_back(value);
        }
    }
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
        value = numberOf<std::uint32_t>(data.bytes);
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
        *text = withoutNul(*text);
    }
    key->close();
    return value;
}

std::vector<NamedValue> EnumerateValues(const mail::Globals& globals, platform::RootKey root,
                                        const std::wstring& path) {
    const auto tell = [&](const wchar_t* what) {
        globals.platform.desktop.messageBox(what, {}, globals.product.title);
    };
    std::unique_ptr<platform::RegistryKey> key;
    if (globals.platform.registry.open(root, path, registry::readAccess, key) != registry::success) {
        tell(L"Error opening key.");
        return {};
    }
    auto values = valuesOf(*key);
    if (key->close() != registry::success) {
        tell(L"Error closing key.");
    }
    return values;
}

}  // namespace basRegistry
