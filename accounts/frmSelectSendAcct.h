#pragma once

#include <optional>

#include "accounts/EntryStore.h"
#include "mail/Globals.h"
#include "platform/formLists.h"

namespace accounts {

/// Asks which account to send with when the one in use is not the preferred one.
class frmSelectSendAcct : public forms::Form {
  public:
    /// `given` is the account that is offered first beside the preferred one.
    frmSelectSendAcct(mail::Globals& globals, EntryStore& list, std::wstring preferred, std::wstring address,
                      const std::wstring& given);

    /// The account to send with; nothing: back to the e-mail. That is what closing the box means, too.
    const std::optional<std::wstring>& account() const { return answer_; }

  private:
    void cmdOK_Click();
    void cmbAccts_Change();
    void chkSetDefault_Click();
    bool otherChosen() const;
    void makePreferred(const std::wstring& account);

    mail::Globals& globals_;
    EntryStore& list_;
    std::wstring preferred_;
    std::wstring address_;
    std::optional<std::wstring> answer_;

    forms::Label Label1{*this, L"Label1", {7, 8, 266, 9}, L"Select Account"};
    forms::OptionButton optChange{*this, L"optChange", {7, 22, 266, 11}, L"&Use Your Preferred Account"};
    forms::Label lblPrefAcct{*this, L"lblPrefAcct", {18, 34, 255, 17}};
    forms::OptionButton optSelected{*this, L"optSelected", {7, 55, 266, 11}, L"&Another Account"};
    forms::ComboBox cmbAccts{*this, L"cmbAccts", {18, 68, 255, 13}};
    forms::CheckBox chkSetDefault{
        *this, L"chkSetDefault", {18, 85, 255, 11}, L"Set this account as Preferred Account"};
    forms::OptionButton optCancel{
        *this, L"optCancel", {7, 103, 266, 11}, L"Go back to e-mail so that I can change myself"};
    forms::CheckBox chkDoNotShow{*this,
                                 L"chkDoNotShow",
                                 {7, 123, 266, 20},
                                 L"Do not ask me this again.\r\nAutomatically use preferred accounts for all "
                                 L"future e-mails."};
    forms::Button cmdOK{*this, L"cmdOK", {223, 150, 50, 14}, L"OK", forms::Button::Role::Default};
};

}  // namespace accounts
