#include "platform/XmlReader.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/characters.h"

namespace xml {

namespace {

constexpr wchar_t byteOrderMark = 0xFEFF;

struct NamedEntity {
    std::wstring_view name;
    wchar_t character;
};
constexpr NamedEntity namedEntities[] = {
    {L"amp", L'&'}, {L"lt", L'<'}, {L"gt", L'>'}, {L"quot", L'"'}, {L"apos", L'\''}};

bool isSpace(wchar_t character) {
    return character == L' ' || character == L'\t' || character == L'\r' || character == L'\n';
}

bool endsName(wchar_t character) {
    switch (character) {
        case L'=':
        case L'/':
        case L'<':
        case L'>':
        case L'\'':
        case L'"':
        case L'&':
        case L';':
            return true;
        default:
            return character == L' ' || text::isControl(character);
    }
}

int digitOf(wchar_t character) {
    if (character >= L'0' && character <= L'9') {
        return character - L'0';
    }
    if (character >= L'a' && character <= L'f') {
        return character - L'a' + 10;
    }
    if (character >= L'A' && character <= L'F') {
        return character - L'A' + 10;
    }
    return 16;
}

/// What a reference such as "amp", "#65" or "#x41" stands for; 0, which no text holds, when it is unknown.
std::uint32_t referencedPoint(std::wstring_view reference) {
    const auto named = std::ranges::find(namedEntities, reference, &NamedEntity::name);
    if (named != std::end(namedEntities)) {
        return static_cast<std::uint32_t>(named->character);
    }
    if (!reference.starts_with(L'#')) {
        return 0;
    }
    const bool hexadecimal = reference.starts_with(L"#x");
    const int base = hexadecimal ? 16 : 10;
    std::uint32_t point = 0;
    for (const wchar_t character : reference.substr(hexadecimal ? 2 : 1)) {
        const int digit = digitOf(character);
        if (digit >= base || point > 0x10FFFF) {
            return 0;
        }
        point = point * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(digit);
    }
    return text::isSurrogate(point) || point > 0x10FFFF ? 0 : point;
}

}  // namespace

void Reader::refuse(const char* reason) const {
    throw Malformed(position_, reason);
}

bool Reader::isName(std::wstring_view text) {
    return !text.empty() && std::ranges::none_of(text, endsName);
}

Reader::Token Reader::next() {
    if (std::exchange(closesItself_, false)) {
        return close();
    }
    if (position_ == 0 && at({&byteOrderMark, 1})) {
        ++position_;
    }
    for (;;) {
        skipSpace();
        if (position_ == text_.size()) {
            if (!rootSeen_ || !open_.empty()) {
                refuse("the text ends too early");
            }
            return Token::Finished;
        }
        if (at(L"<?") || at(L"<!")) {
            skipMarkup();
        } else if (at(L"</")) {
            return readEnd();
        } else if (at(L"<")) {
            return readStart();
        } else {
            refuse("text outside of the tags");
        }
    }
}

bool Reader::skipSpace() {
    const std::size_t start = position_;
    while (position_ < text_.size() && isSpace(text_[position_])) {
        ++position_;
    }
    return position_ > start;
}

void Reader::skipPast(std::wstring_view end) {
    const auto found = text_.find(end, position_);
    if (found == std::wstring_view::npos) {
        refuse("the text ends within a comment or an instruction");
    }
    position_ = found + end.size();
}

void Reader::skipMarkup() {
    if (at(L"<?")) {
        position_ += 2;
        skipPast(L"?>");
    } else if (at(L"<!--")) {
        position_ += 4;
        skipPast(L"-->");
    } else {
        refuse("a document type or a section of text");
    }
}

std::wstring_view Reader::readName() {
    std::size_t end = position_;
    while (end < text_.size() && !endsName(text_[end])) {
        ++end;
    }
    if (end == position_) {
        refuse("a name is missing");
    }
    const std::wstring_view name = text_.substr(position_, end - position_);
    position_ = end;
    return name;
}

std::wstring_view Reader::readQuoted() {
    const wchar_t quote = position_ < text_.size() ? text_[position_] : L' ';
    if (quote != L'\'' && quote != L'"') {
        refuse("a quote is missing");
    }
    const std::size_t start = position_ + 1;
    std::size_t end = start;
    while (end < text_.size() && text_[end] != quote && text_[end] != L'<') {
        ++end;
    }
    if (end == text_.size() || text_[end] != quote) {
        refuse("a value without its end");
    }
    position_ = end + 1;
    return text_.substr(start, end - start);
}

Reader::Token Reader::readStart() {
    ++position_;
    if (open_.empty() && std::exchange(rootSeen_, true)) {
        refuse("more than one document");
    }
    if (open_.size() == limits_.deepestNesting) {
        refuse("elements nested too deep");
    }
    name_ = readName();
    readAttributes();
    closesItself_ = at(L"/");
    position_ += closesItself_ ? 1 : 0;
    if (!at(L">")) {
        refuse("a tag without its end");
    }
    ++position_;
    open_.push_back(name_);
    return Token::Start;
}

void Reader::readAttributes() {
    attributes_.clear();
    while (skipSpace() && position_ < text_.size() && text_[position_] != L'/' && text_[position_] != L'>') {
        Attribute attribute;
        attribute.name = readName();
        skipSpace();
        if (!at(L"=")) {
            refuse("an attribute without a value");
        }
        ++position_;
        skipSpace();
        attribute.raw = readQuoted();
        if (attributes_.size() == limits_.mostAttributes) {
            refuse("too many attributes");
        }
        attributes_.push_back(attribute);
    }
    checkNamesDiffer();
}

void Reader::checkNamesDiffer() {
    if (attributes_.size() < 2) {
        return;
    }
    if (attributes_.size() == 2) {
        if (attributes_[0].name == attributes_[1].name) {
            refuse("an attribute given twice");
        }
        return;
    }
    sortedNames_.clear();
    for (const Attribute& attribute : attributes_) {
        sortedNames_.push_back(attribute.name);
    }
    std::ranges::sort(sortedNames_);
    if (std::ranges::adjacent_find(sortedNames_) != sortedNames_.end()) {
        refuse("an attribute given twice");
    }
}

Reader::Token Reader::readEnd() {
    position_ += 2;
    const std::wstring_view name = readName();
    skipSpace();
    if (!at(L">") || open_.empty() || open_.back() != name) {
        refuse("an end tag without its start");
    }
    ++position_;
    return close();
}

Reader::Token Reader::close() {
    name_ = open_.back();
    open_.pop_back();
    return Token::End;
}

std::wstring Reader::decoded(const Attribute& attribute) const {
    const std::wstring_view raw = attribute.raw;
    std::wstring value;
    value.reserve(raw.size());
    std::size_t start = 0;
    for (auto mark = raw.find(L'&'); mark != std::wstring_view::npos; mark = raw.find(L'&', start)) {
        value.append(raw, start, mark - start);
        // The longest reference is "&#x10ffff;", leading zeros aside.
        const auto end = raw.substr(mark, 32).find(L';');
        if (end == std::wstring_view::npos) {
            refuse("a reference without its end");
        }
        const std::wstring_view reference = raw.substr(mark + 1, end - 1);
        const std::uint32_t point = referencedPoint(reference);
        if (point == 0) {
            refuse("an unknown reference");
        }
        text::append(value, point);
        start = mark + end + 1;
    }
    value.append(raw, start);
    std::erase(value, L'\0');
    return value;
}

}  // namespace xml
