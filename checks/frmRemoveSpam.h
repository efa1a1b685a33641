#pragma once

#include "mail/Globals.h"
#include "platform/forms.h"

namespace checks {

/// Shows what the removal of spam-mark phrases makes of a subject.
class frmRemoveSpam : public forms::Form {
  public:
    frmRemoveSpam(const mail::Globals& globals, const std::wstring& oldSubject,
                  const std::wstring& newSubject);

    bool confirmed() const { return confirmed_; }
    const std::wstring& newSubject() const { return txtNewSubject.text(); }

  private:
    void chkAutoCorrect_Click();
    void cmdYes_Click();
    void cmdNo_Click();

    const mail::Globals& globals_;
    bool confirmed_ = false;

    forms::Label Label4{*this, L"Label4", {7, 9, 48, 9}, L"Old Subject: "};
    forms::TextBox txtOldSubject{*this, L"txtOldSubject", {58, 7, 209, 13}};
    forms::Label Label5{*this, L"Label5", {7, 28, 48, 9}, L"New Subject: "};
    forms::TextBox txtNewSubject{*this, L"txtNewSubject", {58, 26, 209, 13}};
    forms::CheckBox chkAutoCorrect{*this,
                                   L"chkAutoCorrect",
                                   {7, 46, 260, 11},
                                   L"Automatically correct in the future (do not display message again)"};
    forms::Button cmdYes{*this, L"cmdYes", {163, 64, 50, 14}, L"&Yes", forms::Button::Role::Default};
    forms::Button cmdNo{*this, L"cmdNo", {217, 64, 50, 14}, L"&No", forms::Button::Role::Cancel};
};

}  // namespace checks
