#pragma once

#include "platform/forms.h"

namespace forms {

/// Entries of which one can be selected: a list box, or a drop-down list.
class List : public Control {
  public:
    static constexpr int none = -1;

    const std::vector<std::wstring>& items() const { return items_; }
    /// Replaces all entries, which are also the control's caption, a line each; nothing is selected
    /// afterwards.
    void setItems(std::vector<std::wstring> items);
    /// 0-based, or none.
    int selected() const { return selected_; }
    void select(int index);

    /// A choice by the user.
    std::function<void()> onChange;

    std::wstring value() const override;
    /// Selects the first entry of that text.
    bool enter(std::wstring_view value) override;
    /// As a user's choice, by position.
    bool choose(int index);

  protected:
    List(Container& container, std::wstring name, Kind kind, Place place)
        : Control(container, std::move(name), kind, place, {}) {}

  private:
    std::vector<std::wstring> items_;
    int selected_ = none;
};

class ListBox : public List {
  public:
    ListBox(Container& container, std::wstring name, Place place)
        : List(container, std::move(name), Kind::ListBox, place) {}
    /// A double click on the selected entry.
    std::function<void()> onDoubleClick;
};

/// The place is that of the closed box; it drops down as far as its entries need.
class ComboBox : public List {
  public:
    ComboBox(Container& container, std::wstring name, Place place)
        : List(container, std::move(name), Kind::ComboBox, place) {}
};

/// Rows of which any number can be marked.
class MarkedList : public Control {
  public:
    struct Row {
        std::wstring text;
        bool marked = true;
    };

    const std::vector<Row>& rows() const { return rows_; }
    /// The rows' texts are also the control's caption, a line each.
    void setRows(std::vector<Row> rows);
    void markAll(bool marked);
    /// As the user does, by mouse or keyboard.
    void mark(std::size_t row, bool marked);
    void markExactly(const std::vector<bool>& marks);
    bool anyMarked() const;

    std::wstring value() const override;
    bool enter(std::wstring_view value) override;

    /// Which of `rows` rows a value such as "1,3" marks; nothing when the value is not such a list.
    static std::optional<std::vector<bool>> parseMarks(std::wstring_view value, std::size_t rows);

  protected:
    MarkedList(Container& container, std::wstring name, Kind kind, Place place)
        : Control(container, std::move(name), kind, place, {}) {}

  private:
    std::vector<Row> rows_;
};

/// Rows with a box each to tick.
class CheckList : public MarkedList {
  public:
    CheckList(Container& container, std::wstring name, Place place)
        : MarkedList(container, std::move(name), Kind::CheckList, place) {}
};

/// A list box in which several rows can be selected.
class SelectionList : public MarkedList {
  public:
    SelectionList(Container& container, std::wstring name, Place place)
        : MarkedList(container, std::move(name), Kind::SelectionList, place) {}
};

}  // namespace forms
