#include "platform/formPages.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace forms {

void Frame::changed() {
    Control::changed();
    for (Control* control : Control::form().controls()) {
        if (View* view = control->isIn(*this) ? Control::form().view() : nullptr) {
            view->refresh(*control);
        }
    }
}

void TabStrip::setPages(std::vector<Frame*> pages) {
    pages_ = std::move(pages);
    std::wstring captions;
    for (const Frame* page : pages_) {
        captions += (captions.empty() ? L"" : L"\n") + page->caption();
    }
    select(0);
    setCaption(std::move(captions));
}

void TabStrip::select(std::size_t page) {
    if (page >= pages_.size()) {
        return;
    }
    selected_ = page;
    // First, so that a keyboard in a page that goes finds a place in this one.
    pages_[page]->setVisible(true);
    for (Frame* other : pages_) {
        if (other != pages_[page] && other->visible()) {
            other->setVisible(false);
        }
    }
    changed();
    if (onChange) {
        onChange();
    }
}

bool TabStrip::turnTo(std::size_t page) {
    if (!enabled() || page >= pages_.size() || !turnedTo()) {
        return false;
    }
    select(page);
    return true;
}

std::wstring TabStrip::value() const {
    return pages_.empty() ? std::wstring() : page().caption();
}

bool TabStrip::enter(std::wstring_view value) {
    const auto found = std::ranges::find_if(
        pages_, [value](const Frame* page) { return text::equalsIgnoringCase(page->caption(), value); });
    if (!enabled() || found == pages_.end()) {
        return false;
    }
    turnTo(static_cast<std::size_t>(found - pages_.begin()));
    return true;
}

}  // namespace forms
