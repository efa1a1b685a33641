#pragma once

#include <memory>
#include <string>

#include "host/Collection.h"
#include "host/Item.h"

namespace host {

/// The user properties of an item.
class UserProperties : public Collection<UserProperties> {
  public:
    static constexpr auto noSuchName = raise::outOfBounds;
    static const Members<UserProperties> members;

    UserProperties(Core& core, std::shared_ptr<Item> item);

    std::wstring className() const override { return L"UserProperties"; }
    void checkUsable() const override { item_->checkUsable(); }
    UserPropertyList& list() const { return item_->content().userProperties; }
    automation::Object at(std::size_t index) const { return wrap(list()[index]); }
    void changed() { item_->touch(Part::UserProperties); }
    static bool isNamed(const std::shared_ptr<UserPropertyData>& property, std::wstring_view name) {
        return text::equalsIgnoringCase(property->name, name);
    }

  private:
    automation::Object wrap(std::shared_ptr<UserPropertyData> data) const;
    automation::Object add(Arguments arguments);
    automation::Object findByName(Arguments arguments) const { return wrap(find(arguments.text(0))); }

    std::shared_ptr<Item> item_;
};

class UserProperty : public Automated<UserProperty> {
  public:
    static constexpr std::wstring_view defaultName = L"Value";
    static const Members<UserProperty> members;

    UserProperty(Core& core, std::shared_ptr<Item> item, std::shared_ptr<UserPropertyData> data);

    std::wstring className() const override { return L"UserProperty"; }
    void checkUsable() const override;

  private:
    std::shared_ptr<Item> item_;
    std::shared_ptr<UserPropertyData> data_;
};

}  // namespace host
