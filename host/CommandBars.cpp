#include "host/CommandBars.h"

#include <algorithm>

#include "host/Core.h"

namespace host {

using automation::Value;

namespace {

std::wstring plain(std::wstring_view caption) {
    return text::replaceAll(caption, L"&", L"");
}

/// The first dispatch ids of Office's interfaces, which counts them in the order of its members.
namespace officeId {
constexpr std::int32_t bars = 0x60030000;
constexpr std::int32_t controls = 0x60030000;
constexpr std::int32_t bar = 0x60040000;
constexpr std::int32_t control = 0x60040000;
/// Of what buttons or popups have beside the members of every control.
constexpr std::int32_t kindOfControl = 0x60050000;
}  // namespace officeId

bool isButton(const CommandBarControl& control) {
    return control.type() == controlType::button;
}

bool isPopup(const CommandBarControl& control) {
    return control.type() == controlType::popup;
}

}  // namespace

bool CommandBarControls::isNamed(const std::shared_ptr<CommandBarControl>& control,
                                 std::wstring_view caption) {
    return text::equalsIgnoringCase(plain(control->caption()), plain(caption));
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
    const auto control = core().make<CommandBarControl>(type, L"", temporary);
    insert(control, before);
    return control->object();
}

constinit const Members<CommandBarControls> CommandBarControls::members = {
    countRow<CommandBarControls, officeId::controls + 1>,
    itemRow<CommandBarControls, dispatchId::defaultMember>,
    {.name = L"Add", .id = officeId::controls, .call = use<&CommandBarControls::add>, .most = 5},
};

CommandBarControl::CommandBarControl(Core& core, int type, std::wstring caption, bool temporary, int id)
    : Automated(core), type_(type), caption_(std::move(caption)), temporary_(temporary), id_(id) {
    if (type_ == controlType::popup) {
        controls_ = core.make<CommandBarControls>();
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
    core().raiseCancellable(events_, L"Click", 1, {object()});
}

std::shared_ptr<CommandBarControl> CommandBarControl::copy() const {
    auto result = core().make<CommandBarControl>(type_, caption_, temporary_, id_);
    result->beginGroup_ = beginGroup_;
    result->visible_ = visible_;
    result->enabled_ = enabled_;
    result->style_ = style_;
    result->faceId_ = faceId_;
    result->tag_ = tag_;
    result->onAction_ = onAction_;
    result->parameter_ = parameter_;
    result->toolTip_ = toolTip_;
    result->picture_ = picture_;
    result->mask_ = mask_;
    if (controls_) {
        result->controls_->copyFrom(*controls_);
    }
    return result;
}

void CommandBarControl::remove() {
    if (const auto owner = owner_.lock()) {
        owner->remove(*this);
    }
}

constinit const Members<CommandBarControl> CommandBarControl::members = {
    {.name = L"Caption",
     .id = officeId::control + 3,
     .get = use<&CommandBarControl::caption_>,
     .put = set<&CommandBarControl::caption_>},
    {.name = L"Type", .id = officeId::control + 40, .get = use<&CommandBarControl::type_>},
    {.name = L"Id", .id = officeId::control + 19, .get = use<&CommandBarControl::id_>},
    {.name = L"Index", .id = officeId::control + 20, .get = use<&CommandBarControl::index>},
    {.name = L"BeginGroup",
     .id = officeId::control,
     .get = use<&CommandBarControl::beginGroup_>,
     .put = set<&CommandBarControl::beginGroup_>},
    {.name = L"Visible",
     .id = officeId::control + 41,
     .get = use<&CommandBarControl::visible_>,
     .put = set<&CommandBarControl::visible_>},
    {.name = L"Enabled",
     .id = officeId::control + 10,
     .get = use<&CommandBarControl::enabled_>,
     .put = set<&CommandBarControl::enabled_>},
    {.name = L"Tag",
     .id = officeId::control + 35,
     .get = use<&CommandBarControl::tag_>,
     .put = set<&CommandBarControl::tag_>},
    {.name = L"Parameter",
     .id = officeId::control + 29,
     .get = use<&CommandBarControl::parameter_>,
     .put = set<&CommandBarControl::parameter_>},
    {.name = L"OnAction",
     .id = officeId::control + 26,
     .get = use<&CommandBarControl::onAction_>,
     .put = set<&CommandBarControl::onAction_>},
    {.name = L"TooltipText",
     .id = officeId::control + 37,
     .get = use<&CommandBarControl::toolTip_>,
     .put = set<&CommandBarControl::toolTip_>},
    {.name = L"Style",
     .id = officeId::kindOfControl + 10,
     .get = use<&CommandBarControl::style_>,
     .put = set<&CommandBarControl::style_>,
     .has = isButton},
    {.name = L"FaceId",
     .id = officeId::kindOfControl + 3,
     .get = use<&CommandBarControl::faceId_>,
     .put = set<&CommandBarControl::faceId_>,
     .has = isButton},
    // Picture objects, which nothing here shows.
    {.name = L"Picture",
     .id = officeId::kindOfControl + 14,
     .get = use<&CommandBarControl::picture_>,
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.picture_ = value.toObject(); },
     .has = isButton},
    {.name = L"Mask",
     .id = officeId::kindOfControl + 16,
     .get = use<&CommandBarControl::mask_>,
     .put = [](CommandBarControl& control, Arguments,
               const Value& value) { control.mask_ = value.toObject(); },
     .has = isButton},
    {.name = L"Controls",
     .id = officeId::kindOfControl + 1,
     .get = use<&CommandBarControl::controls_>,
     .has = isPopup},
    {.name = L"Delete", .id = officeId::control + 7, .call = use<&CommandBarControl::remove>, .most = 1},
    {.name = L"Execute", .id = officeId::control + 12, .call = use<&CommandBarControl::press>},
};

CommandBar::CommandBar(Core& core) : Automated(core), controls_(core.make<CommandBarControls>()) {}

std::shared_ptr<CommandBarControl> CommandBar::find(Arguments typeAndId) const {
    const auto matches = [&](std::size_t argument, int value) {
        return !typeAndId.has(argument) || typeAndId[argument].toInteger() == value;
    };
    const auto found = std::ranges::find_if(controls_->list(), [&](const auto& control) {
        return matches(0, control->type()) && matches(1, control->id());
    });
    return found == controls_->list().end() ? nullptr : *found;
}

constinit const Members<CommandBar> CommandBar::members = {
    {.name = L"Name", .id = officeId::bar + 14, .get = use<&CommandBar::name_>},
    {.name = L"Index", .id = officeId::bar + 10, .get = [](CommandBar&, Arguments) { return Value(1); }},
    {.name = L"Controls", .id = officeId::bar + 3, .get = use<&CommandBar::controls_>},
    {.name = L"FindControl", .id = officeId::bar + 7, .call = use<&CommandBar::find>, .most = 2},
};

CommandBars::CommandBars(Core& core, const CommandBars* model)
    : Collection(core), menuBar_(core.make<CommandBar>()) {
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
        menus.insert(core.make<CommandBarControl>(controlType::popup, menu.caption, false, menu.id),
                     menus.list().size());
    }
}

constinit const Members<CommandBars> CommandBars::members = {
    countRow<CommandBars, officeId::bars + 3>,
    itemRow<CommandBars, dispatchId::defaultMember>,
    {.name = L"ActiveMenuBar", .id = officeId::bars + 1, .get = use<&CommandBars::menuBar_>},
};

}  // namespace host
