#include "tests/scenarios/native/CountedObjects.h"

#include <vector>

namespace {

using automation::Object;
using automation::Value;
using State = std::shared_ptr<CountedObjects::State>;

/// By-reference arguments go through as they are: the host looks into none of them.
bool carriesObject(const Value& value) {
    return !value.isReference() && value.holds<Object>() && value.toObject();
}

class CountedObject : public automation::Target {
  public:
    CountedObject(std::shared_ptr<Target> object, State state)
        : object_(std::move(object)), state_(std::move(state)) {
        ++state_->count;
    }
    ~CountedObject() override { --state_->count; }
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;

    std::int32_t memberId(std::wstring_view name) override { return object_->memberId(name); }

    Value invoke(std::int32_t member, automation::Access access, std::span<const Value> arguments) override {
        state_->check();
        std::vector<Value> bare;
        for (const Value& argument : arguments) {
            bare.push_back(carriesObject(argument) ? Value(bareOf(argument.toObject())) : argument);
        }
        return counted(object_->invoke(member, access, bare), state_);
    }

    automation::Subscription subscribe(automation::EventInterface events,
                                       automation::EventSink sink) override {
        return object_->subscribe(
            events, [sink = std::move(sink), state = state_](std::int32_t event, std::span<Value> given) {
                std::vector<Value> arguments;
                for (const Value& argument : given) {
                    arguments.push_back(counted(argument, state));
                }
                sink(event, arguments);
            });
    }

    bool sameAs(const Target& other) const override {
        const auto* const counted = dynamic_cast<const CountedObject*>(&other);
        return counted && Object(counted->object_) == Object(object_);
    }

    static Value counted(const Value& value, const State& state) {
        return carriesObject(value)
                   ? Value(Object(std::make_shared<CountedObject>(value.toObject().target(), state)))
                   : value;
    }

  private:
    static Object bareOf(const Object& object) {
        const auto own = std::dynamic_pointer_cast<CountedObject>(object.target());
        return own ? Object(own->object_) : object;
    }

    std::shared_ptr<Target> object_;
    State state_;
};

/// An object of the add-in's to which the host hands what counts itself.
class CalledObject : public automation::Target {
  public:
    CalledObject(std::shared_ptr<Target> object, State state)
        : object_(std::move(object)), state_(std::move(state)) {}

    std::int32_t memberId(std::wstring_view name) override { return object_->memberId(name); }
    Value invoke(std::int32_t member, automation::Access access, std::span<const Value> given) override {
        std::vector<Value> arguments;
        for (const Value& argument : given) {
            arguments.push_back(CountedObject::counted(argument, state_));
        }
        return object_->invoke(member, access, arguments);
    }
    automation::Subscription subscribe(automation::EventInterface events,
                                       automation::EventSink sink) override {
        return object_->subscribe(events, std::move(sink));
    }

  private:
    std::shared_ptr<Target> object_;
    State state_;
};

}  // namespace

void CountedObjects::State::check() const {
    if (lost) {
        throw automation::Error(static_cast<std::int32_t>(0x800706BA), L"The RPC server is unavailable.");
    }
}

Object CountedObjects::counted(const Object& object) const {
    return CountedObject::counted(object, state_).toObject();
}

Object CountedObjects::countingArguments(const Object& object) const {
    return Object(std::make_shared<CalledObject>(object.target(), state_));
}
