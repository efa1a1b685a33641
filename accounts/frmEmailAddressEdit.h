#pragma once

#include "accounts/EntryStore.h"
#include "mail/Globals.h"
#include "platform/formLists.h"

namespace accounts {

/// One entry of the list of preferred accounts.
class frmEmailAddressEdit : public forms::Form {
  public:
    enum class Mode {
        Add,
        Edit,
        /// Another account is to be chosen for an address whose account is gone.
        MissingAccount
    };
    struct Entry {
        std::wstring address;
        /// Chosen at first.
        std::wstring account;
        /// Shown when an account is gone.
        std::wstring message;
    };

    frmEmailAddressEdit(mail::Globals& globals, EntryStore& list, Mode mode, Entry entry);

    /// True once the entry is stored.
    bool saved() const { return saved_; }
    /// The account that is chosen.
    std::wstring account() const { return cmbAccounts.value(); }

  private:
    void cmdOK_Click();
    void cmdCancel_Click();
    void chooseAccount(const std::wstring& account);
    bool isComplete() const;
    std::wstring save();
    std::wstring address() const;
    void tell(const std::wstring& prompt, platform::Icon icon) const;

    mail::Globals& globals_;
    EntryStore& list_;
    Mode mode_;
    /// What the list holds in the row.
    std::wstring listedAddress_;
    std::wstring listedAccount_;
    bool saved_ = false;

    /// The controls lie below the message, where there is one.
    bool hasMessage() const { return mode_ == Mode::MissingAccount; }
    int below(int top) const { return hasMessage() ? top + messageHeight : top; }
    static constexpr int messageHeight = 122;

    forms::Picture imgBackColor{*this, L"imgBackColor", {7, 8, 21, 20}, forms::Picture::Image::Warning};
    forms::Label lblMsg{*this,
                        L"lblMsg",
                        {36, 8, 257, 112},
                        L"Postroute has detected that the preferred account does not exist. Please select "
                        L"another account for <<e-mail address>>"};
    forms::Label Label1{*this, L"Label1", {7, below(10), 64, 9}, L"Email Address :"};
    forms::TextBox txtEmailAddress{*this, L"txtEmailAddress", {74, below(8), 219, 13}};
    forms::Label Label2{*this, L"Label2", {7, below(29), 64, 9}, L"Account :"};
    forms::ComboBox cmbAccounts{*this, L"cmbAccounts", {74, below(27), 219, 13}};
    forms::Button cmdOK{*this, L"cmdOK", {189, below(49), 50, 14}, L"OK", forms::Button::Role::Default};
    forms::Button cmdCancel{
        *this, L"cmdCancel", {243, below(49), 50, 14}, L"&Cancel", forms::Button::Role::Cancel};
};

}  // namespace accounts
