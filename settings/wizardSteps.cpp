#include "settings/wizardSteps.h"

namespace settings {

IntroStep::IntroStep(forms::Container& form)
    : WizardStep(form, 0, L"Intro", L"Welcome to Veltro - Outgoing Email Protection for Outlook",
                 L"Veltro looks over each e-mail before it leaves and asks where something looks wrong. "
                 L"Nothing else about sending changes."),
      lblChecks{*this,
                L"lblChecks",
                {14, 70, 442, 56},
                L"On the next pages you choose what it looks for: replies to too many people, missing "
                L"subjects and attachments, the wrong sending account, e-mails that should be confirmed or "
                L"wait a little before they leave.\r\n\r\nThe settings are a good start as they are. Press "
                L"Next to see them, or Save to keep them. You find them again in the group Veltro on "
                L"Outlook's Home tab; up to Outlook 2007 in its menu under Tarnwell, Veltro, Settings."} {
    imgIntro.setVisible(false);
}

ReplyStep::ReplyStep(forms::Container& form)
    : WizardStep(form, 1, L"Reply Sentry", L"REPLY SENTRY SETTINGS",
                 L"Reply Sentry: Keeps an answer from reaching more people than you meant, and from showing "
                 L"that you were a blind copy recipient.") {}

SubjectStep::SubjectStep(forms::Container& form, mail::Globals& globals)
    : WizardStep(form, 2, L"Subject Sentry", L"SUBJECT SENTRY SETTINGS",
                 L"Subject Sentry: Your e-mails leave with a subject that is there, clean and fits."),
      lstSpamWords(globals, *this, {26, 136, 430, 72}, wizardLists::spamWords),
      chkPromptReplyOlderEmails{
          *this,
          L"chkPromptReplyOlderEmails",
          {14, 216, 292, 11},
          L"Prompt me to change Subject if I am replying to an email that is older than:"} {}

AttachmentStep::AttachmentStep(forms::Container& form, mail::Globals& globals)
    : WizardStep(form, 3, L"Attachment Sentry", L"ATTACHMENT SENTRY SETTINGS",
                 L"Attachment Sentry: Reminds you of the file when your e-mail speaks of an attachment and "
                 L"has none."),
      lstKeywords(globals, *this, {26, 84, 430, 138}, wizardLists::keywords) {}

AccountStep::AccountStep(forms::Container& form)
    : WizardStep(form, 4, L"Account Sentry", L"ACCOUNT SENTRY SETTINGS",
                 L"Account Sentry: Each e-mail leaves from the account that its recipient knows you by.") {}

SendConfirmStep::SendConfirmStep(forms::Container& form, mail::Globals& globals)
    : WizardStep(form, 5, L"Send Confirm", L"SEND CONFIRM SETTINGS",
                 L"Send-Confirm: Avoid accidentally sending incomplete or inappropriate emails. Displays a  "
                 L"message to get confirmation before sending emails to all or selected people."),
      lstConfirmEmailAddresses(globals, *this, {26, 112, 430, 94}, wizardLists::confirmedAddresses),
      chkConfirmForXRecipt{
          *this, L"chkConfirmForXRecipt", {14, 216, 118, 11}, L"Display message if more than "} {}

DelayStep::DelayStep(forms::Container& form, mail::Globals& globals)
    : WizardStep(form, 6, L"Delay Sentry", L"DELAY SENTRY SETTINGS",
                 L"Delay Sentry: Holds your e-mails back for a moment, in which you can still take them out "
                 L"of the Outbox."),
      lstDelayToEAddr(globals, *this, {26, 116, 430, 94}, wizardLists::delayedAddresses),
      chkNotifyDelay{*this,
                     L"chkNotifyDelay",
                     {14, 218, 442, 11},
                     L"Get confirmation before delaying (untick to automatically delay all emails)"} {}

OwnAddressesStep::OwnAddressesStep(forms::Container& form, mail::Globals& globals)
    : WizardStep(form, 7, L"My Email Accounts", L"MY EMAIL ACCOUNTS",
                 L"My Email Accounts: The addresses by which Veltro knows you among the recipients of an "
                 L"e-mail."),
      lstEmailAccounts(globals, *this, {26, 86, 430, 138}, wizardLists::ownAddresses) {}

}  // namespace settings
