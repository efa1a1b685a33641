#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "mail/Globals.h"

/// The ways in which settings are kept as texts. A read that fails gives the default, a write that fails
/// changes nothing; neither throws. What a stored text reads as can be asked without a store: decode().
namespace modRegKeys {

/// "True" or "False", letter case counting. Anything else reads as the default.
struct TextFlag {
    const wchar_t* key;
    bool fallback;

    bool decode(std::wstring_view stored) const;
    bool read(const mail::Globals& globals) const;
    /// Takes the state of a check box, not a boolean: only 1 is stored as "True".
    void write(const mail::Globals& globals, int state) const;
};

/// "0" is 0 and any other text 1, the empty one included.
struct NumberFlag {
    const wchar_t* key;
    std::int16_t fallback;

    std::int16_t decode(std::wstring_view stored) const;
    std::int16_t read(const mail::Globals& globals) const;
    void write(const mail::Globals& globals, std::int16_t value) const;
};

/// "1" is 1, "2" is 2, any other text 0.
struct Choice {
    const wchar_t* key;

    static std::int16_t decode(std::wstring_view stored);
    std::int16_t read(const mail::Globals& globals) const;
    void write(const mail::Globals& globals, std::int16_t value) const;
};

/// The whole part of a number of at least 1, however large; whatever else is stored reads as the default.
struct WholeNumber {
    const wchar_t* key;
    double fallback;

    double decode(std::wstring_view stored) const;
    double read(const mail::Globals& globals) const;
    /// All its digits.
    static std::wstring shown(double value);
    void write(const mail::Globals& globals, std::wstring_view value) const;
};

/// A text, kept and read without the blanks around it; a stored empty text stays empty, unless it has a
/// reading of its own.
struct Text {
    const wchar_t* key;
    const wchar_t* whenAbsent;
    const wchar_t* whenEmpty = L"";

    std::wstring read(const mail::Globals& globals) const;
    void write(const mail::Globals& globals, std::wstring_view value) const;
};

/// The user's own addresses: while none were ever stored, those of the profile's accounts, found anew at each
/// read.
struct OwnAddresses {
    const wchar_t* key;

    std::wstring read(mail::Globals& globals) const;
    void write(const mail::Globals& globals, std::wstring_view value) const;
};

/// A text kept exactly as given, for the modules that read and write their settings directly.
struct Plain {
    const wchar_t* key;
    const wchar_t* whenAbsent = L"";

    std::wstring read(const mail::Globals& globals) const;
    /// Throws automation::Error when the store cannot be written.
    void write(const mail::Globals& globals, const std::wstring& value) const;
};

}  // namespace modRegKeys
