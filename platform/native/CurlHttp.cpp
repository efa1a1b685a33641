#include "platform/native/CurlHttp.h"

#include <curl/curl.h>

#include <atomic>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/automation.h"
#include "platform/text.h"

namespace platform::native {

namespace {

struct EndEasy {
    void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};
struct EndMulti {
    void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};
using Easy = std::unique_ptr<CURL, EndEasy>;
using Multi = std::unique_ptr<CURLM, EndMulti>;

/// Takes a piece of the body; any other number than the piece's size ends the transfer.
std::size_t keepPiece(char* piece, std::size_t size, std::size_t count, void* body) {
    auto& kept = *static_cast<std::string*>(body);
    const std::size_t bytes = size * count;
    if (bytes > Http::longestBody - kept.size()) {
        return 0;
    }
    kept.append(piece, bytes);
    return bytes;
}

void prepare(CURL* easy, const WebAddress& address, std::string& body) {
    body.clear();
    curl_easy_setopt(easy, CURLOPT_URL, text::toUtf8(address.text()).c_str());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    // As browsers do, whatever proxy there is.
    curl_easy_setopt(easy, CURLOPT_NOPROXY, "localhost,127.0.0.1,::1");
    curl_easy_setopt(easy, CURLOPT_USERAGENT, "Veltro");
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &keepPiece);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &body);
}

long statusOf(CURL* easy) {
    long status = 0;
    curl_easy_getinfo(easy, CURLINFO_RESPONSE_CODE, &status);
    return status;
}

/// Where the server sends its visitor; nothing when that is nowhere to go.
std::optional<WebAddress> redirectionOf(CURL* easy) {
    const char* target = nullptr;
    curl_easy_getinfo(easy, CURLINFO_REDIRECT_URL, &target);
    return target ? WebAddress::parse(text::fromUtf8(target)) : std::nullopt;
}

}  // namespace

/// What the thread of a request works on. The thread and whoever waits for the answer hold it.
class CurlHttp::Transfer {
  public:
    explicit Transfer(WebAddress address) : address_(std::move(address)), multi_(curl_multi_init()) {}

    /// Runs on this transfer's own thread.
    Answer run() {
        const auto end = std::chrono::steady_clock::now() + longestWait;
        std::string body;
        std::optional<WebAddress> next = address_;
        for (int hop = 0; next && hop <= mostRedirections; ++hop) {
            const Easy easy(curl_easy_init());
            if (!easy || !multi_) {
                return std::nullopt;
            }
            prepare(easy.get(), *next, body);
            if (!perform(easy.get(), end)) {
                return std::nullopt;
            }
            const long status = statusOf(easy.get());
            if (status == 200) {
                return body;
            }
            next = redirectionOf(easy.get());
        }
        return std::nullopt;
    }

    void abandon() {
        abandoned_ = true;
        curl_multi_wakeup(multi_.get());
    }
    bool abandoned() const { return abandoned_; }

    std::thread thread;
    std::atomic<bool> finished = false;

  private:
    bool perform(CURL* easy, std::chrono::steady_clock::time_point end) {
        curl_multi_add_handle(multi_.get(), easy);
        const bool done = performAdded(end);
        curl_multi_remove_handle(multi_.get(), easy);
        return done;
    }

    /// False when it failed, was abandoned, or took too long.
    bool performAdded(std::chrono::steady_clock::time_point end) {
        for (int running = 1; running > 0;) {
            const auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
            if (abandoned_ || left.count() <= 0 || curl_multi_perform(multi_.get(), &running) != CURLM_OK) {
                return false;
            }
            if (running > 0) {
                curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(left.count()), nullptr);
            }
        }
        int others = 0;
        const CURLMsg* const message = curl_multi_info_read(multi_.get(), &others);
        return message && message->data.result == CURLE_OK;
    }

    const WebAddress address_;
    const Multi multi_;
    std::atomic<bool> abandoned_ = false;
};

class CurlHttp::Request : public HttpRequest {
  public:
    explicit Request(std::shared_ptr<Transfer> transfer) : transfer_(std::move(transfer)) {}
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;
    ~Request() override { transfer_->abandon(); }

  private:
    std::shared_ptr<Transfer> transfer_;
};

CurlHttp::~CurlHttp() {
    for (const auto& transfer : transfers_) {
        transfer->abandon();
    }
    for (const auto& transfer : transfers_) {
        transfer->thread.join();
    }
}

std::unique_ptr<HttpRequest> CurlHttp::get(const WebAddress& address, std::function<void(Answer)> done) {
    std::erase_if(transfers_, [](const std::shared_ptr<Transfer>& transfer) {
        const bool finished = transfer->finished;
        if (finished) {
            transfer->thread.join();
        }
        return finished;
    });
    const auto transfer = std::make_shared<Transfer>(address);
    auto request = std::make_unique<Request>(transfer);
    transfer->thread =
        std::thread([transfer = transfer.get(), held = std::weak_ptr(transfer), &events = events_,
                     expected = events_.expect(), done = std::move(done)]() mutable {
            events.post([answer = transfer->run(), held, done = std::move(done)]() mutable {
                const auto kept = held.lock();
                if (kept && !kept->abandoned()) {
                    done(std::move(answer));
                }
            });
            expected.reset();
            transfer->finished = true;
        });
    transfers_.push_back(transfer);
    return request;
}

}  // namespace platform::native
