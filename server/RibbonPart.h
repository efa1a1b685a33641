#pragma once

#include <windows.h>

#include "platform/windows/ribbonInterface.h"

namespace server {

class ConnectObject;

/// The connect object's second dispatch interface. It needs a table of its own, since both interfaces number
/// their members from 1. It lives in the connect object, whose identity and count of references it has.
class RibbonPart final : public platform::windows::IRibbonExtensibility {
  public:
    explicit RibbonPart(ConnectObject& owner) : owner_(owner) {}
    RibbonPart(const RibbonPart&) = delete;
    RibbonPart& operator=(const RibbonPart&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* details, UINT* badArgument) override;
    STDMETHODIMP GetCustomUI(BSTR ribbonId, BSTR* ribbon) override;

  private:
    ConnectObject& owner_;
};

}  // namespace server
