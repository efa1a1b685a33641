#include "host/CommandBars.h"

#include <algorithm>

#include "host/World.h"

namespace host {

using automation::Value;

namespace {

std::wstring plain(std::wstring_view caption) {
    return text::replaceAll(caption, L"&", L"");
}

template <class Controls>
Value find(Controls& controls, Arguments arguments) {
    const auto& list = controls.list();
    if (!arguments[0].template holds<std::wstring>()) {
        return list[position(arguments[0], list.size())]->object();
    }
    const auto found = controls.find(arguments.text(0));
    if (!found) {
        raise::outOfBounds();
    }
    return found->object();
}

}  // namespace

std::shared_ptr<CommandBarControl> CommandBarControls::find(std::wstring_view caption) const {
    const auto found = std::ranges::find_if(list_, [&](const auto& control) {
        return text::equalsIgnoringCase(plain(control->caption()), plain(caption));
    });
    return found == list_.end() ? nullptr : *found;
}

void CommandBarControls::insert(std::shared_ptr<CommandBarControl> control, std::size_t before) {
    control->placed(self<CommandBarControls>());
    list_.insert(list_.begin() + static_cast<std::ptrdiff_t>(std::min(before, list_.size())),
                 std::move(control));
}

void CommandBarControls::remove(const CommandBarControl& control) {
    const auto found = std::ranges::find_if(list_, [&](const auto& mine) { return mine.get() == &control; });
    if (found != list_.end()) {
        const auto removed = std::move(*found);
        list_.erase(found);
        removed->deleted();
    }
}

void CommandBarControls::copyFrom(const CommandBarControls& other) {
    for (const auto& control : other.list_) {
        insert(control->copy(), list_.size());
    }
}

/// Add([Type], [Id], [Parameter], [Before], [Temporary]).
Value CommandBarControls::add(Arguments arguments) {
    const int type = arguments.has(0) ? arguments[0].toInteger() : controlType::button;
    if (type != controlType::button && type != controlType::popup) {
        raise::operationFailed();
    }
    const bool temporary = arguments.has(4) && arguments[4].toBool();
    const std::size_t before = arguments.has(3) ? position(arguments[3], list_.size() + 1) : list_.size();
    const auto control = world().make<CommandBarControl>(type, L"", temporary);
    insert(control, before);
    return control->object();
}

constinit const Member<CommandBarControls> CommandBarControls::table_[] = {
    {.name = L"Count",
     .get = [](CommandBarControls& controls,
               Arguments) { return Value(static_cast<std::int32_t>(controls.list_.size())); }},
    {.name = L"Item", .id = 0, .get = host::find<CommandBarControls>, .least = 1, .most = 1},
    {.name = L"Add",
     .call = [](CommandBarControls& controls, Arguments arguments) { return controls.add(arguments); },
     .most = 5},
};

std::span<const Member<CommandBarControls>> CommandBarControls::members() {
    return table_;
}

CommandBarControl::CommandBarControl(World& world, int type, std::wstring caption, bool temporary, int id)
    : Automated(world), type_(type), caption_(std::move(caption)), temporary_(temporary), id_(id) {
    if (type_ == controlType::popup) {
        controls_ = world.make<CommandBarControls>();
    }
}

void CommandBarControl::checkUsable() const {
    if (deleted_ || owner_.expired()) {
        raise::operationFailed();
    }
}

int CommandBarControl::index() const {
    const auto owner = owner_.lock();
    const auto& list = owner->list();
    const auto found = std::ranges::find_if(list, [&](const auto& control) { return control.get() == this; });
    return static_cast<int>(found - list.begin()) + 1;
}

void CommandBarControl::press() {
    world().raiseCancellable(events_, L"Click", 1, {object()});
}

std::shared_ptr<CommandBarControl> CommandBarControl::copy() const {
    auto result = world().make<CommandBarControl>(type_, caption_, temporary_, id_);
    result->beginGroup_ = beginGroup_;
    result->visible_ = visible_;
    result->enabled_ = enabled_;
    result->style_ = style_;
    result->faceId_ = faceId_;
    result->tag_ = tag_;
    result->onAction_ = onAction_;
    result->parameter_ = parameter_;
    result->toolTip_ = toolTip_;
    if (controls_) {
        result->controls_->copyFrom(*controls_);
    }
    return result;
}

constinit const Member<CommandBarControl> CommandBarControl::table_[] = {
    {.name = L"Caption",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.caption_); },
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.caption_ = value.toText(); }},
    {.name = L"Type", .get = [](CommandBarControl& control, Arguments) { return Value(control.type_); }},
    {.name = L"Id", .get = [](CommandBarControl& control, Arguments) { return Value(control.id_); }},
    {.name = L"Index", .get = [](CommandBarControl& control, Arguments) { return Value(control.index()); }},
    {.name = L"BeginGroup",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.beginGroup_); },
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.beginGroup_ = value.toBool(); }},
    {.name = L"Visible",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.visible_); },
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.visible_ = value.toBool(); }},
    {.name = L"Enabled",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.enabled_); },
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.enabled_ = value.toBool(); }},
    {.name = L"Tag",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.tag_); },
     .put = [](CommandBarControl& control, Arguments, const Value& value) { control.tag_ = value.toText(); }},
    {.name = L"Parameter",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.parameter_); },
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.parameter_ = value.toText(); }},
    {.name = L"OnAction",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.onAction_); },
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.onAction_ = value.toText(); }},
    {.name = L"TooltipText",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.toolTip_); },
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.toolTip_ = value.toText(); }},
    {.name = L"Style",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.style_); },
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.style_ = value.toInteger(); },
     .has = [](const CommandBarControl& control) { return control.type_ == controlType::button; }},
    {.name = L"FaceId",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.faceId_); },
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.faceId_ = value.toInteger(); },
     .has = [](const CommandBarControl& control) { return control.type_ == controlType::button; }},
    // Picture and Mask take a picture object, which nothing here shows.
    {.name = L"Picture",
     .put = [](CommandBarControl&, Arguments, const Value& value) { value.toObject(); },
     .has = [](const CommandBarControl& control) { return control.type_ == controlType::button; }},
    {.name = L"Mask",
     .put = [](CommandBarControl&, Arguments, const Value& value) { value.toObject(); },
     .has = [](const CommandBarControl& control) { return control.type_ == controlType::button; }},
    {.name = L"Controls",
     .get = [](CommandBarControl& control, Arguments) { return Value(control.controls_->object()); },
     .has = [](const CommandBarControl& control) { return control.type_ == controlType::popup; }},
    {.name = L"Delete",
     .call =
         [](CommandBarControl& control, Arguments) {
             if (const auto owner = control.owner_.lock()) {
                 owner->remove(control);
             }
             return Value();
         },
     .most = 1},
    {.name = L"Execute",
     .call =
         [](CommandBarControl& control, Arguments) {
             control.press();
             return Value();
         }},
};

