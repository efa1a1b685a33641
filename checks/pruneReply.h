#pragma once

#include "checks/AnsweredMail.h"
#include "checks/RecipientSet.h"
#include "mail/Globals.h"

/// The marks that the Reply-All check leaves on a reply, and the removal of recipients that they ask for.
namespace basVeltro {

namespace replyMark {
/// The positions among the answered mail's recipients of those to drop, joined by ";".
inline constexpr wchar_t removeRecipients[] = L"ReplyToAllRemoveReciptAt";
/// Drop the user's own addresses.
inline constexpr wchar_t clearOwnAddress[] = L"ReplyToAllCLearMyEmail";
}  // namespace replyMark

/// Removes from the reply whom its marks name, and the marks, which must not travel with the mail. An address
/// of the user's own stays when it is one of those `kept`. Errors are reported.
void pruneReply(basGlobals::Globals& globals, AnsweredMail& answered, const outlook::Item& reply,
                const RecipientSet& kept = {});

}  // namespace basVeltro
