#pragma once

#include <cstdint>
#include <memory>

#include "host/Automated.h"
#include "host/Core.h"

namespace host {

/// What an object shows of itself by MAPI tags. Those of texts are given with the type of 8-bit texts, 001E.
class HasProperties {
  public:
    /// Empty when it has no such property.
    virtual automation::Value property(std::uint32_t tag) const = 0;
    virtual void setProperty(std::uint32_t tag, const automation::Value& value);
    virtual void deleteProperty(std::uint32_t tag);

  protected:
    HasProperties() = default;
    ~HasProperties() = default;
    HasProperties(const HasProperties&) = default;
    HasProperties& operator=(const HasProperties&) = default;
};

/// An object's way to its MAPI properties, from version 12 on: by names that hold the tag. What is not there
/// is an error, never empty, and times are UTC.
class PropertyAccessor : public Automated<PropertyAccessor> {
  public:
    static constexpr std::wstring_view defaultName = L"Parent";
    static const Members<PropertyAccessor> members;

    /// `properties` belongs to `owner`.
    PropertyAccessor(Core& core, std::shared_ptr<HostObject> owner, HasProperties& properties)
        : Automated(core), owner_(std::move(owner)), properties_(properties) {}

    std::wstring className() const override { return L"PropertyAccessor"; }
    void checkUsable() const override { owner_->checkUsable(); }

  private:
    automation::Value read(Arguments arguments) const;
    automation::Value readAll(Arguments arguments) const;
    void write(Arguments arguments);
    automation::Value writeAll(Arguments arguments);
    void remove(Arguments arguments);

    std::shared_ptr<HostObject> owner_;
    HasProperties& properties_;
};

/// Says whether an object is of an Outlook from this version on.
template <int Version, class T>
bool since(const T& object) {
    return object.core().majorVersion() >= Version;
}

template <class T>
inline constexpr Member<T> propertyAccessorRow{
    .name = L"PropertyAccessor",
    .id = 64253,
    .get =
        [](T& object, Arguments) {
            return automation::Value(
                object.core().template makeObject<PropertyAccessor>(object.shared_from_this(), object));
        },
    .has = [](const T& object) { return since<12>(object) && !object.ofRedemption(); },
    .guarded = Guarded::Yes};

}  // namespace host
