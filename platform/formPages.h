#pragma once

#include "platform/forms.h"

namespace forms {

/// A part of a form, whose controls come and go with it. Its option buttons are a group of their own.
class Frame : public Control, public Container {
  public:
    enum class Border { None, Box };
    /// A box shows its caption, and is named by it to who cannot see.
    Frame(Container& container, std::wstring name, Place place, std::wstring caption, Border border)
        : Control(container, std::move(name), Kind::Frame, place, std::move(caption)), border_(border) {}

    Form& form() final { return Control::form(); }
    const Frame* asFrame() const final { return this; }
    Border border() const { return border_; }

  private:
    void changed() override;

    Border border_;
};

/// A row of tabs, each of which shows its page and hides the others. Ctrl+Tab goes on to the next from
/// wherever the keyboard is.
class TabStrip : public Control {
  public:
    TabStrip(Container& container, std::wstring name, Place place)
        : Control(container, std::move(name), Kind::TabStrip, place, {}) {}

    /// The tabs carry the pages' captions, which are also the control's caption, a line each. Shows the
    /// first.
    void setPages(std::vector<Frame*> pages);
    const std::vector<Frame*>& pages() const { return pages_; }
    /// 0-based.
    std::size_t selected() const { return selected_; }
    const Frame& page() const { return *pages_[selected_]; }
    /// Nothing happens when there is no such page.
    void select(std::size_t page);
    /// As the user does. False when the text box with the keyboard complained, or there is no such page.
    bool turnTo(std::size_t page);

    /// Another page is shown now.
    std::function<void()> onChange;

    std::wstring value() const override;
    /// Turns to the page with that caption, letter case ignored.
    bool enter(std::wstring_view value) override;

  private:
    std::vector<Frame*> pages_;
    std::size_t selected_ = 0;
};

}  // namespace forms
