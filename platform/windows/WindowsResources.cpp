#include "platform/windows/WindowsResources.h"

#include <windows.h>

#include <olectl.h>

#include <limits>

#include "platform/windows/WindowsPicture.h"
#include "platform/windows/ownModule.h"

namespace platform::windows {

namespace {

/// The resources of one module; frees it at the end when it is ours to free.
class ModuleResources final : public ResourceLibrary {
  public:
    enum class Ownership { Owned, Lent };
    ModuleResources(HMODULE module, Ownership ownership) : module_(module), ownership_(ownership) {}
    ModuleResources(const ModuleResources&) = delete;
    ModuleResources& operator=(const ModuleResources&) = delete;
    ~ModuleResources() override {
        if (ownership_ == Ownership::Owned) {
            FreeLibrary(module_);
        }
    }

    Handle handle() const override { return reinterpret_cast<Handle>(module_); }

    std::wstring string(std::uint32_t id, std::size_t maximumLength) override {
        // With length 0 it gives the place of the text itself, which has no end mark.
        const wchar_t* text = nullptr;
        const int length = LoadStringW(module_, id, reinterpret_cast<wchar_t*>(&text), 0);
        if (length <= 0 || !text) {
            return {};
        }
        return std::wstring(text, std::min(static_cast<std::size_t>(length), maximumLength));
    }

    Handle pictureHandle(PictureKind kind, std::uint32_t id, std::uint32_t size) override {
        // Not shared, so that the handle can be given away; of the system's size for icons and cursors.
        const UINT flags = kind == PictureKind::Bitmap || size != 0 ? 0 : LR_DEFAULTSIZE;
        const int side = static_cast<int>(size);
        return reinterpret_cast<Handle>(
            LoadImageW(module_, MAKEINTRESOURCEW(id), imageType(kind), side, side, flags));
    }

    std::vector<std::uint8_t> data(std::uint32_t id, const std::wstring& type) override {
        const std::wstring name = L"#" + std::to_wstring(id);
        HRSRC resource = FindResourceW(module_, name.c_str(), type.c_str());
        HGLOBAL loaded = resource ? LoadResource(module_, resource) : nullptr;
        const auto* bytes = loaded ? static_cast<const std::uint8_t*>(LockResource(loaded)) : nullptr;
        const DWORD size = bytes ? SizeofResource(module_, resource) : 0;
        return std::vector<std::uint8_t>(bytes, bytes + size);
    }

  private:
    static UINT imageType(PictureKind kind) {
        switch (kind) {
            case PictureKind::Icon:
                return IMAGE_ICON;
            case PictureKind::Cursor:
                return IMAGE_CURSOR;
            case PictureKind::Bitmap:
                break;
        }
        return IMAGE_BITMAP;
    }

    HMODULE module_;
    Ownership ownership_;
};

/// Deletes the bitmaps that GetIconInfo made copies of.
void deleteCopies(const ICONINFO& info) {
    for (HBITMAP bitmap : {info.hbmMask, info.hbmColor}) {
        if (bitmap) {
            DeleteObject(bitmap);
        }
    }
}

}  // namespace

WindowsResources::WindowsResources()
    : own_(std::make_unique<ModuleResources>(ownModule(), ModuleResources::Ownership::Lent)) {}

std::unique_ptr<ResourceLibrary> WindowsResources::load(const std::wstring& path,
                                                        std::uint32_t& systemError) {
    HMODULE module = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module) {
        systemError = GetLastError();
        return nullptr;
    }
    systemError = ERROR_SUCCESS;
    return std::make_unique<ModuleResources>(module, ModuleResources::Ownership::Owned);
}

std::int32_t WindowsResources::wrap(PictureKind kind, ResourceLibrary::Handle handle,
                                    std::shared_ptr<Picture>& picture) {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    if (kind == PictureKind::Bitmap) {
        description.picType = PICTYPE_BITMAP;
        description.bmp.hbitmap = reinterpret_cast<HBITMAP>(handle);
    } else {
        description.picType = PICTYPE_ICON;  // OLE has no kind of its own for cursors.
        description.icon.hicon = reinterpret_cast<HICON>(handle);
    }
    ComPtr<IPicture> made;
    const HRESULT result = OleCreatePictureIndirect(&description, IID_IPicture, TRUE, made.putVoid());
    if (SUCCEEDED(result)) {
        picture = std::make_shared<WindowsPicture>(std::move(made), kind);
        return S_OK;
    }
    return result;
}

void WindowsResources::release(ResourceLibrary::Handle handle) {
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) == OBJ_BITMAP) {
        DeleteObject(reinterpret_cast<HGDIOBJ>(handle));
        return;
    }
    ICONINFO info{};
    if (!GetIconInfo(reinterpret_cast<HICON>(handle), &info)) {
        return;
    }
    deleteCopies(info);
    if (info.fIcon) {
        DestroyIcon(reinterpret_cast<HICON>(handle));
    } else {
        DestroyCursor(reinterpret_cast<HCURSOR>(handle));
    }
}

}  // namespace platform::windows
