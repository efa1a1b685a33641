#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace settings {

/// The digest of FIPS 180-4 over bytes that come in any pieces. A copy goes on from where the original
/// stands.
class Sha256 {
  public:
    static constexpr std::size_t blockSize = 64;
    using Digest = std::array<std::uint8_t, 32>;

    Sha256& add(std::string_view bytes);
    Sha256& add(const Digest& bytes);
    /// Of all that was added. Nothing may be added after it.
    Digest finish();

  private:
    void takeBlock();

    std::array<std::uint32_t, 8> state_{0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                        0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<std::uint8_t, blockSize> block_{};
    std::size_t filled_ = 0;
    std::uint64_t length_ = 0;
};

}  // namespace settings
