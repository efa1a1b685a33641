#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

/// Late-bound automation objects: the only way the add-in reaches Outlook, Redemption and Word.
///
/// On Windows an Object holds an IDispatch, natively an object of the simulated host. Names of members are
/// found without regard to letter case, as in every automation object. Everything runs on one thread:
/// Outlook's user-interface thread, or Word's; nothing here may be shared with another.
namespace automation {

class Target;
class Value;
using Array = std::vector<Value>;
/// What MAPI calls a binary property: automation keeps it apart from an array of numbers.
using Binary = std::vector<std::uint8_t>;

/// A point in local time as OLE automation counts it: days since 30 December 1899, the time of day being
/// the fraction.
struct Date {
    double days = 0;
    auto operator<=>(const Date&) const = default;
};

/// Numbers that Error carries for failures that are not the object's own.
namespace errors {
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t outOfMemory = 7;
inline constexpr std::int32_t typeMismatch = 13;
/// A failure that comes from the language instead of an automation object.
inline constexpr std::int32_t internalError = 51;
inline constexpr std::int32_t fileAccess = 75;
inline constexpr std::int32_t objectNotSet = 91;
inline constexpr std::int32_t cannotCreateObject = 429;
inline constexpr std::int32_t memberNotFound = 438;
/// E_FAIL, Outlook's number for "The operation failed."
inline constexpr std::int32_t failed = static_cast<std::int32_t>(0x80004005);
}  // namespace errors

/// A failed automation call, or a value that cannot be converted: number, description and source as the
/// object gave them.
class Error : public std::exception {
  public:
    Error(std::int32_t number, std::wstring description, std::wstring source = {});

    std::int32_t number() const noexcept { return number_; }
    const std::wstring& description() const noexcept { return description_; }
    const std::wstring& source() const noexcept { return source_; }
    const char* what() const noexcept override { return what_.c_str(); }

  private:
    std::int32_t number_;
    std::wstring description_;
    std::wstring source_;
    std::string what_;
};

/// The exception being handled, whatever its type, as an error to be shown. The words of the language's
/// library are for developers and never for users. Call inside a catch block only.
Error currentError();

/// An event interface of Outlook or Office, by the first eight digits of its id; the rest is always
/// -0000-0000-C000-000000000046.
struct EventInterface {
    std::uint32_t id = 0;
    bool operator==(const EventInterface&) const = default;
};

/// What a subscriber gives: called with the event's dispatch id and its arguments in declared order. A
/// by-reference argument is a reference Value. An Error thrown here goes back to the source as a failure.
using EventSink = std::function<void(std::int32_t event, std::span<Value> arguments)>;

/// Ends a subscription once: by end(), or at the latest when destroyed. Ending never throws.
class Subscription {
  public:
    Subscription() = default;
    explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
    Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept;
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { end(); }

    void end() noexcept;
    explicit operator bool() const noexcept { return static_cast<bool>(end_); }

  private:
    std::function<void()> end_;
};

/// A reference to an automation object, or nothing.
class Object {
  public:
    Object() = default;
    Object(std::nullptr_t) {}
    explicit Object(std::shared_ptr<Target> target) : target_(std::move(target)) {}

    explicit operator bool() const noexcept { return static_cast<bool>(target_); }
    const std::shared_ptr<Target>& target() const noexcept { return target_; }

    /// Reads a property; arguments are its index, if it has one. Throws Error.
    template <class... Arguments>
    Value get(std::wstring_view name, Arguments&&... arguments) const;
    /// Writes a property; the last argument is the value, those before it the index. Throws Error.
    template <class... Arguments>
    void put(std::wstring_view name, Arguments&&... arguments) const;
    /// The same for a property that takes an object by reference, as VBA's Set does. An object may refuse
    /// either way, or take it and do nothing. Throws Error.
    template <class... Arguments>
    void putReference(std::wstring_view name, Arguments&&... arguments) const;
    /// Calls a method. Throws Error.
    template <class... Arguments>
    Value call(std::wstring_view name, Arguments&&... arguments) const;

    /// True when both are the same object: on Windows the COM identity, as one item arrives through
    /// different interface pointers.
    friend bool operator==(const Object& left, const Object& right);

  private:
    Target& required(std::wstring_view member) const;

