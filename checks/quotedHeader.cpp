#include "checks/quotedHeader.h"

#include "platform/text.h"

namespace checks {

namespace {

constexpr auto npos = std::wstring_view::npos;

/// Takes the first line, without its end, off the rest.
std::wstring_view takeLine(std::wstring_view& rest) {
    const auto end = rest.find(text::lineBreak);
    const std::wstring_view line = rest.substr(0, end);
    rest.remove_prefix(end == npos ? rest.size() : end + text::lineBreak.size());
    return line;
}

}  // namespace

std::optional<std::size_t> findQuotedHeader(std::wstring_view body) {
    auto from = body.find(L"From:");
    while (from != npos) {
        std::wstring_view rest = body.substr(from);
        takeLine(rest);
        const std::size_t nextLine = body.size() - rest.size();
        if (takeLine(rest).find(L"Sent:") != npos && takeLine(rest).find(L"To:") != npos) {
            return from + 1;
        }
        // Another "From:" on this line would be followed by the same two lines.
        from = body.find(L"From:", nextLine);
    }
    return std::nullopt;
}

}  // namespace checks
