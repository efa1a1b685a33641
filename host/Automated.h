#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "host/HostObject.h"
#include "host/hostErrors.h"
#include "platform/text.h"

namespace host {

/// One member of an object of class T. A property has `get`, `put` or both, a method has `call`; a method
/// with no result answers an empty value.
template <class T>
struct Member {
    std::wstring_view name;
    std::int32_t id = dispatchId::unlisted;
    automation::Value (*get)(T& object, Arguments arguments) = nullptr;
    void (*put)(T& object, Arguments index, const automation::Value& value) = nullptr;
    automation::Value (*call)(T& object, Arguments arguments) = nullptr;
    /// How many arguments the member takes, a new value not counted.
    std::size_t least = 0;
    std::size_t most = 0;
    /// Says whether an object has the member; without it every one has.
    bool (*has)(const T& object) = nullptr;
};

template <class T>
class Wrapper;

/// A host object whose members stand in a table, `static std::span<const Member<T>> T::members()`. The member
/// that answers when none is named is `T::defaultName`.
template <class T>
class Automated : public HostObject {
  public:
    static constexpr std::wstring_view defaultName = L"Item";

  protected:
    Found findMember(std::wstring_view name) override {
        std::int32_t index = 0;
        for (const Member<T>& member : T::members()) {
            if (text::equalsIgnoringCase(member.name, name)) {
                return has(member) ? Found{idOf(member, index), true} : Found{};
            }
            ++index;
        }
        return {};
    }

    std::wstring memberName(std::int32_t id) override {
        const Member<T>* const member = byId(id);
        return member ? std::wstring(member->name) : std::wstring(L"?");
    }

    automation::Value perform(std::int32_t id, automation::Access access,
                              std::span<const automation::Value> arguments) override {
        const Member<T>* const member = byId(id);
        if (!member || !has(*member)) {
            raise::memberNotFound(L"");
        }
        T& self = static_cast<T&>(*this);
        if (access == automation::Access::Put) {
            if (!member->put) {
                raise::memberNotFound(member->name);
            }
            if (arguments.empty()) {
                raise::wrongArgumentCount(member->name);
            }
            const auto index = arguments.first(arguments.size() - 1);
            checkCount(*member, index.size());
            // A new value is never written back, and what is kept of it must not refer to the caller's
            // variable.
            const automation::Value* value = &arguments.back();
            while (value->isReference()) {
                value = &value->variable();
            }
            member->put(self, Arguments(index), *value);
            return {};
        }
        // Callers that cannot tell a method from a property ask for either.
        const auto read = member->get ? member->get : member->call;
        if (!read) {
            raise::memberNotFound(member->name);
        }
        if (member->get && member->most == 0 && !arguments.empty()) {
            return indexResult(member->get(self, Arguments({})), member->name, arguments);
        }
        checkCount(*member, arguments.size());
        return read(self, Arguments(arguments));
    }

  private:
    friend T;
    friend Wrapper<T>;
    explicit Automated(World& world) : HostObject(world) {}

    static constexpr std::int32_t firstUnlisted = 50000;

    static std::int32_t idOf(const Member<T>& member, std::int32_t index) {
        return member.id == dispatchId::unlisted ? firstUnlisted + index : member.id;
    }

    bool has(const Member<T>& member) const {
        return !member.has || member.has(static_cast<const T&>(*this));
    }

    static const Member<T>* byId(std::int32_t id) {
        std::int32_t index = 0;
        const Member<T>* standard = nullptr;
        for (const Member<T>& member : T::members()) {
            if (idOf(member, index) == id) {
                return &member;
            }
            if (member.name == T::defaultName) {
                standard = &member;
            }
            ++index;
        }
        return id == dispatchId::defaultMember ? standard : nullptr;
    }

    static void checkCount(const Member<T>& member, std::size_t count) {
        if (count < member.least || count > member.most) {
            raise::wrongArgumentCount(member.name);
        }
    }

    /// `object.Recipients(1)` means `object.Recipients.Item(1)`.
    static automation::Value indexResult(const automation::Value& result, std::wstring_view name,
                                         std::span<const automation::Value> arguments) {
        const auto collection =
            result.holds<automation::Object>() ? as<HostObject>(result.toObject()) : nullptr;
        if (!collection) {
            raise::wrongArgumentCount(name);
        }
        return collection->dispatch(dispatchId::defaultMember, automation::Access::Get, arguments);
    }
};

}  // namespace host
