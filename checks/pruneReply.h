#pragma once

#include "checks/AnsweredMail.h"
#include "checks/RecipientSet.h"
#include "mail/Globals.h"

/// The marks that the Reply-All check leaves on a reply, and the removal of recipients that they ask for.
namespace checks {

namespace replyMark {
/// The positions among the answered mail's recipients of those to drop, joined by ";".
inline constexpr wchar_t removeRecipients[] = L"ReplyToAllRemoveReciptAt";
/// Drop the user's own addresses.
inline constexpr wchar_t clearOwnAddress[] = L"ReplyToAllCLearMyEmail";
}  // namespace replyMark

/// True when the settings want the user's own addresses off a Reply to All, and the version can.
bool clearsOwnAddresses(const mail::Globals& globals);

/// Removes from the reply whom its marks name, and the marks, which must not travel with the mail. Errors are
/// reported.
void pruneReply(mail::Globals& globals, AnsweredMail& answered, const outlook::Item& reply);

/// Removes the user's own addresses from an unmarked Reply to All where clearsOwnAddresses says so, those
/// `kept` excepted. Errors are reported.
void clearOwnAddresses(mail::Globals& globals, AnsweredMail& answered, const outlook::Item& replyAll,
                       const RecipientSet& kept);

}  // namespace checks
