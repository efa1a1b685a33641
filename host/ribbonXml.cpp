#include "host/ribbonXml.h"

#include <algorithm>
#include <set>
#include <span>

#include "platform/XmlReader.h"
#include "platform/automation.h"
#include "platform/text.h"

namespace host::ribbonXml {

namespace {

using Names = std::span<const std::wstring_view>;

constexpr int office2007 = 12;
constexpr int office2010 = 14;
constexpr int office2013 = 15;

/// Name spaces of the published schemas, with the first version that knows them.
constexpr std::pair<std::wstring_view, int> nameSpaces[] = {
    {L"http://schemas.microsoft.com/office/2006/01/customui", office2007},
    {L"http://schemas.microsoft.com/office/2009/07/customui", office2010}};

// What may be asked for by a callback in place of being given.
constexpr std::wstring_view visible[] = {L"visible", L"getVisible"};
constexpr std::wstring_view label[] = {L"label", L"getLabel"};
constexpr std::wstring_view keytip[] = {L"keytip", L"getKeytip"};
constexpr std::wstring_view enabled[] = {L"enabled", L"getEnabled"};
constexpr std::wstring_view screentip[] = {L"screentip", L"getScreentip"};
constexpr std::wstring_view supertip[] = {L"supertip", L"getSupertip"};
constexpr std::wstring_view showLabel[] = {L"showLabel", L"getShowLabel"};
constexpr std::wstring_view showImage[] = {L"showImage", L"getShowImage"};
constexpr std::wstring_view size[] = {L"size", L"getSize"};
constexpr std::wstring_view description[] = {L"description", L"getDescription"};
constexpr std::wstring_view image[] = {L"image", L"imageMso", L"getImage"};
constexpr std::wstring_view place[] = {L"insertAfterMso", L"insertBeforeMso", L"insertAfterQ",
                                       L"insertBeforeQ"};
constexpr std::wstring_view pressed[] = {L"getPressed"};
constexpr std::wstring_view action[] = {L"onAction"};
constexpr std::wstring_view tag[] = {L"tag"};
constexpr std::wstring_view orientation[] = {L"boxStyle"};
constexpr std::wstring_view fresh[] = {L"startFromScratch"};
constexpr std::wstring_view loading[] = {L"onLoad"};
constexpr std::wstring_view loadImage[] = {L"loadImage"};
/// How an element says which it is: one of its own, or one of Office's.
constexpr std::wstring_view anyId[] = {L"id", L"idMso", L"idQ"};
constexpr std::wstring_view ownId[] = {L"id", L"idQ"};
constexpr std::wstring_view officesId[] = {L"idMso"};

struct Rule {
    std::wstring_view element;
    std::vector<std::wstring_view> children;
    /// None when the element has no identity.
    Names ids;
    /// Groups of attributes of which one at most may be given.
    std::vector<Names> attributes;
    /// Its children come in the order above, once each.
    bool ordered = false;
};

const std::vector<std::wstring_view> controls = {L"box",          L"button",    L"toggleButton",
                                                 L"labelControl", L"separator", L"buttonGroup"};

const std::vector<Rule>& rules() {
    static const std::vector<Rule> all = {
        {L"customUI", {L"ribbon"}, {}, {loading, loadImage}, true},
        {L"ribbon", {L"tabs", L"contextualTabs"}, {}, {fresh}, true},
        {L"tabs", {L"tab"}, {}, {}},
        {L"contextualTabs", {L"tabSet"}, {}, {}},
        {L"tabSet", {L"tab"}, officesId, {visible}},
        {L"tab", {L"group"}, anyId, {label, visible, keytip, place, tag}},
        {L"group", controls, anyId, {label, visible, keytip, screentip, supertip, image, place, tag}},
        {L"box", controls, ownId, {visible, place, orientation}},
        {L"buttonGroup", {L"button", L"toggleButton"}, ownId, {visible, place}},
        {L"button",
         {},
         anyId,
         {label, visible, enabled, keytip, screentip, supertip, showLabel, showImage, size, description,
          image, place, tag, action}},
        {L"toggleButton",
         {},
         anyId,
         {label, visible, enabled, keytip, screentip, supertip, showLabel, showImage, size, description,
          image, place, tag, action, pressed}},
        {L"labelControl", {}, anyId, {label, visible, enabled, screentip, supertip, showLabel, place, tag}},
        {L"separator", {}, ownId, {visible, place}},
    };
    return all;
}

/// The tabs of Outlook's own in each kind of window, as far as they are known to be there.
struct OwnTab {
    std::wstring_view ribbonId;
    std::wstring_view tabSet;
    std::wstring_view tab;
    int since;
};
constexpr OwnTab ownTabs[] = {
    {L"Microsoft.Outlook.Explorer", L"", L"TabMail", office2010},
    {L"Microsoft.Outlook.Explorer", L"TabComposeTools", L"TabMessage", office2013},
    {L"Microsoft.Outlook.Mail.Compose", L"", L"TabNewMailMessage", office2007},
    {L"Microsoft.Outlook.Mail.Read", L"", L"TabReadMessage", office2007},
};

[[noreturn]] void refuse(const std::wstring& reason) {
    throw automation::Error(automation::errors::failed, L"the ribbon cannot be loaded: " + reason);
}

const Rule& ruleOf(const std::wstring& element) {
    const auto found = std::ranges::find(rules(), element, &Rule::element);
    if (found == rules().end()) {
        refuse(L"unknown element " + element);
    }
    return *found;
}

bool isIn(Names names, std::wstring_view name) {
    return std::ranges::find(names, name) != names.end();
}

bool isId(std::wstring_view text) {
    const auto isLetter = [](wchar_t c) {
        return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_';
    };
    const auto isLater = [&](wchar_t c) {
        return isLetter(c) || (c >= L'0' && c <= L'9') || c == L'.' || c == L'-';
    };
    return !text.empty() && isLetter(text.front()) && std::ranges::all_of(text, isLater);
}

class Checker {
  public:
    explicit Checker(Place windows) : windows_(windows) {}

