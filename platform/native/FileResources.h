#pragma once

#include <set>

#include "platform/ResourceModule.h"

namespace platform::native {

/// Resource libraries as text files in UTF-8, one resource a line:
///
///     # a comment
///     515=Veltro
///     bitmap 604
///     data TEXT 700=the bytes
///
/// "bitmap", "icon" and "cursor" lines say only that there is such a picture. A path may be written with
/// either separator, as the add-in joins folders and names the Windows way.
class FileResources : public ResourceModule {
  public:
    static constexpr std::uint32_t moduleNotFound = 126;
    static constexpr std::uint32_t badFormat = 193;
    static constexpr std::int32_t invalidArgument = static_cast<std::int32_t>(0x80070057);

    /// The add-in's own resources are those of `own`; none when it is empty or cannot be loaded.
    explicit FileResources(const std::wstring& own = {});

    /// Error 126 when there is no such file, 193 when it is empty or holds a line that is none of the above.
    std::unique_ptr<ResourceLibrary> load(const std::wstring& path, std::uint32_t& systemError) override;
    ResourceLibrary& own() override { return *own_; }
    std::int32_t wrap(PictureKind kind, ResourceLibrary::Handle handle,
                      std::shared_ptr<Picture>& picture) override;
    void release(ResourceLibrary::Handle handle) override;

    /// From now on every wrap gives this result; 0 wraps again.
    void failWrapWith(std::int32_t result) { wrapResult_ = result; }
    /// The sizes that icons were asked for in.
    const std::set<std::uint32_t>& askedSizes() const { return *sizes_; }
    /// Picture handles that neither were released nor died with their picture.
    std::size_t livePictures() const { return handles_->size(); }

    /// Picture handles in use, by the kind of picture.
    using Handles = std::set<std::pair<ResourceLibrary::Handle, PictureKind>>;

  private:
    std::shared_ptr<Handles> handles_ = std::make_shared<Handles>();
    std::shared_ptr<std::set<std::uint32_t>> sizes_ = std::make_shared<std::set<std::uint32_t>>();
    std::unique_ptr<ResourceLibrary> own_;
    std::int32_t wrapResult_ = 0;
};

}  // namespace platform::native
