#pragma once

#include <string>

#include "platform/forms.h"

namespace platform::native {

/// The text on a control as it is read: without the mark of its access key, where "&&" is a plain "&".
std::wstring plainCaption(const forms::Control& control);

/// True when a user can do something with the control now.
bool accepts(const forms::Control& control);

/// The control that an access key leads to, letter case ignored: a label's key belongs to the control after
/// it. Null when it leads nowhere.
forms::Control* findByAccessKey(const forms::Form& form, wchar_t key);

}  // namespace platform::native
