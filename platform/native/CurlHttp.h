#pragma once

#include <list>

#include "platform/Http.h"
#include "platform/native/EventLoop.h"

namespace platform::native {

/// The web by libcurl, each request on a thread of its own. The answers come by the event loop, which
/// outlives this, as this does its requests.
class CurlHttp : public Http {
  public:
    explicit CurlHttp(EventLoop& events) : events_(events) {}
    CurlHttp(const CurlHttp&) = delete;
    CurlHttp& operator=(const CurlHttp&) = delete;
    ~CurlHttp() override;

    std::unique_ptr<HttpRequest> get(const WebAddress& address, std::function<void(Answer)> done) override;

  private:
    class Transfer;
    class Request;

    EventLoop& events_;
    /// Those whose threads may still be at work: they are not waited for when their request is abandoned.
    std::list<std::shared_ptr<Transfer>> transfers_;
};

}  // namespace platform::native
