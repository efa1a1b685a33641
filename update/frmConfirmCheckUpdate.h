#pragma once

#include <memory>
#include <optional>
#include <string>

#include "mail/Globals.h"
#include "platform/forms.h"
#include "update/clsAutoUpdate.h"

namespace update {

/// A link of the service's: opened by a click when it is an address on the web, else only shown.
class OfferedLink {
  public:
    /// `caption` says what the link leads to.
    OfferedLink(forms::Form& form, mail::Globals& globals, const wchar_t* name, int top,
                std::wstring caption);
    OfferedLink(const OfferedLink&) = delete;
    OfferedLink& operator=(const OfferedLink&) = delete;

    /// Nothing is shown for a link without a text.
    void show(const Link& link);

  private:
    mail::Globals& globals_;
    std::optional<platform::WebAddress> address_;
    std::wstring caption_;
    forms::Link link_;
    forms::Label text_;
};

/// The check for a newer version that the user asks for: what is about to happen, and then its result.
class frmConfirmCheckUpdate : public forms::Form {
  public:
    explicit frmConfirmCheckUpdate(mail::Globals& globals);

  private:
    void cmdCheck_Click();
    void cmdClose_Click();
    /// The service's answer, as clsAutoUpdate gives it; nothing when the user has not waited for it.
    std::optional<std::wstring> ask();
    void showResult(const std::wstring& version);
    void storeChoice(bool checked) const;
    bool automaticIsOff() const;

    mail::Globals& globals_;
    std::shared_ptr<clsAutoUpdate> update_;

    forms::Picture ImageIcon{*this, L"ImageIcon", {7, 8, 21, 20}, forms::Picture::Image::Information};
    forms::Label lblStatus{*this, L"lblStatus", {36, 8, 237, 28}};
    forms::TextBox txtMessage{*this, L"txtMessage", {36, 40, 237, 44}, forms::TextBox::Lines::Many};
    OfferedLink download_{*this, globals_, L"lblDownload", 90, L"Go to the download page"};
    OfferedLink upgradePolicy_{*this, globals_, L"lblUpgradePolicy", 103, L"Read the upgrade policy"};
    OfferedLink features_{*this, globals_, L"lblFeatures", 116, L"See what is new"};
    forms::CheckBox chkDoNotCheck{
        *this, L"chkDoNotCheck", {36, 133, 237, 11}, L"&Do not check for updates automatically"};
    forms::Button cmdCheck{
        *this, L"cmdCheck", {153, 152, 66, 14}, L"Check &now", forms::Button::Role::Default};
    forms::Button cmdClose{*this, L"cmdClose", {223, 152, 50, 14}, L"Close", forms::Button::Role::Cancel};
};

}  // namespace update
