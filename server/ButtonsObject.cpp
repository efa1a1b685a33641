#include "server/ButtonsObject.h"

#include <oleauto.h>

#include "platform/windows/Bstr.h"
#include "platform/windows/WindowsPlatform.h"
#include "platform/windows/comErrors.h"
#include "server/Held.h"
#include "server/Module.h"

namespace server {

using automation::Value;
using platform::windows::Bstr;
using platform::windows::ComPtr;
using platform::windows::guarded;

/// The add-in's part in this process, with its ports.
struct ButtonsObject::World {
    Held held;
    platform::windows::WindowsPlatform world{liveObjects()};
    std::shared_ptr<addin::Buttons> buttons = std::make_shared<addin::Buttons>(world.platform());
    automation::Object members = addin::Buttons::object(buttons);
};

ComPtr<IUnknown> ButtonsObject::make() {
    const auto made = ComPtr<ButtonsObject>::adopt(new ButtonsObject);
    return ComPtr<IUnknown>(made->identity());
}

ButtonsObject::ButtonsObject() : DispatchObject(liveObjects()), world_(std::make_shared<World>()) {}

ButtonsObject::~ButtonsObject() = default;

void* ButtonsObject::find(REFIID id) noexcept {
    const bool known = id == IID_IDispatch || id == platform::windows::buttonsInterfaceId;
    return known ? static_cast<platform::windows::IButtons*>(this) : nullptr;
}

STDMETHODIMP ButtonsObject::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) {
    return guarded([&] {
        return world_->world.exporter()
            .exportObject(world_->members)
            ->GetIDsOfNames(id, names, count, locale, ids);
    });
}

STDMETHODIMP ButtonsObject::Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* details, UINT* badArgument) {
    const auto world = world_;
    return guarded([&] {
        const auto members = world->world.exporter().exportObject(world->members);
        return members->Invoke(member, id, locale, flags, parameters, result, details, badArgument);
    });
}

template <class Question>
HRESULT ButtonsObject::ask(VARIANT_BOOL* held, const Question& question) {
    if (!held) {
        return E_POINTER;
    }
    const auto world = world_;
    return guarded([&] {
        *held = question(*world->buttons) ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    });
}

STDMETHODIMP ButtonsObject::SelPostroute(BSTR accountInUse, BSTR preferred, BSTR address,
                                         VARIANT_BOOL* held) {
    return ask(held, [&](addin::Buttons& buttons) {
        return buttons.SelPostroute(Bstr::toText(accountInUse), Bstr::toText(preferred),
                                    Bstr::toText(address));
    });
}

STDMETHODIMP ButtonsObject::AddEmailAddressToList(BSTR address, BSTR accountInUse, VARIANT_BOOL* held) {
    return ask(held, [&](addin::Buttons& buttons) {
        return buttons.AddEmailAddressToList(Bstr::toText(address), Bstr::toText(accountInUse));
    });
}

STDMETHODIMP ButtonsObject::PrefAcctExistsFalse(LONG mode, BSTR accountInUse, BSTR address, BSTR message,
                                                VARIANT_BOOL* held) {
    return ask(held, [&](addin::Buttons& buttons) {
        return buttons.PrefAcctExistsFalse(mode, Bstr::toText(accountInUse), Bstr::toText(address),
                                           Bstr::toText(message));
    });
}

STDMETHODIMP ButtonsObject::DelayEmailSending(IDispatch* item, VARIANT_BOOL* cancel, VARIANT_BOOL* held) {
    return check(item, cancel, held, &addin::Buttons::DelayEmailSending);
}

STDMETHODIMP ButtonsObject::EmptySubjectCheck(IDispatch* item, VARIANT_BOOL* cancel, VARIANT_BOOL* held) {
    return check(item, cancel, held, &addin::Buttons::EmptySubjectCheck);
}

HRESULT ButtonsObject::check(IDispatch* item, VARIANT_BOOL* cancel, VARIANT_BOOL* held, Check run) {
    return ask(held, [&](addin::Buttons& buttons) {
        const bool stays = (buttons.*run)(world_->world.exporter().toObject(item), Value());
        if (stays && cancel) {
            *cancel = VARIANT_TRUE;
        }
        return stays;
    });
}

}  // namespace server
