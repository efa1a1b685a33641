#pragma once

#include <optional>

#include "accounts/clsSendAcct.h"
#include "accounts/frmEmailAddressEdit.h"
#include "mail/Globals.h"
#include "platform/formLists.h"

namespace accounts {

/// The window in which the list of preferred accounts is looked after.
class frmEmailAddress : public forms::Form {
  public:
    frmEmailAddress(mail::Globals& globals, clsSendAcct& list);

  private:
    void cmdAdd_Click();
    void cmdEdit_Click();
    void cmdDelete_Click();
    void cmdClose_Click();
    void EmailAddressListFill();
    std::wstring lineOf(std::size_t row) const;
    /// Fills the list anew and selects the row with the list's current values, if there is one.
    void refillAtCurrentValues();
    /// Moves the list to the selected row; false, and the user is told, when none is selected or it is gone.
    bool moveToSelection();
    bool edit(frmEmailAddressEdit::Mode mode, const std::wstring& address, const std::wstring& account);
    platform::Answer show(const std::wstring& prompt, platform::MessageStyle style) const;

    mail::Globals& globals_;
    clsSendAcct& list_;

    forms::Picture PicLogo{*this, L"PicLogo", {7, 7, 21, 20}, forms::Picture::Image::Information};
    forms::Label Label2{*this, L"Label2", {36, 12, 257, 9}, L"Maintain Preferred Sending Account List"};
    forms::ListBox lstEmailAddress{*this, L"lstEmailAddress", {7, 33, 286, 150}};
    forms::Button cmdAdd{*this, L"cmdAdd", {7, 190, 50, 14}, L"&Add..."};
    forms::Button cmdEdit{*this, L"cmdEdit", {61, 190, 50, 14}, L"&Edit...", forms::Button::Role::Default};
    forms::Button cmdDelete{*this, L"cmdDelete", {115, 190, 50, 14}, L"&Delete"};
    forms::Button cmdClose{*this, L"cmdClose", {243, 190, 50, 14}, L"&Close", forms::Button::Role::Cancel};
    /// Decoration for which there is no picture yet.
    forms::Picture pctAccountList{
        *this, L"pctAccountList", {272, 7, 21, 20}, forms::Picture::Image::Information};
};

}  // namespace accounts
