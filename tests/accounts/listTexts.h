#pragma once

#include <string>
#include <utility>
#include <vector>

#include "accounts/AccountRows.h"
#include "accounts/emptyList.h"
#include "host/Profile.h"
#include "platform/text.h"

/// Address and account of each row.
using Entries = std::vector<std::pair<std::wstring, std::wstring>>;

inline constexpr wchar_t tarnwellFolder[] = L"Tarnwell Settings\\Veltro";
inline constexpr wchar_t corvaneFolder[] = L"Corvane Settings\\Veltro";

/// The text of a list as it was stored: what stands before the rows is that of a new list.
inline std::wstring listText(const std::wstring& data) {
    return text::replaceAll(accounts::emptyList, L"<rs:data>\r\n", L"<rs:data>" + data);
}

inline std::wstring listText(const Entries& entries) {
    std::wstring rows;
    for (const auto& [address, account] : entries) {
        rows += L"\r\n\t<z:row strEmailAddress='" + address + L"' strAccount='" + account + L"'/>";
    }
    return listText(rows + L"\r\n");
}

inline Entries entriesOf(const accounts::AccountRows& rows) {
    Entries entries;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        entries.emplace_back(rows.address(row), rows.account(row));
    }
    return entries;
}

inline host::StoredMessage storedList(const std::wstring& body, const wchar_t* folder = tarnwellFolder) {
    host::StoredMessage stored{.folder = folder};
    stored.message.subject = L"Email Address";
    stored.message.body = body;
    return stored;
}

/// An Outlook with two accounts and a stored list.
inline host::Profile profileWith(const std::wstring& body, const wchar_t* folder = tarnwellFolder) {
    host::Profile profile;
    profile.accounts = {{.name = L"Work", .address = L"me@example.org"},
                        {.name = L"Home", .address = L"me@example.net"}};
    profile.folders = {};
    profile.messages = {storedList(body, folder)};
    return profile;
}
