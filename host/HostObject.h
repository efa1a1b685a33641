#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "host/EventSource.h"
#include "host/Meter.h"
#include "platform/automation.h"

namespace host {

class Core;
enum class Guarded;

/// The arguments of one call. An empty value counts as left out, as an omitted one arrives so.
class Arguments {
  public:
    explicit Arguments(std::span<const automation::Value> values) : values_(values) {}

    std::size_t size() const noexcept { return values_.size(); }
    const automation::Value& operator[](std::size_t index) const { return values_[index]; }
    bool has(std::size_t index) const { return index < values_.size() && !values_[index].isEmpty(); }
    std::wstring text(std::size_t index) const {
        return has(index) ? values_[index].toText() : std::wstring();
    }
    std::span<const automation::Value> from(std::size_t index) const { return values_.subspan(index); }

  private:
    std::span<const automation::Value> values_;
};

/// The dispatch ids that every object of the host shares.
namespace dispatchId {
inline constexpr std::int32_t defaultMember = 0;
/// For a member whose true id does not matter: it gets one from its place in the table.
inline constexpr std::int32_t unlisted = -1;
}  // namespace dispatchId

/// Base of everything that the host shows to automation. Counts itself and the calls made to it, checks them,
/// and hands them to the member tables of the classes derived from it. Objects own their children; parents
/// and the core are held weakly, and an object kept beyond the core's end fails every call.
class HostObject : public automation::Target, public std::enable_shared_from_this<HostObject> {
  public:
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;
    ~HostObject() override;

    std::int32_t memberId(std::wstring_view name) final;
    automation::Value invoke(std::int32_t member, automation::Access access,
                             std::span<const automation::Value> arguments) final;
    automation::Subscription subscribe(automation::EventInterface events, automation::EventSink sink) final;

    /// invoke without counting: for objects that pass a call on.
    automation::Value dispatch(std::int32_t member, automation::Access access,
                               std::span<const automation::Value> arguments);
    /// Throws the error that every call to an object gets once it has been closed, moved or deleted.
    virtual void checkUsable() const {}
    virtual std::wstring className() const = 0;
    virtual EventSource* eventSource() { return nullptr; }
    /// Redemption's objects are never guarded.
    virtual bool ofRedemption() const { return false; }
    /// The object that this one stands for; itself, unless it is another one's alias.
    virtual std::shared_ptr<HostObject> behind() { return shared_from_this(); }

    Core& core() const;
    automation::Object object() { return automation::Object(shared_from_this()); }
    template <class T>
    std::shared_ptr<T> self() {
        return std::static_pointer_cast<T>(shared_from_this());
    }

    struct Found {
        std::int32_t id = 0;
        bool any = false;
    };
    /// For the log of calls.
    std::wstring nameOfMember(std::int32_t member) { return memberName(member); }

  protected:
    explicit HostObject(Core& core);
    /// Throws when Outlook refuses the member to the caller.
    void checkGuard(std::wstring_view member, Guarded guarded) const;

    virtual Found findMember(std::wstring_view name) = 0;
    virtual std::wstring memberName(std::int32_t member) = 0;
    virtual automation::Value perform(std::int32_t member, automation::Access access,
                                      std::span<const automation::Value> arguments) = 0;

  private:
    std::weak_ptr<Core> core_;
    std::shared_ptr<Meter> meter_;
};

/// The host object of class T that `object` refers to, or nothing.
template <class T>
std::shared_ptr<T> as(const automation::Object& object) {
    const auto found = std::dynamic_pointer_cast<HostObject>(object.target());
    return found ? std::dynamic_pointer_cast<T>(found->behind()) : nullptr;
}

/// The host object of class T that a value refers to. Throws automation::Error 13 when it is none.
template <class T>
std::shared_ptr<T> required(const automation::Value& value) {
    auto found = as<T>(value.toObject());
    if (!found) {
        throw automation::Error(automation::errors::typeMismatch, L"Type mismatch");
    }
    return found;
}

/// The zero-based place that a 1-based index stands for. Throws when it is outside the collection.
std::size_t position(const automation::Value& index, std::size_t count);

}  // namespace host
