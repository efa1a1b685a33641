#include "update/modWebTalk.h"

#include "mail/errorTrap.h"
#include "platform/text.h"

namespace update::modWebTalk {

namespace {

/// Such a service does not say how its text is encoded.
std::wstring textOf(const std::string& body) {
    constexpr wchar_t notDecoded = 0xFFFD;
    const std::wstring unicode = text::fromUtf8(body);
    return unicode.find(notDecoded) == std::wstring::npos ? unicode : text::fromCodePage(body);
}

}  // namespace

std::unique_ptr<platform::HttpRequest> GetPage(const mail::Globals& globals,
                                               const std::optional<platform::WebAddress>& address,
                                               std::function<void(const std::wstring&)> done) {
    std::unique_ptr<platform::HttpRequest> request;
    if (address) {
        mail::skipErrors([&] {
            request = globals.platform.http.get(*address, [done](const platform::Http::Answer& body) {
                done(body && !body->empty() ? textOf(*body) : noNetConnection);
            });
        });
    }
    if (!request) {
        done(noNetConnection);
    }
    return request;
}

}  // namespace update::modWebTalk
