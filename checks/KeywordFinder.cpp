#include "checks/KeywordFinder.h"

#include <algorithm>
#include <limits>

#include "platform/characters.h"
#include "platform/text.h"

namespace checks {

namespace {

/// Characters of the ASCII range take no call.
wchar_t foldedCharacter(wchar_t character) {
    if (character < 0x80) {
        return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - 0x20) : character;
    }
    return character == text::nonBreakingSpace ? L' ' : text::upperCase(character);
}

}  // namespace

std::wstring KeywordFinder::folded(std::wstring_view text) {
    std::wstring result = text::upper(text);
    std::ranges::replace(result, text::nonBreakingSpace, L' ');
    return result;
}

std::size_t KeywordFinder::pairHash(wchar_t first, wchar_t second) {
    return (static_cast<std::size_t>(first) * 31 + static_cast<std::size_t>(second)) % tableSize;
}

KeywordFinder::KeywordFinder(const std::vector<std::wstring_view>& keywords) {
    window_ = std::numeric_limits<std::size_t>::max();
    for (const std::wstring_view keyword : keywords) {
        keywords_.push_back(text::upper(keyword));
        window_ = std::min(window_, keyword.size());
    }
    if (window_ < 2 || keywords_.empty()) {
        return;
    }
    const std::size_t longestShift =
        std::min<std::size_t>(window_ - 1, std::numeric_limits<std::uint8_t>::max());
    shift_.fill(static_cast<std::uint8_t>(longestShift));
    for (const std::wstring& keyword : keywords_) {
        for (std::size_t end = 2; end <= window_; ++end) {
            std::uint8_t& shift = shift_[pairHash(keyword[end - 2], keyword[end - 1])];
            shift = static_cast<std::uint8_t>(std::min<std::size_t>(shift, window_ - end));
        }
    }
}

bool KeywordFinder::foundIn(std::wstring_view text) const {
    if (keywords_.empty()) {
        return false;
    }
    if (window_ == 0) {
        return true;
    }
    for (std::size_t end = window_; end <= text.size();) {
        const std::size_t shift = shiftAt(text, end);
        if (shift == 0 && anyStartsAt(text, end - window_)) {
            return true;
        }
        end += std::max<std::size_t>(shift, 1);
    }
    return false;
}

/// How far the window that ends before `windowEnd` can move on; 0 when a keyword may start with it.
std::size_t KeywordFinder::shiftAt(std::wstring_view text, std::size_t windowEnd) const {
    if (window_ < 2) {
        return 0;
    }
    return shift_[pairHash(foldedCharacter(text[windowEnd - 2]), foldedCharacter(text[windowEnd - 1]))];
}

bool KeywordFinder::anyStartsAt(std::wstring_view text, std::size_t position) const {
    const std::wstring_view rest = text.substr(position);
    return std::ranges::any_of(keywords_, [rest](const std::wstring& keyword) {
        return keyword.size() <= rest.size() &&
               std::equal(keyword.begin(), keyword.end(), rest.begin(),
                          [](wchar_t wanted, wchar_t found) { return wanted == foldedCharacter(found); });
    });
}

}  // namespace checks
