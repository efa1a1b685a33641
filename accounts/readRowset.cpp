#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "accounts/NameSpaces.h"
#include "accounts/Rowset.h"
#include "accounts/XmlReader.h"
#include "platform/number.h"

namespace accounts::rowset {

namespace {

using Token = XmlReader::Token;
using Row = Rowset::Row;

constexpr std::wstring_view forceNull = L"rs:forcenull";

class RowsetReader {
  public:
    RowsetReader(std::wstring_view xml, const Limits& limits)
        : limits_(limits),
          xml_(xml, {limits.deepestNesting, limits.mostAttributes}),
          spaces_(limits.mostNameSpaces) {}

    Rowset read();

  private:
    Token next();
    bool at(std::wstring_view element) const { return spaces_.isElement(xml_.name(), element); }
    void expect(bool found) const;
    void expectStart(std::wstring_view element);
    bool declaresUsual(std::wstring_view attribute) const;
    std::vector<Attribute> readAttributes();
    void checkNamesDiffer(const std::vector<Attribute>& attributes) const;
    Element readElement();
    Element readSchema();
    void keep(std::size_t characters);
    void declareUsual();
    void findColumns();
    Column columnOf(std::wstring_view attribute, std::size_t expected);

    void readData();
    Row readRow();
    std::vector<Row> readRows();
    void readUpdate();
    Row updated(Row original);
    Row cellsOfRow();
    std::vector<Column> forcedNulls() const;

