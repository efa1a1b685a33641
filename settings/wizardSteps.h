#pragma once

#include <string>

#include "mail/Globals.h"
#include "platform/formPages.h"
#include "settings/EditedList.h"
#include "settings/wizardLists.h"

/// The pages of the settings dialog: their controls, and nothing of what they do.
namespace settings {

class WizardStep : public forms::Frame {
  public:
    WizardStep(forms::Container& form, int index, const wchar_t* caption, const wchar_t* heading,
               const wchar_t* explanation)
        : Frame(form, L"fraStep(" + std::to_wstring(index) + L")", {7, 42, 456, 206}, caption, Border::None),
          heading_(heading),
          lblExplanation{*this, L"lblStep(" + std::to_wstring(index) + L")", {14, 44, 442, 18}, explanation} {
    }

    const wchar_t* heading() const { return heading_; }

  private:
    const wchar_t* heading_;
    forms::Label lblExplanation;
};

class IntroStep : public WizardStep {
  public:
    explicit IntroStep(forms::Container& form);

    forms::Label lblChecks;
    forms::Picture imgIntro{*this, L"imgIntro", {14, 132, 442, 112}, forms::Picture::Image::Given};
};

class ReplyStep : public WizardStep {
  public:
    explicit ReplyStep(forms::Container& form);

    forms::CheckBox chkReplyMultiple{*this,
                                     L"chkReplyMultiple",
                                     {14, 68, 442, 11},
                                     L"Warn when clicking Reply for e-mails with multiple recipients"};
    forms::CheckBox chkReplyALL_BCC{*this,
                                    L"chkReplyALL_BCC",
                                    {14, 84, 442, 11},
                                    L"Warn when Reply to All is clicked on an e-mail on which I was BCCed"};
    forms::CheckBox chkReplyAll_Any{
        *this, L"chkReplyAll_Any", {14, 100, 442, 11}, L"Warn when Reply to All is clicked for any e-mail"};
    forms::CheckBox chkReplyInternalCheck{*this,
                                          L"chkReplyInternalCheck",
                                          {26, 116, 430, 11},
                                          L"Do not warn when all recipients are part of the domain:"};
    // Before the box in the order, whose name it is to who cannot see.
    forms::Label lblDomains{
        *this, L"lblDomains", {38, 146, 418, 9}, L"Several &domains are parted by \";\"."};
    forms::TextBox txtDomains{*this, L"txtDomains", {38, 130, 418, 13}};
    forms::CheckBox chkReplyAll_AutoRemoveMe{*this,
                                             L"chkReplyAll_AutoRemoveMe",
                                             {14, 164, 442, 11},
                                             L"Automatically remove me when doing a Reply to All"};
    forms::CheckBox chkPlaySound{
        *this, L"chkPlaySound", {14, 180, 442, 11}, L"Play sound for every prompt in Veltro"};
};

class SubjectStep : public WizardStep {
  public:
    SubjectStep(forms::Container& form, mail::Globals& globals);

    forms::CheckBox chkSubjectEmpty{
        *this, L"chkSubjectEmpty", {14, 66, 442, 11}, L"Notify if Subject is empty"};
    forms::CheckBox chkReFwd{*this,
                             L"chkReFwd",
                             {14, 80, 442, 11},
                             L"Check and correct if RE:, FW:  etc appears multiple times in Subject"};
    forms::CheckBox chkRemoveSpamWord{*this,
                                      L"chkRemoveSpamWord",
                                      {14, 94, 442, 11},
                                      L"Clear SPAM Marks added in Subject by Anti-Spam software"};
    forms::OptionButton optAutoRemoveSpamWords{*this,
                                               L"optAutoRemoveSpamWords",
                                               {26, 108, 430, 11},
                                               L"Automatically remove phrases in list below from Subject"};
    forms::OptionButton optPromptRemoveSpamWords{*this,
                                                 L"optPromptRemoveSpamWords",
                                                 {26, 122, 430, 11},
                                                 L"Prompt me for confirmation before removing"};
    EditedList lstSpamWords;
    forms::CheckBox chkPromptReplyOlderEmails;
    forms::Label lblDays{*this, L"lblDays", {350, 217, 30, 9}, L"Days."};
    forms::TextBox txtOldEmailsDays{*this, L"txtOldEmailsDays", {310, 215, 36, 13}};
    forms::Link lblOlderEmailLink{*this, L"lblOlderEmailLink", {26, 232, 120, 10}, L"Why do I need this?"};
};

class AttachmentStep : public WizardStep {
  public:
    AttachmentStep(forms::Container& form, mail::Globals& globals);

