#include "accounts/basSendAcct.h"

#include <algorithm>
#include <optional>

#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "platform/text.h"

namespace accounts::basSendAcct {

namespace {

using mail::Globals;

template <class Predicate>
std::optional<std::size_t> firstRow(const clsSendAcct& list, Predicate&& matches) {
    const std::size_t count = list.count();
    for (std::size_t row = 0; row < count; ++row) {
        if (matches(row)) {
            return row;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> rowOf(const clsSendAcct& list, std::wstring_view address) {
    return firstRow(list, [&](std::size_t row) { return text::equalsTrimmed(list.addressAt(row), address); });
}

bool moveTo(clsSendAcct& list, std::optional<std::size_t> row) {
    if (row) {
        list.AbsolutePosition(static_cast<std::int32_t>(*row) + 1);
    }
    return row.has_value();
}

/// `part` is in upper case. Made for many texts that are hardly longer than the part.
bool contains(std::wstring_view value, std::wstring_view part) {
    for (std::size_t start = 0; start + part.size() <= value.size(); ++start) {
        if (std::ranges::equal(value.substr(start, part.size()), part, {}, text::upperCase)) {
            return true;
        }
    }
    return false;
}

/// An address has no ";" in it, so it cannot lie across two of the joined addresses.
bool occursInList(const clsSendAcct& list, std::wstring_view address) {
    const std::wstring part = text::upper(address);
    return firstRow(list, [&](std::size_t row) { return contains(list.addressAt(row), part); }).has_value();
}

}  // namespace

std::shared_ptr<clsSendAcct> TheList(Globals& globals) {
    if (!globals.sendAccounts) {
        globals.sendAccounts = std::make_shared<clsSendAcct>(globals);
    }
    return globals.sendAccounts;
}

std::shared_ptr<clsSendAcct> OpenList(Globals& globals) {
    const auto list = TheList(globals);
    if (globals.settingsFolder.empty()) {
        list->Initialise();
    }
    return list;
}

std::vector<std::wstring> AccountOrder(Globals& globals) {
    const auto read = [&] {
        const auto session = globals.provider->session(globals);
        std::vector<std::wstring> names;
        for (const auto& account : session->accounts()) {
            names.push_back(account->name());
        }
        return names;
    };
    return mail::attempt(read).value_or(std::vector<std::wstring>());
}

bool HasAccount(const std::vector<mail::OutgoingMail::NamedAccount>& accounts, const std::wstring& name) {
    return std::ranges::any_of(accounts,
                               [&](const auto& account) { return text::equalsTrimmed(account.name, name); });
}

std::wstring PreferredAccount(const clsSendAcct& list, const std::wstring& address) {
    const auto row = rowOf(list, address);
    return row ? list.accountAt(*row) : std::wstring();
}

std::wstring PreferredAddresses(const clsSendAcct& list) {
    std::wstring addresses;
    for (std::size_t row = 0; row < list.count(); ++row) {
        addresses += list.addressAt(row);
        addresses += L';';
    }
    return addresses;
}

Membership ListMembership(const clsSendAcct& list, mail::OutgoingMail& mail) {
    Membership result;
    result.address = text::trim(mail.recipientAddress(1));
    // An unknown address would be found in every list.
    result.listed = !result.address.empty() && occursInList(list, result.address);
    if (result.listed) {
        result.message = L"This e-mail has an address that is normally sent with Exchange Server. Continue?";
    }
    return result;
}

bool SelectAccount(forms::ComboBox& box, const std::wstring& account) {
    const auto& names = box.items();
    const auto found = std::ranges::find_if(
        names, [&](const std::wstring& name) { return text::equalsTrimmed(name, account); });
    if (found == names.end()) {
        return false;
    }
    box.select(static_cast<int>(found - names.begin()));
    return true;
}

bool MoveToAddress(clsSendAcct& list, const std::wstring& address) {
    return moveTo(list, rowOf(list, address));
}

bool MoveToEntry(clsSendAcct& list, const std::wstring& address, const std::wstring& account) {
    return moveTo(list, firstRow(list, [&](std::size_t row) {
                      return list.addressAt(row) == address && list.accountAt(row) == account;
                  }));
}

}  // namespace accounts::basSendAcct
