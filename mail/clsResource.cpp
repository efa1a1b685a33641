#include "mail/clsResource.h"

#include <filesystem>
#include <fstream>

#include "platform/automation.h"
#include "platform/files.h"

namespace mail {

namespace {

using platform::PictureKind;

/// Result codes of the picture wrap that have words of their own.
constexpr std::uint32_t noInterface = 0x80004002;
constexpr std::uint32_t invalidPointer = 0x80004003;
constexpr std::uint32_t unexpectedFailure = 0x8000FFFF;
constexpr std::uint32_t outOfMemory = 0x8007000E;
constexpr std::uint32_t invalidArgument = 0x80070057;

std::wstring wrapFailure(std::int32_t result) {
    switch (static_cast<std::uint32_t>(result)) {
        case noInterface:
            return L"The object does not support the interface specified in riid.";
        case invalidPointer:
            return L"The address in pPictDesc or ppvObj is not valid. For example, it may be NULL.";
        case invalidArgument:
            return L"One or more arguments are invalid.";
        case outOfMemory:
            return L"Ran out of memory.";
        case unexpectedFailure:
            return L"Catastrophic Failure.";
        default:
            return L"Unknown Error.";
    }
}

std::wstring loadString(platform::ResourceLibrary* library, std::uint32_t id, std::size_t maximumLength) {
    return library && id >= 1 && maximumLength >= 1 ? library->string(id, maximumLength) : std::wstring();
}

std::vector<std::uint8_t> loadData(platform::ResourceLibrary* library, std::uint32_t id,
                                   const std::wstring& type) {
    return library && id >= 1 && !type.empty() ? library->data(id, type) : std::vector<std::uint8_t>();
}

}  // namespace

void clsResource::setLibraryFilePath(const std::wstring& path) {
    path_ = path;
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(platform::filePath(path), ignored)) {
        return;
    }
    std::uint32_t systemError = 0;
    library_ = module_.load(path, systemError);
    if (!library_) {
        throw automation::Error(automation::errors::failed,
                                L"The LoadLibrary API failed with the error number " +
                                    std::to_wstring(systemError) + L" while trying to load the file '" +
                                    path + L"'",
                                L"cResource.LibraryFilePath_Let (");
    }
}

platform::ResourceLibrary::Handle clsResource::hLibrary() const {
    return library_ ? library_->handle() : 0;
}

std::wstring clsResource::stringOr(std::uint32_t id, const std::wstring& fallback) const {
    std::wstring text = DLL_LoadString(id);
    return text.empty() ? fallback : text;
}

std::wstring clsResource::DLL_LoadString(std::uint32_t id, std::size_t maximumLength) const {
    return loadString(library_.get(), id, maximumLength);
}

std::shared_ptr<platform::Picture> clsResource::DLL_LoadIcon(std::uint32_t id, std::uint32_t size) {
    return loadPicture(library_.get(), PictureKind::Icon, id, size);
}

std::shared_ptr<platform::Picture> clsResource::DLL_LoadCursor(std::uint32_t id) {
    return loadPicture(library_.get(), PictureKind::Cursor, id);
}

std::shared_ptr<platform::Picture> clsResource::DLL_LoadBitmap(std::uint32_t id) {
    return loadPicture(library_.get(), PictureKind::Bitmap, id);
}

std::vector<std::uint8_t> clsResource::DLL_LoadData(std::uint32_t id, const std::wstring& type) const {
    return loadData(library_.get(), id, type);
}

std::wstring clsResource::RES_LoadString(std::uint32_t id, std::size_t maximumLength) const {
    return loadString(&module_.own(), id, maximumLength);
}

std::shared_ptr<platform::Picture> clsResource::RES_LoadIcon(std::uint32_t id) {
    return loadPicture(&module_.own(), PictureKind::Icon, id);
}

std::shared_ptr<platform::Picture> clsResource::RES_LoadCursor(std::uint32_t id) {
    return loadPicture(&module_.own(), PictureKind::Cursor, id);
}

std::shared_ptr<platform::Picture> clsResource::RES_LoadBitmap(std::uint32_t id) {
    return loadPicture(&module_.own(), PictureKind::Bitmap, id);
}

std::vector<std::uint8_t> clsResource::RES_LoadData(std::uint32_t id, const std::wstring& type) const {
    return loadData(&module_.own(), id, type);
}

std::shared_ptr<platform::Picture> clsResource::loadPicture(platform::ResourceLibrary* library,
                                                            PictureKind kind, std::uint32_t id,
                                                            std::uint32_t size) {
    pictureFailure_.clear();
    if (!library) {
        return nullptr;
    }
    const auto handle = library->pictureHandle(kind, id, size);
    if (handle == 0) {
        pictureFailure_ = L"Invalid bitmap handle";
        return nullptr;
    }
    std::shared_ptr<platform::Picture> picture;
    const std::int32_t result = module_.wrap(kind, handle, picture);
    if (result != 0) {
        module_.release(handle);
        pictureFailure_ = wrapFailure(result);
        return nullptr;
    }
    return picture;
}

bool clsResource::SaveData_Pointer(const void* address, std::size_t length, const std::wstring& path) {
    const auto* bytes = static_cast<const std::uint8_t*>(address);
    return SaveData_Array(std::vector<std::uint8_t>(bytes, bytes + length), path);
}

bool clsResource::SaveData_Array(const std::vector<std::uint8_t>& data, const std::wstring& path) {
    std::error_code failure;
    std::filesystem::remove(platform::filePath(path), failure);
    std::ofstream file(platform::filePath(path), std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(data.data()), static_cast<std::streamsize>(data.size()));
    file.close();
    return !file.fail();
}

}  // namespace mail
