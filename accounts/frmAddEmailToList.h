#pragma once

#include "accounts/EntryStore.h"
#include "mail/Globals.h"
#include "platform/forms.h"

namespace accounts {

/// Offers to put a recipient's address on the list of preferred accounts.
class frmAddEmailToList : public forms::Form {
  public:
    frmAddEmailToList(mail::Globals& globals, EntryStore& list, std::wstring address,
                      std::wstring accountInUse);

    /// True when an account was chosen that the mail is now to be sent with.
    bool changesAccount() const { return changesAccount_; }
    const std::wstring& account() const { return account_; }

    void closeBox() override { Command1_Click(); }

  private:
    void cmdYes_Click();
    void cmdNo_Click();
    void Command1_Click();
    void chkDontShowMessAgain_Click();
    void leave();

    mail::Globals& globals_;
    EntryStore& list_;
    std::wstring address_;
    std::wstring accountInUse_;
    bool changesAccount_ = false;
    std::wstring account_;

    forms::Picture picQuestion{*this, L"picQuestion", {7, 8, 21, 20}, forms::Picture::Image::Question};
    forms::Label lblMessage{*this,
                            L"lblMessage",
                            {36, 8, 257, 122},
                            L"Do you want to add this e-mail address to Postroute list?"};
    forms::CheckBox chkDontShowMessAgain{*this,
                                         L"chkDontShowMessAgain",
                                         {36, 134, 257, 11},
                                         L"Do not show me this message for ANY e-mail address."};
    forms::Button cmdYes{*this, L"cmdYes", {135, 152, 50, 14}, L"&Yes", forms::Button::Role::Default};
    forms::Button cmdNo{*this, L"cmdNo", {189, 152, 50, 14}, L"Never"};
    forms::Button Command1{*this, L"Command1", {243, 152, 50, 14}, L"Not Now", forms::Button::Role::Cancel};
};

}  // namespace accounts
