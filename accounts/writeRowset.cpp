#include <cstddef>

#include "accounts/Rowset.h"
#include "accounts/XmlReader.h"
#include "platform/automation.h"
#include "platform/characters.h"

namespace accounts::rowset {

namespace {

/// A line that is at least this long is broken before the next attribute.
constexpr std::size_t longLine = 108;

/// How many bytes of UTF-8 a unit takes; either half of a surrogate pair takes two of the pair's four.
std::size_t bytesOf(wchar_t unit) {
    const auto point = static_cast<char32_t>(unit);
    if (point < 0x80) {
        return 1;
    }
    if (point < 0x800 || text::isSurrogate(point)) {
        return 2;
    }
    return point < 0x10000 ? 3 : 4;
}

/// A raw non-breaking space would be taken for an editor's when the list is read.
bool isReferred(wchar_t character) {
    constexpr std::wstring_view others = L"&'\"<>\xA0";
    return text::isControl(character) || others.find(character) != std::wstring_view::npos;
}

class RowsetWriter {
  public:
    std::wstring write(const Rowset& rowset);

  private:
    void raw(std::wstring_view text);
    void indent(std::size_t tabs);
    void endLine();
    void attribute(const std::wstring& name, const std::wstring& value);
    void escape(const std::wstring& text);
    void reference(wchar_t character);
    void startTag(const Element& element, std::size_t depth);
    void element(const Element& element, std::size_t depth);
    void root(const std::vector<Attribute>& attributes);
    void data(const Rowset& rowset);
    void row(const Rowset::Row& row, const std::vector<Rowset::ColumnNames>& columns);

    /// Before an attribute, with the tabs that a broken line continues after.
    void separate(bool first, std::size_t tabs);

    std::wstring text_;
    std::size_t bytesInLine_ = 0;
};

void RowsetWriter::raw(std::wstring_view text) {
    text_ += text;
    for (const wchar_t unit : text) {
        bytesInLine_ += bytesOf(unit);
    }
}

void RowsetWriter::indent(std::size_t tabs) {
    text_.append(tabs, L'\t');
    bytesInLine_ += tabs;
}

void RowsetWriter::endLine() {
    text_ += L"\r\n";
    bytesInLine_ = 0;
}

void RowsetWriter::separate(bool first, std::size_t tabs) {
    if (!first && bytesInLine_ >= longLine) {
        endLine();
        indent(tabs);
    }
    raw(L" ");
}

void RowsetWriter::attribute(const std::wstring& name, const std::wstring& value) {
    raw(name);
    raw(L"='");
    escape(value);
    raw(L"'");
}

void RowsetWriter::escape(const std::wstring& text) {
    for (const wchar_t character : text) {
        if (isReferred(character)) {
            reference(character);
        } else {
            text_ += character;
            bytesInLine_ += bytesOf(character);
        }
    }
}

/// All of them lie below 256.
void RowsetWriter::reference(wchar_t character) {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    raw(L"&#x");
    if (character >= 0x10) {
        raw(digits.substr(static_cast<std::size_t>(character) / 0x10, 1));
    }
    raw(digits.substr(static_cast<std::size_t>(character) % 0x10, 1));
    raw(L";");
}

void RowsetWriter::startTag(const Element& element, std::size_t depth) {
    // The components continue the lines of this one no deeper than the element itself.
    const std::size_t continued = element.name == L"s:datatype" ? 3 : depth + 1;
    indent(depth);
    raw(L"<");
    raw(element.name);
    for (const Attribute& each : element.attributes) {
        separate(&each == element.attributes.data(), continued);
        attribute(each.name, each.value);
    }
}

/// The reader has bounded the depth.
void RowsetWriter::element(const Element& element, std::size_t depth) {
    startTag(element, depth);
    if (element.children.empty()) {
        raw(L"/>");
        endLine();
        return;
    }
    raw(L">");
    endLine();
    for (const Element& child : element.children) {
        this->element(child, depth + 1);
    }
    indent(depth);
    raw(L"</");
    raw(element.name);
    raw(L">");
    endLine();
}

/// The root's attributes, which are the name spaces, stand in a line each.
void RowsetWriter::root(const std::vector<Attribute>& attributes) {
    raw(L"<xml");
    for (const Attribute& each : attributes) {
        if (&each == attributes.data()) {
            raw(L" ");
        } else {
            endLine();
            indent(1);
        }
        attribute(each.name, each.value);
    }
    raw(L">");
    endLine();
}

void RowsetWriter::row(const Rowset::Row& row, const std::vector<Rowset::ColumnNames>& columns) {
    indent(1);
    raw(L"<z:row");
    for (const Rowset::Cell& cell : row) {
        separate(&cell == row.data(), 2);
        attribute(columns[cell.column].attribute, cell.value);
    }
    raw(L"/>");
    endLine();
}

void RowsetWriter::data(const Rowset& rowset) {
    startTag({L"rs:data", rowset.frame().dataAttributes, {}}, 0);
    raw(L">");
    endLine();
    for (const Rowset::Row& each : rowset.rows()) {
        row(each, rowset.frame().columns);
    }
    raw(L"</rs:data>");
    endLine();
}

/// About the length that the rows take, so that the text need not grow.
std::size_t lengthOf(const Rowset& rowset) {
    std::size_t length = 0;
    for (const Rowset::Row& row : rowset.rows()) {
        length += 12;  // The tag and the line's end.
        for (const Rowset::Cell& cell : row) {
            length += rowset.frame().columns[cell.column].attribute.size() + cell.value.size() + 4;
        }
    }
    return length;
}

std::wstring RowsetWriter::write(const Rowset& rowset) {
    text_.reserve(4'000 + lengthOf(rowset) + lengthOf(rowset) / 8);
    root(rowset.frame().rootAttributes);
    element(rowset.frame().schema, 0);
    data(rowset);
    raw(L"</xml>");
    return std::move(text_);
}

}  // namespace

std::wstring writeRowset(const Rowset& rowset) {
    return RowsetWriter().write(rowset);
}

std::wstring writeReadable(const Rowset& rowset, const Limits& limits) {
    std::wstring text = writeRowset(rowset);
    const auto isReadable = [&] {
        try {
            return sameRows(rowset, readRowset(text, limits));
        } catch (const NotARowset&) {
            return false;
        }
    };
    if (!isReadable()) {
        throw automation::Error(automation::errors::overflow,
                                L"The list would be too large to be read again.");
    }
    return text;
}

}  // namespace accounts::rowset
