#include "platform/windows/WindowsRegistry.h"

#include <windows.h>

#include "platform/windows/RegKey.h"

namespace platform::windows {

namespace {

class OpenKey final : public RegistryKey {
  public:
    explicit OpenKey(RegKey key) : key_(std::move(key)) {}

    std::int32_t query(const std::wstring& name, RegistryData& data) override {
        return key_.query(name, data);
    }
    std::int32_t enumerate(std::uint32_t index, std::wstring& name, RegistryData& data) override {
        return key_.enumerateValue(index, name, data);
    }
    std::int32_t enumerateKey(std::uint32_t index, std::wstring& name) override {
        return key_.enumerateKey(index, name);
    }
    std::int32_t close() override { return key_.close(); }

  private:
    RegKey key_;
};

}  // namespace

std::int32_t WindowsRegistry::open(RootKey root, const std::wstring& path, std::uint32_t access,
                                   std::unique_ptr<RegistryKey>& key) {
    RegKey opened;
    // What the plain open call asks for: all that the user may do.
    const REGSAM rights = access == 0 ? MAXIMUM_ALLOWED : access;
    const LONG status =
        opened.open(root == RootKey::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER, path, rights);
    if (status == ERROR_SUCCESS) {
        key = std::make_unique<OpenKey>(std::move(opened));
    }
    return status;
}

}  // namespace platform::windows
