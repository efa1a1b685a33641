#include "accounts/NameSpaces.h"

#include <algorithm>
#include <iterator>
#include <ranges>

#include "platform/text.h"

namespace accounts::rowset {

namespace {

constexpr std::wstring_view declaration = L"xmlns";

struct Known {
    std::wstring_view name;
    std::wstring_view usual;
};
/// The components write the first names of schema and data types, which stand for the second ones.
constexpr Known knownSpaces[] = {{L"uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882", L"s"},
                                 {L"urn:schemas-microsoft-com:xml-data", L"s"},
                                 {L"uuid:C2F41010-65B3-11d1-A29F-00AA00C14882", L"dt"},
                                 {L"urn:schemas-microsoft-com:datatypes", L"dt"},
                                 {L"urn:schemas-microsoft-com:rowset", L"rs"}};

constexpr std::wstring_view usualPrefixes[] = {L"s", L"dt", L"rs", L"z"};

bool isUsualPrefix(std::wstring_view prefix) {
    return std::ranges::find(usualPrefixes, prefix) != std::end(usualPrefixes);
}

/// That of the rows refers to the schema by its id; of the data types nothing depends on theirs. Letter case
/// is not worth a list that cannot be read.
std::wstring_view usualPrefixOf(std::wstring_view nameSpace, std::wstring_view declaredPrefix) {
    if (nameSpace.starts_with(L'#')) {
        return L"z";
    }
    const auto known = std::ranges::find_if(
        knownSpaces, [&](const Known& each) { return text::equalsIgnoringCase(each.name, nameSpace); });
    if (known != std::end(knownSpaces)) {
        return known->usual;
    }
    return declaredPrefix == L"dt" ? declaredPrefix : std::wstring_view();
}

std::wstring_view prefixOf(std::wstring_view name) {
    const auto colon = name.find(L':');
    return colon == std::wstring_view::npos ? std::wstring_view() : name.substr(0, colon);
}

std::wstring_view localPart(std::wstring_view name) {
    return name.substr(name.find(L':') + 1);  // All of it when there is no prefix.
}

std::wstring_view declaredPrefix(std::wstring_view attribute) {
    return attribute == declaration ? std::wstring_view() : localPart(attribute);
}

}  // namespace

bool NameSpaces::isDeclaration(std::wstring_view attribute) {
    return attribute == declaration || prefixOf(attribute) == declaration;
}

void NameSpaces::open(const XmlReader& xml) {
    ++depth_;
    for (const XmlReader::Attribute& attribute : xml.attributes()) {
        if (!isDeclaration(attribute.name)) {
            continue;
        }
        const std::wstring nameSpace = xml.decoded(attribute);
        const std::wstring_view prefix = declaredPrefix(attribute.name);
        const std::wstring_view usual = usualPrefixOf(nameSpace, prefix);
        if (usual.empty() && isUsualPrefix(prefix)) {
            xml.refuse("a name space that is none of a rowset's");
        }
        if (bindings_.size() == most_) {
            xml.refuse("too many name spaces");
        }
        const bool isFirst = std::ranges::find(bindings_, usual, &Binding::usual) == bindings_.end();
        if (!usual.empty() && isFirst) {
            std::ranges::find(usual_, usual, &Usual::prefix)->nameSpace = nameSpace;
        }
        bindings_.push_back({prefix, usual, depth_});
    }
}

void NameSpaces::close() {
    while (!bindings_.empty() && bindings_.back().depth == depth_) {
        bindings_.pop_back();
    }
    --depth_;
}

std::wstring_view NameSpaces::resolve(std::wstring_view prefix) const {
    for (const Binding& binding : std::views::reverse(bindings_)) {
        if (binding.prefix == prefix) {
            return binding.usual;
        }
    }
    return isUsualPrefix(prefix) ? prefix : std::wstring_view();
}

/// An attribute without a prefix is in no name space; an element is in the one declared without a prefix.
std::wstring_view NameSpaces::usualPrefix(std::wstring_view name, Kind kind) const {
    const std::wstring_view prefix = prefixOf(name);
    return prefix.empty() && kind == Kind::Attribute ? std::wstring_view() : resolve(prefix);
}

std::wstring NameSpaces::usualName(std::wstring_view name, Kind kind) const {
    const std::wstring_view prefix = usualPrefix(name, kind);
    if (prefix.empty()) {
        return std::wstring(name);
    }
    return std::wstring(prefix).append(L":").append(localPart(name));
}

bool NameSpaces::is(std::wstring_view name, std::wstring_view usual, Kind kind) const {
    return localPart(name) == localPart(usual) && usualPrefix(name, kind) == prefixOf(usual);
}

bool NameSpaces::isElement(std::wstring_view name, std::wstring_view usual) const {
    return is(name, usual, Kind::Element);
}

bool NameSpaces::isAttribute(std::wstring_view name, std::wstring_view usual) const {
    return is(name, usual, Kind::Attribute);
}

std::wstring NameSpaces::usualElement(std::wstring_view name) const {
    return usualName(name, Kind::Element);
}

std::wstring NameSpaces::usualAttribute(std::wstring_view name) const {
    return usualName(name, Kind::Attribute);
}

std::wstring_view NameSpaces::declared(std::wstring_view attribute) const {
    return resolve(declaredPrefix(attribute));
}

}  // namespace accounts::rowset
