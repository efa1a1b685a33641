#include "program/native/MailText.h"

#include <iconv.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <memory>

#include "platform/text.h"

namespace program {

namespace {

bool isUtf8(std::string_view bytes) {
    // Only bytes that are no UTF-8 do not come back as they were.
    return text::toUtf8(text::fromUtf8(bytes)) == bytes;
}

struct CloseConverter {
    using pointer = iconv_t;
    void operator()(iconv_t converter) const { iconv_close(converter); }
};

class Converter {
  public:
    explicit Converter(const std::string& charset) : handle_(iconv_open("UTF-8", charset.c_str())) {
        if (handle_.get() == reinterpret_cast<iconv_t>(-1)) {
            handle_.release();
        }
    }

    bool known() const { return handle_.get() != nullptr; }

    /// What cannot be converted becomes U+FFFD; `clean` tells whether all could.
    std::string convert(std::string_view bytes, bool& clean) {
        std::string result;
        std::string source(bytes);
        char* input = source.data();
        std::size_t left = source.size();
        clean = true;
        while (left > 0) {
            char buffer[4096];
            char* output = buffer;
            std::size_t space = sizeof buffer;
            const std::size_t status = iconv(handle_.get(), &input, &left, &output, &space);
            result.append(buffer, output);
            if (status == static_cast<std::size_t>(-1) && errno != E2BIG && left > 0) {
                clean = false;
                result += "\xEF\xBF\xBD";
                ++input;
                --left;
            }
        }
        return result;
    }

  private:
    std::unique_ptr<void, CloseConverter> handle_;
};

}  // namespace

std::string toUtf8(std::string_view bytes, std::string charset) {
    std::string withoutNuls;
    std::ranges::transform(charset, charset.begin(), [](unsigned char c) { return std::tolower(c); });
    if (charset.starts_with("utf-16") || charset.starts_with("utf-32") || charset == "unicode") {
        bool clean = false;
        Converter converter(charset);
        withoutNuls = converter.known() ? converter.convert(bytes, clean) : std::string(bytes);
        bytes = withoutNuls;
        charset = "utf-8";
    }
    if (bytes.find('\0') != std::string_view::npos) {
        std::string kept(bytes);
        std::erase(kept, '\0');
        withoutNuls = std::move(kept);
        bytes = withoutNuls;
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
        charset = "utf-8";
    }
    if (charset == "iso-8859-1" || charset == "latin1" || charset == "us-ascii" || charset == "ascii") {
        charset.clear();
    }
    if (!charset.empty() && charset != "utf-8" && charset != "utf8") {
        Converter converter(charset);
        bool clean = false;
        if (converter.known()) {
            std::string converted = converter.convert(bytes, clean);
            if (clean || !isUtf8(bytes)) {
                return converted;
            }
        }
    }
    if (isUtf8(bytes)) {
        return std::string(bytes);
    }
    bool ignored = false;
    return Converter("WINDOWS-1252").convert(bytes, ignored);
}

std::string charsetOfHtml(std::string_view html) {
    constexpr std::size_t farthest = 2048;
    std::string head(html.substr(0, farthest));
    std::ranges::transform(head, head.begin(), [](unsigned char c) { return std::tolower(c); });
    constexpr std::string_view key = "charset=";
    const auto found = head.find(key);
    if (found == std::string::npos) {
        return {};
    }
    const auto start = head.find_first_not_of(" \"'", found + key.size());
    if (start == std::string::npos) {
        return {};
    }
    return head.substr(start, head.find_first_of(" \"'/>;", start) - start);
}

std::string withCrLf(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 32);
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '\r' && text[index] != '\n') {
            result += text[index];
            continue;
        }
        result += "\r\n";
        if (text[index] == '\r' && index + 1 < text.size() && text[index + 1] == '\n') {
            ++index;
        }
    }
    return result;
}

}  // namespace program
