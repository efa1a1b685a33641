#pragma once

#include <string>
#include <vector>

#include "checks/AnsweredMail.h"
#include "mail/Globals.h"

/// The marks that the Reply-All check leaves on a reply, and the removal of recipients that they ask for.
namespace basVeltro {

namespace replyMark {
/// The positions among the answered mail's recipients of those to drop, joined by ";".
inline constexpr wchar_t removeRecipients[] = L"ReplyToAllRemoveReciptAt";
/// Drop the user's own addresses.
inline constexpr wchar_t clearOwnAddress[] = L"ReplyToAllCLearMyEmail";
}  // namespace replyMark

/// Deletes the recipients at the 1-based positions, which ascend. Throws automation::Error.
void deleteRecipients(const redemption::SafeItem& mail, const std::vector<int>& positions);

/// The recipients of a reply that may never have been saved. Throws automation::Error.
std::vector<MailRecipient> readReplyRecipients(basGlobals::Globals& globals,
                                               const redemption::SafeItem& reply);

/// Removes from the reply whom its marks name, and the marks, which must not travel with the mail. Errors are
/// reported.
void pruneReply(basGlobals::Globals& globals, AnsweredMail& answered, const outlook::Item& reply);

}  // namespace basVeltro
