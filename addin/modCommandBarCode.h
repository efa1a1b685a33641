#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/automation.h"

/// Finds and adds the controls of Office's command bars. Every call may throw automation::Error.
namespace addin::modCommandBarCode {

inline constexpr std::int32_t buttonType = 1;
inline constexpr std::int32_t popupType = 10;

/// The first control with this caption among a bar's or popup's controls, the marks of access keys ("&") and
/// letter case ignored, of that type if one is given; nothing when there is none.
automation::Object FindControl(const automation::Object& controls, const std::wstring& caption,
                               std::optional<std::int32_t> type = std::nullopt);

struct Popup {
    automation::Object control;
    /// It was missing: nothing is in it yet that would have to be looked through.
    bool isNew = false;
};

/// The popup with this caption. When it is missing it is added as a temporary one, which Outlook drops when
/// it closes: in front of the control at `before`, counted from 1, or at the end.
Popup FindOrAddPopup(const automation::Object& controls, const std::wstring& caption,
                     std::optional<std::int32_t> before = std::nullopt);
/// The popup with this caption in a popup.
Popup FindOrAddPopup(const Popup& popup, const std::wstring& caption);

/// How a button looks, and what tells it from others.
struct Button {
    std::wstring caption;
    /// The button's own: Office raises the clicks of one button at all that have the same tag.
    std::wstring tag;
    /// There is a line above it.
    bool beginGroup = false;
};

/// A picture and what of it is transparent, or nothing.
struct ButtonPicture {
    automation::Object picture;
    automation::Object mask;
};

/// The button with this caption in a popup, added as a temporary one when it is missing. One whose caption
/// contains "HELP" gets the picture, where Outlook shows one: from 2002 on.
automation::Object FindOrAddButton(const Popup& popup, const Button& button,
                                   const std::function<ButtonPicture()>& helpPicture);

}  // namespace addin::modCommandBarCode
