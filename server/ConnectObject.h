#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "platform/windows/ComObject.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/extensibility.h"
#include "server/RibbonPart.h"

namespace server {

/// The class Veltro.Connect: what Outlook makes and connects. Holds the add-in from the first question, which
/// may be for its ribbon, or OnConnection, to OnDisconnection. Lives in Outlook's user-interface thread, its
/// apartment.
class ConnectObject final : public platform::windows::DispatchObject<platform::windows::IDTExtensibility2> {
  public:
    static platform::windows::ComPtr<IUnknown> make();

    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* details, UINT* badArgument) override;

    STDMETHODIMP OnConnection(IDispatch* application, platform::windows::ConnectMode mode,
                              IDispatch* addInInstance, SAFEARRAY** custom) override;
    STDMETHODIMP OnDisconnection(platform::windows::RemoveMode mode, SAFEARRAY** custom) override;
    STDMETHODIMP OnAddInsUpdate(SAFEARRAY** custom) override;
    STDMETHODIMP OnStartupComplete(SAFEARRAY** custom) override;
    STDMETHODIMP OnBeginShutdown(SAFEARRAY** custom) override;

    /// Empty where there is none. Throws what the add-in throws.
    std::wstring customUI(const std::wstring& ribbonId);
    // The ribbon's callbacks, by GetIDsOfNames and Invoke; there are none before the ribbon was asked for,
    // nor after the disconnection.
    HRESULT callbackIds(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids);
    HRESULT callBack(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                     VARIANT* result, EXCEPINFO* details, UINT* badArgument);

  private:
    struct Session;

    ConnectObject();
    ~ConnectObject() override;
    void* find(REFIID id) noexcept override;
    std::shared_ptr<Session> openSession();

    RibbonPart ribbon_{*this};
    std::shared_ptr<Session> session_;
    /// Disconnected, and not connected again: there is no ribbon then.
    bool gone_ = false;
};

}  // namespace server
