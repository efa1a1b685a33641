#include "mail/basEmailAddressValidity.h"

namespace basEmailAddressValidity {

namespace {

constexpr std::wstring_view forbidden = L"\"!#$%^&*()=+{}[]|\\;:'/?>,< ";

bool isValidDomain(std::wstring_view domain) {
    const auto dot = domain.find(L'.');
    return domain.find(L'@') == std::wstring_view::npos && dot != std::wstring_view::npos && dot > 0 &&
           dot + 1 < domain.size();
}

}  // namespace

bool IsValidEmailAddress(std::wstring_view address) {
    if (address.find_first_of(forbidden) != std::wstring_view::npos ||
        address.find(L"..") != std::wstring_view::npos) {
        return false;
    }
    const auto at = address.find(L'@');
    return at != std::wstring_view::npos && at > 0 && isValidDomain(address.substr(at + 1));
}

}  // namespace basEmailAddressValidity
