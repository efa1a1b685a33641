#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace checks {

/// The 1-based position of the "From:" of the first quoted reply header in the body: a line with "From:"
/// (letter case counting), followed by a line with "Sent:" and one with "To:". Lines end with CR LF. Linear
/// in the body, whatever it holds.
std::optional<std::size_t> findQuotedHeader(std::wstring_view body);

}  // namespace checks
