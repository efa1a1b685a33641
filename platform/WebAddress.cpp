#include "platform/WebAddress.h"

#include <algorithm>
#include <initializer_list>

#include "platform/number.h"
#include "platform/text.h"

namespace platform {

namespace {

constexpr std::wstring_view digits = L"0123456789";
constexpr std::wstring_view hexadecimalDigits = L"0123456789abcdefABCDEF";
constexpr std::wstring_view hostCharacters =
    L"0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ.-_";

/// What the generic syntax of addresses leaves out is taken for something else here and there: browsers read
/// "\" as "/", and shells have their own use for quotes and angle brackets.
bool isAddressCharacter(wchar_t character) {
    constexpr std::wstring_view excluded = L"\"<>\\^`{|}";
    return character > L' ' && character < 0x7F && excluded.find(character) == std::wstring_view::npos;
}

bool consistsOf(std::wstring_view text, std::wstring_view characters) {
    return text.find_first_not_of(characters) == std::wstring_view::npos;
}

/// A number of version 6 stands in brackets.
bool isHost(std::wstring_view host) {
    if (host.starts_with(L'[') && host.ends_with(L']')) {
        const std::wstring_view number = host.substr(1, host.size() - 2);
        return number.find(L':') != std::wstring_view::npos &&
               consistsOf(number, std::wstring(hexadecimalDigits) + L":.");
    }
    return !host.empty() && consistsOf(host, hostCharacters);
}

bool isPort(std::wstring_view port) {
    constexpr std::size_t mostDigits = 5;
    constexpr double highest = 65535;
    return port.size() <= mostDigits && consistsOf(port, digits) && number::leading(port) <= highest;
}

/// The host, and a port behind it or not. A user name before the host only serves to deceive the reader.
bool isAuthority(std::wstring_view authority) {
    const auto closed = authority.rfind(L']');
    const auto colon = authority.find(L':', closed == std::wstring_view::npos ? 0 : closed);
    return colon == std::wstring_view::npos
               ? isHost(authority)
               : isHost(authority.substr(0, colon)) && isPort(authority.substr(colon + 1));
}

}  // namespace

std::optional<WebAddress> WebAddress::parse(std::wstring_view text) {
    const std::wstring_view address = text::trim(text);
    if (address.size() > longest || !std::ranges::all_of(address, isAddressCharacter)) {
        return std::nullopt;
    }
    for (const std::wstring_view scheme : {L"http://", L"https://"}) {
        if (text::equalsIgnoringCase(address.substr(0, scheme.size()), scheme)) {
            const std::wstring_view rest = address.substr(scheme.size());
            const bool named = isAuthority(rest.substr(0, rest.find_first_of(L"/?#")));
            return named ? std::optional(WebAddress(address)) : std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace platform
