#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/Prompts.h"

/// Sees and moves this process's dialogs, and those of one other, from another thread, by window messages
/// alone. What opens or closes dialogs in its turn is sent without waiting, in the order of the calls;
/// settle() waits.
namespace robot::dialogDriver {

/// Dialogs of that process are this one's, too, from now on; 0 ends it. Of lists they have combo boxes only.
void watchProcess(DWORD process);
/// The dialog on top that a user could act on now; null when there is none.
HWND topDialog();
/// Waits until all that was sent to the dialog is done, or until its thread waits in another dialog.
void settle(HWND dialog);

platform::MessagePrompt describeMessageBox(HWND dialog);
/// The title is what the browser says above its folders.
platform::FolderPrompt describeFolderBrowser(HWND dialog);
platform::FormPrompt describeForm(HWND dialog, const std::wstring& name);

/// Presses the button of a message box; false when it has none such.
bool answerMessageBox(HWND dialog, platform::Answer answer);

/// Chooses a folder, or cancels when `path` is empty; false when there is no such folder.
bool chooseFolder(HWND dialog, const std::wstring& path);

/// A control of a form by its name, letter case ignored; null when there is none.
HWND findControl(HWND form, const std::wstring& name);
/// Brings a control to a value as typing and clicking do; false when a user could not do this now.
bool enter(HWND control, const std::wstring& value);
/// Presses "{Enter}", "{Escape}" or "{Alt+x}"; false when `key` is none of them. Keys are posted: settle()
/// does not wait for them.
bool pressKey(HWND form, const std::wstring& key);
/// What Escape and the close box do.
void cancel(HWND dialog);

}  // namespace robot::dialogDriver
