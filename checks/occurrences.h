#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace checks {

/// True when each of the parts occurs somewhere in the text, as plain searches would find them.
///
/// Whoever writes a mail chooses both, so the time is in proportion to their lengths, whatever they hold, and
/// the memory to that of the text.
bool allOccur(const std::vector<std::wstring>& parts, std::wstring_view text);

}  // namespace checks
