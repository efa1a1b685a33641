#include "tests/native/TlsServer.h"

#include <openssl/x509.h>
#include <poll.h>

#include <stdexcept>
#include <utility>

namespace {

/// A fresh key, and a certificate for this machine that it has signed itself.
void certify(SSL_CTX* context) {
    EVP_PKEY* const key = EVP_EC_gen("P-256");
    X509* const certificate = X509_new();
    X509_gmtime_adj(X509_getm_notBefore(certificate), -3600);
    X509_gmtime_adj(X509_getm_notAfter(certificate), 3600);
    X509_set_pubkey(certificate, key);
    X509_NAME* const name = X509_get_subject_name(certificate);
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("127.0.0.1"),
                               -1, -1, 0);
    X509_set_issuer_name(certificate, name);
    X509_sign(certificate, key, EVP_sha256());
    SSL_CTX_use_certificate(context, certificate);
    SSL_CTX_use_PrivateKey(context, key);
    X509_free(certificate);
    EVP_PKEY_free(key);
}

}  // namespace

TlsServer::TlsServer(std::string page)
    : page_(std::move(page)),
      context_(SSL_CTX_new(TLS_server_method())),
      listening_(BIO_new_accept("127.0.0.1:0")) {
    certify(context_.get());
    if (BIO_do_accept(listening_.get()) <= 0) {  // The first call only binds.
        throw std::runtime_error("no port for a TLS server");
    }
    port_ = static_cast<std::uint16_t>(std::stoi(BIO_get_accept_port(listening_.get())));
    thread_ = std::thread([this] { serve(); });
}

TlsServer::~TlsServer() {
    stop_ = true;
    thread_.join();
}

void TlsServer::serve() {
    int handle = -1;
    BIO_get_fd(listening_.get(), &handle);
    while (!stop_) {
        pollfd waiting{handle, POLLIN, 0};
        if (poll(&waiting, 1, 20) <= 0 || BIO_do_accept(listening_.get()) <= 0) {
            continue;
        }
        SSL* const connection = SSL_new(context_.get());
        BIO* const bio = BIO_pop(listening_.get());
        SSL_set_bio(connection, bio, bio);
        char request[4096];
        if (SSL_accept(connection) == 1 && SSL_read(connection, request, sizeof request) > 0) {
            const std::string answer =
                "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Length: " + std::to_string(page_.size()) +
                "\r\n\r\n" + page_;
            SSL_write(connection, answer.data(), static_cast<int>(answer.size()));
            SSL_shutdown(connection);
        }
        SSL_free(connection);
    }
}
