#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "addin/menu.h"
#include "mail/Globals.h"
#include "mail/OutlookVersion.h"

/// What the product has in Office's ribbon, as Office reads it: the commands of the menu in the main windows,
/// and a group where mails are written. The texts come from the resource library.
namespace addin::ribbonXml {

// Outlook's names of the kinds of windows.
inline constexpr std::wstring_view explorer = L"Microsoft.Outlook.Explorer";
inline constexpr std::wstring_view mailCompose = L"Microsoft.Outlook.Mail.Compose";

/// The names of the callbacks.
namespace callback {
inline constexpr wchar_t loaded[] = L"RibbonLoaded";
inline constexpr wchar_t picture[] = L"RibbonPicture";
inline constexpr wchar_t account[] = L"RibbonAccount";
inline constexpr wchar_t pressed[] = L"RibbonPressed";
}  // namespace callback

/// The text that shows the preferred account.
inline constexpr wchar_t accountControl[] = L"VeltroPreferredAccount";

/// A button, wherever it stands.
struct Button {
    std::wstring_view id;
    /// None for "Check now", which the menu has not.
    std::optional<menu::Command> command;
    /// The first of three string resources: caption, screen tip, super tip.
    std::uint32_t firstText = 0;
    std::uint32_t picture = 0;
    bool large = false;
    std::wstring_view keytip;
    /// What stands there without the resource library; "%" stands for the product's title.
    const wchar_t* screentip = nullptr;
    const wchar_t* supertip = nullptr;
};

/// Nothing for an id that is none of the product's.
const Button* find(std::wstring_view id);

std::wstring caption(const mail::Globals& globals, const Button& button);

/// For windows of this kind in an Outlook of this version, where it is known; empty for all other windows.
std::wstring make(const mail::Globals& globals, std::wstring_view ribbonId,
                  std::optional<mail::OutlookVersion> version);

}  // namespace addin::ribbonXml
