#include "program/windows/DebugListener.h"

#include <windows.h>

#include "platform/windows/WindowsSystemInfo.h"

namespace program::windows {

namespace {

/// Windows hands a handler nothing of its owner's.
DebugListener* listener = nullptr;

/// A text for a debugger is raised as an exception, which others see on its way.
LONG CALLBACK onRaised(EXCEPTION_POINTERS* raised) {
    constexpr DWORD debugText = 0x40010006;  // DBG_PRINTEXCEPTION_C
    const EXCEPTION_RECORD& record = *raised->ExceptionRecord;
    if (listener && record.ExceptionCode == debugText && record.NumberParameters >= 2) {
        const auto* text = reinterpret_cast<const char*>(record.ExceptionInformation[1]);
        const auto length = static_cast<std::size_t>(record.ExceptionInformation[0]);
        listener->hear({text, length > 0 ? length - 1 : 0});  // The zero at its end is counted.
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

DebugListener::DebugListener() : handler_(AddVectoredExceptionHandler(1, &onRaised)) {
    listener = this;
}

DebugListener::~DebugListener() {
    listener = nullptr;
    RemoveVectoredExceptionHandler(handler_);
}

void DebugListener::hear(std::string text) {
    const std::string prefix = platform::windows::WindowsSystemInfo::debugPrefix;
    if (text.starts_with(prefix) && text.ends_with('\n')) {
        lines_.push_back(text.substr(prefix.size(), text.size() - prefix.size() - 1));
    }
}

}  // namespace program::windows
