#include "program/settingKeys.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"

namespace program {

namespace {

/// How many characters must be put in, taken out or exchanged to make one text of the other.
std::size_t distance(std::wstring_view left, std::wstring_view right) {
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t exchanged = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, diagonal + 1, exchanged});
        }
    }
    return row.back();
}

std::wstring readingOf(const modRegKeys::TextFlag& setting, std::wstring_view value) {
    return setting.decode(value) ? L"True" : L"False";
}
std::wstring readingOf(const modRegKeys::NumberFlag& setting, std::wstring_view value) {
    return std::to_wstring(setting.decode(value));
}
std::wstring readingOf(const modRegKeys::Choice& setting, std::wstring_view value) {
    return std::to_wstring(setting.decode(value));
}
std::wstring readingOf(const modRegKeys::WholeNumber& setting, std::wstring_view value) {
    return setting.shown(setting.decode(value));
}
/// Texts hold anything, but one of them is used as a number.
std::wstring readingOf(const modRegKeys::Text& setting, std::wstring_view value) {
    const std::wstring stored(text::trim(value));
    if (setting.key != std::wstring_view(modRegKeys::DelayTime.key)) {
        return stored;
    }
    const auto seconds = mail::attempt(
        [&] { return automation::Value(stored.empty() ? setting.whenEmpty : stored).toInteger(); });
    return seconds ? std::to_wstring(*seconds) : L"no number";
}
template <class Setting>
std::wstring readingOf(const Setting&, std::wstring_view value) {
    return std::wstring(text::trim(value));
}

template <class Visit>
void forEachSetting(Visit visit) {
    std::apply([&visit](const auto&... setting) { (visit(setting), ...); }, modRegKeys::all);
}

}  // namespace

std::optional<std::wstring> nearestSetting(std::wstring_view key) {
    // No key is longer by far, and the work grows with the length.
    constexpr std::size_t longest = 100;
    const std::wstring wanted = text::upper(key.substr(0, longest));
    std::size_t least = std::numeric_limits<std::size_t>::max();
    std::wstring nearest;
    forEachSetting([&](const auto& setting) {
        const std::size_t far = distance(wanted, text::upper(setting.key));
        if (far < least) {
            least = far;
            nearest = setting.key;
        }
    });
    return text::equalsIgnoringCase(key, nearest) ? std::nullopt : std::optional(nearest);
}

std::optional<std::wstring> otherReading(std::wstring_view key, std::wstring_view value) {
    std::optional<std::wstring> reading;
    forEachSetting([&](const auto& setting) {
        if (text::equalsIgnoringCase(setting.key, key)) {
            reading = readingOf(setting, value);
        }
    });
    return reading && *reading != text::trim(value) ? reading : std::nullopt;
}

}  // namespace program
