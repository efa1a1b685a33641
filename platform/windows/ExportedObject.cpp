#include "platform/windows/ExportedObject.h"

#include <olectl.h>

#include <utility>

#include "platform/windows/ComTarget.h"
#include "platform/windows/ConnectionPoint.h"
#include "platform/windows/Enumerator.h"
#include "platform/windows/Exporter.h"
#include "platform/windows/comErrors.h"

namespace platform::windows {

using automation::Access;
using automation::Error;
using automation::Value;

ExportedObject::ExportedObject(std::shared_ptr<automation::Target> target, std::shared_ptr<Exporter> exporter)
    : DispatchObject(exporter->liveObjects()), exporter_(std::move(exporter)), target_(std::move(target)) {}

ExportedObject::~ExportedObject() {
    exporter_->forget(*this);
}

DWORD ExportedObject::advise(automation::EventInterface events, ComPtr<IDispatch> sink) {
    auto send = [sink = std::move(sink), exporter = exporter_](std::int32_t event,
                                                               std::span<Value> arguments) {
        // The handler may end the connection, and this closure with it.
        const auto receiver = sink;
        const auto translator = exporter;
        OutgoingArguments outgoing(arguments, false, *translator);
        EXCEPINFO details{};
        const HRESULT result = receiver->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                &outgoing.parameters(), nullptr, &details, nullptr);
        checkInvoke(result, details);
        outgoing.writeBack();
    };
    automation::Subscription connection = target_->subscribe(events, std::move(send));
    connections_.emplace(++lastCookie_, std::move(connection));
    return lastCookie_;
}

bool ExportedObject::unadvise(DWORD cookie) {
    const auto connection = connections_.extract(cookie);
    return !connection.empty();
}

void* ExportedObject::find(REFIID id) noexcept {
    if (id == IID_IDispatch) {
        return static_cast<IDispatch*>(this);
    }
    return id == IID_IConnectionPointContainer ? static_cast<IConnectionPointContainer*>(this) : nullptr;
}

STDMETHODIMP ExportedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0 || !names[0]) {
        return E_INVALIDARG;
    }
    for (UINT index = 0; index < count; ++index) {
        ids[index] = DISPID_UNKNOWN;
    }
    return guarded([&]() -> HRESULT {
        try {
            ids[0] = target_->memberId(names[0]);
        } catch (const Error& error) {
            if (error.number() == automation::errors::memberNotFound) {
                return DISP_E_UNKNOWNNAME;
            }
            throw;
        }
        // The further names are those of arguments, which late-bound objects do not know.
        return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    });
}

Value ExportedObject::access(DISPID member, WORD flags, std::span<const Value> arguments) {
    if ((flags & DISPATCH_PROPERTYPUT) != 0) {
        return target_->invoke(member, Access::Put, arguments);
    }
    if ((flags & DISPATCH_PROPERTYPUTREF) != 0) {
        return target_->invoke(member, Access::PutReference, arguments);
    }
    if ((flags & DISPATCH_PROPERTYGET) == 0) {
        return target_->invoke(member, Access::Call, arguments);
    }
    try {
        return target_->invoke(member, Access::Get, arguments);
    } catch (const Error& error) {
        // Scripts do not tell methods from properties where they use the result.
        if (error.number() != automation::errors::memberNotFound || (flags & DISPATCH_METHOD) == 0) {
            throw;
        }
    }
    return target_->invoke(member, Access::Call, arguments);
}

STDMETHODIMP ExportedObject::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                    VARIANT* result, EXCEPINFO* details, UINT*) {
    const ComPtr<IUnknown> self(identity());
    const auto owner = exporter_->owner();
    return guardedInvoke(details, [&]() -> HRESULT {
        if (member == DISPID_NEWENUM) {
            auto enumerator = Enumerator::make(target_, exporter_);
            if (result) {
                result->vt = VT_UNKNOWN;
                result->punkVal = enumerator.detach();
            }
            return S_OK;
        }
        const bool put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        IncomingArguments arguments(parameters, put, *exporter_);
        Value value;
        try {
            value = access(member, flags, arguments.values());
        } catch (const Error& error) {
            // No exception of the object's: callers may then try the other way to put.
            if (put && error.number() == automation::errors::memberNotFound) {
                return DISP_E_MEMBERNOTFOUND;
            }
            throw;
        }
        arguments.writeBack();
        if (result) {
            *result = toVariant(value, *exporter_).detach();
        }
        return S_OK;
    });
}

STDMETHODIMP ExportedObject::EnumConnectionPoints(IEnumConnectionPoints**) {
    return E_NOTIMPL;
}

STDMETHODIMP ExportedObject::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
    if (!point) {
        return E_POINTER;
    }
    *point = nullptr;
    if (id != eventInterfaceId({id.Data1})) {
        return CONNECT_E_NOCONNECTION;
    }
    return guarded([&] {
        // Whether the target raises these events turns out when somebody listens.
        *point = ConnectionPoint::make(ComPtr<ExportedObject>(this), {id.Data1}).detach();
        return S_OK;
    });
}

}  // namespace platform::windows
