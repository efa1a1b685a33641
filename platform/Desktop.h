#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/WebAddress.h"

namespace forms {
class Form;
}

namespace platform {

/// Values of the button sets and icons of the Windows message box; a style is their sum.
enum class Buttons { Ok = 0, OkCancel = 1, YesNo = 4 };
enum class Icon { None = 0, Critical = 16, Question = 32, Warning = 48, Information = 64 };

/// Buttons of a message box by the numbers that Windows returns.
enum class Answer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

struct MessageStyle {
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
};

/// What came of showing a help file.
enum class HelpOutcome {
    Shown,
    /// There is no such file.
    Missing,
    /// It lies on a network drive, from where Windows shows frames without text.
    OnNetwork
};

/// What the viewer of help files shows beside a topic, by the numbers of its commands.
enum class HelpView { Topic = 0, Contents = 1 };

/// A timer that runs as long as it lives.
class Timer {
  public:
    virtual ~Timer() = default;
};

/// What the user sees and hears, on Outlook's user-interface thread. What asks is modal.
class Desktop {
  public:
    virtual ~Desktop() = default;
    /// A message box owned by the window in the foreground, which gets the foreground back. Closing a YesNo
    /// box is not possible; closing an Ok box answers Ok.
    virtual Answer messageBox(const std::wstring& prompt, MessageStyle style, const std::wstring& title) = 0;
    /// The system's alert sound; a machine that cannot sound it stays silent.
    virtual void beep() = 0;
    /// Shows the form until it hides itself.
    virtual void showModal(forms::Form& form) = 0;
    /// Opens the help file at the topic, a path inside of it, or at its default topic when that is empty.
    /// Throws automation::Error when the viewer cannot show it.
    virtual HelpOutcome showHelp(const std::wstring& file, const std::wstring& topic, HelpView view) = 0;
    /// The system's folder browser over Outlook's window; `title` tells what the folder is for. The folder's
    /// path, however long, or an empty text when the user cancels. Throws automation::Error when the chosen
    /// folder has no path.
    virtual std::wstring chooseFolder(const std::wstring& title) = 0;
    /// Opens the page in the user's browser. Throws automation::Error when the system cannot.
    virtual void openAddress(const WebAddress& address) = 0;
    /// Starts the program in that file with a normal window and does not wait for it. Throws
    /// automation::Error when the system cannot.
    virtual void startProgram(const std::wstring& path) = 0;
    /// Calls `due` each time that `interval` has passed, from the thread's message loop: also while a dialog
    /// is open. `due` may destroy the timer. Throws automation::Error when the system has none left.
    virtual std::unique_ptr<Timer> startTimer(std::chrono::milliseconds interval,
                                              std::function<void()> due) = 0;
    /// Lets the host handle the events that wait for it; they may arrive inside this call.
    virtual void processPendingEvents() = 0;
};

}  // namespace platform
