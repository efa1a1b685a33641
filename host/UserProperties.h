#pragma once

#include <memory>
#include <string>

#include "host/Automated.h"
#include "host/Item.h"

namespace host {

/// The user properties of an item.
class UserProperties : public Automated<UserProperties> {
  public:
    static std::span<const Member<UserProperties>> members();

    UserProperties(World& world, std::shared_ptr<Item> item);

    std::wstring className() const override { return L"UserProperties"; }
    void checkUsable() const override { item_->checkUsable(); }

  private:
    static const Member<UserProperties> table_[];
    UserPropertyList& list() const { return item_->content().userProperties; }
    std::shared_ptr<UserPropertyData> find(std::wstring_view name) const;
    automation::Value wrap(std::shared_ptr<UserPropertyData> data);
    automation::Value at(Arguments arguments);
    automation::Value add(Arguments arguments);

    std::shared_ptr<Item> item_;
};

class UserProperty : public Automated<UserProperty> {
  public:
    static constexpr std::wstring_view defaultName = L"Value";
    static std::span<const Member<UserProperty>> members();

    UserProperty(World& world, std::shared_ptr<Item> item, std::shared_ptr<UserPropertyData> data);

    std::wstring className() const override { return L"UserProperty"; }
    void checkUsable() const override;

  private:
    static const Member<UserProperty> table_[];
    std::shared_ptr<Item> item_;
    std::shared_ptr<UserPropertyData> data_;
};

}  // namespace host
