#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "mail/Globals.h"
#include "platform/formLists.h"
#include "settings/frmGetUserInput.h"

namespace settings {

/// The names of an edited list's controls, and its texts.
struct EditedListTexts {
    const wchar_t* list;
    const wchar_t* label;
    const wchar_t* labelCaption;
    const wchar_t* add;
    const wchar_t* remove;
    /// What is asked before entries are deleted ends with it.
    const wchar_t* noun;
    EntryRules rules;
    /// The button that brings the defaults back, joined by ";"; null for a list without.
    const wchar_t* reset = nullptr;
    const wchar_t* defaults = nullptr;
};

/// A setting that holds several texts, joined by ";", as the user edits it: a list with a label above, and
/// buttons beside it.
class EditedList {
  public:
    /// Stands in `place`, label and buttons included.
    EditedList(mail::Globals& globals, forms::Container& container, forms::Place place,
               const EditedListTexts& texts);

    /// Fills the list; empty items are passed over.
    void setText(std::wstring_view joined);
    std::wstring text() const;
    std::vector<forms::Control*> controls();

  private:
    void cmdAdd_Click();
    void cmdDelete_Click();
    void cmdReset_Click() { setText(texts_.defaults); }
    bool has(const std::wstring& entry) const;

    mail::Globals& globals_;
    const EditedListTexts& texts_;
    forms::Label label_;
    forms::SelectionList list_;
    forms::Button add_;
    forms::Button remove_;
    std::optional<forms::Button> reset_;
};

}  // namespace settings
