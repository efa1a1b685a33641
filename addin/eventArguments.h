#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "platform/outlook.h"
#include "platform/text.h"

/// Reads what an event hands over. Nothing is taken on trust: a host that raises an event with other
/// arguments than declared gets an Error back.
namespace addin::eventArguments {

inline const automation::Value& at(std::span<automation::Value> arguments, std::size_t index) {
    if (index >= arguments.size()) {
        throw automation::Error(automation::errors::typeMismatch, L"Missing event argument");
    }
    return arguments[index];
}

/// True for the PropertyChange of an item by which its recipients have changed.
inline bool changeRecipients(std::int32_t event, std::span<const automation::Value> arguments) {
    if (event != outlook::events::itemPropertyChange || arguments.empty() ||
        !arguments[0].holds<std::wstring>()) {
        return false;
    }
    const std::wstring name = arguments[0].toText();
    return text::equalsIgnoringCase(name, L"To") || text::equalsIgnoringCase(name, L"CC") ||
           text::equalsIgnoringCase(name, L"BCC");
}

/// An event's by-reference cancel flag, held for one event. Written back only when it was changed.
class Cancel {
  public:
    explicit Cancel(const automation::Value& argument)
        : variable_(argument.variable()), original_(variable_.toBool()), flag_(original_) {}
    Cancel(const Cancel&) = delete;
    Cancel& operator=(const Cancel&) = delete;
    ~Cancel() {
        if (flag_ != original_) {
            variable_ = flag_;
        }
    }

    bool& flag() { return flag_; }

  private:
    automation::Value& variable_;
    bool original_;
    bool flag_;
};

}  // namespace addin::eventArguments
