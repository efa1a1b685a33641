#pragma once

#include <windows.h>

#include <cstddef>
#include <vector>

#include "platform/forms.h"

namespace platform::windows {

/// The id of the first control's window; the others follow as the form declares them.
inline constexpr WORD firstControlId = 1000;

/// A dialog resource for the form, as DialogBoxIndirect takes it: an extended dialog template. Its controls
/// have no texts yet and are all visible and enabled.
std::vector<DWORD> dialogTemplate(const forms::Form& form);

}  // namespace platform::windows
