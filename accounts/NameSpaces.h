#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/XmlReader.h"

namespace accounts::rowset {

/// The XML name spaces of a text that is being read. What an element or attribute is depends on its name
/// space, not on the prefix which the text has chosen for it; here it is named as rowsets usually name it:
/// "s:" the schema, "dt:" its data types, "rs:" the rowset, "z:" the rows. A usual prefix that is declared
/// nowhere stands for itself, since people edit these texts by hand.
///
/// Holds views of the text. Throws NotARowset, through the reader, for one of those prefixes that is declared
/// to be something else, and for more declarations than `most`.
class NameSpaces {
  public:
    explicit NameSpaces(std::size_t most) : most_(most) {}

    /// An element has started, with its attributes. Each one is closed, too.
    void open(const XmlReader& xml);
    void close();

    /// Whether the name is the one that is usually written so, e.g. "z:row".
    bool isElement(std::wstring_view name, std::wstring_view usual) const;
    bool isAttribute(std::wstring_view name, std::wstring_view usual) const;
    /// The name with its usual prefix; as it stands when it is in none of these name spaces.
    std::wstring usualElement(std::wstring_view name) const;
    std::wstring usualAttribute(std::wstring_view name) const;

    static bool isDeclaration(std::wstring_view attribute);
    /// The usual prefix of the name space that an attribute declares; empty for any other.
    std::wstring_view declared(std::wstring_view attribute) const;
    struct Usual {
        std::wstring_view prefix;
        /// As it was declared first, or as it usually is.
        std::wstring nameSpace;
    };
    /// In the order in which the data-access components declare them.
    const std::array<Usual, 4>& usual() const { return usual_; }

  private:
    struct Binding {
        std::wstring_view prefix;
        /// Empty for a name space that is none of these.
        std::wstring_view usual;
        std::size_t depth = 0;
    };
    enum class Kind { Element, Attribute };

    std::wstring_view resolve(std::wstring_view prefix) const;
    std::wstring_view usualPrefix(std::wstring_view name, Kind kind) const;
    std::wstring usualName(std::wstring_view name, Kind kind) const;
    bool is(std::wstring_view name, std::wstring_view usual, Kind kind) const;

    std::size_t most_;
    std::vector<Binding> bindings_;
    std::size_t depth_ = 0;
    std::array<Usual, 4> usual_{{{L"s", L"uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882"},
                                 {L"dt", L"uuid:C2F41010-65B3-11d1-A29F-00AA00C14882"},
                                 {L"rs", L"urn:schemas-microsoft-com:rowset"},
                                 {L"z", L"#RowsetSchema"}}};
};

}  // namespace accounts::rowset
