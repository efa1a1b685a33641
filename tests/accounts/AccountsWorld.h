#pragma once

#include <string>
#include <utility>
#include <vector>

#include "accounts/clsSendAcct.h"
#include "tests/TestWorld.h"
#include "tests/accounts/listTexts.h"

/// A world whose list of preferred accounts has been opened as the start-up does.
class AccountsWorld : public TestWorld {
  public:
    explicit AccountsWorld(host::Profile profile, std::vector<std::wstring> answers = {})
        : TestWorld(std::move(answers), std::move(profile)) {
        list.Initialise();
        list.LoadList();
    }
    explicit AccountsWorld(const Entries& entries, std::vector<std::wstring> answers = {})
        : AccountsWorld(profileWith(listText(entries)), std::move(answers)) {}

    std::wstring storedBody(const std::wstring& folder = tarnwellFolder) const {
        return outlook.view(outlook.itemsIn(folder).at(0)).body;
    }
    Entries stored(const std::wstring& folder = tarnwellFolder) const {
        return entriesOf(accounts::AccountRows(storedBody(folder)));
    }
    Entries loaded() const {
        Entries entries;
        for (std::size_t row = 0; row < list.count(); ++row) {
            entries.emplace_back(list.addressAt(row), list.accountAt(row));
        }
        return entries;
    }

    bool add(const std::wstring& address, const std::wstring& account) {
        list.AddNew();
        list.strEmailAddress = address;
        list.strAccount = account;
        return list.Update();
    }
    bool change(std::size_t position, const std::wstring& address, const std::wstring& account) {
        list.AbsolutePosition(static_cast<std::int32_t>(position));
        list.Edit();
        list.strEmailAddress = address;
        list.strAccount = account;
        return list.Update();
    }
    bool remove(std::size_t position) {
        list.AbsolutePosition(static_cast<std::int32_t>(position));
        return list.Delete();
    }

    accounts::clsSendAcct list{globals};
};
