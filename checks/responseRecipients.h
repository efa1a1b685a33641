#pragma once

#include <vector>

#include "checks/AnsweredMail.h"

/// The recipients of a response that Outlook has just made. They are read and deleted in Outlook's own list,
/// which its window shows: the MAPI library sees none of an item that was never saved, and once saved the
/// response would stay in the Drafts when the user closes it unsent.
namespace checks {

/// All of them in their order. What Outlook does not tell of Exchange users comes from the answered mail;
/// whether one is a list is not asked. Throws automation::Error when they cannot be listed.
std::vector<MailRecipient> readResponse(AnsweredMail& answered, const outlook::Item& response);

/// Deletes those at the 1-based positions, which ascend. Throws automation::Error.
void deleteRecipients(const outlook::Item& response, const std::vector<int>& positions);

}  // namespace checks
