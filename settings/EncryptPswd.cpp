#include "settings/EncryptPswd.h"

#include "platform/text.h"
#include "settings/keyDerivation.h"

namespace settings {

namespace {

/// Tells this way of storing from any that may follow.
constexpr wchar_t version[] = L"v1:";
/// Of this product alone, so that no list of other products' digests serves against it.
constexpr char salt[] = "Veltro settings lock";
constexpr int rounds = 100'000;

}  // namespace

std::wstring EncryptPswd(std::wstring_view password) {
    return version + text::hexadecimal(pbkdf2Sha256(text::toUtf8(password), salt, rounds));
}

bool isPassword(std::wstring_view password, std::wstring_view stored) {
    const std::wstring wanted = EncryptPswd(password);
    std::size_t differences = wanted.size() ^ stored.size();
    for (std::size_t index = 0; index < wanted.size(); ++index) {
        const wchar_t other = index < stored.size() ? stored[index] : L'\0';
        differences |= static_cast<std::size_t>(wanted[index] ^ other);
    }
    return differences == 0;
}

}  // namespace settings
