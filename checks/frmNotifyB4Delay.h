#pragma once

#include "mail/Globals.h"
#include "platform/forms.h"

namespace checks {

/// Asks whether to hold a mail back.
class frmNotifyB4Delay : public forms::Form {
  public:
    /// `status` says which mails are delayed by how much.
    frmNotifyB4Delay(const mail::Globals& globals, const std::wstring& status);

    /// False once the user has said No or closed the box.
    bool delays() const { return delays_; }

    void closeBox() override { cmdNo_Click(); }

  private:
    void cmdYes_Click();
    void cmdNo_Click();
    void answer(bool delays);

    const mail::Globals& globals_;
    bool delays_ = true;

    forms::Picture Picture1{*this, L"Picture1", {7, 8, 21, 20}, forms::Picture::Image::Question};
    forms::Label Label3{*this, L"Label3", {36, 8, 201, 9}, L"Do you want to delay this e-mail?"};
    forms::Label lblDelayStatus{*this, L"lblDelayStatus", {36, 22, 201, 26}};
    forms::CheckBox chkNotifyB4Delaying{
        *this, L"chkNotifyB4Delaying", {36, 54, 201, 11}, L"Do not show this message again"};
    forms::Button cmdYes{*this, L"cmdYes", {133, 72, 50, 14}, L"&Yes", forms::Button::Role::Default};
    forms::Button cmdNo{*this, L"cmdNo", {187, 72, 50, 14}, L"&No", forms::Button::Role::Cancel};
};

}  // namespace checks
