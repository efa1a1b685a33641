#include "program/Answers.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "platform/text.h"

namespace program {

namespace {

[[noreturn]] void refuse(std::wstring_view text, const char* why) {
    throw std::invalid_argument("answer \"" + text::toUtf8(text) + "\": " + why);
}

/// What an answer calls the folder browser.
constexpr wchar_t folderBrowser[] = L"folder";

bool namesForm(std::wstring_view where) {
    const auto inName = [](wchar_t c) {
        return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'_';
    };
    return text::equalsIgnoringCase(where.substr(0, 3), L"frm") && std::ranges::all_of(where, inName);
}

/// Parts `what` at "; "; ";;" becomes ";".
std::vector<std::wstring> partItems(std::wstring_view what) {
    std::vector<std::wstring> items(1);
    for (std::size_t index = 0; index < what.size(); ++index) {
        const wchar_t next = index + 1 < what.size() ? what[index + 1] : L'\0';
        if (what[index] == L';' && next == L';') {
            items.back() += L';';
            ++index;
        } else if (what[index] == L';' && next == L' ') {
            items.emplace_back();
            ++index;
        } else {
            items.back() += what[index];
        }
    }
    return items;
}

std::wstring withWindowsLineBreaks(std::wstring_view value) {
    return text::replaceAll(text::replaceAll(value, L"\r\n", L"\n"), L"\n", text::lineBreak);
}

platform::FormAnswer::Entry parseEntry(std::wstring_view item) {
    const auto cut = item.find(L'=');
    return {std::wstring(text::trim(item.substr(0, cut))),
            cut == std::wstring_view::npos ? std::wstring() : withWindowsLineBreaks(item.substr(cut + 1))};
}

platform::FormAnswer parseFormAnswer(std::wstring_view text, std::wstring_view what) {
    platform::FormAnswer answer;
    auto items = partItems(what);
    if (items.back().find(L'=') != std::wstring::npos || text::trim(items.back()).empty()) {
        refuse(text, "must end with the button to press, parted by \"; \" from what stands before it");
    }
    answer.button = text::trim(items.back());
    items.pop_back();
    for (const std::wstring& item : items) {
        answer.entries.push_back(parseEntry(item));
        if (answer.entries.back().control.empty()) {
            refuse(text, "names no control before \"=\"");
        }
    }
    return answer;
}

}  // namespace

platform::PromptAnswer parseAnswer(std::wstring_view text) {
    const auto first = text.find(L'=');
    if (first == std::wstring_view::npos) {
        refuse(text, "must be WHERE=WHAT");
    }
    if (const auto where = text::trim(text.substr(0, first)); namesForm(where)) {
        return {std::wstring(where), parseFormAnswer(text, text.substr(first + 1))};
    }
    if (text::equalsTrimmed(text.substr(0, first), folderBrowser)) {
        return {folderBrowser, platform::FolderAnswer{std::wstring(text.substr(first + 1))}};
    }
    const auto last = text.rfind(L'=');
    const auto answer = platform::answerNamed(text::trim(text.substr(last + 1)));
    const auto where = text::trim(text.substr(0, last));
    if (!answer) {
        refuse(
            text,
            "a message box is answered with Yes, No, OK or Cancel; a form is named by \"frm...\", the folder "
            "browser by \"folder\"");
    }
    if (where.empty()) {
        refuse(text, "names no prompt before \"=\"");
    }
    return {std::wstring(where), *answer};
}

std::wstring answerText(const platform::PromptAnswer& answer) {
    const auto start = answer.where + L"=";
    if (const auto* form = std::get_if<platform::FormAnswer>(&answer.what)) {
        return start + answerText(*form);
    }
    if (const auto* folder = std::get_if<platform::FolderAnswer>(&answer.what)) {
        return start + folder->path;
    }
    return start + std::wstring(platform::nameOf(std::get<platform::Answer>(answer.what)));
}

std::wstring answerText(const platform::FormAnswer& answer) {
    std::wstring result;
    for (const auto& [control, value] : answer.entries) {
        std::wstring escaped = text::replaceAll(value, L";", L";;");
        result += control + L"=" + text::replaceAll(escaped, text::lineBreak, L"\n") + L"; ";
    }
    if (answer.button.empty() && !result.empty()) {
        result.resize(result.size() - 2);
    }
    return result + answer.button;
}

}  // namespace program
