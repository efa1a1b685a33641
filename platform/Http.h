#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/WebAddress.h"

namespace platform {

/// A request under way. Destroying it abandons it at once: no answer comes any more.
class HttpRequest {
  public:
    virtual ~HttpRequest() = default;
};

/// Fetches pages of the web.
class Http {
  public:
    /// The body of the page, as its bytes; nothing when the server could not be reached, refused, or did not
    /// keep within the limits.
    using Answer = std::optional<std::string>;

    static constexpr std::size_t longestBody = 1024 * 1024;
    /// From the start to the last byte, redirections included.
    static constexpr std::chrono::seconds longestWait{10};
    static constexpr int mostRedirections = 5;

    virtual ~Http() = default;
    /// Sends a GET without making anybody wait: the transfer has a thread of its own. `done` is called once,
    /// on this thread, by its message loop, never inside of this call; it may destroy the request.
    /// Redirections are followed as long as they lead to a WebAddress; the certificate of an https server
    /// must be good; cookies, caches and saved passwords play no part. Throws automation::Error when the
    /// system has no thread to give.
    virtual std::unique_ptr<HttpRequest> get(const WebAddress& address, std::function<void(Answer)> done) = 0;
};

}  // namespace platform
