#include "tests/WebServer.h"

#ifdef _WIN32
#include <winsock2.h>
#else
#include <netinet/in.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <utility>

namespace {

#ifdef _WIN32
class Sockets {
  public:
    Sockets() {
        WSADATA data{};
        WSAStartup(MAKEWORD(2, 2), &data);
    }
    ~Sockets() { WSACleanup(); }
    Sockets(const Sockets&) = delete;
    Sockets& operator=(const Sockets&) = delete;
};
using Native = SOCKET;
using Length = int;
constexpr int quiet = 0;

void closeSocket(Native socket) {
    closesocket(socket);
}
#else
class Sockets {};
using Native = int;
using Length = socklen_t;
constexpr int quiet = MSG_NOSIGNAL;

void closeSocket(Native socket) {
    close(socket);
}
#endif

Native native(std::uintptr_t socket) {
    return static_cast<Native>(socket);
}

/// A socket bound to a free port of the loopback interface.
std::pair<std::uintptr_t, std::uint16_t> bound() {
    [[maybe_unused]] static const Sockets sockets;
    const Native made = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    Length length = sizeof place;
    if (bind(made, reinterpret_cast<sockaddr*>(&place), length) != 0 ||
        getsockname(made, reinterpret_cast<sockaddr*>(&place), &length) != 0) {
        throw std::runtime_error("no port for a web server");
    }
    return {static_cast<std::uintptr_t>(made), ntohs(place.sin_port)};
}

/// True when there is something to read, or the other side has gone.
bool isReadable(std::uintptr_t socket, int milliseconds) {
    fd_set set;
    FD_ZERO(&set);
    FD_SET(native(socket), &set);
    timeval time{0, milliseconds * 1000};
    return select(static_cast<int>(socket) + 1, &set, nullptr, nullptr, &time) > 0;
}

bool sendAll(std::uintptr_t socket, const std::string& bytes) {
    for (std::size_t sent = 0; sent < bytes.size();) {
        const auto count =
            send(native(socket), bytes.data() + sent, static_cast<int>(bytes.size() - sent), quiet);
        if (count <= 0) {
            return false;
        }
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

}  // namespace

WebServer::WebServer(std::function<Reply(const std::string&)> answer) : answer_(std::move(answer)) {
    std::tie(listening_, port_) = bound();
    listen(native(listening_), SOMAXCONN);
    thread_ = std::thread([this] { serve(); });
}

WebServer::~WebServer() {
    stop_ = true;
    thread_.join();
    for (std::thread& connection : connections_) {
        connection.join();
    }
    closeSocket(native(listening_));
}

std::vector<std::string> WebServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

WebServer::Reply WebServer::page(const std::string& body, const std::string& headers) {
    return {"HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nConnection: close\r\n" + headers +
            "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body};
}

WebServer::Reply WebServer::redirection(const std::string& target) {
    return {"HTTP/1.1 302 Found\r\nConnection: close\r\nContent-Length: 0\r\nLocation: " + target +
            "\r\n\r\n"};
}

std::wstring WebServer::deadAddress() {
    const auto [socket, port] = bound();
    closeSocket(native(socket));
    return L"http://127.0.0.1:" + std::to_wstring(port);
}

void WebServer::serve() {
    while (!stop_) {
        if (isReadable(listening_, 20)) {
            const auto connection = static_cast<Socket>(accept(native(listening_), nullptr, nullptr));
            connections_.emplace_back([this, connection] { attend(connection); });
        }
    }
}

void WebServer::attend(Socket connection) {
    std::string request;
    char piece[4096];
    constexpr char tlsGreeting = '\x16';
    while (!stop_ && request.find("\r\n\r\n") == std::string::npos && !request.starts_with(tlsGreeting)) {
        if (isReadable(connection, 20)) {
            const auto count = recv(native(connection), piece, sizeof piece, 0);
            if (count <= 0) {
                break;
            }
            request.append(piece, static_cast<std::size_t>(count));
        }
    }
    const auto start = std::min(request.find(' '), request.size());
    const std::string path = request.substr(start, request.find(' ', start + 1) - start).erase(0, 1);
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(path);
    }
    const Reply reply = answer_(path);
    using Then = Reply::Then;
    if (reply.then == Then::Drip) {
        for (const char byte : reply.bytes) {
            if (stop_ || !sendAll(connection, std::string(1, byte))) {
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
    } else {
        while (sendAll(connection, reply.bytes) && reply.then == Then::Repeat && !stop_) {
        }
    }
    while (reply.then == Then::Wait && !stop_ && !isReadable(connection, 20)) {
    }
    closeSocket(native(connection));
}
