#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace host::ribbonXml {

/// An element of an add-in's ribbon.
struct Element {
    std::wstring name{};
    std::map<std::wstring, std::wstring, std::less<>> attributes{};
    std::vector<Element> children{};

    /// The attribute's value; empty when it is not given.
    std::wstring attribute(std::wstring_view attributeName) const;
};

/// For which window of which Outlook a ribbon is meant.
struct Place {
    /// As Outlook names its kinds of windows: "Microsoft.Outlook.Explorer".
    std::wstring_view ribbonId;
    /// Outlook's major version.
    int version = 0;
};

/// Reads the ribbon that an add-in gives Outlook for a kind of windows. Throws automation::Error, with the
/// reason, for what Outlook would not load: text that is no XML, the name space of a later Office, elements
/// and attributes that are unknown or stand in the wrong place, two attributes for one thing, ids that are
/// missing or given twice, texts that are too long, tabs that such a window has not.
///
/// Of the published elements only those are known that the add-in may need; all others are refused.
Element read(const std::wstring& text, Place place);

}  // namespace host::ribbonXml
