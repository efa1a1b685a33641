#pragma once

#include <memory>

#include "platform/ResourceModule.h"

namespace platform::windows {

/// The resources of Windows modules. A module is loaded as data: its code never runs, and one file serves
/// both word sizes.
class WindowsResources final : public ResourceModule {
  public:
    WindowsResources();

    std::unique_ptr<ResourceLibrary> load(const std::wstring& path, std::uint32_t& systemError) override;
    ResourceLibrary& own() override { return *own_; }
    std::int32_t wrap(PictureKind kind, ResourceLibrary::Handle handle,
                      std::shared_ptr<Picture>& picture) override;
    void release(ResourceLibrary::Handle handle) override;

  private:
    std::unique_ptr<ResourceLibrary> own_;
};

}  // namespace platform::windows
