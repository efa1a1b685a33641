#pragma once

#include <openssl/ssl.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>

/// A web server on this machine's loopback interface that speaks TLS with a certificate that nobody vouches
/// for, and gives every visitor the same page.
class TlsServer {
  public:
    explicit TlsServer(std::string page);
    ~TlsServer();
    TlsServer(const TlsServer&) = delete;
    TlsServer& operator=(const TlsServer&) = delete;

    /// "https://127.0.0.1:<port>".
    std::string address() const { return "https://127.0.0.1:" + std::to_string(port_); }

  private:
    void serve();

    struct Free {
        void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
        void operator()(BIO* bio) const { BIO_free_all(bio); }
    };

    std::string page_;
    std::unique_ptr<SSL_CTX, Free> context_;
    std::unique_ptr<BIO, Free> listening_;
    std::uint16_t port_ = 0;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};
