#include "robot/onThreadOf.h"

#include <exception>

namespace robot {

namespace {

struct Run {
    const std::function<void()>& work;
    HHOOK hook = nullptr;
    bool done = false;
    std::exception_ptr failure = nullptr;

    void operator()() noexcept {
        done = true;
        UnhookWindowsHookEx(hook);  // It has seen what it was for; the work sends messages too.
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
    }
};

UINT runMessage() {
    return RegisterWindowMessageW(L"Veltro.Run");
}

/// Sees each message that is sent to a window of the thread, on that thread.
LRESULT CALLBACK watchSent(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent.message == runMessage()) {
        (*reinterpret_cast<Run*>(sent.lParam))();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

void onThreadOf(HWND window, const std::function<void()>& work) {
    Run run{work};
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) {  // The work is code of this process.
        work();
        return;
    }
    run.hook = SetWindowsHookExW(WH_CALLWNDPROC, &watchSent, nullptr, thread);
    SendMessageW(window, runMessage(), 0, reinterpret_cast<LPARAM>(&run));
    if (!run.done) {  // No hook was allowed.
        run();
    }
    if (run.failure) {
        std::rethrow_exception(run.failure);
    }
}

}  // namespace robot
