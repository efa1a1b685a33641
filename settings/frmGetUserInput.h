#pragma once

#include <functional>
#include <optional>
#include <string>

#include "mail/Globals.h"
#include "platform/forms.h"

namespace settings {

/// What is said about an entry that cannot be taken.
struct Complaint {
    const wchar_t* caption;
    const wchar_t* text;
};

/// Which texts a list takes, and how the user is asked for one.
struct EntryRules {
    const wchar_t* prompt;
    const wchar_t* caption;
    Complaint missing;
    Complaint existing;
    /// Nothing for a list whose entries are no e-mail addresses.
    std::optional<Complaint> invalid = std::nullopt;
    /// Which of the two is looked at first.
    bool validityFirst = false;
};

/// Asks for one entry of a list.
class frmGetUserInput : public forms::Form {
  public:
    /// `isListed` tells whether the list has the entry.
    frmGetUserInput(mail::Globals& globals, const EntryRules& rules,
                    std::function<bool(const std::wstring&)> isListed);

    /// Without blanks around it; nothing when the user has cancelled.
    const std::optional<std::wstring>& entry() const { return entry_; }

  private:
    void cmdOK_Click();
    const Complaint* complaintAbout(const std::wstring& entry) const;

    mail::Globals& globals_;
    const EntryRules& rules_;
    std::function<bool(const std::wstring&)> isListed_;
    std::optional<std::wstring> entry_;

    forms::Label lblPrompt{*this, L"lblPrompt", {7, 7, 246, 18}};
    forms::TextBox txtInput{*this, L"txtInput", {7, 28, 246, 13}};
    forms::Button cmdOK{*this, L"cmdOK", {149, 50, 50, 14}, L"OK", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdCancel", {203, 50, 50, 14}, L"Cancel", forms::Button::Role::Cancel};
};

}  // namespace settings
