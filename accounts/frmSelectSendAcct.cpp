#include "accounts/frmSelectSendAcct.h"

#include <utility>

#include "accounts/basSendAcct.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"

namespace accounts {

frmSelectSendAcct::frmSelectSendAcct(mail::Globals& globals, EntryStore& list, std::wstring preferred,
                                     std::wstring address, const std::wstring& given)
    : Form(L"frmSelectSendAcct", L"Veltro", 280, 171),
      globals_(globals),
      list_(list),
      preferred_(std::move(preferred)),
      address_(std::move(address)) {
    lblPrefAcct.setCaption(L"(" + preferred_ + L")");
    std::vector<std::wstring> others = list.LoadAccounts();
    std::erase_if(others, [&](const std::wstring& name) {
        return name.empty() || name == noAccount || text::equalsTrimmed(name, preferred_);
    });
    cmbAccts.setItems(std::move(others));
    basSendAcct::SelectAccount(cmbAccts, given);
    optChange.select();
    cmbAccts.onChange = [this] { cmbAccts_Change(); };
    chkSetDefault.onClick = [this] { chkSetDefault_Click(); };
    cmdOK.onClick = [this] { cmdOK_Click(); };
}

void frmSelectSendAcct::cmbAccts_Change() {
    optSelected.select();
}

/// It is about the other account.
void frmSelectSendAcct::chkSetDefault_Click() {
    if (chkSetDefault.ticked()) {
        optSelected.select();
    }
}

bool frmSelectSendAcct::otherChosen() const {
    return cmbAccts.selected() != forms::List::none;
}

void frmSelectSendAcct::cmdOK_Click() {
    mail::skipErrors([&] {
        if (chkSetDefault.ticked() && otherChosen()) {
            makePreferred(cmbAccts.value());
        }
    });
    mail::skipErrors([&] { modRegKeys::DoNotShowSelect.write(globals_, chkDoNotShow.ticked() ? 1 : 0); });
    if (!optCancel.selected()) {
        answer_ = optSelected.selected() && otherChosen() ? cmbAccts.value() : preferred_;
    }
    hide();
}

void frmSelectSendAcct::makePreferred(const std::wstring& account) {
    const std::wstring failure = list_.SetAccount(address_, std::wstring(text::trim(account)));
    if (!failure.empty()) {
        globals_.platform.desktop.messageBox(failure, {platform::Buttons::Ok, platform::Icon::Warning},
                                             globals_.product.title);
    }
}

}  // namespace accounts
