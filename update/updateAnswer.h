#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/WebAddress.h"

/// What the update service answers, read without any trust in it.
namespace update {

/// The content of the first element of that tag, letter case ignored; empty when there is no such element.
/// Nothing is unescaped, and a tag with attributes is not found.
std::wstring XmlDataGet(std::wstring_view tag, std::wstring_view text);

/// The version as it is shown: with two digits at least behind its last ".".
std::wstring shownVersion(std::wstring_view version);

/// True when the service's version is newer than the installed one and may be offered: one whose first part
/// differs never is, since that is another product to its users. Parts that are missing count as 0; texts
/// that are no versions (two to four numbers of at most 32 bits, joined by ".") are never newer.
bool isNewer(std::wstring_view offered, std::wstring_view installed);

/// A link as the service gave it, and the address that it may be opened as.
struct Link {
    /// On one line, and no longer than an address; empty when there is none.
    std::wstring text;
    /// Nothing when the text is no address on the web.
    std::optional<platform::WebAddress> address;

    static Link of(std::wstring_view given);
};

struct Answer {
    /// False for what is no answer of such a service.
    bool understood = false;
    /// The newest version, its parts joined by "."; empty unless the answer names one.
    std::wstring version;
    /// A few lines for the user; a long text is cut.
    std::wstring message;
    Link freeDownload;
    Link download;
    Link upgradePolicy;
    Link features;
};

/// Any text gives some answer.
Answer readAnswer(std::wstring_view body);

}  // namespace update
