#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation.h"

namespace platform {

enum class PictureKind { Bitmap, Icon, Cursor };

/// A picture that owns its handle; made by ResourceModule::wrap.
class Picture {
  public:
    virtual ~Picture() = default;
    /// As Office's buttons take it. Throws automation::Error.
    virtual automation::Object object() const = 0;
};

/// A loaded module, kept for its resources until destroyed. Every load gives an empty result when the
/// resource is missing.
class ResourceLibrary {
  public:
    using Handle = std::uintptr_t;

    virtual ~ResourceLibrary() = default;
    virtual Handle handle() const = 0;
    /// At most `maximumLength` characters of the string resource.
    virtual std::wstring string(std::uint32_t id, std::size_t maximumLength) = 0;
    /// A handle that the caller must wrap or release; 0 when there is no such picture. `size` is the side
    /// length of an icon in pixels; 0 is the system's usual one.
    virtual Handle pictureHandle(PictureKind kind, std::uint32_t id, std::uint32_t size = 0) = 0;
    /// The resource named "#" and the id in decimal, of the given type.
    virtual std::vector<std::uint8_t> data(std::uint32_t id, const std::wstring& type) = 0;
};

/// Loads modules for their resources and turns their handles into pictures.
class ResourceModule {
  public:
    virtual ~ResourceModule() = default;
    /// Null on failure, with the system's error number in `systemError`.
    virtual std::unique_ptr<ResourceLibrary> load(const std::wstring& path, std::uint32_t& systemError) = 0;
    /// The add-in's own resources.
    virtual ResourceLibrary& own() = 0;
    /// Makes a picture that owns `handle`. Returns the system's result code, 0 on success; on failure the
    /// handle stays the caller's.
    virtual std::int32_t wrap(PictureKind kind, ResourceLibrary::Handle handle,
                              std::shared_ptr<Picture>& picture) = 0;
    /// Releases a handle that could not be wrapped, by the kind of object that it really is.
    virtual void release(ResourceLibrary::Handle handle) = 0;
};

}  // namespace platform
