#include "addin/modCommandBarCode.h"

#include "mail/errorTrap.h"
#include "platform/outlook.h"
#include "platform/text.h"

namespace addin::modCommandBarCode {

namespace {

using automation::Object;
using automation::Value;

std::wstring withoutAccessKey(std::wstring_view caption) {
    return text::replaceAll(caption, L"&", L"");
}

Object add(const Object& controls, std::int32_t type, const std::wstring& caption,
           std::optional<std::int32_t> before) {
    constexpr bool temporary = true;
    const Object control =
        controls.call(L"Add", type, Value(), Value(), before ? Value(*before) : Value(), temporary)
            .toObject();
    try {
        control.put(L"Caption", caption);
    } catch (...) {
        mail::skipErrors([&] { control.call(L"Delete"); });  // Nobody would find it any more.
        throw;
    }
    return control;
}

void decorate(const Object& button, const ButtonPicture& look) {
    if (look.picture && look.mask) {
        button.put(L"Picture", look.picture);
        button.put(L"Mask", look.mask);
    }
}

}  // namespace

/// Walked through: Item takes a caption too, but fails alike for one that is missing and for any other
/// reason.
Object FindControl(const Object& controls, const std::wstring& caption, std::optional<std::int32_t> type) {
    const std::wstring wanted = withoutAccessKey(caption);
    for (Object control : outlook::Collection<Object>(controls)) {
        if (text::equalsIgnoringCase(withoutAccessKey(control.get(L"Caption").toText()), wanted) &&
            (!type || control.get(L"Type").toInteger() == *type)) {
            return control;
        }
    }
    return {};
}

Popup FindOrAddPopup(const Object& controls, const std::wstring& caption,
                     std::optional<std::int32_t> before) {
    const Object popup = FindControl(controls, caption, popupType);
    return popup ? Popup{popup} : Popup{add(controls, popupType, caption, before), true};
}

Popup FindOrAddPopup(const Popup& popup, const std::wstring& caption) {
    const Object controls = popup.control.get(L"Controls").toObject();
    return popup.isNew ? Popup{add(controls, popupType, caption, std::nullopt), true}
                       : FindOrAddPopup(controls, caption);
}

Object FindOrAddButton(const Popup& popup, const Button& button,
                       const std::function<ButtonPicture()>& helpPicture) {
    const Object controls = popup.control.get(L"Controls").toObject();
    Object control = popup.isNew ? Object() : FindControl(controls, button.caption, buttonType);
    const bool isNew = !control;
    if (isNew) {
        control = add(controls, buttonType, button.caption, std::nullopt);
    } else {
        control.put(L"Caption", button.caption);
    }
    control.put(L"Tag", button.tag);
    if (button.beginGroup || !isNew) {
        control.put(L"BeginGroup", button.beginGroup);
    }
    if (text::containsIgnoringCase(button.caption, L"HELP")) {
        mail::skipErrors([&] { decorate(control, helpPicture()); });
    }
    return control;
}

}  // namespace addin::modCommandBarCode
