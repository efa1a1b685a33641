#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

#include "host/Guard.h"
#include "host/HostObject.h"
#include "host/hostErrors.h"
#include "platform/text.h"

namespace host {

/// One member of an object of class T. A property has `get`, `put` or both, a method has `call`; a method
/// with no result answers an empty value. Where a put by reference is no error, `putReference` says what it
/// does.
template <class T>
struct Member {
    const wchar_t* name;  // GCC 12 takes no constinit list of rows that hold a view.
    std::int32_t id = dispatchId::unlisted;
    automation::Value (*get)(T& object, Arguments arguments) = nullptr;
    void (*put)(T& object, Arguments index, const automation::Value& value) = nullptr;
    void (*putReference)(T& object, Arguments index, const automation::Value& value) = nullptr;
    automation::Value (*call)(T& object, Arguments arguments) = nullptr;
    /// How many arguments the member takes, a new value not counted.
    std::size_t least = 0;
    std::size_t most = 0;
    /// Says whether an object has the member; without it every one has.
    bool (*has)(const T& object) = nullptr;
    /// Reading or calling it asks the user first. Writing does not.
    Guarded guarded = Guarded::No;
};

template <class T>
using Members = std::initializer_list<Member<T>>;

/// What a member answers, as automation knows it: objects by reference, a null pointer as nothing, numbers of
/// any type as integers.
template <class Result>
automation::Value answer(Result&& result) {
    using Plain = std::remove_cvref_t<Result>;
    if constexpr (std::is_convertible_v<Result, std::shared_ptr<HostObject>>) {
        return result ? result->object() : automation::Object();
    } else if constexpr (std::is_base_of_v<HostObject, Plain>) {
        return result.object();
    } else if constexpr (std::is_enum_v<Plain> ||
                         (std::is_integral_v<Plain> && !std::is_same_v<Plain, bool>)) {
        return static_cast<std::int32_t>(result);
    } else {
        return std::forward<Result>(result);
    }
}

/// What the last of the steps answers, which lead from one object to the next: data members and functions.
template <class From>
automation::Value follow(From&& from) {
    return answer(std::forward<From>(from));
}
template <auto Step, auto... Rest, class From>
automation::Value follow(From&& from) {
    if constexpr (std::is_void_v<std::invoke_result_t<decltype(Step), From>>) {
        std::invoke(Step, std::forward<From>(from));
        return {};
    } else {
        return follow<Rest...>(std::invoke(Step, std::forward<From>(from)));
    }
}

/// The `get` or `call` of a member: what the steps answer that lead on from the object, or one function that
/// takes the arguments, too.
template <auto Step, auto... Rest, class T>
automation::Value use(T& object, Arguments arguments) {
    if constexpr (!std::is_invocable_v<decltype(Step), T&, Arguments>) {
        return follow<Step, Rest...>(object);
    } else if constexpr (std::is_void_v<std::invoke_result_t<decltype(Step), T&, Arguments>>) {
        std::invoke(Step, object, arguments);
        return {};
    } else {
        return follow<Rest...>(std::invoke(Step, object, arguments));
    }
}

/// The `put` of a member that only keeps the new value, in the data member `Variable` of T.
template <auto Variable, class T>
void set(T& object, Arguments, const automation::Value& value) {
    auto& variable = object.*Variable;
    using Type = std::remove_reference_t<decltype(variable)>;
    if constexpr (std::is_same_v<Type, bool>) {
        variable = value.toBool();
    } else if constexpr (std::is_same_v<Type, int>) {
        variable = value.toInteger();
    } else if constexpr (std::is_same_v<Type, std::wstring>) {
        variable = value.toText();
    } else {
        variable = value.toObject();
    }
}

template <class T>
class Collection;
template <class T>
class Wrapper;

/// A host object whose members stand in a table, `static const Members<T> T::members`. The member that
/// answers when none is named is `T::defaultName`.
template <class T>
class Automated : public HostObject {
  public:
    static constexpr std::wstring_view defaultName = L"Item";

  protected:
    Found findMember(std::wstring_view name) override {
        std::int32_t index = 0;
        for (const Member<T>& member : T::members) {
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
        if (automation::isPut(access)) {
            put(*member, access == automation::Access::Put ? member->put : member->putReference, arguments);
            return {};
        }
        this->checkGuard(member->name, member->guarded);
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
    friend Collection<T>;
    friend Wrapper<T>;
    explicit Automated(Core& core) : HostObject(core) {}

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
        for (const Member<T>& member : T::members) {
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

    void put(const Member<T>& member, decltype(Member<T>::put) write,
             std::span<const automation::Value> arguments) {
        if (!write) {
            raise::memberNotFound(member.name);
        }
        if (arguments.empty()) {
            raise::wrongArgumentCount(member.name);
        }
        const auto index = arguments.first(arguments.size() - 1);
        checkCount(member, index.size());
        // A new value is never written back, and what is kept of it must not refer to the caller's variable.
        const automation::Value* value = &arguments.back();
        while (value->isReference()) {
            value = &value->variable();
        }
        write(static_cast<T&>(*this), Arguments(index), *value);
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
