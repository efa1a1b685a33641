#include "checks/pruneReply.h"

#include <algorithm>
#include <ranges>
#include <set>

#include "checks/ownAddresses.h"
#include "mail/errorTrap.h"
#include "platform/number.h"
#include "platform/text.h"

namespace basVeltro {

namespace {

using basGlobals::Globals;

/// Takes a mark off the reply: its value, or nothing when it is not there.
std::optional<std::wstring> takeMark(const outlook::Item& reply, const wchar_t* name) {
    const automation::Object property =
        reply.object().get(L"UserProperties").toObject().call(L"Find", name).toObject();
    if (!property) {
        return std::nullopt;
    }
    std::wstring value = property.get(L"Value").toText();
    property.call(L"Delete");
    return value;
}

/// Recipients told apart by their addresses, or by their names where an address is unknown on either side: a
/// recipient that could not be read in one of two mails is still the same one.
class RecipientSet {
  public:
    void add(const MailRecipient& recipient) {
        keys_.insert((recipient.hasAddress() ? L"address:" : L"only name:") + recipient.identity());
        keys_.insert(L"name:" + upperName(recipient));
    }
    void remove(const RecipientSet& others) {
        std::erase_if(keys_, [&others](const std::wstring& key) { return others.keys_.contains(key); });
    }
    bool contains(const MailRecipient& recipient) const {
        return keys_.contains(L"only name:" + upperName(recipient)) ||
               keys_.contains(recipient.hasAddress() ? L"address:" + recipient.identity()
                                                     : L"name:" + upperName(recipient));
    }

  private:
    static std::wstring upperName(const MailRecipient& recipient) {
        return text::upper(text::trim(recipient.name));
    }

    std::set<std::wstring> keys_;
};

/// Who is at the marked positions of the answered mail, unless the same one also stands at another.
RecipientSet markedRecipients(AnsweredMail& answered, const std::wstring& positions) {
    std::set<std::size_t> marked;
    for (const std::wstring_view position : text::split(positions, L';')) {
        marked.insert(static_cast<std::size_t>(number::leading(position)));
    }
    RecipientSet dropped;
    RecipientSet kept;
    const auto& recipients = answered.recipients();
    for (std::size_t index = 0; index < recipients.size(); ++index) {
        (marked.contains(index + 1) ? dropped : kept).add(recipients[index]);
    }
    dropped.remove(kept);
    return dropped;
}

/// 1-based and ascending.
std::vector<int> positionsToDelete(const std::vector<MailRecipient>& recipients, const RecipientSet& dropped,
                                   const OwnAddresses& own) {
    std::vector<int> positions;
    std::vector<int> ownPositions;
    for (int position = 1; const MailRecipient& recipient : recipients) {
        if (dropped.contains(recipient)) {
            positions.push_back(position);
        } else if (own.contains(recipient.address)) {
            ownPositions.push_back(position);
        }
        ++position;
    }
    // Who answers a mail of their own to themselves means it.
    if (positions.size() + ownPositions.size() < recipients.size()) {
        positions.insert(positions.end(), ownPositions.begin(), ownPositions.end());
        std::ranges::sort(positions);
    }
    return positions;
}

}  // namespace

void deleteRecipients(const redemption::SafeItem& mail, const std::vector<int>& positions) {
    const auto recipients = mail.recipients();
    for (const int position : positions | std::views::reverse) {  // From the end, as the later ones move up.
        recipients.item(position).remove();
    }
}

std::vector<MailRecipient> readReplyRecipients(Globals& globals, const redemption::SafeItem& reply) {
    auto recipients = readRecipients(globals, reply);
    if (recipients.empty()) {  // The MAPI library sees those of a new item only once it was saved.
        reply.save();
        recipients = readRecipients(globals, reply);
    }
    return recipients;
}

void pruneReply(Globals& globals, AnsweredMail& answered, const outlook::Item& reply) {
    basGlobals::trapErrors(globals, basGlobals::ErrorReport::usual(L"basVeltro.pruneReply"), [&] {
        const auto marked = takeMark(reply, replyMark::removeRecipients);
        const bool clearOwn = takeMark(reply, replyMark::clearOwnAddress).has_value();
        if (!marked && !clearOwn) {
            return;
        }
        const redemption::SafeItem safe(globals.platform.automation, reply);
        const auto dropped = marked ? markedRecipients(answered, *marked) : RecipientSet();
        const OwnAddresses nobody(L"");
        const OwnAddresses& own = clearOwn && answered.ownAddresses() ? *answered.ownAddresses() : nobody;
        const auto positions = positionsToDelete(readReplyRecipients(globals, safe), dropped, own);
        if (!positions.empty()) {
            deleteRecipients(safe, positions);
            safe.save();
        }
    });
}

}  // namespace basVeltro
