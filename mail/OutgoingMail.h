#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "mail/Globals.h"
#include "mail/Provider.h"

namespace mail {

/// One mail on its way out. Outlook raises two events for one send, the item's own Send and then the
/// application's ItemSend, and many steps look at the mail in each; what was read of it is kept, so that each
/// thing is asked for once. It is asked for again in the next event and after a prompt of the add-in's, this
/// send's or another's: meanwhile the user, other add-ins and other programs have gone on working.
///
/// Whatever reads throws automation::Error.
class OutgoingMail {
  public:
    /// `isMail` where it is known already; `window` is the one in which the mail is written, where it has
    /// one.
    OutgoingMail(mail::Globals& globals, outlook::Item item, std::optional<bool> isMail = std::nullopt,
                 outlook::Inspector window = {})
        : globals_(globals), item_(std::move(item)), isMail_(isMail), window_(std::move(window)) {}

    const outlook::Item& item() const { return item_; }
    bool is(const outlook::Item& item) const { return item_.object() == item.object(); }
    /// False for a meeting request, say. An item's class never changes.
    bool isMail();
    /// What was read is forgotten: another event begins.
    void forget() { known_ = {}; }
    /// Lets everything go that would keep Outlook from moving the item. Never throws.
    void release() noexcept;

    std::wstring subject();
    const outlook::Inspector& window() const { return window_; }
    /// True when its window is one of Word's: the template's macros ask then.
    bool editsInWord();

    /// False where Outlook would ask the user before it tells who the mail is to, which is left unknown then.
    bool readsPeople() const;

    /// The item as it can be read at once: perhaps what was last saved of it.
    SafeItem safe();
    /// The same, with all that was typed in it.
    SafeItem stored();

    // Of the item as it is stored: stored() comes first.
    std::int32_t recipientCount();
    /// Nothing for one that Outlook could not resolve.
    outlook::AddressEntry firstRecipient();
    /// The SMTP address of the recipient at the 1-based position, or mail::distributionListAddress;
    /// empty when it is unknown. Never throws.
    std::wstring recipientAddress(std::int32_t position) noexcept;
    /// The first address that `wanted` accepts. Unknown addresses and lists, which have none, are passed
    /// over.
    std::optional<std::wstring> findRecipientAddress(const std::function<bool(const std::wstring&)>& wanted);

    struct NamedAccount {
        std::wstring name;
        std::shared_ptr<const Account> account;
    };
    /// The profile's mail accounts in their order.
    std::vector<NamedAccount> accounts();
    /// The name of the account that was chosen for the mail; empty when none was.
    std::wstring chosenAccount();

  private:
    /// Nothing stands for what was not read yet.
    struct Known {
        /// How many prompts had been shown by then.
        std::size_t asOf = 0;
        std::optional<bool> saved;
        std::optional<std::wstring> subject;
        std::optional<bool> editsInWord;
        std::optional<outlook::Collection<outlook::Recipient>> recipients;
        std::optional<std::int32_t> recipientCount;
        std::optional<outlook::AddressEntry> firstRecipient;
        std::map<std::int32_t, std::optional<std::wstring>> addresses;
        std::optional<std::shared_ptr<const Session>> session;
        std::optional<std::vector<NamedAccount>> accounts;
    };

    template <class Slot, class Read>
    auto once(const Slot& slot, const Read& read);
    outlook::Collection<outlook::Recipient> recipients();
    std::shared_ptr<const Session> session();

    mail::Globals& globals_;
    outlook::Item item_;
    std::optional<bool> isMail_;
    outlook::Inspector window_;
    std::optional<SafeItem> safe_;
    Known known_;
    /// Something was read that the MAPI library keeps.
    bool mapiUsed_ = false;
};

}  // namespace mail
