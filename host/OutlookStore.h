#pragma once

#include <string>
#include <vector>

#include "host/Collection.h"
#include "host/Mailbox.h"

namespace host {

/// A store as Outlook itself shows it, from version 12 on.
class OutlookStore : public Automated<OutlookStore> {
  public:
    static constexpr std::wstring_view defaultName = L"DisplayName";
    static const Members<OutlookStore> members;

    OutlookStore(Core& core, std::size_t index) : Automated(core), index_(index) {}

    std::wstring className() const override { return L"Store"; }
    bool sameAs(const Target& other) const override;

  private:
    const Mailbox::StoreEntry& entry() const;

    std::size_t index_;
};

/// NameSpace.Stores.
class OutlookStores : public Collection<OutlookStores> {
  public:
    static const Members<OutlookStores> members;

    explicit OutlookStores(Core& core) : Collection(core) {}

    std::wstring className() const override { return L"Stores"; }
    const std::vector<Mailbox::StoreEntry>& list() const;
    automation::Object at(std::size_t index) const;
    static bool isNamed(const Mailbox::StoreEntry& entry, std::wstring_view name) {
        return text::equalsIgnoringCase(entry.store.name, name);
    }
};

}  // namespace host
