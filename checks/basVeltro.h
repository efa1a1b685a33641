#pragma once

#include <optional>
#include <string>

#include "checks/AnsweredMail.h"
#include "mail/Globals.h"
#include "mail/OutgoingMail.h"
#include "platform/outlook.h"

/// The checks of outgoing mails and of replies. Each takes the event's cancel flag and sets it when the user
/// decides against going on. A check that fails reports and leaves the flag as it is.
namespace checks {

/// Asks for a subject when the item has none.
void vtEmptySubjectCheck(mail::Globals& globals, mail::OutgoingMail& mail, bool& cancel);

/// Asks whether to send when the new text promises an attachment and none is there.
void vtAttachMissingCheck(mail::Globals& globals, mail::OutgoingMail& mail, bool& cancel);

/// What vtOldSubject returns when the subject was left as it was.
inline constexpr wchar_t noSubjectChange[] = L"VT_NoChange_VT";

/// Asks for a look at the reply's subject when the answered mail is old. Returns the new subject, or
/// noSubjectChange.
std::wstring vtOldSubject(mail::Globals& globals, const outlook::Item& answered, const outlook::Item& reply);

/// Cleans the subject of a new reply or forward of spam marks and repeated prefixes.
void vtRemoveSpamMarks(mail::Globals& globals, const outlook::Item& item);

/// On a Reply to a mail with several recipients offers the others in a reply of its own, and cancels this
/// one.
void vtReplyCheck(mail::Globals& globals, AnsweredMail& answered, const outlook::Item& reply, bool& cancel);

/// Warns a user who was only a blind copy, and lets recipients be dropped; marks the reply with whom to drop.
void vtReplyAllCheck(mail::Globals& globals, AnsweredMail& answered, const outlook::Item& reply,
                     bool& cancel);

/// Asks for the confirmation that the settings want, once. Throws automation::Error where a statement of its
/// own fails.
void confirmSend(mail::Globals& globals, mail::OutgoingMail& mail, bool& cancel);

/// The first entry of the To line; empty when there is none or on an error, which is reported.
std::wstring GetFirstTORecipient(mail::Globals& globals, mail::OutgoingMail& mail);

/// True when a recipient is on the confirm list; false on an error, which is reported.
bool AtLeast1EmailInRecipt(mail::Globals& globals, mail::OutgoingMail& mail);

/// The first recipient address that occurs anywhere in the list's text, letter case ignored. Throws
/// automation::Error.
std::optional<std::wstring> firstListedRecipient(mail::OutgoingMail& mail, const std::wstring& listed);

/// Gives the mail a deferred delivery time when the settings want it held back. Never cancels.
void vtDelayEmailSending(mail::Globals& globals, mail::OutgoingMail& mail, bool& cancel);

}  // namespace checks
