#pragma once

#include <windows.h>

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/Prompts.h"

namespace robot {

/// Answers this process's real dialogs in a person's place: the message boxes and forms of the add-in, found
/// by their windows and moved by the messages that typing and clicking make. Forms and controls are addressed
/// by the names that dialogProperties.h attaches to them. So is the system's folder browser.
///
/// A thread of its own watches the windows, because the thread that shows a dialog is inside it until it
/// closes; the robot calls `answers` on that thread, never two at once. The dialog on top is asked about; a
/// form that stays open after its button is asked about again, and one below another dialog waits. A prompt
/// that gets no answer, or one that cannot be carried out, ends the conversation: it and all that follow are
/// answered so that nothing happens (No, Cancel, the close box).
///
/// Besides a control's name, a FormAnswer's button may be a key: "{Enter}", "{Escape}", or "{Alt+x}" for the
/// access key x. A key must close the form or open another dialog.
class DialogRobot {
  public:
    struct Answers {
        std::function<std::optional<platform::Answer>(const platform::MessagePrompt&)> message;
        /// Asked again and again about a form that waits, as long as there is none.
        std::function<std::optional<platform::FormAnswer>(const platform::FormPrompt&)> form;
        /// Null where no folder browser is expected.
        std::function<std::optional<platform::FolderAnswer>(const platform::FolderPrompt&)> folder = nullptr;
    };

    /// Watches from now on. Throws automation::Error when Windows gives it no thread.
    explicit DialogRobot(Answers answers);
    DialogRobot(const DialogRobot&) = delete;
    DialogRobot& operator=(const DialogRobot&) = delete;
    /// Ends the watch; on the thread that shows the dialogs, with none open.
    ~DialogRobot();

    /// Which prompt found no answer, and why, in words for the user; nothing as long as all found one.
    std::optional<std::wstring> unanswered() const;

  private:
    /// What is to be done to a form, one step each time that the form is on top: a step may open a dialog.
    struct Work {
        HWND dialog;
        /// Tells this dialog from a later one whose window has the same handle.
        ULONG_PTR mark;
        std::wstring form;
        platform::FormAnswer answer;
        std::size_t next = 0;
        bool keyPressed = false;
    };

    static DWORD WINAPI threadMain(void* robot) noexcept;
    void watch();
    void attend(HWND dialog);
    void attendMessageBox(HWND dialog);
    void attendFolderBrowser(HWND dialog);
    void attendForm(HWND dialog, const std::wstring& name);
    void step(Work& work);
    void press(Work& work);
    Work* workOn(HWND dialog);
    void drop(const Work& work);
    void dropFinished(HWND top);
    void giveUp(std::wstring why);

    Answers answers_;
    std::vector<Work> work_;
    ULONG_PTR lastMark_ = 0;

    mutable std::mutex mutex_;
    std::optional<std::wstring> unanswered_;

    HANDLE stop_ = nullptr;
    HANDLE thread_ = nullptr;
};

}  // namespace robot
