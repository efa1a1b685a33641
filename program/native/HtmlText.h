#pragma once

#include <string>
#include <string_view>

namespace program {

/// The text of an HTML mail, both in UTF-8, as Outlook gives it in Body: lines broken where the mail breaks
/// them, a blank line between paragraphs, the target of a link behind it in angle brackets. Lines end in
/// CR LF. Any input gives some text.
std::string htmlToText(std::string_view html);

}  // namespace program
