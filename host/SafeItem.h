#pragma once

#include <memory>
#include <string>

#include "host/Automated.h"

namespace host {

class Inspector;
class Item;
struct ItemContent;

/// What wraps one of Outlook's objects and passes on to it the members that it has not itself.
template <class T>
class Wrapper : public Automated<T> {
  protected:
    virtual HostObject* wrapped() const = 0;

    HostObject::Found findMember(std::wstring_view name) override {
        if (const HostObject::Found own = Automated<T>::findMember(name); own.any) {
            return own;
        }
        HostObject* const inner = wrapped();
        return inner ? HostObject::Found{inner->memberId(name) | passedOn, true} : HostObject::Found{};
    }
    std::wstring memberName(std::int32_t id) override {
        return isPassedOn(id) ? nameOfPassedOn(id) : Automated<T>::memberName(id);
    }
    automation::Value perform(std::int32_t id, automation::Access access,
                              std::span<const automation::Value> arguments) override {
        if (!isPassedOn(id)) {
            return Automated<T>::perform(id, access, arguments);
        }
        HostObject* const inner = wrapped();
        if (!inner) {
            raise::memberNotFound(L"");
        }
        return inner->dispatch(id & ~passedOn, access, arguments);
    }

  private:
    friend T;
    explicit Wrapper(Core& core) : Automated<T>(core) {}

    /// Marks the ids of the wrapped object, so that they cannot be taken for own ones.
    static constexpr std::int32_t passedOn = 0x40000000;

    static bool isPassedOn(std::int32_t id) { return id > 0 && (id & passedOn) != 0; }
    std::wstring nameOfPassedOn(std::int32_t id) {
        HostObject* const inner = wrapped();
        return inner ? inner->nameOfMember(id & ~passedOn) : std::wstring(L"?");
    }
};

/// Redemption's view of an item: reads without Outlook's security prompts, and reaches MAPI properties by
/// tag.
class SafeItem : public Wrapper<SafeItem> {
  public:
    enum class Kind { Mail, Post, Report, Rdo };

    static constexpr std::wstring_view defaultName = L"Item";
    static const Members<SafeItem> members;

    SafeItem(Core& core, Kind kind, std::shared_ptr<HostObject> wrapped);

    std::wstring className() const override;
    Kind kind() const noexcept { return kind_; }
    /// Throws when none is set, or the wrapped object is no item.
    Item& item() const;
    /// What the MAPI library works on.
    ItemContent& message() const;

  protected:
    HostObject* wrapped() const override { return wrapped_.get(); }

  private:
    static void setItem(SafeItem& safe, Arguments index, const automation::Value& value);

    Kind kind_;
    std::shared_ptr<HostObject> wrapped_;
};

/// vtSafeInspector.
class SafeInspector : public Wrapper<SafeInspector> {
  public:
    static const Members<SafeInspector> members;

    explicit SafeInspector(Core& core) : Wrapper(core) {}

    std::wstring className() const override { return L"SafeInspector"; }

  protected:
    HostObject* wrapped() const override;

  private:
    static void setItem(SafeInspector& safe, Arguments index, const automation::Value& value);

    std::shared_ptr<Inspector> inspector_;
};

}  // namespace host
