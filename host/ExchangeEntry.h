#pragma once

#include <string>

#include "host/Automated.h"
#include "host/Message.h"

namespace host {

/// ExchangeUser or ExchangeDistributionList: what the directory of an Exchange server tells of an entry.
class ExchangeEntry : public Automated<ExchangeEntry> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<ExchangeEntry> members;

    ExchangeEntry(Core& core, Address address) : Automated(core), address_(std::move(address)) {}

    std::wstring className() const override {
        return address_.distributionList ? L"ExchangeDistributionList" : L"ExchangeUser";
    }

  private:
    Address address_;
};

/// The directory's object of an entry, when it is a list or a person of Exchange as wanted, else nothing.
/// Throws when the server does not know the entry any more.
automation::Object exchangeEntry(Core& core, const Address& address, bool list);

}  // namespace host