std::span<const Member<CommandBarControl>> CommandBarControl::members() {
    return table_;
}

CommandBar::CommandBar(World& world) : Automated(world), controls_(world.make<CommandBarControls>()) {}

std::shared_ptr<CommandBarControl> CommandBar::find(Arguments typeAndId) const {
    const auto matches = [&](std::size_t argument, int value) {
        return !typeAndId.has(argument) || typeAndId[argument].toInteger() == value;
    };
    const auto found = std::ranges::find_if(controls_->list(), [&](const auto& control) {
        return matches(0, control->type()) && matches(1, control->id());
    });
    return found == controls_->list().end() ? nullptr : *found;
}

constinit const Member<CommandBar> CommandBar::table_[] = {
    {.name = L"Name", .get = [](CommandBar& bar, Arguments) { return Value(bar.name_); }},
    {.name = L"Index", .get = [](CommandBar&, Arguments) { return Value(1); }},
    {.name = L"Controls", .get = [](CommandBar& bar, Arguments) { return Value(bar.controls_->object()); }},
    {.name = L"FindControl",
     .call =
         [](CommandBar& bar, Arguments arguments) {
             const auto found = bar.find(arguments);
             return Value(found ? found->object() : automation::Object());
         },
     .most = 2},
};

std::span<const Member<CommandBar>> CommandBar::members() {
    return table_;
}

CommandBars::CommandBars(World& world, const CommandBars* model)
    : Automated(world), menuBar_(world.make<CommandBar>()) {
    CommandBarControls& menus = *menuBar_->controls();
    if (model) {
        menus.copyFrom(*model->menuBar_->controls());
        return;
    }
    struct Menu {
        const wchar_t* caption;
        int id = 1;
    };
    for (const Menu& menu : {Menu{L"&File", 30002},
                             {L"&Edit", 30003},
                             {L"&View", 30004},
                             {L"&Go"},
                             {L"&Tools", 30007},
                             {L"&Actions"},
                             {L"&Help", 30010}}) {
        menus.insert(world.make<CommandBarControl>(controlType::popup, menu.caption, false, menu.id),
                     menus.list().size());
    }
}

constinit const Member<CommandBars> CommandBars::table_[] = {
    {.name = L"Count", .get = [](CommandBars&, Arguments) { return Value(1); }},
    {.name = L"Item",
     .id = 0,
     .get =
         [](CommandBars& bars, Arguments arguments) {
             CommandBar& bar = *bars.menuBar_;
             if (!arguments[0].holds<std::wstring>()) {
                 position(arguments[0], 1);
             } else if (!text::equalsIgnoringCase(arguments.text(0), bar.name())) {
                 raise::outOfBounds();
             }
             return Value(bar.object());
         },
     .least = 1,
     .most = 1},
    {.name = L"ActiveMenuBar",
     .get = [](CommandBars& bars, Arguments) { return Value(bars.menuBar_->object()); }},
};

std::span<const Member<CommandBars>> CommandBars::members() {
    return table_;
}

}  // namespace host
