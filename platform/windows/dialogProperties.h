#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/forms.h"

/// How programs that drive the add-in's dialogs find their way in them: each dialog and each of its controls
/// carries its name as a window property, readable from every process (GetProp gives an atom,
/// GlobalGetAtomName its text).
namespace platform::windows {

/// On the dialog: the atom of the form's name.
inline constexpr wchar_t formNameProperty[] = L"Veltro.Form";
/// On a control: the atom of its name.
inline constexpr wchar_t controlNameProperty[] = L"Veltro.Control";
/// On a control: its forms::Kind as a number, plus 1.
inline constexpr wchar_t controlKindProperty[] = L"Veltro.Kind";

/// On the dialog, while one of its handlers runs: it may be the top one and yet not wait for the user, when a
/// dialog that the handler has shown is just closing.
inline constexpr wchar_t busyProperty[] = L"Veltro.Busy";

/// On the dialog of a form that waits for something else than the user.
inline constexpr wchar_t waitsProperty[] = L"Veltro.Waits";

/// On the system's folder browser while the add-in shows it.
inline constexpr wchar_t folderBrowserProperty[] = L"Veltro.FolderBrowser";

/// Attaches a name of at most 255 characters.
void attachName(HWND window, const wchar_t* property, const std::wstring& name);
/// Must be called before the window goes, or the atom stays.
void detachName(HWND window, const wchar_t* property);
/// Nothing when the window has no such property.
std::optional<std::wstring> attachedName(HWND window, const wchar_t* property);

void attachKind(HWND window, forms::Kind kind);
void detachKind(HWND window);
std::optional<forms::Kind> attachedKind(HWND window);

/// Marks a dialog as busy for as long as it lives; handlers may be nested.
class BusyMark {
  public:
    explicit BusyMark(HWND dialog);
    BusyMark(const BusyMark&) = delete;
    BusyMark& operator=(const BusyMark&) = delete;
    ~BusyMark();

  private:
    HWND dialog_;
};
bool isBusy(HWND dialog);

void markWaiting(HWND dialog);
bool isWaiting(HWND dialog);
void markFolderBrowser(HWND dialog);
bool isFolderBrowser(HWND dialog);

}  // namespace platform::windows
