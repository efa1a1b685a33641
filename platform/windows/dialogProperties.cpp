#include "platform/windows/dialogProperties.h"

namespace platform::windows {

namespace {

/// The longest text that an atom can have.
constexpr int longestName = 255;

/// What a property holds that only needs to be there.
const HANDLE mark = reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(1));

ATOM atomOf(HANDLE property) {
    return static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(property));
}

}  // namespace

void attachName(HWND window, const wchar_t* property, const std::wstring& name) {
    const ATOM atom = GlobalAddAtomW(name.c_str());
    if (atom != 0 && !SetPropW(window, property, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(atom)))) {
        GlobalDeleteAtom(atom);
    }
}

void detachName(HWND window, const wchar_t* property) {
    if (const ATOM atom = atomOf(RemovePropW(window, property))) {
        GlobalDeleteAtom(atom);
    }
}

std::optional<std::wstring> attachedName(HWND window, const wchar_t* property) {
    const ATOM atom = atomOf(GetPropW(window, property));
    wchar_t name[longestName + 1];
    const UINT length = atom != 0 ? GlobalGetAtomNameW(atom, name, longestName + 1) : 0;
    return length > 0 ? std::optional(std::wstring(name, length)) : std::nullopt;
}

void attachKind(HWND window, forms::Kind kind) {
    SetPropW(window, controlKindProperty, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(kind) + 1));
}

void detachKind(HWND window) {
    RemovePropW(window, controlKindProperty);
}

BusyMark::BusyMark(HWND dialog) : dialog_(isBusy(dialog) ? nullptr : dialog) {
    if (dialog_) {
        SetPropW(dialog_, busyProperty, mark);
    }
}

BusyMark::~BusyMark() {
    if (dialog_) {
        RemovePropW(dialog_, busyProperty);
    }
}

bool isBusy(HWND dialog) {
    return GetPropW(dialog, busyProperty) != nullptr;
}

void markWaiting(HWND dialog) {
    SetPropW(dialog, waitsProperty, mark);
}

bool isWaiting(HWND dialog) {
    return GetPropW(dialog, waitsProperty) != nullptr;
}

void markFolderBrowser(HWND dialog) {
    SetPropW(dialog, folderBrowserProperty, mark);
}

bool isFolderBrowser(HWND dialog) {
    return GetPropW(dialog, folderBrowserProperty) != nullptr;
}

std::optional<forms::Kind> attachedKind(HWND window) {
    const auto stored = reinterpret_cast<ULONG_PTR>(GetPropW(window, controlKindProperty));
    return stored != 0 ? std::optional(static_cast<forms::Kind>(stored - 1)) : std::nullopt;
}

}  // namespace platform::windows
