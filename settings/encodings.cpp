#include "settings/encodings.h"

#include <charconv>
#include <cmath>
#include <iterator>

#include "mail/ProfileAddresses.h"
#include "mail/errorTrap.h"
#include "platform/number.h"
#include "platform/text.h"

namespace modRegKeys {

namespace {

using mail::Globals;

/// What an absent key reads as, so that it differs from every stored text that matters.
constexpr wchar_t keyNotInReg[] = L"KeyNotInReg";

std::wstring stored(const Globals& globals, const wchar_t* key, const wchar_t* whenAbsent) {
    const auto value = mail::attempt([&] { return globals.platform.settings.read(key); });
    return value && *value ? **value : std::wstring(whenAbsent);
}

std::wstring storedTrimmed(const Globals& globals, const wchar_t* key) {
    return std::wstring(text::trim(stored(globals, key, keyNotInReg)));
}

void store(const Globals& globals, const wchar_t* key, std::wstring_view value) {
    mail::skipErrors([&] { globals.platform.settings.write(key, std::wstring(value)); });
}

}  // namespace

bool TextFlag::decode(std::wstring_view stored) const {
    if (stored == L"True") {
        return true;
    }
    return stored == L"False" ? false : fallback;
}

bool TextFlag::read(const Globals& globals) const {
    return decode(stored(globals, key, L""));
}

void TextFlag::write(const Globals& globals, int state) const {
    store(globals, key, state == 1 ? L"True" : L"False");
}

std::int16_t NumberFlag::decode(std::wstring_view stored) const {
    const std::wstring_view value = text::trim(stored);
    if (value == keyNotInReg) {
        return fallback;
    }
    return value == L"0" ? 0 : 1;
}

std::int16_t NumberFlag::read(const Globals& globals) const {
    return decode(stored(globals, key, keyNotInReg));
}

void NumberFlag::write(const Globals& globals, std::int16_t value) const {
    store(globals, key, std::to_wstring(value));
}

std::int16_t Choice::decode(std::wstring_view stored) {
    const std::wstring_view value = text::trim(stored);
    if (value == L"1") {
        return 1;
    }
    return value == L"2" ? 2 : 0;
}

std::int16_t Choice::read(const Globals& globals) const {
    return decode(stored(globals, key, keyNotInReg));
}

void Choice::write(const Globals& globals, std::int16_t value) const {
    store(globals, key, std::to_wstring(value));
}

double WholeNumber::decode(std::wstring_view stored) const {
    const auto value = number::parse(text::trim(stored));
    return value && std::isfinite(*value) && *value >= 1 ? std::floor(*value) : fallback;
}

std::wstring WholeNumber::shown(double value) {
    char buffer[400];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::fixed, 0);
    return {buffer, end.ptr};
}

double WholeNumber::read(const Globals& globals) const {
    return decode(stored(globals, key, keyNotInReg));
}

void WholeNumber::write(const Globals& globals, std::wstring_view value) const {
    store(globals, key, text::trim(value));
}

std::wstring Text::read(const Globals& globals) const {
    std::wstring value = storedTrimmed(globals, key);
    if (value == keyNotInReg) {
        return whenAbsent;
    }
    return value.empty() ? whenEmpty : value;
}

void Text::write(const Globals& globals, std::wstring_view value) const {
    store(globals, key, text::trim(value));
}

std::wstring OwnAddresses::read(Globals& globals) const {
    std::wstring value = storedTrimmed(globals, key);
    if (value != keyNotInReg) {
        return value;
    }
    return mail::vtAccountsEmailAddress(globals).value_or(L"");
}

void OwnAddresses::write(const Globals& globals, std::wstring_view value) const {
    store(globals, key, text::trim(value));
}

std::wstring Plain::read(const Globals& globals) const {
    return stored(globals, key, whenAbsent);
}

void Plain::write(const Globals& globals, const std::wstring& value) const {
    globals.platform.settings.write(key, value);
}

}  // namespace modRegKeys
