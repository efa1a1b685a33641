#include "mail/OutgoingMail.h"

#include <utility>

#include "mail/basGlobals.h"
#include "mail/basWordMail.h"
#include "mail/errorTrap.h"

namespace mail {

/// Reads what `slot` gives the place of in known_, unless that is known. What was read while a prompt was
/// open inside of the call is not kept; nor is a reference into known_ held over one, as a send of the same
/// mail inside of it forgets all.
template <class Slot, class Read>
auto OutgoingMail::once(const Slot& slot, const Read& read) {
    const std::size_t asOf = globals_.promptsShown;
    if (known_.asOf != asOf) {
        forget();
        known_.asOf = asOf;
    }
    if (const auto& kept = slot(known_)) {
        return *kept;
    }
    auto value = read();
    if (known_.asOf == globals_.promptsShown) {
        slot(known_) = value;
    }
    return value;
}

bool OutgoingMail::isMail() {
    if (!isMail_) {
        isMail_ = item_.itemClass() == outlook::itemClass::mail;
    }
    return *isMail_;
}

void OutgoingMail::release() noexcept {
    forget();
    safe_.reset();
    if (std::exchange(mapiUsed_, false)) {
        mail::skipErrors([&] { cleanUpMapi(globals_); });
    }
}

std::wstring OutgoingMail::subject() {
    return once(
        [](Known & known) -> auto& { return known.subject; }, [&] { return item_.subject(); });
}

bool OutgoingMail::editsInWord() {
    return once(
        [](Known & known) -> auto& { return known.editsInWord; },
        [&] { return basWordMail::editsInWord(globals_, window_); });
}

bool OutgoingMail::readsPeople() const {
    const bool reads = globals_.provider->readsPeople();
    if (!reads) {
        note(Skipped::LibraryMissing);
    }
    return reads;
}

SafeItem OutgoingMail::safe() {
    if (!safe_) {
        safe_.emplace(globals_, item_);
    }
    return *safe_;
}

/// Outlook skips a save when there is nothing new.
SafeItem OutgoingMail::stored() {
    const SafeItem safe = this->safe();
    once(
        [](Known & known) -> auto& { return known.saved; },
        [&] {
            safe.bringUpToDate();
            return true;
        });
    return safe;
}

outlook::Collection<outlook::Recipient> OutgoingMail::recipients() {
    mapiUsed_ = true;
    return once(
        [](Known & known) -> auto& { return known.recipients; }, [&] { return safe().recipients(); });
}

std::int32_t OutgoingMail::recipientCount() {
    return once(
        [](Known & known) -> auto& { return known.recipientCount; }, [&] { return recipients().count(); });
}

outlook::AddressEntry OutgoingMail::firstRecipient() {
    return once(
        [](Known & known) -> auto& { return known.firstRecipient; },
        [&] { return recipients().item(1).addressEntry(); });
}

std::wstring OutgoingMail::recipientAddress(std::int32_t position) noexcept {
    const auto read = [&] {
        return mail::entryAddress(
            globals_, position == 1 ? firstRecipient() : recipients().item(position).addressEntry());
    };
    return mail::attempt([&] {
               return once(
                   [&](Known & known) -> auto& { return known.addresses[position]; }, read);
           })
        .value_or(std::wstring());
}

std::optional<std::wstring> OutgoingMail::findRecipientAddress(
    const std::function<bool(const std::wstring&)>& wanted) {
    const std::int32_t count = recipientCount();
    for (std::int32_t position = 1; position <= count; ++position) {
        std::wstring address = recipientAddress(position);
        if (!address.empty() && address != mail::distributionListAddress && wanted(address)) {
            return address;
        }
    }
    return std::nullopt;
}

std::shared_ptr<const Session> OutgoingMail::session() {
    mapiUsed_ = true;
    return once(
        [](Known & known) -> auto& { return known.session; },
        [&] { return std::shared_ptr<const Session>(globals_.provider->session(globals_)); });
}

std::vector<OutgoingMail::NamedAccount> OutgoingMail::accounts() {
    const auto read = [&] {
        std::vector<NamedAccount> accounts;
        for (const auto& account : session()->accounts()) {
            accounts.push_back({account->name(), account});
        }
        return accounts;
    };
    return once(
        [](Known & known) -> auto& { return known.accounts; }, read);
}

std::wstring OutgoingMail::chosenAccount() {
    return session()->chosenAccount(item_);
}

}  // namespace mail
