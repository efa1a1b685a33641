#include "host/HostObject.h"

#include "host/Core.h"
#include "host/Guard.h"
#include "host/hostErrors.h"

namespace host {

HostObject::HostObject(Core& core) : core_(core.weak_from_this()), meter_(core.meter()) {
    meter_->objectMade();
}

HostObject::~HostObject() {
    meter_->objectGone();
}

Core& HostObject::core() const {
    const auto core = core_.lock();
    if (!core) {
        raise::outlookGone();
    }
    return *core;
}

std::int32_t HostObject::memberId(std::wstring_view name) {
    const auto alive = core_.lock();
    const Found found = alive ? findMember(name) : Found{};
    if (!alive) {
        raise::outlookGone();
    }
    if (!found.any) {
        raise::memberNotFound(name);
    }
    return found.id;
}

automation::Value HostObject::invoke(std::int32_t member, automation::Access access,
                                     std::span<const automation::Value> arguments) {
    // Held for the length of the call: a handler may end the last reference to either.
    const auto alive = core_.lock();
    const auto keep = shared_from_this();
    if (!alive) {
        raise::outlookGone();
    }
    meter_->called(className(), memberName(member));
    return dispatch(member, access, arguments);
}

automation::Value HostObject::dispatch(std::int32_t member, automation::Access access,
                                       std::span<const automation::Value> arguments) {
    checkUsable();
    return perform(member, access, arguments);
}

void HostObject::checkGuard(std::wstring_view member, Guarded guarded) const {
    if (guarded != Guarded::No && !ofRedemption()) {
        core().guard().check(className(), member, guarded);
    }
}

automation::Subscription HostObject::subscribe(automation::EventInterface events,
                                               automation::EventSink sink) {
    const auto alive = core_.lock();
    if (!alive) {
        raise::outlookGone();
    }
    meter_->called(className(), L"(subscribe)");
    checkUsable();
    EventSource* const source = eventSource();
    if (!source) {
        throw automation::Error(raise::noSuchEvents, L"Object or class does not support the set of events");
    }
    return source->add(events, std::move(sink));
}

std::size_t position(const automation::Value& index, std::size_t count) {
    const std::int32_t number = index.toInteger();
    if (number < 1 || static_cast<std::size_t>(number) > count) {
        raise::outOfBounds();
    }
    return static_cast<std::size_t>(number) - 1;
}

}  // namespace host
