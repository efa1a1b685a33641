#include "platform/number.h"

#include <charconv>
#include <system_error>

#include "platform/text.h"

namespace number {

namespace {

bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}
bool isBlank(wchar_t character) {
    return character == L' ' || character == L'\t';
}

std::size_t digitsEnd(std::wstring_view text, std::size_t position) {
    while (position < text.size() && isDigit(text[position])) {
        ++position;
    }
    return position;
}

/// The end of the number that starts the text, or 0 when none does.
std::size_t numberEnd(std::wstring_view text) {
    std::size_t start = 0;
    if (!text.empty() && (text[0] == L'+' || text[0] == L'-')) {
        start = 1;
    }
    std::size_t end = digitsEnd(text, start);
    std::size_t digits = end - start;
    if (end < text.size() && text[end] == L'.') {
        const std::size_t fractionEnd = digitsEnd(text, end + 1);
        digits += fractionEnd - end - 1;
        end = fractionEnd;
    }
    if (digits == 0) {
        return 0;
    }
    if (end < text.size() && (text[end] == L'e' || text[end] == L'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text.size() && (text[exponent] == L'+' || text[exponent] == L'-')) {
            ++exponent;
        }
        const std::size_t exponentEnd = digitsEnd(text, exponent);
        if (exponentEnd > exponent) {
            end = exponentEnd;
        }
    }
    return end;
}

/// `text` holds just what numberEnd accepts, which is ASCII.
double convert(std::wstring_view text) {
    std::string ascii = text::toUtf8(text);
    const char* first = ascii.data();
    const char* last = first + ascii.size();
    if (*first == '+') {
        ++first;
    }
    double value = 0;
    const auto result = std::from_chars(first, last, value);
    if (result.ec == std::errc::result_out_of_range) {
        const bool tiny =
            ascii.find_first_of("eE") != std::string::npos && ascii.find('-', 1) != std::string::npos;
        value = tiny ? 0 : std::numeric_limits<double>::infinity();
        return *first == '-' ? -value : value;
    }
    return value;
}

std::wstring_view skipBlanks(std::wstring_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

}  // namespace

std::optional<double> parse(std::wstring_view text) {
    text = skipBlanks(text);
    const bool bracketed = text.size() > 2 && text.front() == L'(' && text.back() == L')';
    if (bracketed) {
        text = skipBlanks(text.substr(1, text.size() - 2));
        if (!text.empty() && (text.front() == L'+' || text.front() == L'-')) {
            return std::nullopt;
        }
    }
    const std::size_t end = numberEnd(text);
    if (end == 0 || end != text.size()) {
        return std::nullopt;
    }
    const double value = convert(text);
    return bracketed ? -value : value;
}

double leading(std::wstring_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    const std::size_t end = numberEnd(text);
    return end == 0 ? 0 : convert(text.substr(0, end));
}

std::wstring toText(double value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return text::fromUtf8(std::string_view(buffer, static_cast<std::size_t>(result.ptr - buffer)));
}

}  // namespace number
