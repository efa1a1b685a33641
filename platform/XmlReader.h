#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace xml {

/// How far a text is read before it is refused.
struct Limits {
    std::size_t deepestNesting = 32;
    std::size_t mostAttributes = 10'000;
};

/// The text is not what it was read as; what() says at which character reading stopped and why.
class Malformed : public std::runtime_error {
  public:
    Malformed(std::size_t position, const std::string& reason)
        : runtime_error("character " + std::to_string(position) + ": " + reason) {}
};

/// Reads the tags of an XML document one after the other, in one pass and without recursion. Comments and
/// processing instructions are passed over. Text between tags, document types and with them entity
/// declarations, and deep nesting are refused.
///
/// The text must outlive the reader, which hands out views of it.
class Reader {
  public:
    enum class Token { Start, End, Finished };

    struct Attribute {
        std::wstring_view name;
        /// As it stands between the quotes; decoded() gives its meaning.
        std::wstring_view raw;
    };

    explicit Reader(std::wstring_view text, const Limits& limits = {}) : text_(text), limits_(limits) {}

    /// The next tag. An element that closes itself gives a start and an end; after the root's end comes
    /// Finished. Throws Malformed.
    Token next();

    /// Whether a text could be read as a name.
    static bool isName(std::wstring_view text);

    /// The element that started or ended last.
    std::wstring_view name() const { return name_; }
    /// Those of the element that started last; no name comes twice.
    const std::vector<Attribute>& attributes() const { return attributes_; }
    /// Replaces the character references and the five named entities of an attribute's value; zeros, which
    /// are no characters, are left out. Throws Malformed.
    std::wstring decoded(const Attribute& attribute) const;

    [[noreturn]] void refuse(const char* reason) const;

  private:
    bool at(std::wstring_view expected) const { return text_.substr(position_).starts_with(expected); }
    bool skipSpace();
    void skipPast(std::wstring_view end);
    void skipMarkup();
    std::wstring_view readName();
    std::wstring_view readQuoted();
    Token readStart();
    Token readEnd();
    void readAttributes();
    void checkNamesDiffer();
    Token close();

    std::wstring_view text_;
    Limits limits_;
    std::size_t position_ = 0;
    std::vector<std::wstring_view> open_;
    std::wstring_view name_;
    std::vector<Attribute> attributes_;
    std::vector<std::wstring_view> sortedNames_;
    bool rootSeen_ = false;
    bool closesItself_ = false;
};

}  // namespace xml