    std::shared_ptr<Target> target_;
};

/// A value that crosses an automation call.
class Value {
  public:
    Value() = default;
    Value(bool value) : data_(value) {}
    Value(std::int32_t value) : data_(value) {}
    Value(double value) : data_(value) {}
    Value(Date value) : data_(value) {}
    Value(std::wstring value) : data_(std::move(value)) {}
    Value(std::wstring_view value) : data_(std::wstring(value)) {}
    Value(const wchar_t* value) : data_(std::wstring(value)) {}
    Value(Object value) : data_(std::move(value)) {}
    Value(Array value) : data_(std::move(value)) {}
    Value(Binary value) : data_(std::move(value)) {}
    /// Pointers would silently become bool.
    template <class T>
    Value(T*) = delete;

    /// A by-reference argument: the callee writes into `variable`, which must outlive the call.
    static Value reference(Value& variable);

    using Data = std::variant<std::monostate, bool, std::int32_t, double, Date, std::wstring, Object, Array,
                              Binary, Value*>;
    /// The bare variant, for the two worlds that translate it.
    const Data& data() const noexcept { return data_; }

    bool isEmpty() const noexcept { return holds<std::monostate>(); }
    bool isReference() const noexcept { return std::holds_alternative<Value*>(data_); }
    template <class T>
    bool holds() const noexcept {
        return std::holds_alternative<T>(resolved().data_);
    }
    /// The variable behind a by-reference value. Throws Error 13 when this is none.
    Value& variable() const;

    /// Conversions as automation makes them; a reference is followed first. An empty value is false, 0, ""
    /// and nothing. Throws Error 13 when the value has no such form and Error 6 when it does not fit.
    bool toBool() const;
    std::int32_t toInteger() const;
    double toNumber() const;
    Date toDate() const;
    std::wstring toText() const&;
    std::wstring toText() &&;
    Object toObject() const;
    const Array& toArray() const;
    const Binary& toBinary() const;

  private:
    const Value& resolved() const noexcept;

    Data data_;
};

enum class Access { Get, Put, PutReference, Call };

/// Whether the last argument is a new value.
inline bool isPut(Access access) {
    return access == Access::Put || access == Access::PutReference;
}

/// What an Object refers to; the two worlds derive from it. Mirrors IDispatch, so that the simulated host can
/// be exported through COM as it stands.
class Target {
  public:
    virtual ~Target() = default;
    /// The dispatch id of a member, letter case ignored. Throws Error 438 when there is none.
    virtual std::int32_t memberId(std::wstring_view name) = 0;
    /// Reads, writes or calls a member. Either put has the new value as its last argument. Throws Error.
    virtual Value invoke(std::int32_t member, Access access, std::span<const Value> arguments) = 0;
    /// Starts to send the events of `events` to `sink`. Throws Error when the object is no source of them.
    virtual Subscription subscribe(EventInterface events, EventSink sink) = 0;
    virtual bool sameAs(const Target& other) const { return this == &other; }
};

/// Starts to send `source`'s events to `sink` until the token ends. Throws Error.
Subscription subscribe(const Object& source, EventInterface events, EventSink sink);

/// Makes and finds automation objects by ProgID.
class Automation {
  public:
    virtual ~Automation() = default;
    /// A new object of the class. Throws Error (429 when the class is not registered).
    virtual Object createObject(std::wstring_view progId) = 0;
    /// The running object of the class. Throws Error when none runs.
    virtual Object activeObject(std::wstring_view progId) = 0;
};

template <class... Arguments>
Value Object::get(std::wstring_view name, Arguments&&... arguments) const {
    const Value values[sizeof...(arguments) + 1]{Value(std::forward<Arguments>(arguments))...};
    Target& target = required(name);
    return target.invoke(target.memberId(name), Access::Get, std::span(values, sizeof...(arguments)));
}

template <class... Arguments>
void Object::put(std::wstring_view name, Arguments&&... arguments) const {
    static_assert(sizeof...(arguments) > 0, "a put needs the new value");
    const Value values[]{Value(std::forward<Arguments>(arguments))...};
    Target& target = required(name);
    target.invoke(target.memberId(name), Access::Put, values);
}

template <class... Arguments>
void Object::putReference(std::wstring_view name, Arguments&&... arguments) const {
    static_assert(sizeof...(arguments) > 0, "a put needs the new value");
    const Value values[]{Value(std::forward<Arguments>(arguments))...};
    Target& target = required(name);
    target.invoke(target.memberId(name), Access::PutReference, values);
}

template <class... Arguments>
Value Object::call(std::wstring_view name, Arguments&&... arguments) const {
    const Value values[sizeof...(arguments) + 1]{Value(std::forward<Arguments>(arguments))...};
    Target& target = required(name);
    return target.invoke(target.memberId(name), Access::Call, std::span(values, sizeof...(arguments)));
}

}  // namespace automation
