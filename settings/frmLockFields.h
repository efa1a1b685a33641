#pragma once

#include <functional>

#include "mail/Globals.h"
#include "platform/formLists.h"

namespace settings {

/// Where an administrator chooses what users may not change, and the password that lifts the lock.
class frmLockFields : public forms::Form {
  public:
    /// `locked`: the lock is stored and in force from now on.
    frmLockFields(mail::Globals& globals, std::function<void()> locked);

  private:
    void LoadAllFields();
    void LoadListView();
    void SaveLockSettingsToRegistry();
    void cmdOK_Click();
    bool isComplete() const;
    bool hasLetterAndDigit() const;

    mail::Globals& globals_;
    std::function<void()> locked_;

    forms::Label lblSettings{*this, L"lblSettings", {7, 7, 386, 9}, L"&Settings that users may not change:"};
    forms::CheckList lstVSettings{*this, L"lstVSettings", {7, 18, 386, 204}};
    forms::Label lblPassword{*this, L"lblPassword", {7, 232, 80, 9}, L"&Password:"};
    forms::TextBox txtPassword{*this, L"txtPassword", {90, 230, 120, 13}, forms::TextBox::Lines::Hidden};
    forms::Label lblVerifyPassword{*this, L"lblVerifyPassword", {7, 250, 80, 9}, L"&Verify Password:"};
    forms::TextBox txtVerifyPassword{
        *this, L"txtVerifyPassword", {90, 248, 120, 13}, forms::TextBox::Lines::Hidden};
    forms::Label lblRules{*this,
                          L"lblRules",
                          {218, 232, 175, 28},
                          L"At least 6 characters, with letters and numbers among them."};
    forms::Button cmdOK{*this, L"cmdOK", {289, 270, 50, 14}, L"OK", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {343, 270, 50, 14}, L"Cancel", forms::Button::Role::Cancel};
};

}  // namespace settings
