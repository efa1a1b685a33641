#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/ResourceModule.h"

namespace mail {

/// Strings, pictures and data from the resource library, a module loaded only for its resources, or from the
/// add-in's own. With no library loaded every load gives an empty result.
class clsResource {
  public:
    explicit clsResource(platform::ResourceModule& module) : module_(module) {}

    /// Loads the library at the path; a file that does not exist is left alone. Throws automation::Error when
    /// the file cannot be loaded.
    void setLibraryFilePath(const std::wstring& path);
    const std::wstring& LibraryFilePath() const { return path_; }
    /// Zero when no library is loaded.
    platform::ResourceLibrary::Handle hLibrary() const;
    void CloseLibrary() { library_.reset(); }

    /// The string resource, cut to `maximumLength` characters.
    std::wstring DLL_LoadString(std::uint32_t id, std::size_t maximumLength = 1024) const;
    /// `size` is its side length in pixels; 0 is the system's usual one.
    std::shared_ptr<platform::Picture> DLL_LoadIcon(std::uint32_t id, std::uint32_t size = 0);
    std::shared_ptr<platform::Picture> DLL_LoadCursor(std::uint32_t id);
    std::shared_ptr<platform::Picture> DLL_LoadBitmap(std::uint32_t id);
    std::vector<std::uint8_t> DLL_LoadData(std::uint32_t id, const std::wstring& type) const;

    std::wstring RES_LoadString(std::uint32_t id, std::size_t maximumLength = 1024) const;
    std::shared_ptr<platform::Picture> RES_LoadIcon(std::uint32_t id);
    std::shared_ptr<platform::Picture> RES_LoadCursor(std::uint32_t id);
    std::shared_ptr<platform::Picture> RES_LoadBitmap(std::uint32_t id);
    std::vector<std::uint8_t> RES_LoadData(std::uint32_t id, const std::wstring& type) const;

    /// Writes `length` bytes at `address` to the file in place of what it held. False when that fails.
    static bool SaveData_Pointer(const void* address, std::size_t length, const std::wstring& path);
    static bool SaveData_Array(const std::vector<std::uint8_t>& data, const std::wstring& path);

    /// Why the last picture could not be made; empty when it could.
    const std::wstring& pictureFailure() const { return pictureFailure_; }

    /// The string resource, or `fallback` when there is no library or it holds no such string.
    std::wstring stringOr(std::uint32_t id, const std::wstring& fallback) const;

  private:
    std::shared_ptr<platform::Picture> loadPicture(platform::ResourceLibrary* library,
                                                   platform::PictureKind kind, std::uint32_t id,
                                                   std::uint32_t size = 0);

    platform::ResourceModule& module_;
    std::wstring path_;
    std::wstring pictureFailure_;
    std::unique_ptr<platform::ResourceLibrary> library_;
};

}  // namespace mail
