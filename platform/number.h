#pragma once

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "platform/automation.h"

/// Numbers in texts, read as the settings have always been read: "." is the only decimal mark whatever the
/// user's locale.
namespace number {

/// The number that the whole text is: blanks around it, a sign, an exponent and accounting brackets ("(1)" is
/// -1) are allowed. Nothing when the text is no number.
std::optional<double> parse(std::wstring_view text);

/// The number at the start of the text; what follows it is ignored, and a text that starts with none is 0.
double leading(std::wstring_view text);

/// The decimal text of a number, without a fraction when it has none.
std::wstring toText(double value);

/// Rounds halves to even. Throws automation::Error 6 when the result does not fit.
template <class Integer>
Integer toInteger(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
        throw automation::Error(automation::errors::overflow, L"Overflow");
    }
    return static_cast<Integer>(rounded);
}

}  // namespace number
