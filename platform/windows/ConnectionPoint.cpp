#include "platform/windows/ConnectionPoint.h"

#include <olectl.h>

#include <utility>

#include "platform/windows/ComTarget.h"
#include "platform/windows/Exporter.h"
#include "platform/windows/comErrors.h"

namespace platform::windows {

ComPtr<IConnectionPoint> ConnectionPoint::make(ComPtr<ExportedObject> source,
                                               automation::EventInterface events) {
    return ComPtr<IConnectionPoint>::adopt(new ConnectionPoint(std::move(source), events));
}

ConnectionPoint::ConnectionPoint(ComPtr<ExportedObject> source, automation::EventInterface events)
    : ComObject(source->exporter().liveObjects()), source_(std::move(source)), events_(events) {}

void* ConnectionPoint::find(REFIID id) noexcept {
    return id == IID_IConnectionPoint ? static_cast<IConnectionPoint*>(this) : nullptr;
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* id) {
    if (!id) {
        return E_POINTER;
    }
    *id = eventInterfaceId(events_);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) {
        return E_POINTER;
    }
    return source_->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (!sink || !cookie) {
        return E_POINTER;
    }
    *cookie = 0;
    ComPtr<IDispatch> receiver = query<IDispatch>(sink, eventInterfaceId(events_));
    if (!receiver) {
        receiver = query<IDispatch>(sink, IID_IDispatch);
    }
    if (!receiver) {
        return CONNECT_E_CANNOTCONNECT;
    }
    return guarded([&] {
        *cookie = source_->advise(events_, std::move(receiver));
        return S_OK;
    });
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie) {
    return guarded([&] { return source_->unadvise(cookie) ? S_OK : CONNECT_E_NOCONNECTION; });
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections**) {
    return E_NOTIMPL;
}

}  // namespace platform::windows
