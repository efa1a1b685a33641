#include "robot/DialogRobot.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "platform/windows/comErrors.h"
#include "platform/windows/dialogProperties.h"
#include "robot/dialogDriver.h"

namespace robot {

using namespace platform;
using namespace platform::windows;

namespace {

/// How often the robot looks at the screen, in milliseconds.
constexpr DWORD watchInterval = 10;
/// On a dialog that the robot works on: the work's mark.
constexpr wchar_t markProperty[] = L"Veltro.Robot";

ULONG_PTR markOf(HWND dialog) {
    return reinterpret_cast<ULONG_PTR>(GetPropW(dialog, markProperty));
}

}  // namespace

DialogRobot::DialogRobot(Answers answers) : answers_(std::move(answers)) {
    stop_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    thread_ = stop_ ? CreateThread(nullptr, 0, &DialogRobot::threadMain, this, 0, nullptr) : nullptr;
    if (!thread_) {
        const automation::Error error = errorOf(HRESULT_FROM_WIN32(GetLastError()));
        if (stop_) {
            CloseHandle(stop_);
        }
        throw error;
    }
}

DialogRobot::~DialogRobot() {
    SetEvent(stop_);
    // The robot may be waiting for an answer of this thread's windows.
    while (MsgWaitForMultipleObjects(1, &thread_, FALSE, INFINITE, QS_SENDMESSAGE) == WAIT_OBJECT_0 + 1) {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | (QS_SENDMESSAGE << 16));
    }
    CloseHandle(thread_);
    CloseHandle(stop_);
}

std::optional<std::wstring> DialogRobot::unanswered() const {
    const std::lock_guard lock(mutex_);
    return unanswered_;
}

DWORD WINAPI DialogRobot::threadMain(void* robot) noexcept {
    static_cast<DialogRobot*>(robot)->watch();
    return 0;
}

void DialogRobot::watch() {
    while (WaitForSingleObject(stop_, watchInterval) == WAIT_TIMEOUT) {
        try {
            HWND dialog = dialogDriver::topDialog();
            dropFinished(dialog);
            if (!dialog) {
                continue;
            }
            dialogDriver::settle(dialog);
            if (dialogDriver::topDialog() == dialog && !isBusy(dialog)) {
                attend(dialog);
            }
        } catch (const automation::Error& error) {
            giveUp(error.description());
        } catch (const std::exception& error) {
            giveUp(text::fromUtf8(error.what()));
        }
    }
}

void DialogRobot::attend(HWND dialog) {
    const auto form = attachedName(dialog, formNameProperty);
    if (isFolderBrowser(dialog)) {
        unanswered() ? dialogDriver::cancel(dialog) : attendFolderBrowser(dialog);
        return;
    }
    if (!unanswered()) {
        form ? attendForm(dialog, *form) : attendMessageBox(dialog);
        return;
    }
    const Answer neutral = neutralAnswer(dialogDriver::describeMessageBox(dialog).style.buttons);
    if (form || !dialogDriver::answerMessageBox(dialog, neutral)) {
        dialogDriver::cancel(dialog);
    }
}

void DialogRobot::attendMessageBox(HWND dialog) {
    const MessagePrompt prompt = dialogDriver::describeMessageBox(dialog);
    const auto answer = answers_.message(prompt);
    if (!answer || !dialogDriver::answerMessageBox(dialog, *answer)) {
        giveUp(L"no answer for the message \"" + prompt.title + L"\"");
    }
}

void DialogRobot::attendFolderBrowser(HWND dialog) {
    const FolderPrompt prompt = dialogDriver::describeFolderBrowser(dialog);
    const auto answer = answers_.folder ? answers_.folder(prompt) : std::nullopt;
    if (!answer) {
        giveUp(L"no answer for the folder browser \"" + prompt.title + L"\"");
    } else if (!dialogDriver::chooseFolder(dialog, answer->path)) {
        giveUp(L"the folder browser cannot choose \"" + answer->path + L"\"");
    }
}

void DialogRobot::attendForm(HWND dialog, const std::wstring& name) {
    if (Work* work = workOn(dialog)) {
        if (!work->keyPressed) {
            step(*work);
        }
        return;
    }
    const FormPrompt prompt = dialogDriver::describeForm(dialog, name);
    if (!attachedName(dialog, formNameProperty)) {  // One that waited has closed meanwhile.
        return;
    }
    auto answer = answers_.form(prompt);
    if ((!answer && prompt.waits) || !attachedName(dialog, formNameProperty)) {
        return;
    }
    if (!answer) {
        giveUp(L"no answer for the form " + name + L" \"" + prompt.caption + L"\"");
        return;
    }
    SetPropW(dialog, markProperty, reinterpret_cast<HANDLE>(++lastMark_));
    work_.push_back({dialog, lastMark_, name, std::move(*answer)});
    step(work_.back());
}

void DialogRobot::step(Work& work) {
    if (work.next == work.answer.entries.size()) {
        press(work);
        return;
    }
    const auto& [name, value] = work.answer.entries[work.next++];
    HWND control = dialogDriver::findControl(work.dialog, name);
    if (!control) {
        giveUp(L"the form " + work.form + L" has no control " + name);
    } else if (!dialogDriver::enter(control, value)) {
        giveUp(L"the control " + name + L" of the form " + work.form + L" cannot take \"" + value +
               L"\" now");
    }
}

void DialogRobot::press(Work& work) {
    const std::wstring button = work.answer.button;
    HWND dialog = work.dialog;
    if (button.starts_with(L'{')) {
        // Marked before it is pressed: afterwards the dialog may be gone.
        work.keyPressed = true;
        if (!dialogDriver::pressKey(dialog, button)) {
            giveUp(L"there is no key " + button);
        }
        return;
    }
    const std::wstring form = work.form;
    drop(work);  // A form that stays open is asked about anew.
    if (button.empty()) {
        return;
    }
    HWND control = dialogDriver::findControl(dialog, button);
    if (!control) {
        giveUp(L"the form " + form + L" has no control " + button);
    } else if (!dialogDriver::enter(control, {})) {
        giveUp(L"the control " + button + L" of the form " + form + L" cannot be pressed now");
    }
}

DialogRobot::Work* DialogRobot::workOn(HWND dialog) {
    const auto found = std::ranges::find_if(work_, [dialog, mark = markOf(dialog)](const Work& work) {
        return work.dialog == dialog && work.mark == mark;
    });
    return found == work_.end() ? nullptr : &*found;
}

void DialogRobot::drop(const Work& work) {
    if (markOf(work.dialog) == work.mark) {
        RemovePropW(work.dialog, markProperty);
    }
    std::erase_if(work_, [mark = work.mark](const Work& other) { return other.mark == mark; });
}

/// Forgets dialogs that closed, and those where a key has done something: they are asked about anew.
void DialogRobot::dropFinished(HWND top) {
    const std::vector<Work> known = work_;
    for (const Work& work : known) {
        const bool closed = markOf(work.dialog) != work.mark || !IsWindowVisible(work.dialog);
        if (closed || (work.keyPressed && work.dialog != top)) {
            drop(work);
        }
    }
}

void DialogRobot::giveUp(std::wstring why) {
    const std::lock_guard lock(mutex_);
    if (!unanswered_) {
        unanswered_ = std::move(why);
    }
}

}  // namespace robot
