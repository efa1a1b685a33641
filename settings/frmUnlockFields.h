#pragma once

#include <functional>

#include "mail/Globals.h"
#include "platform/forms.h"

namespace settings {

/// Where an administrator lifts the lock, for this showing of the settings or for good.
class frmUnlockFields : public forms::Form {
  public:
    /// `unlocked`: everything may be changed from now on.
    frmUnlockFields(mail::Globals& globals, std::function<void()> unlocked);

  private:
    void cmdOK_Click();
    void removeLock();

    mail::Globals& globals_;
    std::function<void()> unlocked_;

    forms::Label lblPassword{*this, L"lblPassword", {7, 9, 60, 9}, L"&Password:"};
    forms::TextBox txtPassword{*this, L"txtPassword", {70, 7, 143, 13}, forms::TextBox::Lines::Hidden};
    forms::OptionButton optTemporary{
        *this, L"optTemporary", {7, 28, 206, 11}, L"Unlock until the settings are &closed"};
    forms::OptionButton optPermanant{*this, L"optPermanant", {7, 42, 206, 11}, L"&Remove the lock for good"};
    forms::Button cmdOK{*this, L"cmdOK", {109, 62, 50, 14}, L"OK", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {163, 62, 50, 14}, L"Cancel", forms::Button::Role::Cancel};
};

}  // namespace settings
