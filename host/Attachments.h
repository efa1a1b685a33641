#pragma once

#include <memory>
#include <string>

#include "host/Collection.h"
#include "host/Item.h"
#include "host/PropertyAccessor.h"

namespace host {

/// The attachments of an item, Outlook's or Redemption's.
class Attachments : public Collection<Attachments> {
  public:
    static const Members<Attachments> members;

    Attachments(Core& core, std::shared_ptr<Item> item, bool safe);

    std::wstring className() const override { return safe_ ? L"SafeAttachments" : L"Attachments"; }
    void checkUsable() const override { item_->checkUsable(); }
    AttachmentList& list() const { return item_->side(safe_).attachments; }
    automation::Object at(std::size_t index) const;
    void changed();

  private:
    automation::Object add(Arguments arguments);

    std::shared_ptr<Item> item_;
    bool safe_;
};

/// One attachment. Redemption's has its MAPI properties too.
class AttachmentObject : public Automated<AttachmentObject>, public HasProperties {
  public:
    static constexpr std::wstring_view defaultName = L"DisplayName";
    static const Members<AttachmentObject> members;

    AttachmentObject(Core& core, std::shared_ptr<Item> item, std::shared_ptr<Attachment> data, bool safe);

    std::wstring className() const override { return safe_ ? L"SafeAttachment" : L"Attachment"; }
    bool ofRedemption() const override { return safe_; }
    void checkUsable() const override;
    automation::Value property(std::uint32_t tag) const override;

  private:
    void remove();

    std::shared_ptr<Item> item_;
    std::shared_ptr<Attachment> data_;
    bool safe_;
};

}  // namespace host
