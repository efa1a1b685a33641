#include "platform/automation.h"

#include <cmath>
#include <limits>
#include <new>

#include "platform/number.h"
#include "platform/text.h"

namespace automation {

namespace {

[[noreturn]] void throwTypeMismatch() {
    throw Error(errors::typeMismatch, L"Type mismatch");
}

}  // namespace

Error::Error(std::int32_t number, std::wstring description, std::wstring source)
    : number_(number),
      description_(std::move(description)),
      source_(std::move(source)),
      what_(text::toUtf8(description_)) {}

Error currentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return {errors::outOfMemory, L"Out of memory"};
    } catch (...) {
        return {errors::internalError, L"Internal error"};
    }
}

Subscription& Subscription::operator=(Subscription&& other) noexcept {
    if (this != &other) {
        end();
        end_ = std::exchange(other.end_, nullptr);
    }
    return *this;
}

void Subscription::end() noexcept {
    if (auto ending = std::exchange(end_, nullptr)) {
        try {
            ending();
        } catch (...) {  // The source is gone; there is nothing left to end.
        }
    }
}

Target& Object::required(std::wstring_view member) const {
    if (!target_) {
        throw Error(errors::objectNotSet, L"Object variable not set (" + std::wstring(member) + L")");
    }
    return *target_;
}

bool operator==(const Object& left, const Object& right) {
    if (!left.target_ || !right.target_) {
        return left.target_ == right.target_;
    }
    return left.target_->sameAs(*right.target_);
}

Subscription subscribe(const Object& source, EventInterface events, EventSink sink) {
    if (!source) {
        throw Error(errors::objectNotSet, L"Object variable not set");
    }
    return source.target()->subscribe(events, std::move(sink));
}

Value Value::reference(Value& variable) {
    Value value;
    value.data_ = &variable;
    return value;
}

Value& Value::variable() const {
    if (const auto* target = std::get_if<Value*>(&data_)) {
        return **target;
    }
    throwTypeMismatch();
}

const Value& Value::resolved() const noexcept {
    const Value* value = this;
    while (const auto* target = std::get_if<Value*>(&value->data_)) {
        value = *target;
    }
    return *value;
}

bool Value::toBool() const {
    const Data& data = resolved().data_;
    if (const auto* value = std::get_if<bool>(&data)) {
        return *value;
    }
    if (const auto* value = std::get_if<std::wstring>(&data)) {
        if (text::equalsIgnoringCase(*value, L"True")) {
            return true;
        }
        if (text::equalsIgnoringCase(*value, L"False")) {
            return false;
        }
    }
    return toNumber() != 0;
}

std::int32_t Value::toInteger() const {
    return number::toInteger<std::int32_t>(toNumber());
}

double Value::toNumber() const {
    const Data& data = resolved().data_;
    if (std::holds_alternative<std::monostate>(data)) {
        return 0;
    }
    if (const auto* value = std::get_if<bool>(&data)) {
        return *value ? -1 : 0;
    }
    if (const auto* value = std::get_if<std::int32_t>(&data)) {
        return *value;
    }
    if (const auto* value = std::get_if<double>(&data)) {
        return *value;
    }
    if (const auto* value = std::get_if<Date>(&data)) {
        return value->days;
    }
    if (const auto* value = std::get_if<std::wstring>(&data)) {
        if (const auto parsed = number::parse(*value)) {
            return *parsed;
        }
    }
    throwTypeMismatch();
}

Date Value::toDate() const {
    return Date{toNumber()};
}

std::wstring Value::toText() const& {
    const Data& data = resolved().data_;
    if (const auto* value = std::get_if<std::wstring>(&data)) {
        return *value;
    }
    if (std::holds_alternative<std::monostate>(data)) {
        return {};
    }
    if (const auto* value = std::get_if<bool>(&data)) {
        return *value ? L"True" : L"False";
    }
    if (const auto* value = std::get_if<std::int32_t>(&data)) {
        return std::to_wstring(*value);
    }
    if (const auto* value = std::get_if<double>(&data)) {
        return number::toText(*value);
    }
    throwTypeMismatch();
}

std::wstring Value::toText() && {
    if (auto* value = std::get_if<std::wstring>(&data_)) {
        return std::move(*value);
    }
    return std::as_const(*this).toText();
}

Object Value::toObject() const {
    const Data& data = resolved().data_;
    if (const auto* value = std::get_if<Object>(&data)) {
        return *value;
    }
    if (std::holds_alternative<std::monostate>(data)) {
        return {};
    }
    throwTypeMismatch();
}

const Array& Value::toArray() const {
    if (const auto* value = std::get_if<Array>(&resolved().data_)) {
        return *value;
    }
    throwTypeMismatch();
}

const Binary& Value::toBinary() const {
    if (const auto* value = std::get_if<Binary>(&resolved().data_)) {
        return *value;
    }
    throwTypeMismatch();
}

}  // namespace automation
