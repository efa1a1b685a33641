#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Collection.h"

namespace host {

class CommandBarControls;

/// Office's numbers of the control types.
namespace controlType {
inline constexpr int button = 1;
inline constexpr int popup = 10;
}  // namespace controlType

/// A button or a popup of a command bar. Owned by the list it stands in; a popup owns its own controls.
class CommandBarControl : public Automated<CommandBarControl> {
  public:
    static constexpr std::wstring_view defaultName = L"Caption";
    static const Members<CommandBarControl> members;

    /// `id` tells what Office's own controls are in any language; all others have 1.
    CommandBarControl(Core& core, int type, std::wstring caption, bool temporary, int id = 1);

    std::wstring className() const override {
        return type_ == controlType::popup ? L"CommandBarPopup" : L"CommandBarButton";
    }
    void checkUsable() const override;
    EventSource* eventSource() override { return type_ == controlType::button ? &events_ : nullptr; }

    int type() const noexcept { return type_; }
    int id() const noexcept { return id_; }
    const std::wstring& caption() const noexcept { return caption_; }
    const std::shared_ptr<CommandBarControls>& controls() const noexcept { return controls_; }
    /// True for a button that a user can press.
    bool pressable() const { return type_ == controlType::button && enabled_ && visible_; }
    /// Raises Click.
    void press();
    /// A control of the same looks for another window; handlers stay with this one.
    std::shared_ptr<CommandBarControl> copy() const;
    void placed(std::weak_ptr<CommandBarControls> owner) { owner_ = std::move(owner); }
    void deleted() { owner_.reset(), deleted_ = true; }

  private:
    int index() const;
    void remove();

    int type_;
    std::wstring caption_;
    bool temporary_;
    bool deleted_ = false;
    bool beginGroup_ = false;
    bool visible_ = true;
    bool enabled_ = true;
    int id_;
    int style_ = 0;
    int faceId_ = 0;
    std::wstring tag_;
    std::wstring onAction_;
    std::wstring parameter_;
    std::wstring toolTip_;
    automation::Object picture_;
    automation::Object mask_;
    std::weak_ptr<CommandBarControls> owner_;
    std::shared_ptr<CommandBarControls> controls_;
    EventSource events_{0x000C0351};
};

/// The controls of a command bar or of a popup.
class CommandBarControls : public Collection<CommandBarControls> {
  public:
    static constexpr auto noSuchName = raise::outOfBounds;
    static const Members<CommandBarControls> members;

    explicit CommandBarControls(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"CommandBarControls"; }
    const std::vector<std::shared_ptr<CommandBarControl>>& list() const noexcept { return list_; }
    /// By caption, letter case and "&" ignored.
    static bool isNamed(const std::shared_ptr<CommandBarControl>& control, std::wstring_view caption);
    /// In front of the control at `before` (counted from 0), or at the end.
    void insert(std::shared_ptr<CommandBarControl> control, std::size_t before);
    void remove(const CommandBarControl& control);
    void copyFrom(const CommandBarControls& other);

  private:
    automation::Value add(Arguments arguments);

    std::vector<std::shared_ptr<CommandBarControl>> list_;
};

/// A command bar of an explorer or inspector. There is one in each: the menu bar.
class CommandBar : public Automated<CommandBar> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<CommandBar> members;

    explicit CommandBar(Core& core);
    /// The first control of a type and with an id, where they are given.
    std::shared_ptr<CommandBarControl> find(Arguments typeAndId) const;

    std::wstring className() const override { return L"CommandBar"; }
    const std::wstring& name() const noexcept { return name_; }
    const std::shared_ptr<CommandBarControls>& controls() const noexcept { return controls_; }

  private:
    std::wstring name_ = L"Menu Bar";
    std::shared_ptr<CommandBarControls> controls_;
};

class CommandBars : public Collection<CommandBars> {
  public:
    static constexpr auto noSuchName = raise::outOfBounds;
    static const Members<CommandBars> members;

    /// A new window takes over the menu of the one it is opened beside, as Outlook's do.
    CommandBars(Core& core, const CommandBars* model);

    std::wstring className() const override { return L"CommandBars"; }
    CommandBar& menuBar() const { return *menuBar_; }
    std::vector<std::shared_ptr<CommandBar>> list() const { return {menuBar_}; }
    static bool isNamed(const std::shared_ptr<CommandBar>& bar, std::wstring_view name) {
        return text::equalsIgnoringCase(bar->name(), name);
    }

  private:
    std::shared_ptr<CommandBar> menuBar_;
};

}  // namespace host
