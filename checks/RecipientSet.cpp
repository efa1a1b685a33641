#include "checks/RecipientSet.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "mail/basGlobals.h"
#include "platform/text.h"

namespace checks {

namespace {

std::wstring keyOf(const wchar_t* kind, std::wstring_view text) {
    return kind + text::upper(text::trim(text));
}

/// The forms in which a recipient's address is known; none for a personal list, which has no address of its
/// own.
std::vector<std::wstring> addressKeys(const MailRecipient& recipient) {
    std::vector<std::wstring> keys;
    if (recipient.address != mail::distributionListAddress) {
        for (const std::wstring& address : {recipient.address, recipient.rawAddress}) {
            if (!address.empty()) {
                keys.push_back(keyOf(L"address:", address));
            }
        }
    }
    return keys;
}

}  // namespace

void RecipientSet::add(const MailRecipient& recipient) {
    auto keys = addressKeys(recipient);
    if (keys.empty()) {
        keys_.insert(keyOf(L"only name:", recipient.name));
    }
    keys_.insert(std::make_move_iterator(keys.begin()), std::make_move_iterator(keys.end()));
    keys_.insert(keyOf(L"name:", recipient.name));
}

void RecipientSet::remove(const RecipientSet& others) {
    std::erase_if(keys_, [&others](const std::wstring& key) { return others.keys_.contains(key); });
}

bool RecipientSet::contains(const MailRecipient& recipient) const {
    const auto keys = addressKeys(recipient);
    return keys_.contains(keyOf(L"only name:", recipient.name)) ||
           (keys.empty()
                ? keys_.contains(keyOf(L"name:", recipient.name))
                : std::ranges::any_of(keys, [this](const auto& key) { return keys_.contains(key); }));
}

}  // namespace checks
