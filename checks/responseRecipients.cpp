#include "checks/responseRecipients.h"

#include <ranges>

#include "mail/basGlobals.h"
#include "mail/errorTrap.h"
#include "platform/text.h"

namespace checks {

namespace {

void readEntry(AnsweredMail& answered, const outlook::AddressEntry& entry, MailRecipient& read) {
    const std::wstring type = entry.type();
    read.rawAddress = entry.address();
    read.exchange = text::equalsIgnoringCase(type, L"EX");
    if (read.exchange) {
        read.address = answered.smtpAddressOf(read.rawAddress);
    } else {
        const bool personalList = text::equalsIgnoringCase(type, L"MAPIPDL");
        read.address = personalList ? mail::distributionListAddress : read.rawAddress;
    }
}

}  // namespace

std::vector<MailRecipient> readResponse(AnsweredMail& answered, const outlook::Item& response) {
    std::vector<MailRecipient> all;
    for (const outlook::Recipient recipient : response.recipients()) {
        MailRecipient& read = all.emplace_back();
        mail::skipErrors([&] { read.name = recipient.name(); });
        read.unknown = !mail::skipErrors([&] { readEntry(answered, recipient.addressEntry(), read); });
    }
    return all;
}

void deleteRecipients(const outlook::Item& response, const std::vector<int>& positions) {
    const auto recipients = response.recipients();
    for (const int position : positions | std::views::reverse) {  // From the end, as the later ones move up.
        recipients.item(position).remove();
    }
}

}  // namespace checks
