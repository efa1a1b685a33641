#include "settings/frmGetUserInput.h"

#include <utility>

#include "mail/basEmailAddressValidity.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/prompts.h"

namespace settings {

frmGetUserInput::frmGetUserInput(mail::Globals& globals, const EntryRules& rules,
                                 std::function<bool(const std::wstring&)> isListed)
    : Form(L"frmGetUserInput", rules.caption, 260, 71),
      globals_(globals),
      rules_(rules),
      isListed_(std::move(isListed)) {
    lblPrompt.setCaption(rules.prompt);
    cmdOK.onClick = [this] {
        mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmGetUserInput.cmdOK_Click"),
                         [&] { cmdOK_Click(); });
    };
    cmdCancel.onClick = [this] { hide(); };
}

void frmGetUserInput::cmdOK_Click() {
    const std::wstring entry(text::trim(txtInput.text()));
    if (const Complaint* const complaint = complaintAbout(entry)) {
        prompts::inform(globals_, complaint->caption, complaint->text);
        txtInput.setFocus();
        return;
    }
    entry_ = entry;
    hide();
}

const Complaint* frmGetUserInput::complaintAbout(const std::wstring& entry) const {
    if (entry.empty()) {
        return &rules_.missing;
    }
    const bool invalid = rules_.invalid && !basEmailAddressValidity::IsValidEmailAddress(entry);
    if (invalid && rules_.validityFirst) {
        return &*rules_.invalid;
    }
    if (isListed_(entry)) {
        return &rules_.existing;
    }
    return invalid ? &*rules_.invalid : nullptr;
}

}  // namespace settings
