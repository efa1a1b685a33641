#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace program {

/// Nothing when there is a setting of that key, letter case ignored; else the key that is nearest to it.
std::optional<std::wstring> nearestSetting(std::wstring_view key);

/// What the setting reads as with this value, when that is not the value itself: "yes" for a setting that
/// knows "True" and "False" alone. Nothing for a key that is no setting's.
std::optional<std::wstring> otherReading(std::wstring_view key, std::wstring_view value);

}  // namespace program
