#pragma once

#include <windows.h>

#include <memory>

#include "addin/Buttons.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/buttonsInterface.h"

namespace server {

/// The class Veltro.Buttons: what the macros of the Word template make, in Word's process, and call late
/// bound. Lives in the thread that made it, its apartment.
class ButtonsObject final : public platform::windows::DispatchObject<platform::windows::IButtons> {
  public:
    /// With ports of its own. Throws automation::Error when the system refuses.
    static platform::windows::ComPtr<IUnknown> make();

    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* details, UINT* badArgument) override;

    STDMETHODIMP SelPostroute(BSTR accountInUse, BSTR preferred, BSTR address, VARIANT_BOOL* held) override;
    STDMETHODIMP AddEmailAddressToList(BSTR address, BSTR accountInUse, VARIANT_BOOL* held) override;
    STDMETHODIMP PrefAcctExistsFalse(LONG mode, BSTR accountInUse, BSTR address, BSTR message,
                                     VARIANT_BOOL* held) override;
    STDMETHODIMP DelayEmailSending(IDispatch* item, VARIANT_BOOL* cancel, VARIANT_BOOL* held) override;
    STDMETHODIMP EmptySubjectCheck(IDispatch* item, VARIANT_BOOL* cancel, VARIANT_BOOL* held) override;

  private:
    struct World;

    ButtonsObject();
    ~ButtonsObject() override;
    void* find(REFIID id) noexcept override;
    using Check = bool (addin::Buttons::*)(const automation::Value&, const automation::Value&);
    template <class Question>
    HRESULT ask(VARIANT_BOOL* held, const Question& question);
    HRESULT check(IDispatch* item, VARIANT_BOOL* cancel, VARIANT_BOOL* held, Check run);

    /// Held by whatever works in it: a dialog may be open while Word lets go of this object.
    std::shared_ptr<World> world_;
};

}  // namespace server