    void check(const Element& element, const Element* parent) {
        const Rule& rule = ruleOf(element.name);
        checkIdentity(element, rule);
        for (const auto& [name, value] : element.attributes) {
            checkAttribute(element, rule, name, value);
        }
        for (const Names group : rule.attributes) {
            checkOnce(element, group);
        }
        if (element.name == L"tab") {
            checkTab(element, *parent);
        }
        checkChildren(element, rule);
    }

  private:
    void checkIdentity(const Element& element, const Rule& rule) {
        const auto given = std::ranges::count_if(
            anyId, [&](std::wstring_view id) { return element.attributes.contains(id); });
        if (given != (rule.ids.empty() ? 0 : 1)) {
            refuse(element.name + L" needs " + (rule.ids.empty() ? L"no" : L"exactly one") + L" id");
        }
        const std::wstring id = element.attribute(L"id");
        if (element.attributes.contains(L"id") && !isId(id)) {
            refuse(L"no id: \"" + id + L"\"");
        }
        if (!id.empty() && !ids_.insert(id).second) {
            refuse(L"two elements have the id " + id);
        }
    }

    static void checkAttribute(const Element& element, const Rule& rule, const std::wstring& name,
                               const std::wstring& value) {
        constexpr std::size_t longest = 1024;
        const bool known =
            isIn(rule.ids, name) || (element.name == L"customUI" && name == L"xmlns") ||
            std::ranges::any_of(rule.attributes, [&](Names group) { return isIn(group, name); });
        if (!known) {
            refuse(L"unknown attribute " + name + L" of " + element.name);
        }
        if (value.empty() || value.size() > longest) {
            refuse(name + L" of " + element.name + L" is empty or too long");
        }
        const auto oneOf = [&](std::initializer_list<std::wstring_view> values) {
            if (std::ranges::find(values, value) == values.end()) {
                refuse(name + L" of " + element.name + L" may not be " + value);
            }
        };
        if (name == L"size") {
            oneOf({L"normal", L"large"});
        } else if (name == L"boxStyle") {
            oneOf({L"horizontal", L"vertical"});
        } else if (name == L"visible" || name == L"enabled" || name == L"showLabel" || name == L"showImage" ||
                   name == L"startFromScratch") {
            oneOf({L"true", L"false", L"1", L"0"});
        } else if (name == L"keytip" && (value.size() > 3 || value.find(L' ') != std::wstring::npos)) {
            refuse(L"a keytip has up to three characters");
        }
    }

    static void checkOnce(const Element& element, Names group) {
        const auto given = std::ranges::count_if(
            group, [&](std::wstring_view name) { return element.attributes.contains(name); });
        if (given > 1) {
            refuse(element.name + L" has more than one of " + std::wstring(group.front()) + L" and its like");
        }
    }

    void checkTab(const Element& tab, const Element& parent) const {
        if (!tab.attributes.contains(L"idMso")) {
            return;
        }
        const bool known = std::ranges::any_of(ownTabs, [&](const OwnTab& own) {
            return own.ribbonId == windows_.ribbonId && own.tabSet == parent.attribute(L"idMso") &&
                   own.tab == tab.attribute(L"idMso") && windows_.version >= own.since;
        });
        if (!known) {
            refuse(L"no tab " + tab.attribute(L"idMso") + L" in " + std::wstring(windows_.ribbonId));
        }
    }

    void checkChildren(const Element& element, const Rule& rule) {
        std::size_t next = 0;
        for (const Element& child : element.children) {
            const auto found = std::ranges::find(rule.children, child.name);
            const auto at = static_cast<std::size_t>(found - rule.children.begin());
            if (found == rule.children.end() || (rule.ordered && at < next)) {
                refuse(child.name + L" may not stand here in " + element.name);
            }
            next = at + 1;
            check(child, &element);
        }
    }

    Place windows_;
    std::set<std::wstring> ids_;
};

void checkNameSpace(const Element& root, int version) {
    const std::wstring given = root.attribute(L"xmlns");
    const auto found = std::ranges::find(nameSpaces, given, [](const auto& known) { return known.first; });
    if (root.name != L"customUI" || found == std::end(nameSpaces) || version < found->second) {
        refuse(L"not a ribbon for this version: " + root.name + L" of " + given);
    }
}

Element parse(const std::wstring& text) {
    xml::Reader reader(text);
    std::vector<Element> open(1);
    for (auto token = reader.next(); token != xml::Reader::Token::Finished; token = reader.next()) {
        if (token == xml::Reader::Token::Start) {
            Element& element = open.emplace_back();
            element.name = reader.name();
            for (const xml::Reader::Attribute& attribute : reader.attributes()) {
                element.attributes.emplace(attribute.name, reader.decoded(attribute));
            }
        } else {
            Element closed = std::move(open.back());
            open.pop_back();
            open.back().children.push_back(std::move(closed));
        }
    }
    return std::move(open.front().children.front());
}

}  // namespace

std::wstring Element::attribute(std::wstring_view attributeName) const {
    const auto found = attributes.find(attributeName);
    return found == attributes.end() ? std::wstring() : found->second;
}

Element read(const std::wstring& text, Place place) {
    try {
        Element root = parse(text);
        checkNameSpace(root, place.version);
        Checker(place).check(root, nullptr);
        return root;
    } catch (const xml::Malformed& error) {
        refuse(text::fromUtf8(error.what()));
    }
}

}  // namespace host::ribbonXml
