#pragma once

#include "mail/Globals.h"
#include "mail/OutgoingMail.h"

/// The Send event of an item, in a window of its own or in the reading pane of a main window: the first of
/// the two events of a send.
namespace addin::sendEvent {

/// Asks for a missing subject, then about a missing attachment, and sets `cancel` when the mail is to stay.
/// Errors of the questions are reported, and leave `cancel` as it is. Throws automation::Error where a
/// statement of its own fails.
void check(mail::Globals& globals, mail::OutgoingMail& mail, bool& cancel);

/// The same in the event, unless the item cannot be read any more. The ItemSend that follows finds the mail
/// in `globals`. Errors are reported, and leave `cancel` as it is.
void handle(mail::Globals& globals, const std::shared_ptr<mail::OutgoingMail>& mail, bool& cancel);

}  // namespace addin::sendEvent
