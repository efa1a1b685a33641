#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// A web server on this machine's loopback interface, which may be as hostile as it likes. Serves until it is
/// destroyed; each connection has a thread of its own and takes one request.
class WebServer {
  public:
    struct Reply {
        /// The whole answer, head included, as it goes out.
        std::string bytes;
        enum class Then {
            Close,
            /// Keeps the connection and says no more.
            Wait,
            /// Sends the bytes again and again.
            Repeat,
            /// Sends one byte after the other, ten in a second.
            Drip
        };
        Then then = Then::Close;
    };

    /// `answer` gets the path of a request with its query, on a thread of the server's.
    explicit WebServer(std::function<Reply(const std::string&)> answer);
    /// Gives every request the same page.
    explicit WebServer(std::string body)
        : WebServer([body = std::move(body)](const std::string&) { return page(body); }) {}
    ~WebServer();
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    /// "http://127.0.0.1:<port>".
    std::wstring address() const { return L"http://127.0.0.1:" + std::to_wstring(port_); }
    /// The paths that were asked for, in order.
    std::vector<std::string> requests() const;

    static Reply page(const std::string& body, const std::string& headers = {});
    static Reply redirection(const std::string& target);

    /// An address at which nobody listens.
    static std::wstring deadAddress();

  private:
    using Socket = std::uintptr_t;

    void serve();
    void attend(Socket connection);

    std::function<Reply(const std::string&)> answer_;
    Socket listening_;
    std::uint16_t port_ = 0;
    std::atomic<bool> stop_ = false;
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::vector<std::thread> connections_;
    std::thread thread_;
};
