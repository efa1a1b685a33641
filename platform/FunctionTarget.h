#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "platform/automation.h"

namespace automation {

/// An automation object of the add-in's own, for other programs to call: each member is a function. It raises
/// no events.
class FunctionTarget : public Target {
  public:
    struct Member {
        std::wstring_view name;
        /// How many arguments it takes, a new value not counted.
        std::size_t arguments = 0;
        /// Reads the property, or is the method.
        std::function<Value(std::span<const Value> arguments)> call;
        /// Only a property that may be written has one.
        std::function<void(const Value& value)> put = nullptr;
    };

    explicit FunctionTarget(std::vector<Member> members) : members_(std::move(members)) {}
    /// From now on every call fails: what stood behind the members goes. One that is running ends as it would
    /// have.
    void close() { open_ = false; }

    std::int32_t memberId(std::wstring_view name) override;
    Value invoke(std::int32_t member, Access access, std::span<const Value> arguments) override;
    Subscription subscribe(EventInterface events, EventSink sink) override;

  private:
    std::vector<Member> members_;
    bool open_ = true;
};

}  // namespace automation
