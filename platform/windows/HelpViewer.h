#pragma once

#include <windows.h>

#include <string>

#include "platform/Desktop.h"

namespace platform::windows {

/// The HTML Help viewer. Loaded when it is first asked for: hardly any start of Outlook needs it. Its window
/// has no owner, works in the caller's message loop and is closed at the latest with this.
class HelpViewer {
  public:
    HelpViewer() = default;
    HelpViewer(const HelpViewer&) = delete;
    HelpViewer& operator=(const HelpViewer&) = delete;
    ~HelpViewer();

    /// `address` is a file, or "file::/topic". Throws automation::Error when the viewer is missing or shows
    /// nothing.
    void show(const std::wstring& address, HelpView view);

  private:
    using HtmlHelp = HWND(WINAPI*)(HWND caller, LPCWSTR file, UINT command, DWORD_PTR data);

    HtmlHelp htmlHelp();

    HMODULE module_ = nullptr;
    HtmlHelp htmlHelp_ = nullptr;
};

}  // namespace platform::windows
