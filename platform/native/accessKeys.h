#pragma once

#include <string>
#include <string_view>

#include "platform/forms.h"

namespace platform::native {

/// The text on a control without the mark of its access key; "&&" is a plain "&".
std::wstring plainCaption(std::wstring_view caption);

/// True when a user can do something with the control now.
bool accepts(const forms::Control& control);

/// The control that an access key leads to, letter case ignored: a label's key belongs to the control after
/// it. Null when it leads nowhere.
forms::Control* findByAccessKey(const forms::Form& form, wchar_t key);

}  // namespace platform::native
