#include "server/ConnectObject.h"

#include <oleauto.h>

#include <array>
#include <exception>
#include <string_view>
#include <utility>

#include "addin/Connect.h"
#include "platform/text.h"
#include "platform/windows/WindowsPlatform.h"
#include "platform/windows/comErrors.h"
#include "server/Held.h"
#include "server/Module.h"

namespace server {

using platform::windows::ComPtr;
using platform::windows::ConnectMode;
using platform::windows::guarded;
using platform::windows::RemoveMode;

namespace {

namespace ids = platform::windows::extensibility;

/// The members of the dispatch interface, with what callers must give them besides the array that comes last.
struct Member {
    std::wstring_view name;
    DISPID id;
    UINT arguments;
};
constexpr std::array<Member, 5> members{{{L"OnConnection", ids::onConnection, 3},
                                         {L"OnDisconnection", ids::onDisconnection, 1},
                                         {L"OnAddInsUpdate", ids::onAddInsUpdate, 0},
                                         {L"OnStartupComplete", ids::onStartupComplete, 0},
                                         {L"OnBeginShutdown", ids::onBeginShutdown, 0}}};

/// The callbacks' own ids come on top of this: beyond those of either interface.
constexpr DISPID firstCallback = 100;

/// The n-th argument in declared order, as the type asked for. A variant that holds nothing when it is none.
platform::windows::Variant argument(const DISPPARAMS& parameters, UINT index, VARTYPE type) {
    platform::windows::Variant value;
    platform::windows::check(
        VariantChangeType(value.address(), &parameters.rgvarg[parameters.cArgs - 1 - index], 0, type));
    return value;
}

}  // namespace

/// A connected add-in and its ports. May outlive its ConnectObject, while a handler of its waits in a dialog.
struct ConnectObject::Session {
    Held held;
    platform::windows::WindowsPlatform world{liveObjects()};
    addin::Connect addIn{world.platform()};
    bool connected = false;
};

std::shared_ptr<ConnectObject::Session> ConnectObject::openSession() {
    if (!session_) {
        session_ = std::make_shared<Session>();
        session_->world.exporter().keepDuringEvents(session_);
    }
    return session_;
}

ComPtr<IUnknown> ConnectObject::make() {
    const auto made = ComPtr<ConnectObject>::adopt(new ConnectObject);
    return ComPtr<IUnknown>(made->identity());
}

ConnectObject::ConnectObject() : DispatchObject(liveObjects()) {}

ConnectObject::~ConnectObject() = default;

void* ConnectObject::find(REFIID id) noexcept {
    if (id == platform::windows::ribbonExtensibilityId) {
        return static_cast<platform::windows::IRibbonExtensibility*>(&ribbon_);
    }
    const bool known = id == IID_IDispatch || id == platform::windows::extensibilityId;
    return known ? static_cast<platform::windows::IDTExtensibility2*>(this) : nullptr;
}

STDMETHODIMP ConnectObject::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* memberIds) {
    if (!names || !memberIds || count == 0 || !names[0]) {
        return E_INVALIDARG;
    }
    for (UINT index = 0; index < count; ++index) {
        memberIds[index] = DISPID_UNKNOWN;
    }
    for (const Member& member : members) {
        if (text::equalsIgnoringCase(member.name, names[0])) {
            memberIds[0] = member.id;
            return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
        }
    }
    // Office may ask this interface for the ribbon's callbacks, being that of the same object.
    return callbackIds(id, names, count, locale, memberIds);
}

