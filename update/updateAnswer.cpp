#include "update/updateAnswer.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <system_error>

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
    const std::string digits = text::toUtf8(text);
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

/// The text without what would not be seen, or would make other text look different; the line breaks stay
/// where they are wanted, one of them for every kind.
std::wstring visible(std::wstring_view text, bool lines, std::size_t longest) {
    std::wstring shown;
    for (const wchar_t character : text::trim(text)) {
        const auto code = static_cast<std::uint32_t>(character);
        const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
        const bool isMark = (code >= 0x200B && code <= 0x200F) || (code >= 0x202A && code <= 0x202E) ||
                            (code >= 0x2066 && code <= 0x2069) || code == 0xFEFF;
        if (lines && character == L'\n') {
            shown += text::lineBreak;
        } else if (character == L'\t') {
            shown += L' ';
        } else if (!isControl && !isMark) {
            shown += character;
        }
        if (shown.size() >= longest) {
            return shown + L"...";
        }
    }
    return shown;
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
    return {visible(given, false, platform::WebAddress::longest), platform::WebAddress::parse(given)};
}

Answer readAnswer(std::wstring_view body) {
    const std::wstring list = XmlDataGet(L"SOFTWARELIST", body);
    Answer answer;
    const std::wstring version = text::replaceAll(text::trim(XmlDataGet(L"FREEVERSION", list)), L"a", L".");
    if (partsOf(version)) {
        answer.version = version;
    }
    answer.message = visible(XmlDataGet(L"MSG", list), true, longestMessage);
    answer.freeDownload = Link::of(XmlDataGet(L"FREEDOWNLOAD", list));
    answer.download = Link::of(XmlDataGet(L"DOWNLOADLINK", list));
    answer.upgradePolicy = Link::of(XmlDataGet(L"UPGRADEPOLICYLINK", list));
    answer.features = Link::of(XmlDataGet(L"FEATURESRELEASELINK", list));
    return answer;
}

}  // namespace update
