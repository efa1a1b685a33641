#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/Limits.h"

namespace accounts::rowset {

struct Attribute {
    std::wstring name;
    std::wstring value;
    bool operator==(const Attribute&) const = default;
};

/// An element of the schema, kept whole, so that what this version does not know survives a load and a save.
struct Element {
    std::wstring name;
    std::vector<Attribute> attributes;
    std::vector<Element> children;

    /// Null when there is no such attribute.
    const std::wstring* find(std::wstring_view attribute) const;
    bool operator==(const Element&) const = default;
};

/// A column by its place in a rowset's row; those of the schema come first, in the order of their ordinals.
using Column = std::uint32_t;

/// A table of nullable texts with a current row, as data-access recordsets have one. The current row is one
/// of the rows or the end behind the last; an empty rowset is always at its end.
class Rowset {
  public:
    struct ColumnNames {
        /// Of the attribute in the XML text.
        std::wstring attribute;
        /// Of the column; differs from the attribute's where XML does not allow it.
        std::wstring column;
        bool operator==(const ColumnNames&) const = default;
    };
    struct Cell {
        Column column = 0;
        std::wstring value;
        bool operator==(const Cell&) const = default;
    };
    /// In the order of the columns; a null has no cell.
    using Row = std::vector<Cell>;

    /// What stands around the rows.
    struct Frame {
        std::vector<Attribute> rootAttributes;
        Element schema;
        std::vector<Attribute> dataAttributes;
        std::vector<ColumnNames> columns;
        bool operator==(const Frame&) const = default;
    };

    Rowset(Frame frame, std::vector<Row> rows) : frame_(std::move(frame)), rows_(std::move(rows)) {}

    const Frame& frame() const { return frame_; }
    const std::vector<Row>& rows() const { return rows_; }
    std::size_t count() const { return rows_.size(); }
    std::optional<Column> column(std::wstring_view name) const;
    /// Empty for a null.
    const std::wstring& value(std::size_t row, Column column) const;

    /// Ascending, without regard to letter case, nulls first; rows that compare equal keep their order. The
    /// first row becomes the current one.
    void sort(Column column);

    /// 0-based; count() at the end.
    std::size_t position() const { return current_; }
    bool atEnd() const { return current_ == rows_.size(); }
    /// False, and nothing moved, when there is no such row.
    bool moveTo(std::size_t row);
    /// Moves forward from the current row, that one included, to the first that holds exactly this text; to
    /// the end when there is none.
    bool findForward(Column column, std::wstring_view value);

    /// A row of nulls behind the others, which becomes the current one.
    void add();
    /// In the current row, which there must be.
    void set(Column column, std::wstring value);
    /// Removes the current row, which there must be; the next one, or the end, takes its place.
    void remove();

    friend bool operator==(const Rowset& left, const Rowset& right) {
        return left.frame_ == right.frame_ && left.rows_ == right.rows_;
    }

  private:
    Frame frame_;
    std::vector<Row> rows_;
    std::size_t current_ = 0;
};

/// Whether both hold the same values under the same names, row by row. What stands around the rows does not
/// count, nor does a column that no row holds.
bool sameRows(const Rowset& left, const Rowset& right);

/// Reads the text form of a rowset; pending inserts, updates and deletes are carried out. Throws NotARowset
/// when the text is none, or not all of one.
Rowset readRowset(std::wstring_view xml, const Limits& limits = {});

/// The text form, byte for byte as the data-access components lay it out.
std::wstring writeRowset(const Rowset& rowset);

/// The same, once it has been read back. Throws automation::Error when that does not give the same rows: what
/// is read just within the limits may grow beyond them.
std::wstring writeReadable(const Rowset& rowset, const Limits& limits = {});

}  // namespace accounts::rowset
