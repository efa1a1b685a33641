#pragma once

#include <string>

#include "mail/Globals.h"
#include "platform/WebAddress.h"
#include "platform/forms.h"

namespace update {

/// Tells of a newer version and offers to open the page where it is found. Whether to tell of that version
/// again is stored when the dialog is left.
class frmDownload : public forms::Form {
  public:
    frmDownload(mail::Globals& globals, const std::wstring& version, const std::wstring& message,
                platform::WebAddress page);

  private:
    void cmdYes_Click();
    void storeChoice() const;

    mail::Globals& globals_;
    std::wstring version_;
    platform::WebAddress page_;

    forms::Picture ImageIcon{*this, L"ImageIcon", {7, 8, 21, 20}, forms::Picture::Image::Information};
    forms::Label lblMessage{*this, L"lblMessage", {36, 8, 217, 28}};
    forms::TextBox txtMessage{*this, L"txtMessage", {36, 40, 217, 44}, forms::TextBox::Lines::Many};
    forms::CheckBox chkNotNotify{
        *this, L"chkNotNotify", {36, 90, 217, 11}, L"&Do not tell me about this version again"};
    forms::Button cmdYes{*this, L"cmdYes", {149, 108, 50, 14}, L"&Yes", forms::Button::Role::Default};
    forms::Button cmdNo{*this, L"cmdNo", {203, 108, 50, 14}, L"&No", forms::Button::Role::Cancel};
};

}  // namespace update
