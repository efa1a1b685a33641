#pragma once

#include <string>
#include <string_view>

namespace program {

/// The text in UTF-8. A character set that is unknown or not given, or that the bytes do not keep to, is
/// taken as UTF-8 where the bytes allow that, else as windows-1252, which Outlook also reads for ISO 8859-1.
/// NULs are dropped: they end texts in mail programs.
std::string toUtf8(std::string_view bytes, std::string charset);

/// The character set that an HTML document names in its head; empty when it names none.
std::string charsetOfHtml(std::string_view html);

/// Every line break, CR LF, LF or CR, as CR LF.
std::string withCrLf(std::string_view text);

}  // namespace program
