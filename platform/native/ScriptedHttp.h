#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Http.h"
#include "platform/native/EventLoop.h"

namespace platform::native {

/// A web whose pages are given beforehand; all other addresses are out of reach.
class ScriptedHttp : public Http {
  public:
    explicit ScriptedHttp(EventLoop& events) : events_(events) {}

    void setPage(const std::wstring& address, std::string body) { pages_[address] = std::move(body); }
    /// In the order in which they were asked for.
    const std::vector<std::wstring>& requested() const { return requested_; }

    std::unique_ptr<HttpRequest> get(const WebAddress& address, std::function<void(Answer)> done) override {
        requested_.push_back(address.text());
        const auto page = pages_.find(address.text());
        Answer answer = page == pages_.end() ? Answer() : Answer(page->second);
        auto request = std::make_unique<Request>();
        events_.post([held = std::weak_ptr(request->alive), answer = std::move(answer),
                      done = std::move(done)]() mutable {
            if (held.lock()) {
                done(std::move(answer));
            }
        });
        return request;
    }

  private:
    struct Request : HttpRequest {
        std::shared_ptr<int> alive = std::make_shared<int>();
    };

    EventLoop& events_;
    std::map<std::wstring, std::string> pages_;
    std::vector<std::wstring> requested_;
};

}  // namespace platform::native
