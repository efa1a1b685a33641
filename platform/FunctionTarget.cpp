#include "platform/FunctionTarget.h"

#include "platform/text.h"

namespace automation {

namespace {

constexpr std::int32_t wrongArgumentCount = 450;

}  // namespace

/// A member's id is its place in the list, from 1 on.
std::int32_t FunctionTarget::memberId(std::wstring_view name) {
    for (std::size_t index = 0; index < members_.size(); ++index) {
        if (text::equalsIgnoringCase(members_[index].name, name)) {
            return static_cast<std::int32_t>(index) + 1;
        }
    }
    throw Error(errors::memberNotFound, L"Object doesn't support this property or method");
}

Value FunctionTarget::invoke(std::int32_t member, Access access, std::span<const Value> arguments) {
    if (!open_) {
        throw Error(errors::failed, L"The add-in is not connected.");
    }
    const auto index = static_cast<std::size_t>(member) - 1;
    const bool put = isPut(access);
    if (member < 1 || index >= members_.size() || (put && !members_[index].put)) {
        throw Error(errors::memberNotFound, L"Object doesn't support this property or method");
    }
    const Member& called = members_[index];
    if (arguments.size() != (put ? called.arguments + 1 : called.arguments)) {
        throw Error(wrongArgumentCount, L"Wrong number of arguments or invalid property assignment: " +
                                            std::wstring(called.name));
    }
    if (put) {
        called.put(arguments.back());
        return {};
    }
    return called.call(arguments);
}

Subscription FunctionTarget::subscribe(EventInterface, EventSink) {
    throw Error(errors::failed, L"The object raises no events.");
}

}  // namespace automation
