#pragma once

#include "mail/Globals.h"
#include "platform/forms.h"

namespace checks {

/// Asks whether the subject of an answer to an old mail is still right.
class frmOldSubject : public forms::Form {
  public:
    /// `days` is the age limit.
    frmOldSubject(const mail::Globals& globals, double days, const std::wstring& subject);

    bool confirmed() const { return confirmed_; }
    const std::wstring& subject() const { return txtSubject.text(); }

  private:
    void cmdOK_Click();

    bool confirmed_ = false;

    forms::Picture ImageIcon{*this, L"ImageIcon", {7, 8, 21, 20}, forms::Picture::Image::Question};
    forms::Label lblLine1{*this, L"lblLine1", {36, 8, 231, 9}};
    forms::Label lblLine2{*this,
                          L"lblLine2",
                          {36, 22, 231, 9},
                          L"Please ensure that the Subject displayed is still appropriate."};
    forms::Label lblLine3{
        *this, L"lblLine3", {36, 36, 231, 9}, L"Change the Subject (if needed) and the click OK."};
    forms::Label Label{*this, L"Label", {36, 56, 32, 9}, L"Subject:"};
    forms::TextBox txtSubject{*this, L"txtSubject", {70, 54, 197, 13}};
    forms::Button cmdOK{*this, L"cmdOK", {217, 76, 50, 14}, L"OK", forms::Button::Role::Default};
};

}  // namespace checks
