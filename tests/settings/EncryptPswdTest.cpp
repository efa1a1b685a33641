#include "settings/EncryptPswd.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "settings/keyDerivation.h"

namespace {

using settings::Sha256;

std::string hex(const Sha256::Digest& digest) {
    return text::toUtf8(text::hexadecimal(digest));
}

std::string upper(const char* digits) {
    return text::toUtf8(text::upper(text::fromUtf8(digits)));
}

TEST(Sha256, GivesThePublishedDigests) {
    const struct {
        std::string message;
        const char* digest;
    } cases[] = {
        {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {std::string(1'000'000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
        {std::string(55, 'a'), "9f4390f8d30c2dd92ec9f095b65e2b9ae9b0a925a5258e241c9f1e910f734318"},
        {std::string(63, 'a'), "7d3e74a05d7db15bce4ad9ec0658ea98e3f06eeecf16b4c6fff2da457ddc2f34"},
        {std::string(64, 'a'), "ffe054fe7ae0cb6dc65c3af9b61d5209f439851db43d0ba5997337df154668eb"},
    };
    for (const auto& [message, digest] : cases) {
        EXPECT_EQ(hex(Sha256().add(message).finish()), upper(digest)) << message.size();
        Sha256 pieces;
        const std::size_t cut = message.size() / 3;
        pieces.add(message.substr(0, cut)).add(message.substr(cut));
        EXPECT_EQ(hex(pieces.finish()), upper(digest)) << message.size() << " in pieces";
    }
}

TEST(HmacSha256, GivesThePublishedCodes) {
    const std::string longKey(131, '\xAA');
    const struct {
        std::string key;
        std::string message;
        const char* code;
    } cases[] = {
        {std::string(20, '\x0B'), "Hi There",
         "b0344c61d8db38535ca8afceaf0bf12b881dc200c9833da726e9376c2e32cff7"},
        {"Jefe", "what do ya want for nothing?",
         "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843"},
        {std::string(20, '\xAA'), std::string(50, '\xDD'),
         "773ea91e36800e46854db8ebd09181a72959098b3ef8c122d9635514ced565fe"},
        {longKey, "Test Using Larger Than Block-Size Key - Hash Key First",
         "60e431591ee0b67f0d8a26aacbf5b77f8e0bc6213728c5140546040f0ee37f54"},
    };
    for (const auto& [key, message, code] : cases) {
        EXPECT_EQ(hex(settings::hmacSha256(key, message)), upper(code)) << message;
    }
}

TEST(Pbkdf2, GivesThePublishedKeys) {
    const struct {
        std::string password;
        std::string salt;
        int rounds;
        const char* key;
    } cases[] = {
        {"password", "salt", 1, "120fb6cffcf8b32c43e7225256c4f837a86548c92ccc35480805987cb70be17b"},
        {"password", "salt", 2, "ae4d0c95af6b46d32d0adff928f06dd02a303f8ef3c251dfd6e2d85a95474c43"},
        {"password", "salt", 4096, "c5e478d59288c841aa530db6845c4c8d962893a001ce4e11a4963873aa98134a"},
        {"passwordPASSWORDpassword", "saltSALTsaltSALTsaltSALTsaltSALTsalt", 4096,
         "348c89dbcbd32b2f32d814b8116e84cf2b17347ebc1800181c4e2a1fb8dd53e1"},
        {{"pass\0word", 9},
         {"sa\0lt", 5},
         4096,
         "89b69d0516f829893c696226650a86878c029ac13ee276509d5ae58b6466a724"},
    };
    for (const auto& [password, salt, rounds, key] : cases) {
        EXPECT_EQ(hex(settings::pbkdf2Sha256(password, salt, rounds)), upper(key)) << password << rounds;
    }
}

/// Passwords that are stored, and travel in files, must go on unlocking.
TEST(EncryptPswd, MakesTheSameOfAPasswordForEver) {
    const struct {
        const wchar_t* password;
        const wchar_t* stored;
    } cases[] = {
        {L"abc_12", L"v1:1D10FF61926FC64793B7B3B6245E4513D56FE16630DC7A27BEF2A89169FD8B3B"},
        {L"Gr\u00FC\u00DFe\u20AC1", L"v1:484AD42CE9220F0CB8E9F0DCA763B5CCEFFCEE985BC3CEDB2F3226A9630ADDA7"},
    };
    for (const auto& [password, stored] : cases) {
        EXPECT_EQ(settings::EncryptPswd(password), stored);
        EXPECT_TRUE(settings::isPassword(password, stored));
        for (const std::wstring& other :
             {std::wstring(), std::wstring(stored).substr(0, 66), stored + std::wstring(L"0"),
              L"V" + std::wstring(stored).substr(1), std::wstring(stored).substr(0, 66) + L"x",
              std::wstring(password)}) {
            EXPECT_FALSE(settings::isPassword(password, other)) << text::toUtf8(other);
        }
        EXPECT_FALSE(settings::isPassword(std::wstring(password) + L" ", stored));
    }
}

}  // namespace
