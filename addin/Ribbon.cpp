#include "addin/Ribbon.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "addin/ExplorerWrap.h"
#include "addin/composeGroup.h"
#include "addin/ribbonXml.h"
#include "mail/errorTrap.h"

namespace addin {

using automation::Object;
using automation::Value;
using Arguments = std::span<const Value>;

namespace {

/// Side lengths in which the pictures are drawn.
constexpr std::uint32_t drawnSizes[] = {16, 20, 24, 32, 40, 48, 64};

/// Office shows pictures of 16 pixels, or 32 on large buttons, where the screen has 96 to the inch. Where
/// none is drawn of that size the next larger one: it is scaled down better than up.
std::uint32_t pictureSize(bool large, std::uint32_t dpi) {
    const std::uint32_t wanted = (large ? 32 : 16) * dpi / 96;
    const auto* const fitting = std::ranges::lower_bound(drawnSizes, wanted);
    return fitting == std::end(drawnSizes) ? *std::prev(std::end(drawnSizes)) : *fitting;
}

/// Asked before the connection Outlook's objects cannot tell; then the program's file can.
std::optional<mail::OutlookVersion> versionOf(const mail::Globals& globals) {
    if (globals.outlook) {
        return mail::attempt([&] { return mail::outlookVersion(globals); });
    }
    const std::wstring version = globals.platform.system.programVersion();
    return version.empty() ? std::nullopt : std::optional(mail::OutlookVersion(version));
}

const ribbonXml::Button* buttonOf(const Object& control) {
    return ribbonXml::find(control.get(L"Id").toText());
}

}  // namespace

Ribbon::Ribbon(mail::Globals& globals) : globals_(globals) {
    const auto quietly = [](auto&& answer) {
        return [answer](Arguments given) {
            Value result;
            mail::skipErrors([&] { result = answer(given[0].toObject()); });
            return result;
        };
    };
    callbacks_ = std::make_shared<automation::FunctionTarget>(std::vector<automation::FunctionTarget::Member>{
        {ribbonXml::callback::loaded, 1, quietly([this](const Object& ribbon) {
             loaded_.push_back(ribbon);
             return Value();
         })},
        {ribbonXml::callback::picture, 1,
         quietly([this](const Object& control) { return picture(control); })},
        {ribbonXml::callback::account, 1,
         quietly([this](const Object& control) { return account(control); })},
        {ribbonXml::callback::pressed, 1, quietly([this](const Object& control) {
             pressed(control);
             return Value();
         })},
    });
    globals_.preferredAccountChanges = [this] { askForAccountAnew(); };
}

Ribbon::~Ribbon() {
    globals_.preferredAccountChanges = nullptr;
    callbacks_->close();
}

std::wstring Ribbon::customUI(const std::wstring& ribbonId) const {
    return gone_ ? std::wstring() : ribbonXml::make(globals_, ribbonId, versionOf(globals_));
}

Value Ribbon::picture(const Object& control) const {
    const ribbonXml::Button* const button = buttonOf(control);
    if (!button || !globals_.resources) {
        return {};
    }
    const std::uint32_t size = pictureSize(button->large, globals_.platform.system.screenDpi());
    const auto picture = globals_.resources->DLL_LoadIcon(button->picture, size);
    return picture ? Value(picture->object()) : Value();
}

Value Ribbon::account(const Object& control) const {
    const auto window = mail::attempt([&] { return control.get(L"Context").toObject(); });
    return Value(composeGroup::accountText(globals_, window.value_or(Object())));
}

void Ribbon::pressed(const Object& control) {
    if (!globals_.outlook) {
        return;  // Not connected yet, or no longer.
    }
    mail::trapErrors(globals_, mail::ErrorReport::usual(L"Ribbon.Pressed"), [&] {
        const ribbonXml::Button* const button = buttonOf(control);
        if (!button) {
            return;
        }
        if (button->command) {
            ExplorerWrap::run(globals_, *button->command);
        } else {
            composeGroup::checkNow(globals_, control.get(L"Context").toObject());
        }
    });
}

void Ribbon::askForAccountAnew() const {
    const auto ribbons = loaded_;
    for (const Object& ribbon : ribbons) {
        mail::skipErrors([&] { ribbon.call(L"InvalidateControl", ribbonXml::accountControl); });
    }
}

}  // namespace addin
