#pragma once

#include "platform/MachineRegistry.h"

namespace platform::windows {

class WindowsRegistry final : public MachineRegistry {
  public:
    std::int32_t open(RootKey root, const std::wstring& path, std::uint32_t access,
                      std::unique_ptr<RegistryKey>& key) override;
};

}  // namespace platform::windows
