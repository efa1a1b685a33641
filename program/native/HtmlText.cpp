#include "program/native/HtmlText.h"

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <set>
#include <vector>

namespace program {

namespace {

/// Writes text as a browser lays it out: blanks run together, lines break only where they must.
class Layout {
  public:
    void text(std::string_view characters, bool preformatted) {
        for (const char c : characters) {
            if (preformatted && (c == '\n' || c == '\r')) {
                if (c == '\n') {
                    lineBreak();
                }
            } else if (!preformatted && isBlank(c)) {
                blank_ = true;
            } else {
                put(c);
            }
        }
    }

    void lineBreak() {
        settle();
        append("\r\n");
        ++breaks_;
    }

    /// Before the next text there must be at least `count` line breaks.
    void requireBreaks(int count) { required_ = std::max(required_, count); }

    /// Text whose blanks stay.
    void raw(std::string_view characters) {
        for (const char c : characters) {
            put(c);
        }
    }

    std::string finish() && {
        text_.resize(text_.find_last_not_of("\r\n ") + 1);
        return std::move(text_);
    }

  private:
    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }

    void put(char c) {
        settle();
        if (blank_ && breaks_ == 0 && !text_.empty() && text_.back() != '\t') {
            text_ += ' ';
        }
        blank_ = false;
        text_ += c;
        breaks_ = 0;
    }

    /// Makes the line breaks that are due.
    void settle() {
        if (!text_.empty()) {
            for (; breaks_ < required_; ++breaks_) {
                append("\r\n");
            }
        }
        required_ = 0;
    }

    void append(std::string_view lineEnd) {
        text_ += lineEnd;
        blank_ = false;
    }

    std::string text_;
    /// Line breaks at the end of the text.
    int breaks_ = 0;
    int required_ = 0;
    bool blank_ = false;
};

constexpr int newLine = 1;
constexpr int newParagraph = 2;

/// Line breaks around an element; 0 for one that stands within lines.
int breaksAround(std::string_view name) {
    static const std::set<std::string_view> paragraphs{"p", "h1", "h2", "h3", "h4", "h5", "h6", "pre"};
    static const std::set<std::string_view> blocks{
        "address", "article", "aside", "blockquote", "body",   "caption", "center",   "dd",
        "div",     "dl",      "dt",    "fieldset",   "figure", "footer",  "form",     "header",
        "hr",      "li",      "main",  "nav",        "ol",     "option",  "section",  "table",
        "tbody",   "tfoot",   "thead", "tr",         "ul",     "legend",  "textarea", "figcaption"};
    if (paragraphs.contains(name)) {
        return newParagraph;
    }
    return blocks.contains(name) ? newLine : 0;
}

bool isHidden(std::string_view name) {
    static const std::set<std::string_view> hidden{"head", "style", "script", "title", "template"};
    return hidden.contains(name);
}

/// Receives the parser's events. It never sees a tree, so that neither depth nor size of a mail matters.
class Reader {
  public:
    void start(std::string_view name, const xmlChar** attributes) {
        hidden_ += isHidden(name) ? 1 : 0;
        preformatted_ += name == "pre" ? 1 : 0;
        if (hidden_ > 0) {
            return;
        }
        layout_.requireBreaks(breaksAround(name));
        if (name == "br") {
            layout_.lineBreak();
        } else if (name == "hr") {
            layout_.raw("________________________________");
            layout_.requireBreaks(newLine);
        } else if (name == "ul" || name == "ol") {
            lists_.push_back(name == "ol" ? 1 : 0);
        } else if (name == "li") {
            startListItem();
        } else if (name == "tr") {
            firstCell_ = true;
        } else if (name == "td" || name == "th") {
            if (!firstCell_) {
                layout_.raw("\t");
            }
            firstCell_ = false;
        } else if (name == "a") {
            links_.push_back(webAddress(attributes));
        }
    }

    void end(std::string_view name) {
        if (isHidden(name)) {
            hidden_ = std::max(0, hidden_ - 1);
            return;
        }
        if (hidden_ > 0) {
            return;
        }
        preformatted_ = std::max(0, preformatted_ - (name == "pre" ? 1 : 0));
        layout_.requireBreaks(breaksAround(name));
        if ((name == "ul" || name == "ol") && !lists_.empty()) {
            lists_.pop_back();
        } else if (name == "a" && !links_.empty()) {
            if (!links_.back().empty()) {
                layout_.text(" <" + links_.back() + "> ", false);
            }
            links_.pop_back();
        }
    }

    void characters(std::string_view characters) {
        if (hidden_ == 0) {
            layout_.text(characters, preformatted_ > 0);
        }
    }

    std::string finish() && { return std::move(layout_).finish(); }

  private:
    void startListItem() {
        if (!lists_.empty() && lists_.back() > 0) {
            layout_.raw(std::to_string(lists_.back()++) + ".\t");
        } else {
            layout_.raw("*\t");
        }
    }

    static std::string webAddress(const xmlChar** attributes) {
        for (; attributes && attributes[0]; attributes += 2) {
            const auto* value = reinterpret_cast<const char*>(attributes[1]);
            if (value && std::string_view(reinterpret_cast<const char*>(attributes[0])) == "href") {
                const std::string_view target(value);
                return target.starts_with("http") || target.starts_with("mailto:") ? std::string(target) : "";
            }
        }
        return {};
    }

    Layout layout_;
    int hidden_ = 0;
    int preformatted_ = 0;
    bool firstCell_ = true;
    /// Per open list the number of its next item; 0 for one without numbers.
    std::vector<int> lists_;
    std::vector<std::string> links_;
};

Reader& readerOf(void* context) {
    return *static_cast<Reader*>(context);
}

std::string_view viewOf(const xmlChar* name) {
    return reinterpret_cast<const char*>(name);
}

void onStart(void* context, const xmlChar* name, const xmlChar** attributes) {
    readerOf(context).start(viewOf(name), attributes);
}

void onEnd(void* context, const xmlChar* name) {
    readerOf(context).end(viewOf(name));
}

void onCharacters(void* context, const xmlChar* characters, int length) {
    readerOf(context).characters(
        {reinterpret_cast<const char*>(characters), static_cast<std::size_t>(length)});
}

struct FreeContext {
    void operator()(htmlParserCtxt* context) const { htmlFreeParserCtxt(context); }
};

}  // namespace

std::string htmlToText(std::string_view html) {
    htmlSAXHandler handler{};
    handler.startElement = onStart;
    handler.endElement = onEnd;
    handler.characters = onCharacters;
    handler.ignorableWhitespace = onCharacters;

    Reader reader;
    // Pushed in pieces: the parser takes no more than 2 GB, nor long texts, at once.
    const std::unique_ptr<htmlParserCtxt, FreeContext> context(
        htmlCreatePushParserCtxt(&handler, &reader, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8));
    if (!context) {
        return {};
    }
    htmlCtxtUseOptions(context.get(), HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                                          HTML_PARSE_NONET | HTML_PARSE_IGNORE_ENC);
    constexpr std::size_t piece = 1 << 20;
    for (std::size_t start = 0; start < html.size(); start += piece) {
        const auto part = html.substr(start, piece);
        htmlParseChunk(context.get(), part.data(), static_cast<int>(part.size()), 0);
    }
    htmlParseChunk(context.get(), nullptr, 0, 1);
    return std::move(reader).finish();
}

}  // namespace program
