#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// An address on the web that may be opened or fetched: "http" or "https", a host, and nothing in it that
/// could mean something else to a browser or a shell than it does here.
class WebAddress {
  public:
    /// The longest address that browsers and servers of every age take, in characters.
    static constexpr std::size_t longest = 2048;

    /// Nothing for a text that is no such address: another scheme, no host, a user name, anything but
    /// printable ASCII, or more than `longest` characters. Blanks around it are passed over.
    static std::optional<WebAddress> parse(std::wstring_view text);

    const std::wstring& text() const { return text_; }
    /// With what was parsed put behind it, a path and a query. Nothing when that makes no address.
    std::optional<WebAddress> with(std::wstring_view rest) const { return parse(text_ + std::wstring(rest)); }

  private:
    explicit WebAddress(std::wstring_view text) : text_(text) {}

    std::wstring text_;
};

}  // namespace platform
