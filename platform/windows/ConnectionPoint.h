#pragma once

#include <ocidl.h>

#include "platform/automation.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/ExportedObject.h"

namespace platform::windows {

/// One event interface of an exported object; keeps the object alive.
class ConnectionPoint final : public ComObject<IConnectionPoint> {
  public:
    static ComPtr<IConnectionPoint> make(ComPtr<ExportedObject> source, automation::EventInterface events);

    STDMETHODIMP GetConnectionInterface(IID* id) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

  private:
    ConnectionPoint(ComPtr<ExportedObject> source, automation::EventInterface events);
    void* find(REFIID id) noexcept override;

    ComPtr<ExportedObject> source_;
    automation::EventInterface events_;
};

}  // namespace platform::windows
