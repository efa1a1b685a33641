#include "checks/subjectCleaning.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <utility>

#include "mail/errorTrap.h"
#include "platform/files.h"
#include "platform/text.h"

namespace checks {

namespace {

using mail::ErrorReport;
using mail::Globals;
using mail::trapErrors;

constexpr auto npos = std::wstring_view::npos;

/// Deletes every occurrence from `start` on. Both upper texts are in upper case; `upperTag` is not empty.
std::wstring withoutLater(const std::wstring& subject, const std::wstring& upperSubject,
                          std::wstring_view upperTag, std::size_t start) {
    std::wstring result = subject.substr(0, start);
    for (;;) {
        const auto found = upperSubject.find(upperTag, start);
        result.append(subject, start, found == npos ? npos : found - start);
        if (found == npos) {
            return result;
        }
        start = found + upperTag.size();
    }
}

/// UTF-16, with its byte-order mark at the front.
std::wstring decodedUtf16(std::string_view bytes, bool highByteFirst) {
    std::wstring text;
    for (std::size_t index = 2; index + 1 < bytes.size(); index += 2) {
        const auto first = static_cast<unsigned char>(bytes[index]);
        const auto second = static_cast<unsigned char>(bytes[index + 1]);
        text += static_cast<wchar_t>(highByteFirst ? first << 8 | second : second << 8 | first);
    }
    return text;
}

bool isValidUtf8(std::string_view bytes) {
    return text::fromUtf8(bytes).find(L'\xFFFD') == npos;
}

std::wstring decoded(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
        return decodedUtf16(bytes, bytes.front() == '\xFE');
    }
    if (bytes.starts_with(byteOrderMark)) {
        bytes.remove_prefix(byteOrderMark.size());
    }
    if (isValidUtf8(bytes)) {
        return text::fromUtf8(bytes);
    }
    std::wstring western;
    std::ranges::transform(bytes, std::back_inserter(western),
                           [](char byte) { return static_cast<wchar_t>(static_cast<unsigned char>(byte)); });
    return western;
}

std::wstring_view withoutLineEnd(std::wstring_view line) {
    return line.ends_with(L'\r') ? line.substr(0, line.size() - 1) : line;
}

}  // namespace

std::wstring removePhrases(std::wstring subject, const std::vector<std::wstring_view>& phrases) {
    std::wstring upperSubject = text::upper(subject);
    for (const std::wstring_view phrase : phrases) {
        const std::wstring upperPhrase = text::upper(phrase);
        if (!phrase.empty() && upperSubject.find(upperPhrase) != npos) {
            subject = withoutLater(subject, upperSubject, upperPhrase, 0);
            upperSubject = text::upper(subject);
        }
    }
    return subject;
}

std::wstring MultipleRemove(Globals& globals, std::wstring subject, std::wstring_view tag) {
    trapErrors(globals, ErrorReport::usual(L"basVeltro.MultipleRemove"), [&] {
        if (tag.empty() || tag.size() > subject.size() || text::trim(subject).empty()) {
            return;
        }
        const std::wstring upperTag = text::upper(tag);
        const std::wstring upperSubject = text::upper(subject);
        const auto first = upperSubject.find(upperTag);
        if (first != npos) {
            subject = withoutLater(subject, upperSubject, upperTag, first + tag.size());
        }
    });
    return subject;
}

std::wstring TrimSpaceAfterFirstSpace(Globals& globals, std::wstring subject) {
    trapErrors(globals, ErrorReport::usual(L"basVeltro.TrimSpaceAfterFirstSpace"), [&] {
        const auto space = subject.find(L' ');
        if (space != npos && !text::trim(subject).empty()) {
            std::wstring result = subject.substr(0, space + 1);
            result += text::trimLeft(std::wstring_view(subject).substr(space + 1));
            subject = std::move(result);
        }
    });
    return subject;
}

std::wstring RemoveLastTagIfMultipleTogether(Globals& globals, std::wstring subject) {
    trapErrors(globals, ErrorReport::usual(L"basVeltro.RemoveLastTagIfMultipleTogether"), [&] {
        const std::vector<std::wstring_view> prefixes{L"RE:", L"FW:"};
        const std::wstring_view text = subject;
        const auto firstEnd = text.find(L' ');
        if (firstEnd == npos || !WordInArray(globals, prefixes, text.substr(0, firstEnd))) {
            return;
        }
        // Where the rest of the subject starts: at the space behind the last prefix that is dropped.
        std::size_t rest = firstEnd;
        auto end = text.find(L' ', rest + 1);
        while (end != npos && WordInArray(globals, prefixes, text.substr(rest + 1, end - rest - 1))) {
            rest = end;
            end = text.find(L' ', rest + 1);
        }
        subject = subject.substr(0, firstEnd) + subject.substr(rest);
    });
    return subject;
}

bool WordInArray(Globals& globals, const std::vector<std::wstring_view>& words, std::wstring_view word) {
    return trapErrors(
        globals, ErrorReport::usual(L"basVeltro.WordInArray"),
        [&] {
            const std::wstring wanted = text::upper(text::trim(word));
            return std::ranges::any_of(words, [&wanted](std::wstring_view element) {
                return text::upper(text::trim(element)) == wanted;
            });
        },
        false);
}

std::vector<std::wstring> prefixesOf(std::string_view bytes) {
    const std::wstring content = decoded(bytes);
    std::vector<std::wstring> prefixes;
    for (const std::wstring_view line : text::split(content, L'\n')) {
        const std::wstring_view prefix = text::trim(withoutLineEnd(line));
        if (!prefix.empty()) {
            prefixes.emplace_back(prefix);
        }
    }
    return prefixes;
}

std::vector<std::wstring> GetTagsArrayFromFile(Globals& globals, const std::wstring& path) {
    return trapErrors(
        globals, ErrorReport::usual(L"basVeltro.GetTagsArrayFromFile"),
        [&]() -> std::vector<std::wstring> {
            const auto file = platform::filePath(path);
            std::error_code ignored;
            if (!std::filesystem::exists(file, ignored)) {
                return {};
            }
            std::error_code failure;
            const auto size = std::filesystem::file_size(file, failure);
            std::string bytes(failure ? 0 : static_cast<std::size_t>(size), '\0');
            std::ifstream stream(file, std::ios::binary);
            if (failure || !stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
                throw automation::Error(automation::errors::fileAccess, L"The prefix file cannot be read.");
            }
            return prefixesOf(bytes);
        },
        {});
}

std::wstring FindReFwFromFile(Globals& globals, std::wstring subject, const std::wstring& path, bool& found) {
    trapErrors(globals, ErrorReport::usual(L"basVeltro.FindReFwFromFile"), [&] {
        const std::vector<std::wstring> prefixes = GetTagsArrayFromFile(globals, path);
        found = !prefixes.empty();
        for (const std::wstring& prefix : prefixes) {
            subject = MultipleRemove(globals, std::move(subject), prefix);
        }
    });
    return subject;
}

}  // namespace checks
