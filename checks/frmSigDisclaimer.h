#pragma once

#include "mail/Globals.h"
#include "platform/forms.h"

namespace checks {

/// What the attachment check is to disregard: a block of text, a signature say, and attachments by name.
class frmSigDisclaimer : public forms::Form {
  public:
    explicit frmSigDisclaimer(mail::Globals& globals);

  private:
    void cmdSave_Click();
    void cmdCancel_Click();
    bool isComplete() const;
    void store() const;

    mail::Globals& globals_;

    forms::Label Label3{*this, L"Label3", {7, 7, 302, 9}, L"Ignore text"};
    forms::Label Label1{*this,
                        L"Label1",
                        {14, 19, 295, 18},
                        L"Do you have a signature, disclaimer etc in your emails that has words in it that "
                        L"trigger attachment sentry?"};
    forms::CheckBox chkIgnoreText{*this,
                                  L"chkIgnoreText",
                                  {14, 40, 295, 11},
                                  L"Ignore words if within special text block (Signatures, Disclaimers etc)"};
    forms::Label lblTextContent{
        *this,
        L"lblTextContent",
        {14, 55, 295, 18},
        L"Enter the full text of the signature, disclaimer etc here. Veltro will not look for keywords "
        L"within that block of text in your emails."};
    forms::TextBox txtSigDisclaimer{
        *this, L"txtSigDisclaimer", {14, 76, 295, 60}, forms::TextBox::Lines::Many};
    forms::Label Label4{*this, L"Label4", {7, 145, 302, 9}, L"Ignore attachment"};
    forms::Label Label5{
        *this,
        L"Label5",
        {14, 157, 295, 18},
        L"Do you have a Business Card (vCard) etc in your emails that stops Attachment Sentry from working "
        L"i.e. Attachment sentry thinks your vCard is your attachment?"};
    forms::CheckBox chkIgnoreAttach{
        *this, L"chkIgnoreAttach", {14, 178, 295, 11}, L"Ignore attachments with specific names"};
    forms::Label lblAttachContent{
        *this,
        L"lblAttachContent",
        {14, 193, 295, 18},
        L"Enter the full name of the vCard, etc that you want attachment sentry to ignore when scanning for "
        L"the attachments: "};
    forms::TextBox txtIgnoreAttach{*this, L"txtIgnoreAttach", {14, 214, 295, 13}};
    forms::Button cmdSave{*this, L"cmdSave", {205, 235, 50, 14}, L"Save", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {259, 235, 50, 14}, L"Cancel", forms::Button::Role::Cancel};
};

}  // namespace checks