STDMETHODIMP ConnectObject::Invoke(DISPID id, REFIID interfaceId, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* details,
                                   UINT* badArgument) {
    if (id > firstCallback) {
        return callBack(id, interfaceId, locale, flags, parameters, result, details, badArgument);
    }
    if (id < ids::onConnection || id > ids::onBeginShutdown || (flags & DISPATCH_METHOD) == 0) {
        return DISP_E_MEMBERNOTFOUND;
    }
    const Member& member = members[static_cast<std::size_t>(id - ids::onConnection)];
    if (!parameters || parameters->cNamedArgs > 0 || parameters->cArgs < member.arguments ||
        parameters->cArgs > member.arguments + 1 || (parameters->cArgs > 0 && !parameters->rgvarg)) {
        return DISP_E_BADPARAMCOUNT;
    }
    return guarded([&]() -> HRESULT {
        switch (id) {
            case ids::onConnection:
                return OnConnection(argument(*parameters, 0, VT_DISPATCH)->pdispVal,
                                    static_cast<ConnectMode>(argument(*parameters, 1, VT_I4)->lVal),
                                    argument(*parameters, 2, VT_DISPATCH)->pdispVal, nullptr);
            case ids::onDisconnection:
                return OnDisconnection(static_cast<RemoveMode>(argument(*parameters, 0, VT_I4)->lVal),
                                       nullptr);
            default:
                return S_OK;
        }
    });
}

STDMETHODIMP ConnectObject::OnConnection(IDispatch* application, ConnectMode mode, IDispatch* addInInstance,
                                         SAFEARRAY**) {
    // A call into Outlook may let it drop its reference.
    const ComPtr<IUnknown> self(identity());
    return guarded([&] {
        // Kept here too: Outlook may disconnect the add-in while it starts up.
        const auto session = openSession();
        gone_ = false;
        if (std::exchange(session->connected, true)) {
            return S_OK;  // Connected once is connected.
        }
        auto& exporter = session->world.exporter();
        try {
            session->addIn.OnConnection(exporter.toObject(application), static_cast<int>(mode),
                                        exporter.toObject(addInInstance));
        } catch (const std::exception&) {
            // What was started goes on working; Outlook, told of the failure, would unload the add-in and not
            // load it again.
        }
        return S_OK;
    });
}

STDMETHODIMP ConnectObject::OnDisconnection(RemoveMode mode, SAFEARRAY**) {
    const ComPtr<IUnknown> self(identity());
    return guarded([&] {
        // Gone at the end, whatever happens: after this call Outlook's objects fail.
        const std::shared_ptr<Session> session = std::move(session_);
        gone_ = true;
        if (session && session->connected) {
            session->addIn.OnDisconnection(static_cast<int>(mode));
        }
        return S_OK;
    });
}

std::wstring ConnectObject::customUI(const std::wstring& ribbonId) {
    const ComPtr<IUnknown> self(identity());
    return gone_ ? std::wstring() : openSession()->addIn.GetCustomUI(ribbonId);
}

HRESULT ConnectObject::callbackIds(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* memberIds) {
    const auto session = session_;
    if (!session) {
        return DISP_E_UNKNOWNNAME;
    }
    return guarded([&] {
        const auto callbacks = session->world.exporter().exportObject(session->addIn.ribbonCallbacks());
        const HRESULT answer = callbacks->GetIDsOfNames(id, names, count, locale, memberIds);
        if (answer == S_OK) {
            memberIds[0] += firstCallback;
        }
        return answer;
    });
}

HRESULT ConnectObject::callBack(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                VARIANT* result, EXCEPINFO* details, UINT* badArgument) {
    const ComPtr<IUnknown> self(identity());
    const auto session = session_;
    if (!session || member <= firstCallback) {
        return DISP_E_MEMBERNOTFOUND;
    }
    return guarded([&] {
        const auto callbacks = session->world.exporter().exportObject(session->addIn.ribbonCallbacks());
        return callbacks->Invoke(member - firstCallback, id, locale, flags, parameters, result, details,
                                 badArgument);
    });
}

STDMETHODIMP ConnectObject::OnAddInsUpdate(SAFEARRAY**) {
    return S_OK;
}

STDMETHODIMP ConnectObject::OnStartupComplete(SAFEARRAY**) {
    return S_OK;
}

STDMETHODIMP ConnectObject::OnBeginShutdown(SAFEARRAY**) {
    return S_OK;
}

}  // namespace server
