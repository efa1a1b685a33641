#include "settings/keyDerivation.h"

#include <algorithm>
#include <string>

namespace settings {

namespace {

/// HMAC with one key for many messages: the key's own blocks are digested once.
class Hmac {
  public:
    explicit Hmac(std::string_view key) {
        std::string block(key);
        if (block.size() > Sha256::blockSize) {
            const Sha256::Digest digest = Sha256().add(key).finish();
            block.assign(digest.begin(), digest.end());
        }
        block.resize(Sha256::blockSize);
        inner_.add(masked(block, 0x36));
        outer_.add(masked(block, 0x5C));
    }

    template <class Bytes>
    Sha256::Digest of(const Bytes& message) const {
        Sha256 inner = inner_;
        Sha256 outer = outer_;
        return outer.add(inner.add(message).finish()).finish();
    }

  private:
    static std::string masked(std::string block, unsigned char mask) {
        for (char& byte : block) {
            byte = static_cast<char>(static_cast<unsigned char>(byte) ^ mask);
        }
        return block;
    }

    Sha256 inner_;
    Sha256 outer_;
};

}  // namespace

Sha256::Digest hmacSha256(std::string_view key, std::string_view message) {
    return Hmac(key).of(message);
}

Sha256::Digest pbkdf2Sha256(std::string_view password, std::string_view salt, int rounds) {
    const Hmac hmac(password);
    constexpr std::string_view firstBlock("\0\0\0\1", 4);
    Sha256::Digest last = hmac.of(std::string(salt).append(firstBlock));
    Sha256::Digest sum = last;
    for (int round = 1; round < rounds; ++round) {
        last = hmac.of(last);
        std::ranges::transform(sum, last, sum.begin(), [](std::uint8_t left, std::uint8_t right) {
            return static_cast<std::uint8_t>(left ^ right);
        });
    }
    return sum;
}

}  // namespace settings
