#include "checks/pruneReply.h"

#include <algorithm>
#include <set>
#include <utility>

#include "checks/responseRecipients.h"
#include "mail/OutlookVersion.h"
#include "mail/basGlobals.h"
#include "mail/errorTrap.h"
#include "platform/number.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"

namespace checks {

namespace {

using mail::Globals;

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
                                   const OwnAddresses& own, const RecipientSet& kept) {
    std::vector<int> positions;
    std::vector<int> ownPositions;
    for (int position = 1; const MailRecipient& recipient : recipients) {
        if (dropped.contains(recipient)) {
            positions.push_back(position);
        } else if (own.contains(recipient.address) && !kept.contains(recipient)) {
            ownPositions.push_back(position);
        }
        ++position;
    }
    // A user whose mail went to nobody else answers to themselves on purpose: somebody must stay.
    if (positions.size() + ownPositions.size() < recipients.size()) {
        positions.insert(positions.end(), ownPositions.begin(), ownPositions.end());
        std::ranges::sort(positions);
    }
    return positions;
}

void prune(AnsweredMail& answered, const outlook::Item& reply, const RecipientSet& dropped, bool clearOwn,
           const RecipientSet& kept = {}) {
    const OwnAddresses nobody(L"");
    const OwnAddresses& own = clearOwn && answered.ownAddresses() ? *answered.ownAddresses() : nobody;
    deleteRecipients(reply, positionsToDelete(readResponse(answered, reply), dropped, own, kept));
}

mail::ErrorReport report(const AnsweredMail& answered) {
    auto usual = mail::ErrorReport::usual(L"basVeltro.pruneReply");
    return answered.somebodyUnticked ? std::move(usual).ofRefusals() : std::move(usual);
}

}  // namespace

bool clearsOwnAddresses(const Globals& globals) {
    return modRegKeys::ReplyAllAutoRemove.read(globals) && mail::outlookVersion(globals) != mail::outlook2002;
}

void pruneReply(Globals& globals, AnsweredMail& answered, const outlook::Item& reply) {
    mail::trapErrors(globals, report(answered), [&] {
        const auto marked = takeMark(reply, replyMark::removeRecipients);
        const bool clearOwn = takeMark(reply, replyMark::clearOwnAddress).has_value();
        if (marked || clearOwn) {
            prune(answered, reply, marked ? markedRecipients(answered, *marked) : RecipientSet(), clearOwn);
        }
    });
}

void clearOwnAddresses(Globals& globals, AnsweredMail& answered, const outlook::Item& replyAll,
                       const RecipientSet& kept) {
    mail::trapErrors(globals, report(answered), [&] {
        if (clearsOwnAddresses(globals)) {
            prune(answered, replyAll, {}, true, kept);
        }
    });
}

}  // namespace checks
