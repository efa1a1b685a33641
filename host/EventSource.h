#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/automation.h"

namespace host {

/// Told of an error that a sink let escape.
using EscapedError = std::function<void(std::int32_t number, const std::wstring& description)>;

/// The subscribers of one object. Sinks may subscribe and unsubscribe while an event is on its way: one that
/// came meanwhile does not see that event, and one that has gone no longer does.
class EventSource {
  public:
    /// The event interfaces that the object answers to; members of one pair have the same events.
    EventSource(std::initializer_list<std::uint32_t> interfaces);

    /// Throws automation::Error 459 for an interface that the object has not.
    automation::Subscription add(automation::EventInterface events, automation::EventSink sink);
    void raise(std::int32_t event, std::span<automation::Value> arguments, const EscapedError& escaped) const;
    /// An event that only the newer interfaces have, all but the first.
    void raiseNewer(std::int32_t event, std::span<automation::Value> arguments,
                    const EscapedError& escaped) const;
    void removeAll() noexcept { entries_->clear(); }

  private:
    struct Entry {
        automation::EventSink sink;
        bool newer = false;
        bool ended = false;
    };
    using Entries = std::vector<std::shared_ptr<Entry>>;

    void raiseTo(bool newerOnly, std::int32_t event, std::span<automation::Value> arguments,
                 const EscapedError& escaped) const;

    std::vector<std::uint32_t> interfaces_;
    /// Subscription tokens may outlive the source; they hold this weakly.
    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
};

}  // namespace host
