#include "settings/frmLockFields.h"

#include <algorithm>
#include <utility>

#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/EncryptPswd.h"
#include "settings/lockFields.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace settings {

frmLockFields::frmLockFields(mail::Globals& globals, std::function<void()> locked)
    : Form(L"frmLockFields", L"Lock Veltro settings", 400, 291),
      globals_(globals),
      locked_(std::move(locked)) {
    LoadAllFields();
    LoadListView();
    cmdOK.onClick = [this] {
        mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmLockFields.cmdOK_Click"),
                         [&] { cmdOK_Click(); });
    };
    cmdCancel.onClick = [this] { hide(); };
}

void frmLockFields::LoadAllFields() {
    std::vector<forms::MarkedList::Row> rows;
    for (const lockFields::Field& field : lockFields::all()) {
        rows.push_back({lockFields::Get_EnableField_Description(field.name), false});
    }
    lstVSettings.setRows(std::move(rows));
}

void frmLockFields::LoadListView() {
    const auto entries = lockFields::parse(modRegKeys::LockFields.read(globals_));
    std::vector<bool> ticks;
    for (const lockFields::Field& field : lockFields::all()) {
        ticks.push_back(std::ranges::any_of(entries, [&field](const lockFields::Entry& entry) {
            return entry.name == field.name && entry.locked;
        }));
    }
    lstVSettings.markExactly(ticks);
}

/// The password last: without one nothing is locked, so that a failure in between leaves no half lock.
void frmLockFields::SaveLockSettingsToRegistry() {
    std::vector<lockFields::Entry> entries;
    for (std::size_t row = 0; const lockFields::Field& field : lockFields::all()) {
        entries.push_back({field.name, lstVSettings.rows()[row++].marked});
    }
    modRegKeys::LockFields.write(globals_, lockFields::text(entries));
    modRegKeys::Password.write(globals_, EncryptPswd(txtPassword.text()));
}

void frmLockFields::cmdOK_Click() {
    if (!isComplete()) {
        return;
    }
    const platform::Answer answer = globals_.platform.desktop.messageBox(
        L"Do you want to stop users from changing settings that have been indicated?",
        {platform::Buttons::YesNo, platform::Icon::Question}, L"Lock Veltro settings");
    if (answer == platform::Answer::Yes) {
        SaveLockSettingsToRegistry();
        locked_();
        hide();
    }
}

bool frmLockFields::isComplete() const {
    if (!lstVSettings.anyMarked()) {
        prompts::inform(
            globals_, L"No settings selected",
            L"You have not selected any settings to lock.\r\n\r\nPlease select atleast one settings to "
            L"lock.");
        return false;
    }
    if (txtPassword.text() != txtVerifyPassword.text()) {
        prompts::inform(globals_, L"Passwords do not match",
                        L"The passwords entered in the Password and the Verify Password fields do not "
                        L"match.\r\n\r\nPlease correct this and try again.");
        return false;
    }
    constexpr std::size_t shortest = 6;
    if (txtPassword.text().size() < shortest || !hasLetterAndDigit()) {
        prompts::inform(
            globals_, L"Invalid Password",
            L"The password must be at least 6 characters long and contain a combination of numbers and "
            L"characters.");
        return false;
    }
    return true;
}

/// The six characters between "Z" and "a" count as letters, too.
bool frmLockFields::hasLetterAndDigit() const {
    const auto isLetter = [](wchar_t character) { return character >= 65 && character <= 122; };
    const auto isDigit = [](wchar_t character) { return character >= 48 && character <= 57; };
    return std::ranges::any_of(txtPassword.text(), isLetter) &&
           std::ranges::any_of(txtPassword.text(), isDigit);
}

}  // namespace settings
