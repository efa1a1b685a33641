#pragma once

#include <string_view>

namespace basEmailAddressValidity {

/// True when the text has the form of an e-mail address. A test of syntax only, stricter than the mail
/// standards; nothing is looked up.
bool IsValidEmailAddress(std::wstring_view address);

}  // namespace basEmailAddressValidity
