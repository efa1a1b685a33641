#include "platform/windows/ComTarget.h"

#include <ocidl.h>
#include <olectl.h>

#include <string>

#include "platform/windows/EventSinkObject.h"
#include "platform/windows/comErrors.h"

namespace platform::windows {

namespace {

using automation::Access;
using automation::Value;

/// Answers of objects whose property takes an object only by reference, or the other way round.
bool refusesWayOfPutting(HRESULT result) {
    return result == DISP_E_MEMBERNOTFOUND || result == DISP_E_TYPEMISMATCH ||
           result == DISP_E_BADPARAMCOUNT || result == DISP_E_PARAMNOTOPTIONAL;
}

}  // namespace

GUID eventInterfaceId(automation::EventInterface events) {
    return {events.id, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
}

ComTarget::ComTarget(ComPtr<IUnknown> object, std::shared_ptr<ObjectTranslator> translator)
    : translator_(std::move(translator)),
      dispatch_(query<IDispatch>(object.get(), IID_IDispatch)),
      unknown_(dispatch_ ? ComPtr<IUnknown>(dispatch_) : std::move(object)) {}

IDispatch& ComTarget::dispatch() const {
    if (!dispatch_) {
        throw errorOf(DISP_E_UNKNOWNNAME);
    }
    return *dispatch_;
}

std::int32_t ComTarget::memberId(std::wstring_view name) {
    std::wstring terminated(name);
    LPOLESTR names[] = {terminated.data()};
    DISPID id = DISPID_UNKNOWN;
    // Not remembered: in Outlook's own process the question costs less than a table that fits every object.
    check(dispatch().GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
    return id;
}

Value ComTarget::invoke(std::int32_t member, Access access, std::span<const Value> arguments) {
    const bool put = isPut(access);
    OutgoingArguments outgoing(arguments, put, *translator_);
    const auto invokeAs = [&](int flags, VARIANT* result) {
        EXCEPINFO details{};
        const HRESULT answer =
            dispatch().Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(flags),
                              &outgoing.parameters(), result, &details, nullptr);
        const bool again = flags == DISPATCH_PROPERTYPUT && refusesWayOfPutting(answer) &&
                           arguments.back().holds<automation::Object>();
        if (!again) {
            checkInvoke(answer, details);
        }
        return !again;
    };
    if (put) {
        if (access == Access::PutReference || !invokeAs(DISPATCH_PROPERTYPUT, nullptr)) {
            invokeAs(DISPATCH_PROPERTYPUTREF, nullptr);
        }
        return {};
    }
    Variant result;
    // What reads like a property is a method in some versions of Outlook and Word, Item above all.
    invokeAs(access == Access::Get ? DISPATCH_PROPERTYGET | DISPATCH_METHOD : DISPATCH_METHOD,
             result.address());
    outgoing.writeBack();
    return toValue(result.get(), *translator_);
}

automation::Subscription ComTarget::subscribe(automation::EventInterface events, automation::EventSink sink) {
    const GUID id = eventInterfaceId(events);
    const auto container = query<IConnectionPointContainer>(unknown_.get(), IID_IConnectionPointContainer);
    if (!container) {
        throw errorOf(CONNECT_E_NOCONNECTION);
    }
    ComPtr<IConnectionPoint> point;
    check(container->FindConnectionPoint(id, point.put()));
    const auto receiver = EventSinkObject::make(id, std::move(sink), translator_);
    DWORD cookie = 0;
    check(point->Advise(receiver.get(), &cookie));
    // The source stays alive until the end: a point need not keep it.
    return automation::Subscription([source = unknown_, point, cookie, receiver] {
        receiver->silence();
        point->Unadvise(cookie);
    });
}

bool ComTarget::sameAs(const Target& other) const {
    const auto* target = dynamic_cast<const ComTarget*>(&other);
    return target && sameObject(unknown_.get(), target->unknown_.get());
}

}  // namespace platform::windows
