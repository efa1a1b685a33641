#include "accounts/SharedSendAcct.h"

#include "accounts/clsSendAcct.h"
#include "platform/FunctionTarget.h"

namespace accounts {

namespace {

using automation::Object;
using automation::Value;
using Arguments = std::span<const Value>;

namespace name {
constexpr wchar_t changeAcct[] = L"strChangeAcct";
constexpr wchar_t account[] = L"strAccount";
constexpr wchar_t dialogMode[] = L"DialogMode";
constexpr wchar_t loadAccounts[] = L"LoadAccounts";
constexpr wchar_t preferredAccount[] = L"PreferredAccount";
constexpr wchar_t isListed[] = L"IsListed";
constexpr wchar_t addEntry[] = L"AddEntry";
constexpr wchar_t replaceEntry[] = L"ReplaceEntry";
constexpr wchar_t setAccount[] = L"SetAccount";
}  // namespace name

using Member = automation::FunctionTarget::Member;

/// An operation of the list, which is held while it runs: the last window of Outlook may close inside of it.
template <class Operation>
Member operation(const wchar_t* name, std::size_t arguments, const std::weak_ptr<clsSendAcct>& list,
                 Operation run) {
    return {name, arguments, [list, run](Arguments given) -> Value {
                const auto held = list.lock();
                if (!held) {
                    throw automation::Error(automation::errors::failed, L"The add-in is not connected.");
                }
                return run(*held, given);
            }};
}

std::wstring text(Arguments arguments, std::size_t index) {
    return arguments[index].toText();
}

automation::Array asArray(const std::vector<std::wstring>& texts) {
    return {texts.begin(), texts.end()};
}

std::vector<Member> answerMembers(const std::shared_ptr<wordSide::Answers>& answers) {
    return {{name::changeAcct, 0, [answers](Arguments) { return Value(answers->strChangeAcct); },
             [answers](const Value& value) { answers->strChangeAcct = value.toText(); }},
            {name::account, 0, [answers](Arguments) { return Value(answers->strAccount); },
             [answers](const Value& value) { answers->strAccount = value.toText(); }},
            {name::dialogMode, 0,
             [answers](Arguments) { return Value(static_cast<std::int32_t>(answers->dialogMode)); },
             [answers](const Value& value) {
                 answers->dialogMode = static_cast<wordSide::DialogMode>(value.toInteger());
             }}};
}

}  // namespace

Object shareWithWord(const std::shared_ptr<clsSendAcct>& list) {
    auto members = answerMembers(std::make_shared<wordSide::Answers>(list->answeredInWord));
    members.push_back(operation(name::loadAccounts, 0, list, [](clsSendAcct& held, Arguments) {
        return Value(asArray(held.LoadAccounts()));
    }));
    members.push_back(operation(name::preferredAccount, 1, list, [](clsSendAcct& held, Arguments given) {
        return Value(held.PreferredAccount(text(given, 0)));
    }));
    members.push_back(operation(name::isListed, 1, list, [](clsSendAcct& held, Arguments given) {
        return Value(held.IsListed(text(given, 0)));
    }));
    members.push_back(operation(name::addEntry, 2, list, [](clsSendAcct& held, Arguments given) {
        return Value(held.AddEntry({text(given, 0), text(given, 1)}));
    }));
    members.push_back(operation(name::replaceEntry, 4, list, [](clsSendAcct& held, Arguments given) {
        return Value(held.ReplaceEntry({text(given, 0), text(given, 1)}, {text(given, 2), text(given, 3)}));
    }));
    members.push_back(operation(name::setAccount, 2, list, [](clsSendAcct& held, Arguments given) {
        return Value(held.SetAccount(text(given, 0), text(given, 1)));
    }));
    return Object(std::make_shared<automation::FunctionTarget>(std::move(members)));
}

wordSide::Answers answersIn(const Object& shared) {
    return {shared.get(name::changeAcct).toText(), shared.get(name::account).toText(),
            static_cast<wordSide::DialogMode>(shared.get(name::dialogMode).toInteger())};
}

void putAnswers(const Object& shared, const wordSide::Answers& answers) {
    shared.put(name::changeAcct, answers.strChangeAcct);
    shared.put(name::account, answers.strAccount);
    shared.put(name::dialogMode, static_cast<std::int32_t>(answers.dialogMode));
}

std::vector<std::wstring> RemoteSendAcct::LoadAccounts() {
    const Value loaded = shared_.call(name::loadAccounts);
    std::vector<std::wstring> names;
    for (const Value& each : loaded.toArray()) {
        names.push_back(each.toText());
    }
    return names;
}

std::wstring RemoteSendAcct::PreferredAccount(const std::wstring& address) {
    return shared_.call(name::preferredAccount, address).toText();
}

bool RemoteSendAcct::IsListed(const std::wstring& address) {
    return shared_.call(name::isListed, address).toBool();
}

std::wstring RemoteSendAcct::AddEntry(const AccountEntry& entry) {
    return shared_.call(name::addEntry, entry.address, entry.account).toText();
}

std::wstring RemoteSendAcct::ReplaceEntry(const AccountEntry& listed, const AccountEntry& entry) {
    return shared_.call(name::replaceEntry, listed.address, listed.account, entry.address, entry.account)
        .toText();
}

std::wstring RemoteSendAcct::SetAccount(const std::wstring& address, const std::wstring& account) {
    return shared_.call(name::setAccount, address, account).toText();
}

}  // namespace accounts
