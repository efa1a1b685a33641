#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/scenarios/Bench.h"

/// People and mails for the scenarios about answers.
namespace replies {

using Names = std::vector<std::wstring>;

inline const host::Address ann{.name = L"Ann", .address = L"ann@example.com"};
inline const host::Address bob{.name = L"Bob", .address = L"bob@example.com"};
inline const host::Address me{.name = L"Me", .address = L"ME@example.org"};
inline const host::Address carl{.name = L"Carl",
                                .address = L"/o=x/cn=carl",
                                .type = L"EX",
                                .proxies = {L"SMTP:carl@example.com"},
                                .smtpAddress = L"carl@example.com"};

/// A mail from Ann that was received today.
inline host::Message mailTo(std::vector<host::Address> to, std::vector<host::Address> cc = {}) {
    host::Message message;
    message.from = ann;
    message.to = std::move(to);
    message.cc = std::move(cc);
    message.subject = L"Budget";
    message.body = L"See you.";
    return message;
}

/// Nothing but what a test asks for.
inline std::map<std::wstring, std::wstring> quiet(std::map<std::wstring, std::wstring> settings) {
    for (const wchar_t* flag : {L"ReplyALL_BCC", L"ReplyAllAny", L"ReplyAllAutoRemove", L"ReplyMultiple"}) {
        settings.emplace(flag, L"False");
    }
    return settings;
}

/// Selects the mail in the main window, where the button is pressed.
inline automation::Object selected(Bench& bench, const host::Message& message) {
    const auto item = bench.outlook().receive(message);
    bench.outlook().select(bench.outlook().explorers().front(), {item});
    return item;
}

/// The recipients of an item.
inline Names namesOf(Bench& bench, const automation::Object& item) {
    Names names;
    for (const auto& recipient : bench.outlook().view(item).recipients) {
        names.push_back(recipient.address.name);
    }
    return names;
}

}  // namespace replies
