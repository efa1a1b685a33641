#pragma once

#include <functional>
#include <string>

#include "platform/automation.h"

namespace host {

/// What an add-in offers for the ribbon.
struct RibbonAddIn {
    /// Its GetCustomUI: the ribbon for a kind of windows, such as "Microsoft.Outlook.Explorer"; empty for one
    /// in which it has nothing. Throws automation::Error.
    std::function<std::wstring(const std::wstring& ribbonId)> customUI;
    /// The object whose members are the callbacks that those ribbons name.
    automation::Object callbacks{};
};

/// A control of an add-in as a window's ribbon shows it.
struct RibbonCommand {
    std::wstring id{};
    /// Outlook's name of the tab, and the caption of the group.
    std::wstring tab{};
    std::wstring group{};
    std::wstring label{};
    std::wstring screentip{};
    std::wstring supertip{};
    std::wstring keytip{};
    /// A button, else a text.
    bool button = false;
    bool large = false;
    bool enabled = true;
    automation::Object picture{};
};

}  // namespace host
