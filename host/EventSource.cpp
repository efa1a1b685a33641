#include "host/EventSource.h"

#include <algorithm>

#include "host/hostErrors.h"
#include "platform/text.h"

namespace host {

EventSource::EventSource(std::initializer_list<std::uint32_t> interfaces) : interfaces_(interfaces) {}

automation::Subscription EventSource::add(automation::EventInterface events, automation::EventSink sink) {
    const auto found = std::ranges::find(interfaces_, events.id);
    if (found == interfaces_.end()) {
        throw automation::Error(raise::noSuchEvents, L"Object or class does not support the set of events");
    }
    const auto entry = std::make_shared<Entry>(Entry{std::move(sink), found != interfaces_.begin()});
    entries_->push_back(entry);
    return automation::Subscription([entries = std::weak_ptr(entries_), weak = std::weak_ptr(entry)] {
        const auto ending = weak.lock();
        if (!ending) {
            return;
        }
        ending->ended = true;
        if (const auto list = entries.lock()) {
            std::erase(*list, ending);
        }
    });
}

void EventSource::raise(std::int32_t event, std::span<automation::Value> arguments,
                        const EscapedError& escaped) const {
    raiseTo(false, event, arguments, escaped);
}

void EventSource::raiseNewer(std::int32_t event, std::span<automation::Value> arguments,
                             const EscapedError& escaped) const {
    raiseTo(true, event, arguments, escaped);
}

void EventSource::raiseTo(bool newerOnly, std::int32_t event, std::span<automation::Value> arguments,
                          const EscapedError& escaped) const {
    const Entries subscribed = *entries_;
    for (const auto& entry : subscribed) {
        if (entry->ended || (newerOnly && !entry->newer)) {
            continue;
        }
        try {
            entry->sink(event, arguments);
        } catch (const automation::Error& error) {
            escaped(error.number(), error.description());
        } catch (const std::exception& error) {
            escaped(automation::errors::failed, text::fromUtf8(error.what()));
        }
    }
}

}  // namespace host
