#pragma once

#include <string>
#include <string_view>

#include "platform/Prompts.h"

namespace program {

/// Reads an answer written as WHERE=WHAT:
///
///     Attachment(s) missing=No
///     frmNoSubject=txtSubject=Budget; cmdOK
///     folder=C:\Users\Ann\Documents
///
/// The WHERE "folder" is the folder browser, and its WHAT the folder's path; an empty one cancels.
/// A WHERE that starts with "frm" and holds only letters, digits and "_" names a form; it ends at the first
/// "=". Anything else is the start of a message box's title and ends at the last "=", as a title may hold one
/// itself. WHAT is Yes, No, OK or Cancel for a message box. For a form it is a list of `control=value` parted
/// by "; " whose last item is the button to press; other items without "=" are buttons too. In a value ";;"
/// stands for ";" where it would part items ("a;b" needs none), and a line feed for a line break.
///
/// Throws std::invalid_argument, with the reason for the user, when the text is none of this.
platform::PromptAnswer parseAnswer(std::wstring_view text);

/// The WHERE=WHAT that gives this answer.
std::wstring answerText(const platform::PromptAnswer& answer);
/// The WHAT that gives this answer.
std::wstring answerText(const platform::FormAnswer& answer);

}  // namespace program
