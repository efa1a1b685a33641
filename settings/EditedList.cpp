#include "settings/EditedList.h"

#include <algorithm>

#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/prompts.h"

namespace settings {

namespace {

constexpr int labelHeight = 11;
constexpr int buttonWidth = 50;
constexpr int buttonHeight = 14;
constexpr int gap = 4;

forms::Place button(forms::Place place, int position) {
    return {place.left + place.width - buttonWidth, place.top + labelHeight + position * (buttonHeight + gap),
            buttonWidth, buttonHeight};
}

}  // namespace

EditedList::EditedList(mail::Globals& globals, forms::Container& container, forms::Place place,
                       const EditedListTexts& texts)
    : globals_(globals),
      texts_(texts),
      label_(container, texts.label, {place.left, place.top, place.width, labelHeight - 2},
             texts.labelCaption),
      list_(
          container, texts.list,
          {place.left, place.top + labelHeight, place.width - buttonWidth - gap, place.height - labelHeight}),
      add_(container, texts.add, button(place, 0), L"&Add..."),
      remove_(container, texts.remove, button(place, 1), L"&Delete") {
    const auto trapped = [this](const wchar_t* name, void (EditedList::*handler)()) {
        return [this, name, handler] {
            mail::trapErrors(globals_,
                             mail::ErrorReport::usual(L"frmIntroWizard." + std::wstring(name) + L"_Click"),
                             [&] { (this->*handler)(); });
        };
    };
    add_.onClick = trapped(texts.add, &EditedList::cmdAdd_Click);
    remove_.onClick = trapped(texts.remove, &EditedList::cmdDelete_Click);
    if (texts.reset) {
        reset_.emplace(container, texts.reset, button(place, 2), L"&Reset");
        reset_->onClick = trapped(texts.reset, &EditedList::cmdReset_Click);
    }
}

std::vector<forms::Control*> EditedList::controls() {
    std::vector<forms::Control*> controls{&list_, &add_, &remove_};
    if (reset_) {
        controls.push_back(&*reset_);
    }
    return controls;
}

void EditedList::setText(std::wstring_view joined) {
    std::vector<forms::MarkedList::Row> rows;
    for (const std::wstring_view item : text::split(joined, L';')) {
        if (!text::trim(item).empty()) {
            rows.push_back({std::wstring(item), false});
        }
    }
    list_.setRows(std::move(rows));
}

std::wstring EditedList::text() const {
    std::wstring joined;
    for (const forms::MarkedList::Row& row : list_.rows()) {
        joined += (joined.empty() ? L"" : L";") + row.text;
    }
    return joined;
}

bool EditedList::has(const std::wstring& entry) const {
    return std::ranges::any_of(list_.rows(), [&entry](const forms::MarkedList::Row& row) {
        return text::equalsTrimmed(row.text, entry);
    });
}

void EditedList::cmdAdd_Click() {
    frmGetUserInput form(globals_, texts_.rules, [this](const std::wstring& entry) { return has(entry); });
    globals_.platform.desktop.showModal(form);
    if (form.entry()) {
        // What is stored parts entries at each ";", so that several may be typed at once.
        std::vector<forms::MarkedList::Row> rows = list_.rows();
        for (const std::wstring_view part : text::split(*form.entry(), L';')) {
            const std::wstring entry(text::trim(part));
            if (!entry.empty() && !has(entry)) {
                rows.push_back({entry, false});
            }
        }
        list_.setRows(std::move(rows));
    }
}

void EditedList::cmdDelete_Click() {
    if (!list_.anyMarked()) {
        prompts::inform(globals_, L"No item selected", L"Please select an item from the list");
        return;
    }
    const platform::Answer answer =
        prompts::ask(globals_, L"Confirm delete",
                     L"Are you sure you want to delete the selected " + std::wstring(texts_.noun),
                     {platform::Buttons::YesNo, platform::Icon::Question});
    if (answer == platform::Answer::Yes) {
        std::vector<forms::MarkedList::Row> rows = list_.rows();
        std::erase_if(rows, [](const forms::MarkedList::Row& row) { return row.marked; });
        list_.setRows(std::move(rows));
    }
}

}  // namespace settings
