#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/MachineRegistry.h"

namespace platform::native {

/// A registry in memory that tests and the simulated host fill. It answers with the status codes that Windows
/// gives; names are found without regard to letter case and enumerated in the order of their making.
class FakeRegistry : public MachineRegistry {
  public:
    static constexpr std::int32_t accessDenied = 5;
    static constexpr std::int32_t invalidHandle = 6;

    /// Makes the key and those above it. The keys that programs of 32 bits see in place of others stand below
    /// "SOFTWARE\\WOW6432Node", as they do on a 64-bit Windows.
    void addKey(RootKey root, const std::wstring& path);
    /// Sets a value; makes its key when there is none.
    void setValue(RootKey root, const std::wstring& path, const std::wstring& name, RegistryData data);
    /// The text as Windows stores it: UTF-16, low byte first, with a closing NUL.
    void setText(RootKey root, const std::wstring& path, const std::wstring& name, const std::wstring& text);
    void setNumber(RootKey root, const std::wstring& path, const std::wstring& name, std::uint32_t number);
    /// From now on opening the key gives `status`.
    void failOpen(RootKey root, const std::wstring& path, std::int32_t status = accessDenied);
    /// From now on the key can be opened to query a value, but not to list all of them.
    void failListing(RootKey root, const std::wstring& path) { unlisted_.insert(nameOf(root, path)); }
    /// From now on whoever enumerates the key gets `status` in place of the value of that name.
    void failValue(RootKey root, const std::wstring& path, const std::wstring& name,
                   std::int32_t status = accessDenied);

    std::int32_t open(RootKey root, const std::wstring& path, std::uint32_t access,
                      std::unique_ptr<RegistryKey>& key) override;

    struct Value {
        std::wstring name;
        RegistryData data;
        /// What enumerating it gives.
        std::int32_t status = registry::success;
    };
    using Values = std::vector<Value>;
    struct Contents {
        Values values;
        /// The names of the keys below.
        std::vector<std::wstring> keys;
    };

  private:
    using Name = std::pair<RootKey, std::wstring>;

    static Name nameOf(RootKey root, const std::wstring& path);

    std::map<Name, std::shared_ptr<Contents>> keys_;
    std::map<Name, std::int32_t> failures_;
    std::set<Name> unlisted_;
};

}  // namespace platform::native
