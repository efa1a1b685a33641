#pragma once

#include <memory>
#include <string>

#include "host/Collection.h"
#include "host/Item.h"
#include "host/PropertyAccessor.h"

namespace host {

/// Recipients or ReplyRecipients of an item, Outlook's or Redemption's.
class Recipients : public Collection<Recipients> {
  public:
    static const Members<Recipients> members;

    Recipients(Core& core, std::shared_ptr<Item> item, RecipientList ItemContent::*list, bool safe);

    std::wstring className() const override { return safe_ ? L"SafeRecipients" : L"Recipients"; }
    bool ofRedemption() const override { return safe_; }
    void checkUsable() const override { item_->checkUsable(); }
    RecipientList& list() const { return item_->side(safe_).*list_; }
    automation::Object at(std::size_t index) const;
    void changed();
    static bool isNamed(const std::shared_ptr<RecipientData>& recipient, std::wstring_view name) {
        return text::equalsIgnoringCase(recipient->address.name, name);
    }

  private:
    automation::Value add(Arguments arguments);
    bool resolveAll();

    std::shared_ptr<Item> item_;
    RecipientList ItemContent::*list_;
    bool safe_;
};

/// One recipient; of no item for the session's current user.
class Recipient : public Automated<Recipient>, public HasProperties {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<Recipient> members;

    Recipient(Core& core, std::shared_ptr<Item> item, RecipientList ItemContent::*list,
              std::shared_ptr<RecipientData> data, bool safe);

    std::wstring className() const override { return safe_ ? L"SafeRecipient" : L"Recipient"; }
    bool ofRedemption() const override { return safe_; }
    void checkUsable() const override;
    bool sameAs(const Target& other) const override;
    automation::Value property(std::uint32_t tag) const override;

  private:
    /// Where the recipient stands in its list; throws when it was removed.
    RecipientList::iterator place() const;
    void changed();
    const Address& address() const { return data_->address; }
    std::wstring name() const;
    automation::Object addressEntry() const;
    void remove();
    bool resolveSelf();

    std::shared_ptr<Item> item_;
    RecipientList ItemContent::*list_;
    std::shared_ptr<RecipientData> data_;
    bool safe_;
};

}  // namespace host
