#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "mail/Globals.h"
#include "platform/MachineRegistry.h"

/// Reads of the machine's registry itself, apart from the user's settings.
namespace basRegistry {

/// A text or a 32-bit number; empty when there is none.
using RegistryValue = std::variant<std::monostate, std::wstring, std::uint32_t>;

/// Reads a value of an open key: a text with the NUL that closes it in the registry, or a number. Returns the
/// registry's status code; -1 for a value of any other type.
std::int32_t QueryValue(platform::RegistryKey& key, const std::wstring& name, RegistryValue& value);

/// Reads a value by its place; empty when the key or the value is missing.
RegistryValue ReadValue(platform::MachineRegistry& registry, platform::RootKey root, const std::wstring& path,
                        const std::wstring& name);

struct NamedValue {
    std::wstring name;
    std::uint32_t type = 0;
    /// A number as decimal text, bytes as hexadecimal text with two upper-case digits each, a list of texts
    /// joined by ";".
    std::wstring data;
};

/// The values of a key that can be read as text, in the registry's order: texts, numbers and bytes. A key
/// that cannot be opened or closed is said in a message box; one that cannot be opened has no values. Throws
/// automation::Error when the registry does not give all of them.
std::vector<NamedValue> EnumerateValues(const mail::Globals& globals, platform::RootKey root,
                                        const std::wstring& path);

}  // namespace basRegistry
