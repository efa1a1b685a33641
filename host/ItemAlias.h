#pragma once

#include <memory>
#include <string>

#include "host/HostObject.h"

namespace host {

class Item;

/// Another object for an item: Outlook gives the same item to its windows and to what a selection or a search
/// finds as different objects. It has the members and the events of the item, and not its identity.
class ItemAlias : public HostObject {
  public:
    ItemAlias(Core& core, std::shared_ptr<Item> item);

    std::wstring className() const override;
    void checkUsable() const override;
    EventSource* eventSource() override;
    std::shared_ptr<HostObject> behind() override;

  protected:
    Found findMember(std::wstring_view name) override;
    std::wstring memberName(std::int32_t member) override;
    automation::Value perform(std::int32_t member, automation::Access access,
                              std::span<const automation::Value> arguments) override;

  private:
    std::shared_ptr<Item> item_;
};

}  // namespace host
