#pragma once

#include <windows.h>

#include <memory>

#include "platform/windows/ComObject.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/extensibility.h"

namespace server {

/// The class Veltro.Connect: what Outlook makes and connects. Holds the add-in between OnConnection and
/// OnDisconnection. Lives in Outlook's user-interface thread, its apartment.
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

  private:
    struct Session;

    ConnectObject();
    ~ConnectObject() override;
    void* find(REFIID id) noexcept override;

    std::shared_ptr<Session> session_;
};

}  // namespace server
