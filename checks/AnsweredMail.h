#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "mail/Globals.h"
#include "mail/Provider.h"

namespace checks {

/// A recipient as the checks see it.
struct MailRecipient {
    std::wstring name;
    /// The SMTP address; mail::distributionListAddress for a personal list; empty when unknown.
    std::wstring address;
    /// The address in the form of its own address book.
    std::wstring rawAddress;
    bool exchange = false;
    bool list = false;
    /// Not resolved, or not to be read: nothing but the name is known.
    bool unknown = false;

    /// As lists show it: name and address.
    std::wstring shown() const;
    /// False for a list and for one whose address is unknown.
    bool hasAddress() const;
};

/// All of them in their order, each resolved once; one that cannot be read is unknown. Throws
/// automation::Error when the recipients cannot be listed.
std::vector<MailRecipient> readRecipients(mail::Globals& globals,
                                          const outlook::Collection<outlook::Recipient>& recipients);

/// The user's own addresses.
class OwnAddresses {
  public:
    /// From a ";"-separated text.
    explicit OwnAddresses(std::wstring_view addresses);

    bool empty() const { return addresses_.empty(); }
    /// Blanks and letter case do not count. An unknown address, an empty one, is nobody's.
    bool contains(std::wstring_view address) const;

  private:
    std::set<std::wstring> addresses_;
};

/// The mail being answered, during one event: what was read of it is kept, so that each recipient is resolved
/// once however many checks ask.
class AnsweredMail {
  public:
    AnsweredMail(mail::Globals& globals, outlook::Item item) : globals_(globals), item_(std::move(item)) {}

    const outlook::Item& item() const { return item_; }
    /// The user has taken somebody off the answer.
    bool somebodyUnticked = false;
    /// These throw automation::Error.
    const mail::SafeItem& safe();
    const std::vector<MailRecipient>& recipients();
    const std::wstring& sender();
    /// The SMTP address of an Exchange user, when it is one of the mail's people; else empty.
    std::wstring smtpAddressOf(const std::wstring& rawAddress);
    /// Nothing when they cannot be found out, which was reported.
    const std::optional<OwnAddresses>& ownAddresses();

  private:
    mail::Globals& globals_;
    outlook::Item item_;
    std::optional<mail::SafeItem> safe_;
    std::optional<std::vector<MailRecipient>> recipients_;
    std::optional<std::wstring> sender_;
    /// By the address in Exchange's own form, in upper case.
    std::optional<std::map<std::wstring, std::wstring>> smtpAddresses_;
    bool ownAddressesRead_ = false;
    std::optional<OwnAddresses> ownAddresses_;
};

}  // namespace checks
