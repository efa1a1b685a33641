#include "update/updateAnswer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <system_error>
#include <utility>

#include "platform/text.h"

namespace update {

namespace {

/// Enough for some paragraphs.
constexpr std::size_t longestMessage = 2000;

std::size_t findIgnoringCase(std::wstring_view text, std::wstring_view part) {
    return text::upper(text).find(text::upper(part));
}

using Parts = std::array<std::uint32_t, 3>;

std::optional<std::uint32_t> partOf(std::wstring_view text) {
    constexpr std::size_t mostDigits = 10;
    const std::string digits = text::toUtf8(text.substr(0, mostDigits + 1));
    if (digits.size() > mostDigits) {
        return std::nullopt;
    }
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && end == digits.data() + digits.size() ? std::optional(number)
                                                                        : std::nullopt;
}

/// The parts that count; nothing for a text that is no version.
std::optional<Parts> partsOf(std::wstring_view version) {
    const auto texts = text::split(version, L'.');
    if (texts.size() < 2 || texts.size() > 4) {
        return std::nullopt;
    }
    Parts parts{};
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const auto part = partOf(texts[index]);
        if (!part) {
            return std::nullopt;
        }
        if (index < parts.size()) {
            parts[index] = *part;
        }
    }
    return parts;
}

/// Without the blanks and line breaks around it.
std::wstring_view bare(std::wstring_view text) {
    constexpr std::wstring_view blank = L" \t\r\n";
    const auto first = text.find_first_not_of(blank);
    return first == std::wstring_view::npos ? std::wstring_view()
                                            : text.substr(first, text.find_last_not_of(blank) + 1 - first);
}

/// Takes no place, or makes the text around it look different.
bool isInvisible(std::uint32_t code) {
    constexpr std::pair<std::uint32_t, std::uint32_t> ranges[] = {
        {0x00, 0x1F},     {0x7F, 0x9F},     {0xAD, 0xAD},     {0x61C, 0x61C},   {0x180E, 0x180E},
        {0x200B, 0x200F}, {0x2028, 0x202E}, {0x2060, 0x206F}, {0xFEFF, 0xFEFF},
    };
    return std::ranges::any_of(
        ranges, [code](const auto& range) { return code >= range.first && code <= range.second; });
}

/// One line, as far as it can be seen; what cannot leaves a mark.
std::wstring visibleLine(std::wstring_view text, std::size_t longest) {
    std::wstring shown(text.substr(0, longest));
    for (wchar_t& character : shown) {
        character = isInvisible(static_cast<std::uint32_t>(character)) ? L'?' : character;
    }
    return text.size() > longest ? shown + L"..." : shown;
}

std::wstring visibleLines(std::wstring_view text, std::size_t longest) {
    std::wstring lines = text::replaceAll(text.substr(0, longest), text::lineBreak, L"\n");
    std::ranges::replace(lines, L'\r', L'\n');
    std::ranges::replace(lines, L'\t', L' ');
    std::erase_if(lines, [](wchar_t character) {
        return character != L'\n' && isInvisible(static_cast<std::uint32_t>(character));
    });
    return text::replaceAll(lines, L"\n", text::lineBreak) + (text.size() > longest ? L"..." : L"");
}

}  // namespace

std::wstring XmlDataGet(std::wstring_view tag, std::wstring_view text) {
    if (tag.empty()) {
        return {};
    }
    const std::wstring opening = L'<' + std::wstring(tag) + L'>';
    const std::size_t found = findIgnoringCase(text, opening);
    const std::size_t closing = findIgnoringCase(text, L"</" + std::wstring(tag) + L'>');
    if (found == std::wstring_view::npos || closing == std::wstring_view::npos) {
        return {};
    }
    const std::size_t content = found + opening.size();
    return closing < content ? std::wstring() : std::wstring(text.substr(content, closing - content));
}

std::wstring shownVersion(std::wstring_view version) {
    std::wstring shown(text::trim(version));
    if (shown.empty()) {
        return shown;
    }
    const auto last = shown.rfind(L'.');
    if (last == std::wstring::npos) {
        return shown + L".00";
    }
    const std::size_t behind = shown.size() - last - 1;
    return shown + std::wstring(behind < 2 ? 2 - behind : 0, L'0');
}

bool isNewer(std::wstring_view offered, std::wstring_view installed) {
    const auto theirs = partsOf(offered);
    const auto ours = partsOf(installed);
    return theirs && ours && theirs->front() == ours->front() && *theirs > *ours;
}

Link Link::of(std::wstring_view given) {
    const std::wstring_view link = bare(given);
    return {visibleLine(link, platform::WebAddress::longest), platform::WebAddress::parse(link)};
}

Answer readAnswer(std::wstring_view body) {
    const std::wstring list = XmlDataGet(L"SOFTWARELIST", body);
    Answer answer;
    const std::wstring version = text::replaceAll(bare(XmlDataGet(L"FREEVERSION", list)), L"a", L".");
    if (partsOf(version)) {
        answer.version = version;
    }
    answer.understood = !list.empty() && (version.empty() || !answer.version.empty());
    answer.message = visibleLines(bare(XmlDataGet(L"MSG", list)), longestMessage);
    answer.freeDownload = Link::of(XmlDataGet(L"FREEDOWNLOAD", list));
    answer.download = Link::of(XmlDataGet(L"DOWNLOADLINK", list));
    answer.upgradePolicy = Link::of(XmlDataGet(L"UPGRADEPOLICYLINK", list));
    answer.features = Link::of(XmlDataGet(L"FEATURESRELEASELINK", list));
    return answer;
}

}  // namespace update
