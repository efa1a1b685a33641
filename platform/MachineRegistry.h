#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace platform {

enum class RootKey { CurrentUser, LocalMachine };

/// Status codes, access rights and value types of the registry, by their Windows numbers.
namespace registry {
inline constexpr std::int32_t success = 0;
inline constexpr std::int32_t fileNotFound = 2;
inline constexpr std::int32_t noMoreItems = 259;
inline constexpr std::uint32_t readAccess = 0x20019;
/// With an access right: the keys as programs of that word size see them.
inline constexpr std::uint32_t view64 = 0x0100;
inline constexpr std::uint32_t view32 = 0x0200;
inline constexpr std::uint32_t typeString = 1;
/// A text with names of environment variables between percent signs.
inline constexpr std::uint32_t typeExpandableString = 2;
inline constexpr std::uint32_t typeBinary = 3;
inline constexpr std::uint32_t typeNumber = 4;
/// Texts that a NUL ends each, and one more NUL.
inline constexpr std::uint32_t typeStrings = 7;
/// A number of 64 bits.
inline constexpr std::uint32_t typeLongNumber = 11;
}  // namespace registry

/// A registry value as it is stored: texts are UTF-16, low byte first, usually with a closing NUL.
struct RegistryData {
    std::uint32_t type = 0;
    std::vector<std::uint8_t> bytes;
};

/// An open key; closed at the latest when destroyed. Every call returns a registry status code.
class RegistryKey {
  public:
    virtual ~RegistryKey() = default;
    virtual std::int32_t query(const std::wstring& name, RegistryData& data) = 0;
    /// The value at `index`, in the registry's order; noMoreItems past the last.
    virtual std::int32_t enumerate(std::uint32_t index, std::wstring& name, RegistryData& data) = 0;
    /// The name of the key below this one at `index`; noMoreItems past the last.
    virtual std::int32_t enumerateKey(std::uint32_t index, std::wstring& name) = 0;
    virtual std::int32_t close() = 0;
};

/// The registry itself, raw. On 64-bit Windows each word size sees its own HKEY_LOCAL_MACHINE\SOFTWARE.
class MachineRegistry {
  public:
    virtual ~MachineRegistry() = default;
    /// `access` 0 is the plain open call. Returns a status code; `key` is set on success.
    virtual std::int32_t open(RootKey root, const std::wstring& path, std::uint32_t access,
                              std::unique_ptr<RegistryKey>& key) = 0;
};

}  // namespace platform