    Limits limits_;
    XmlReader xml_;
    NameSpaces spaces_;
    std::size_t frameLength_ = 0;
    Rowset::Frame frame_;
    std::vector<Row> rows_;
    std::map<std::wstring, Column, std::less<>> columnsByAttribute_;
    std::size_t declaredColumns_ = 0;
};

Rowset RowsetReader::read() {
    expect(next() == Token::Start && xml_.name() == L"xml");
    frame_.rootAttributes = readAttributes();
    expectStart(L"s:Schema");
    frame_.schema = readSchema();
    findColumns();
    expectStart(L"rs:data");
    frame_.dataAttributes = readAttributes();
    declareUsual();
    readData();
    if (next() != Token::End || next() != Token::Finished) {
        xml_.refuse("something follows the data");
    }
    return {std::move(frame_), std::move(rows_)};
}

Token RowsetReader::next() {
    const Token token = xml_.next();
    if (token == Token::Start) {
        spaces_.open(xml_);
    } else if (token == Token::End) {
        spaces_.close();
    }
    return token;
}

void RowsetReader::expect(bool found) const {
    if (!found) {
        xml_.refuse("not the element that a rowset has here");
    }
}

void RowsetReader::expectStart(std::wstring_view element) {
    expect(next() == Token::Start && at(element));
}

/// Whether the attribute declares one of a rowset's own name spaces.
bool RowsetReader::declaresUsual(std::wstring_view attribute) const {
    return NameSpaces::isDeclaration(attribute) && !spaces_.declared(attribute).empty();
}

/// Without the declarations of a rowset's own name spaces, which will stand in the root, as usual.
std::vector<Attribute> RowsetReader::readAttributes() {
    std::vector<Attribute> attributes;
    attributes.reserve(xml_.attributes().size());
    for (const XmlReader::Attribute& attribute : xml_.attributes()) {
        if (!declaresUsual(attribute.name)) {
            attributes.push_back({spaces_.usualAttribute(attribute.name), xml_.decoded(attribute)});
            keep(attributes.back().name.size() + attributes.back().value.size());
        }
    }
    checkNamesDiffer(attributes);
    return attributes;
}

/// The reader has seen to it that they differ as they stand; under two prefixes of one name space they may
/// not.
void RowsetReader::checkNamesDiffer(const std::vector<Attribute>& attributes) const {
    std::set<std::wstring_view> names;
    for (const Attribute& attribute : attributes) {
        if (!names.insert(attribute.name).second) {
            xml_.refuse("an attribute given twice");
        }
    }
}

/// Each element and attribute counts as a few characters more, since even a short one takes room in memory.
void RowsetReader::keep(std::size_t characters) {
    frameLength_ += characters + 4;
    if (frameLength_ > limits_.longestFrame) {
        xml_.refuse("too much before the rows");
    }
}

/// In the root and in the order of the components, wherever the text has declared them, if at all.
void RowsetReader::declareUsual() {
    std::vector<Attribute> attributes;
    for (const NameSpaces::Usual& usual : spaces_.usual()) {
        attributes.push_back({std::wstring(L"xmlns:").append(usual.prefix), usual.nameSpace});
    }
    std::ranges::move(frame_.rootAttributes, std::back_inserter(attributes));
    frame_.rootAttributes = std::move(attributes);
}

Element RowsetReader::readElement() {
    Element element{spaces_.usualElement(xml_.name()), readAttributes(), {}};
    keep(element.name.size());
    return element;
}

/// Reads the element that has just started, with all that is in it.
Element RowsetReader::readSchema() {
    Element schema = readElement();
    // While an element is open its parent takes no other child, so the pointers stay good.
    std::vector<Element*> open{&schema};
    while (!open.empty()) {
        if (next() == Token::End) {
            open.pop_back();
        } else {
            std::vector<Element>& siblings = open.back()->children;
            siblings.push_back(readElement());
            open.push_back(&siblings.back());
        }
    }
    return schema;
}

double ordinalOf(const Element& column) {
    const std::wstring* ordinal = column.find(L"rs:number");
    return (ordinal ? number::parse(*ordinal) : std::nullopt)
        .value_or(std::numeric_limits<double>::infinity());
}

/// What a row's attribute may be called to be a column's.
bool isColumnName(const std::wstring& name) {
    return XmlReader::isName(name) && !NameSpaces::isDeclaration(name) && name != forceNull;
}

/// The ordinals decide the columns' order, not their places; lists are around whose columns were declared the
/// other way round.
void RowsetReader::findColumns() {
    const auto rowType = std::ranges::find(frame_.schema.children, L"s:ElementType", &Element::name);
    if (rowType == frame_.schema.children.end()) {
        xml_.refuse("the schema has no row type");
    }
    std::vector<Element>& parts = rowType->children;
    const auto isColumn = [](const Element& element) { return element.name == L"s:AttributeType"; };
    const auto rest = std::ranges::stable_partition(parts, isColumn).begin();
    std::ranges::stable_sort(parts.begin(), rest, {}, ordinalOf);
    for (auto part = parts.begin(); part != rest; ++part) {
        const std::wstring* attribute = part->find(L"name");
        const std::wstring* column = part->find(L"rs:name");
        if (!attribute || !isColumnName(*attribute) ||
            !columnsByAttribute_.emplace(*attribute, static_cast<Column>(frame_.columns.size())).second) {
            xml_.refuse("a column without a name of its own");
        }
        frame_.columns.push_back({*attribute, column ? *column : *attribute});
    }
    declaredColumns_ = frame_.columns.size();
}

/// A row may hold an attribute that the schema does not declare; it is kept as a further column. The
/// attributes of a row mostly stand in the order of the columns, so the expected one is tried first.
Column RowsetReader::columnOf(std::wstring_view attribute, std::size_t expected) {
    if (expected < frame_.columns.size() && frame_.columns[expected].attribute == attribute) {
        return static_cast<Column>(expected);
    }
    if (const auto found = columnsByAttribute_.find(attribute); found != columnsByAttribute_.end()) {
        return found->second;
    }
    if (frame_.columns.size() - declaredColumns_ == limits_.mostUndeclaredColumns) {
        xml_.refuse("too many columns");
    }
    const auto column = static_cast<Column>(frame_.columns.size());
    std::wstring name(attribute);
    columnsByAttribute_.emplace(name, column);
    frame_.columns.push_back({name, name});
    return column;
}

void RowsetReader::readData() {
    while (next() == Token::Start) {
        if (at(L"z:row")) {
            rows_.push_back(readRow());
        } else if (at(L"rs:insert")) {
            std::ranges::move(readRows(), std::back_inserter(rows_));
        } else if (at(L"rs:update")) {
            readUpdate();
        } else {
            expect(at(L"rs:delete"));
            readRows();  // They stand nowhere else.
        }
    }
}

/// The cells of the row that has just started. Nulls have none, so that naming them adds nothing.
Row RowsetReader::cellsOfRow() {
    Row row;
    row.reserve(xml_.attributes().size());
    for (const XmlReader::Attribute& attribute : xml_.attributes()) {
        const std::wstring_view name = attribute.name;
        if (name.find(L':') == std::wstring_view::npos && name != L"xmlns") {  // As good as always.
            row.push_back({columnOf(name, row.size()), xml_.decoded(attribute)});
        } else if (!declaresUsual(name) && !spaces_.isAttribute(name, forceNull)) {
            row.push_back({columnOf(spaces_.usualAttribute(name), row.size()), xml_.decoded(attribute)});
        }
    }
    if (!std::ranges::is_sorted(row, {}, &Rowset::Cell::column)) {
        std::ranges::sort(row, {}, &Rowset::Cell::column);
    }
    if (std::ranges::adjacent_find(row, {}, &Rowset::Cell::column) != row.end()) {
        xml_.refuse("an attribute given twice");  // Under two prefixes of one name space.
    }
    return row;
}

/// The columns of the row that has just started which are null by name.
std::vector<Column> RowsetReader::forcedNulls() const {
    const auto forced =
        std::ranges::find_if(xml_.attributes(), [this](const XmlReader::Attribute& attribute) {
            return spaces_.isAttribute(attribute.name, forceNull);
        });
    if (forced == xml_.attributes().end()) {
        return {};
    }
    std::vector<Column> columns;
    const std::wstring names = xml_.decoded(*forced);
    constexpr std::wstring_view space = L" \t\r\n";
    for (std::size_t start = names.find_first_not_of(space); start < names.size();) {
        const std::size_t end = std::min(names.find_first_of(space, start), names.size());
        const auto column = columnsByAttribute_.find(std::wstring_view(names).substr(start, end - start));
        if (column != columnsByAttribute_.end()) {
            columns.push_back(column->second);
        }
        start = names.find_first_not_of(space, end);
    }
    std::ranges::sort(columns);
    return columns;
}

/// Reads the row that has just started to its end.
Row RowsetReader::readRow() {
    Row row = cellsOfRow();
    if (next() != Token::End) {
        xml_.refuse("a row within a row");
    }
    return row;
}

/// Reads the row that has just started, which holds what has changed, and lays it over `original`.
Row RowsetReader::updated(Row original) {
    const std::vector<Column> nulls = forcedNulls();
    Row row = readRow();
    const auto isOutdated = [&](const Rowset::Cell& cell) {
        return std::ranges::binary_search(nulls, cell.column) ||
               std::ranges::binary_search(row, cell.column, {}, &Rowset::Cell::column);
    };
    std::erase_if(original, isOutdated);
    std::ranges::move(original, std::back_inserter(row));
    std::ranges::sort(row, {}, &Rowset::Cell::column);
    return row;
}

/// The rows up to the end of the element that has just started.
std::vector<Row> RowsetReader::readRows() {
    std::vector<Row> rows;
    while (next() == Token::Start) {
        expect(at(L"z:row"));
        rows.push_back(readRow());
    }
    return rows;
}

/// Each original is followed by a row with what has changed in it.
void RowsetReader::readUpdate() {
    while (next() == Token::Start) {
        expect(at(L"rs:original"));
        for (Row& original : readRows()) {
            expectStart(L"z:row");
            rows_.push_back(updated(std::move(original)));
        }
    }
}

}  // namespace

Rowset readRowset(std::wstring_view xml, const Limits& limits) {
    return RowsetReader(xml, limits).read();
}

}  // namespace accounts::rowset
