#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace checks {

/// Finds out whether any of several keywords occurs in a text, letter case and the kind of space not
/// counting. Reads the text once whatever the number of keywords, and mostly jumps over it: the last two
/// characters of the window tell how far the next possible hit is away.
class KeywordFinder {
  public:
    /// An empty keyword occurs in every text.
    explicit KeywordFinder(const std::vector<std::wstring_view>& keywords);

    bool foundIn(std::wstring_view text) const;

    /// The form in which texts are compared: upper case, non-breaking spaces as ordinary ones.
    static std::wstring folded(std::wstring_view text);

  private:
    static constexpr std::size_t tableSize = 4096;

    static std::size_t pairHash(wchar_t first, wchar_t second);
    std::size_t shiftAt(std::wstring_view text, std::size_t windowEnd) const;
    bool anyStartsAt(std::wstring_view text, std::size_t position) const;

    std::vector<std::wstring> keywords_;
    /// Length of the shortest keyword, which is that of the window.
    std::size_t window_ = 0;
    std::array<std::uint8_t, tableSize> shift_{};
};

}  // namespace checks
