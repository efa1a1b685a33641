#include "platform/windows/folderBrowser.h"

#include <ole2.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <memory>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/comErrors.h"
#include "platform/windows/dialogProperties.h"

namespace platform::windows {

namespace {

/// OLE as the present browser needs it. Outlook has made it ready on its thread; then this only counts.
class Ole {
  public:
    Ole() : result_(OleInitialize(nullptr)) {}
    Ole(const Ole&) = delete;
    Ole& operator=(const Ole&) = delete;
    ~Ole() {
        if (ready()) {
            OleUninitialize();
        }
    }
    bool ready() const { return SUCCEEDED(result_); }

  private:
    HRESULT result_;
};

struct FreeIdList {
    void operator()(ITEMIDLIST* list) const { CoTaskMemFree(list); }
};

int CALLBACK markWhenReady(HWND dialog, UINT message, LPARAM, LPARAM) {
    if (message == BFFM_INITIALIZED) {
        markFolderBrowser(dialog);
    }
    return 0;
}

/// SHGetPathFromIDList has room for MAX_PATH characters only; a folder's own name for itself has any length.
std::wstring pathOf(const ITEMIDLIST* folder) {
    ComPtr<IShellFolder> parent;
    const ITEMIDLIST* child = nullptr;
    check(SHBindToParent(folder, IID_IShellFolder, parent.putVoid(), &child));
    STRRET name{};
    check(parent->GetDisplayNameOf(child, SHGDN_FORPARSING, &name));
    BSTR path = nullptr;
    check(StrRetToBSTR(&name, child, &path));
    return Bstr::toText(Bstr::adopt(path).get());
}

}  // namespace

std::wstring browseForFolder(HWND owner, const std::wstring& title) {
    const Ole ole;
    wchar_t displayName[MAX_PATH] = L"";
    BROWSEINFOW info{};
    info.hwndOwner = owner;
    info.pszDisplayName = displayName;
    info.lpszTitle = title.c_str();
    // The resizable browser that can make new folders fails without OLE.
    info.ulFlags = BIF_RETURNONLYFSDIRS | (ole.ready() ? BIF_NEWDIALOGSTYLE : 0);
    info.lpfn = &markWhenReady;
    const std::unique_ptr<ITEMIDLIST, FreeIdList> chosen(SHBrowseForFolderW(&info));
    return chosen ? pathOf(chosen.get()) : std::wstring();
}

}  // namespace platform::windows
