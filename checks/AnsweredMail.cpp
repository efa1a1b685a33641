#include "checks/AnsweredMail.h"

#include <algorithm>

#include "checks/ownAddresses.h"
#include "mail/basGlobals.h"
#include "mail/errorTrap.h"
#include "platform/text.h"

namespace checks {

namespace {

void readEntry(const mail::Globals& globals, const outlook::AddressEntry& entry, MailRecipient& read) {
    const bool list = entry.isList();
    const std::wstring type = entry.type();
    read.rawAddress = entry.address();
    read.address = mail::entryAddress(globals, entry, type, read.rawAddress);
    read.exchange = text::equalsIgnoringCase(type, L"EX");
    if (read.exchange) {
        read.name = entry.name();
    }
    read.list = list || read.address == mail::distributionListAddress;
}

MailRecipient readRecipient(const mail::Globals& globals, const outlook::Recipient& recipient) {
    MailRecipient read;
    mail::skipErrors([&] { read.name = recipient.name(); });
    // Fails for one that was never resolved.
    read.unknown = !mail::skipErrors([&] { readEntry(globals, recipient.addressEntry(), read); });
    return read;
}

}  // namespace

bool MailRecipient::hasAddress() const {
    return !address.empty() && address != mail::distributionListAddress;
}

std::wstring MailRecipient::shown() const {
    const std::wstring shownName = (exchange ? L"Exchange " : L"") + name;
    if (!hasAddress()) {
        return shownName;
    }
    if (!exchange && (name.empty() || text::equalsIgnoringCase(name, address))) {
        return address;
    }
    return shownName + L" (" + address + L")";
}

std::vector<MailRecipient> readRecipients(mail::Globals& globals,
                                          const outlook::Collection<outlook::Recipient>& recipients) {
    const mail::MapiCleanUp cleanUp(globals);
    std::vector<MailRecipient> all;
    for (const outlook::Recipient recipient : recipients) {
        all.push_back(readRecipient(globals, recipient));
    }
    return all;
}

OwnAddresses::OwnAddresses(std::wstring_view addresses) {
    for (const std::wstring_view address : text::split(addresses, L';')) {
        addresses_.insert(text::upper(text::trim(address)));
    }
    addresses_.erase(L"");
}

bool OwnAddresses::contains(std::wstring_view address) const {
    return addresses_.contains(text::upper(text::trim(address)));
}

const mail::SafeItem& AnsweredMail::safe() {
    if (!safe_) {
        safe_.emplace(globals_, item_);
    }
    return *safe_;
}

const std::vector<MailRecipient>& AnsweredMail::recipients() {
    if (!recipients_) {
        recipients_ = readRecipients(globals_, safe().recipients());
    }
    return *recipients_;
}

const std::wstring& AnsweredMail::sender() {
    if (!sender_) {
        sender_ = mail::SenderEmail(globals_, item_);
    }
    return *sender_;
}

std::wstring AnsweredMail::smtpAddressOf(const std::wstring& rawAddress) {
    if (!smtpAddresses_) {
        auto& known = smtpAddresses_.emplace();
        const auto note = [&known](const MailRecipient& person) {
            if (person.exchange && person.hasAddress()) {
                known.emplace(text::upper(person.rawAddress), person.address);
            }
        };
        std::ranges::for_each(recipients(), note);
        mail::skipErrors(
            [&] { std::ranges::for_each(readRecipients(globals_, safe().replyRecipients()), note); });
        mail::skipErrors([&] {
            MailRecipient sender;
            readEntry(globals_, safe().sender(), sender);
            note(sender);
        });
    }
    const auto found = smtpAddresses_->find(text::upper(rawAddress));
    return found == smtpAddresses_->end() ? std::wstring() : found->second;
}

const std::optional<OwnAddresses>& AnsweredMail::ownAddresses() {
    if (!ownAddressesRead_) {
        ownAddressesRead_ = true;
        if (const auto addresses = vtGetUserEmails(globals_)) {
            ownAddresses_.emplace(*addresses);
        }
    }
    return ownAddresses_;
}

}  // namespace checks
