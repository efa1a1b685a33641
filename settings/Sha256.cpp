#include "settings/Sha256.h"

#include <algorithm>
#include <bit>
#include <functional>

namespace settings {

namespace {

constexpr std::size_t rounds = 64;

constexpr std::array<std::uint32_t, rounds> roundConstants{
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t numberAt(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           bytes[3];
}

std::array<std::uint32_t, rounds> scheduleOf(const std::array<std::uint8_t, Sha256::blockSize>& block) {
    std::array<std::uint32_t, rounds> words;
    for (std::size_t round = 0; round < rounds; ++round) {
        if (round < 16) {
            words[round] = numberAt(&block[4 * round]);
            continue;
        }
        const std::uint32_t early = words[round - 15];
        const std::uint32_t late = words[round - 2];
        words[round] = words[round - 16] + words[round - 7] +
                       (std::rotr(early, 7) ^ std::rotr(early, 18) ^ (early >> 3)) +
                       (std::rotr(late, 17) ^ std::rotr(late, 19) ^ (late >> 10));
    }
    return words;
}

}  // namespace

void Sha256::takeBlock() {
    const auto words = scheduleOf(block_);
    auto [a, b, c, d, e, f, g, h] = state_;
    for (std::size_t round = 0; round < rounds; ++round) {
        const std::uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                                    ((e & f) ^ (~e & g)) + roundConstants[round] + words[round];
        const std::uint32_t second =
            (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + first;
        d = c;
        c = b;
        b = a;
        a = first + second;
    }
    const std::array<std::uint32_t, 8> mixed{a, b, c, d, e, f, g, h};
    std::ranges::transform(state_, mixed, state_.begin(), std::plus<>());
    filled_ = 0;
}

Sha256& Sha256::add(std::string_view bytes) {
    length_ += bytes.size();
    while (!bytes.empty()) {
        const std::size_t taken = std::min(bytes.size(), blockSize - filled_);
        std::copy_n(bytes.begin(), taken, block_.begin() + static_cast<std::ptrdiff_t>(filled_));
        bytes.remove_prefix(taken);
        filled_ += taken;
        if (filled_ == blockSize) {
            takeBlock();
        }
    }
    return *this;
}

Sha256& Sha256::add(const Digest& bytes) {
    return add({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

Sha256::Digest Sha256::finish() {
    constexpr std::size_t lengthPlace = blockSize - sizeof length_;
    const std::uint64_t bits = 8 * length_;
    add("\x80");
    if (filled_ > lengthPlace) {
        std::fill(block_.begin() + static_cast<std::ptrdiff_t>(filled_), block_.end(), std::uint8_t{0});
        takeBlock();
    }
    std::fill(block_.begin() + static_cast<std::ptrdiff_t>(filled_), block_.end(), std::uint8_t{0});
    for (std::size_t index = 0; index < sizeof bits; ++index) {
        block_[blockSize - 1 - index] = static_cast<std::uint8_t>(bits >> (8 * index));
    }
    takeBlock();
    Digest digest;
    for (std::size_t index = 0; index < digest.size(); ++index) {
        digest[index] = static_cast<std::uint8_t>(state_[index / 4] >> (24 - 8 * (index % 4)));
    }
    return digest;
}

}  // namespace settings
