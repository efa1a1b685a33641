#include "accounts/basSendAcct.h"
#include "accounts/clsSendAcct.h"
#include "accounts/listMessages.h"

namespace accounts {

std::wstring clsSendAcct::PreferredAccount(const std::wstring& address) {
    return basSendAcct::PreferredAccount(*this, address);
}

bool clsSendAcct::IsListed(const std::wstring& address) {
    if (count() == 0) {
        return false;
    }
    AbsolutePosition(1);
    return Find(address);
}

std::wstring clsSendAcct::AddEntry(const AccountEntry& entry) {
    AddNew();
    return updateTo(entry);
}

std::wstring clsSendAcct::ReplaceEntry(const AccountEntry& listed, const AccountEntry& entry) {
    if (!basSendAcct::MoveToEntry(*this, listed.address, listed.account)) {
        return listMessages::changedMeanwhile;
    }
    Edit();
    return ErrorReport.empty() ? updateTo(entry) : ErrorReport;
}

std::wstring clsSendAcct::SetAccount(const std::wstring& address, const std::wstring& account) {
    if (!basSendAcct::MoveToAddress(*this, address)) {
        return listMessages::changedMeanwhile;
    }
    Edit();
    return ErrorReport.empty() ? updateTo({strEmailAddress, account}) : ErrorReport;
}

std::wstring clsSendAcct::updateTo(const AccountEntry& entry) {
    strEmailAddress = entry.address;
    strAccount = entry.account;
    return Update() ? std::wstring() : ErrorReport;
}

}  // namespace accounts
