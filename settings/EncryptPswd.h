#pragma once

#include <string>
#include <string_view>

namespace settings {

/// The password of the settings lock as it is stored. Nobody finds the password from it other than by trying
/// out passwords, for each of which it takes a moment. It is the same on every machine, since the file that
/// carries it serves many.
std::wstring EncryptPswd(std::wstring_view password);

/// Whether `stored` is what EncryptPswd() makes of the password; takes the same time however much of it is.
bool isPassword(std::wstring_view password, std::wstring_view stored);

}  // namespace settings
