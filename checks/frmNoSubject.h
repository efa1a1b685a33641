#pragma once

#include "mail/Globals.h"
#include "platform/forms.h"

namespace checks {

/// Asks for the subject of a mail that has none.
class frmNoSubject : public forms::Form {
  public:
    frmNoSubject(const mail::Globals& globals, const std::wstring& subject);

    bool cancelled() const { return cancelled_; }
    const std::wstring& subject() const { return txtSubject.text(); }

  private:
    void cmdOK_Click();
    void cmdCancel_Click();

    bool cancelled_ = true;

    forms::Picture ImageIcon{*this, L"ImageIcon", {7, 8, 21, 20}, forms::Picture::Image::Warning};
    forms::Label lblLine1{
        *this, L"lblLine1", {36, 8, 231, 9}, L"We recommend that you enter a Subject for the email."};
    forms::Label lblLine2{*this,
                          L"lblLine2",
                          {36, 22, 231, 18},
                          L"You did not enter a Subject for the email. Emails with empty subjects can be "
                          L"blocked by spam filters or ignored by recipients."};
    forms::Label lblLine3{*this,
                          L"lblLine3",
                          {36, 46, 231, 18},
                          L"Enter a Subject and click OK to send the email or click Cancel to go back to the "
                          L"email."};
    forms::Label Label{*this, L"Label", {36, 73, 32, 9}, L"Subject:"};
    forms::TextBox txtSubject{*this, L"txtSubject", {70, 71, 197, 13}};
    forms::Button cmdOK{*this, L"cmdOK", {163, 93, 50, 14}, L"OK", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {217, 93, 50, 14}, L"&Cancel", forms::Button::Role::Cancel};
};

}  // namespace checks
