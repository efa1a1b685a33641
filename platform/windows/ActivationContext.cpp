#include "platform/windows/ActivationContext.h"

#include <commctrl.h>

#include "platform/windows/ownModule.h"

namespace platform::windows {

namespace {

HANDLE createContext() {
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.hModule = ownModule();
    context.lpResourceName = MAKEINTRESOURCEW(dialogManifest);
    return CreateActCtxW(&context);
}

/// XP makes no dialog with version 6 controls before they are initialised, and no Windows one with a list
/// view before its class is registered. A linked call would reach the host's version.
void initialise(HMODULE commonControls) {
    using Initialise = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
    const auto function = reinterpret_cast<Initialise>(
        reinterpret_cast<void*>(GetProcAddress(commonControls, "InitCommonControlsEx")));
    if (function) {
        const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES};
        function(&classes);
    }
}

}  // namespace

ActivationContext::ActivationContext() : handle_(createContext()) {
    const Scope scope(*this);
    commonControls_ = LoadLibraryW(L"comctl32.dll");
    if (commonControls_) {
        initialise(commonControls_);
    }
}

ActivationContext::~ActivationContext() {
    if (commonControls_) {
        FreeLibrary(commonControls_);
    }
    if (handle_ != INVALID_HANDLE_VALUE) {
        ReleaseActCtx(handle_);
    }
}

ActivationContext::Scope::Scope(const ActivationContext& context)
    : active_(context.handle_ != INVALID_HANDLE_VALUE && ActivateActCtx(context.handle_, &cookie_)) {}

ActivationContext::Scope::~Scope() {
    if (active_) {
        DeactivateActCtx(0, cookie_);
    }
}

}  // namespace platform::windows
