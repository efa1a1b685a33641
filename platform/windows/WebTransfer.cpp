#include "platform/windows/WebTransfer.h"

#include <algorithm>
#include <utility>

namespace platform::windows {

namespace {

constexpr DWORD longestWait =
    std::chrono::duration_cast<std::chrono::milliseconds>(Http::longestWait).count();

/// Nothing when the server did not send such a header.
std::optional<DWORD> numberHeader(HINTERNET request, DWORD header) {
    DWORD number = 0;
    DWORD size = sizeof number;
    return HttpQueryInfoW(request, header | HTTP_QUERY_FLAG_NUMBER, &number, &size, nullptr)
               ? std::optional(number)
               : std::nullopt;
}

/// Where the server sends its visitor; nothing when that is nowhere to go.
std::optional<WebAddress> redirectionOf(HINTERNET request, const WebAddress& from) {
    wchar_t location[WebAddress::longest + 1];
    DWORD size = sizeof location;
    wchar_t target[WebAddress::longest + 1];
    DWORD length = WebAddress::longest + 1;
    return HttpQueryInfoW(request, HTTP_QUERY_LOCATION, location, &size, nullptr) &&
                   InternetCombineUrlW(from.text().c_str(), location, target, &length, ICU_BROWSER_MODE)
               ? WebAddress::parse(target)
               : std::nullopt;
}

bool isRedirection(DWORD status) {
    constexpr DWORD redirections[] = {301, 302, 303, 307, 308};
    return std::ranges::find(redirections, status) != std::end(redirections);
}

}  // namespace

DWORD WebTransfer::timeLeft() const {
    const DWORD passed = GetTickCount() - started_;
    return passed < longestWait && !abandoned_ ? longestWait - passed : 0;
}

InternetHandle WebTransfer::request(HINTERNET internet, const WebAddress& address) const {
    DWORD left = timeLeft();
    if (left == 0) {
        return InternetHandle();
    }
    for (const DWORD option :
         {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT, INTERNET_OPTION_RECEIVE_TIMEOUT}) {
        InternetSetOptionW(internet, option, &left, sizeof left);
    }
    constexpr DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE |
                            INTERNET_FLAG_PRAGMA_NOCACHE | INTERNET_FLAG_NO_COOKIES | INTERNET_FLAG_NO_UI |
                            INTERNET_FLAG_NO_AUTO_REDIRECT;
    return InternetHandle(InternetOpenUrlW(internet, address.text().c_str(), nullptr, 0, flags, 0));
}

Http::Answer WebTransfer::run() {
    started_ = GetTickCount();
    const InternetHandle internet(
        InternetOpenW(L"Veltro", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
    std::optional<WebAddress> next = address_;
    for (int hop = 0; internet && next && hop <= Http::mostRedirections; ++hop) {
        const InternetHandle page = request(internet.get(), *next);
        const auto status = page ? numberHeader(page.get(), HTTP_QUERY_STATUS_CODE) : std::nullopt;
        if (status == HTTP_STATUS_OK) {
            return read(page.get());
        }
        next = status && isRedirection(*status) ? redirectionOf(page.get(), *next) : std::nullopt;
    }
    return std::nullopt;
}

Http::Answer WebTransfer::read(HINTERNET request) const {
    const auto promised = numberHeader(request, HTTP_QUERY_CONTENT_LENGTH);
    std::string body;
    char piece[16384];
    while (timeLeft() > 0) {
        // Reading asks for no more than has come: it would wait for the rest, however slowly that comes.
        DWORD available = 0;
        DWORD count = 0;
        if (!InternetQueryDataAvailable(request, &available, 0, 0) ||
            (available > 0 &&
             !InternetReadFile(request, piece, std::min(available, static_cast<DWORD>(sizeof piece)),
                               &count)) ||
            count > Http::longestBody - body.size()) {
            return std::nullopt;
        }
        if (count == 0) {
            // A connection that broke ends like one that was closed.
            return promised && *promised != body.size() ? Http::Answer() : Http::Answer(std::move(body));
        }
        body.append(piece, count);
    }
    return std::nullopt;
}

}  // namespace platform::windows
