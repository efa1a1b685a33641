#include "server/RibbonPart.h"

#include <oleauto.h>

#include "platform/text.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/Variant.h"
#include "platform/windows/comErrors.h"
#include "server/ConnectObject.h"

namespace server {

using platform::windows::Bstr;
namespace ids = platform::windows::ribbonExtensibility;

STDMETHODIMP RibbonPart::QueryInterface(REFIID id, void** object) {
    return owner_.QueryInterface(id, object);
}

STDMETHODIMP_(ULONG) RibbonPart::AddRef() {
    return owner_.AddRef();
}

STDMETHODIMP_(ULONG) RibbonPart::Release() {
    return owner_.Release();
}

STDMETHODIMP RibbonPart::GetTypeInfoCount(UINT* count) {
    return owner_.GetTypeInfoCount(count);
}

STDMETHODIMP RibbonPart::GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) {
    return owner_.GetTypeInfo(index, locale, info);
}

STDMETHODIMP RibbonPart::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* members) {
    if (names && members && count == 1 && names[0] && text::equalsIgnoringCase(names[0], L"GetCustomUI")) {
        members[0] = ids::getCustomUI;
        return S_OK;
    }
    return owner_.callbackIds(id, names, count, locale, members);
}

STDMETHODIMP RibbonPart::Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                VARIANT* result, EXCEPINFO* details, UINT* badArgument) {
    if (member != ids::getCustomUI) {
        return owner_.callBack(member, id, locale, flags, parameters, result, details, badArgument);
    }
    if (!parameters || parameters->cArgs != 1 || !parameters->rgvarg) {
        return DISP_E_BADPARAMCOUNT;
    }
    return platform::windows::guarded([&] {
        platform::windows::Variant ribbonId;
        platform::windows::check(VariantChangeType(ribbonId.address(), &parameters->rgvarg[0], 0, VT_BSTR));
        BSTR ribbon = nullptr;
        const HRESULT answer = GetCustomUI(ribbonId->bstrVal, &ribbon);
        if (result && SUCCEEDED(answer)) {
            result->vt = VT_BSTR;
            result->bstrVal = ribbon;
        } else {
            SysFreeString(ribbon);
        }
        return answer;
    });
}

STDMETHODIMP RibbonPart::GetCustomUI(BSTR ribbonId, BSTR* ribbon) {
    if (!ribbon) {
        return E_POINTER;
    }
    *ribbon = nullptr;
    return platform::windows::guarded([&] {
        const std::wstring made = owner_.customUI(Bstr::toText(ribbonId));
        if (!made.empty()) {  // Office wants nothing for a window without a ribbon, not an empty text.
            *ribbon = Bstr(made).detach();
        }
        return S_OK;
    });
}

}  // namespace server