    forms::CheckBox chkAttachMissing{
        *this,
        L"chkAttachMissing",
        {14, 68, 442, 11},
        L"Notify if attachment(s) missing but e-mail contains at least one of these keywords:"};
    EditedList lstKeywords;
    forms::Link lblIgnoreSig{*this,
                             L"lblIgnoreSig",
                             {14, 230, 300, 10},
                             L"Advanced Settings (Avoid false triggers of Attachment Sentry)"};
};

class AccountStep : public WizardStep {
  public:
    explicit AccountStep(forms::Container& form);

    forms::Frame fraList{*this, L"fraList", {14, 68, 442, 52}, L"How to set preferred accounts", Border::Box};
    forms::OptionButton optShowMessage{
        fraList,
        L"optShowMessage",
        {22, 80, 426, 20},
        L"Automatically display option to add address to list if I am using an address not in the list "
        L"(Recommended)"};
    forms::OptionButton optDontShowMessage{fraList,
                                           L"optDontShowMessage",
                                           {22, 102, 426, 11},
                                           L"Don't show message. I will maintain the list from the menu."};
    forms::Frame fraWrongAccount{*this,
                                 L"fraWrongAccount",
                                 {14, 128, 442, 44},
                                 L"What should Veltro do if I am using the wrong account",
                                 Border::Box};
    forms::OptionButton optNotify{fraWrongAccount,
                                  L"optNotify",
                                  {22, 140, 426, 11},
                                  L"Notify me and let me choose the preferred account"};
    forms::OptionButton optDoNotNotify{fraWrongAccount,
                                       L"optDoNotNotify",
                                       {22, 154, 426, 11},
                                       L"Automatically send using the preferred account"};
    forms::Label lblAgStatus{*this,
                             L"lblAgStatus",
                             {14, 182, 442, 9},
                             L"Account Sentry is only supported in Outlook 2003 and above"};
};

class SendConfirmStep : public WizardStep {
  public:
    SendConfirmStep(forms::Container& form, mail::Globals& globals);

    forms::OptionButton optNoConfirmation{
        *this, L"optNoConfirmation", {14, 68, 442, 11}, L"Do not display confirmation message"};
    forms::OptionButton optConfirmEveryone{
        *this, L"optConfirmEveryone", {14, 82, 442, 11}, L"Display message for Everyone"};
    forms::OptionButton optConfirmToSpecific{*this,
                                             L"optConfirmToSpecific",
                                             {14, 96, 442, 11},
                                             L"Display message only for these email addresses:"};
    EditedList lstConfirmEmailAddresses;
    forms::CheckBox chkConfirmForXRecipt;
    forms::Label lblRecipients{*this, L"lblRecipients", {174, 217, 60, 9}, L"recipients."};
    forms::TextBox txtXRecipients{*this, L"txtXRecipients", {134, 215, 36, 13}};
};

class DelayStep : public WizardStep {
  public:
    DelayStep(forms::Container& form, mail::Globals& globals);

    forms::CheckBox chkDelay{*this, L"chkDelay", {14, 69, 84, 11}, L"Delay E-mails by: "};
    forms::Label lblSeconds{*this, L"lblSeconds", {150, 70, 60, 9}, L"seconds"};
    forms::TextBox txtDelayTime{*this, L"txtDelayTime", {100, 68, 46, 13}};
    forms::OptionButton optAutoDelay{*this, L"optAutoDelay", {14, 86, 442, 11}, L"Delay Emails to Everyone"};
    forms::OptionButton optDelayToEmails{
        *this, L"optDelayToEmails", {14, 100, 442, 11}, L"Delay E-mails only to these E-mail Addresses"};
    EditedList lstDelayToEAddr;
    forms::CheckBox chkNotifyDelay;
};

class OwnAddressesStep : public WizardStep {
  public:
    OwnAddressesStep(forms::Container& form, mail::Globals& globals);

    forms::CheckBox chkEmailFromOutlook{
        *this,
        L"chkEmailFromOutlook",
        {14, 68, 442, 11},
        L"Let Veltro detect my email addresses using the accounts I have setup in Outlook"};
    EditedList lstEmailAccounts;
};

}  // namespace settings
