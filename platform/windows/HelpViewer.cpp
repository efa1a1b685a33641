#include "platform/windows/HelpViewer.h"

#include <cstring>

#include "platform/windows/comErrors.h"

namespace platform::windows {

namespace {

constexpr UINT closeAll = 0x12;

}  // namespace

HelpViewer::~HelpViewer() {
    if (htmlHelp_) {
        htmlHelp_(nullptr, nullptr, closeAll, 0);
    }
    if (module_) {
        FreeLibrary(module_);
    }
}

HelpViewer::HtmlHelp HelpViewer::htmlHelp() {
    if (!htmlHelp_) {
        wchar_t path[MAX_PATH];
        const UINT length = GetSystemDirectoryW(path, MAX_PATH);
        const std::wstring folder(path, length < MAX_PATH ? length : 0);
        module_ = module_ ? module_ : LoadLibraryW((folder + L"\\hhctrl.ocx").c_str());
        const FARPROC found = module_ ? GetProcAddress(module_, "HtmlHelpW") : nullptr;
        if (!found) {
            throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
        }
        static_assert(sizeof found == sizeof htmlHelp_);
        std::memcpy(&htmlHelp_, &found, sizeof htmlHelp_);
    }
    return htmlHelp_;
}

void HelpViewer::show(const std::wstring& address, HelpView view) {
    if (!htmlHelp()(nullptr, address.c_str(), static_cast<UINT>(view), 0)) {
        throw errorOf(HRESULT_FROM_WIN32(ERROR_FILE_INVALID));
    }
}

}  // namespace platform::windows
