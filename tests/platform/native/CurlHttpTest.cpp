#include "platform/native/CurlHttp.h"

#include <curl/curl.h>
#include <gtest/gtest.h>

#include <csignal>

#include "platform/text.h"
#include "tests/native/TlsServer.h"

namespace {

std::size_t append(char* piece, std::size_t size, std::size_t count, void* body) {
    static_cast<std::string*>(body)->append(piece, size * count);
    return size * count;
}

/// What a visitor gets who looks at no certificate.
std::string pageForTheCareless(const std::string& address) {
    CURL* const easy = curl_easy_init();
    std::string body;
    curl_easy_setopt(easy, CURLOPT_URL, address.c_str());
    curl_easy_setopt(easy, CURLOPT_NOPROXY, "*");
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYPEER, 0L);
    curl_easy_setopt(easy, CURLOPT_SSL_VERIFYHOST, 0L);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &append);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &body);
    curl_easy_perform(easy);
    curl_easy_cleanup(easy);
    return body;
}

TEST(CurlHttp, TakesNothingFromAServerThatNobodyVouchesFor) {
    std::signal(SIGPIPE, SIG_IGN);  // The server's, whose visitor leaves in the middle.
    TlsServer server("hello");
    EXPECT_EQ(pageForTheCareless(server.address()), "hello");
    platform::native::EventLoop events;
    platform::native::CurlHttp http(events);
    int answers = 0;
    const auto request = http.get(*platform::WebAddress::parse(text::fromUtf8(server.address())),
                                  [&answers](const platform::Http::Answer& body) {
                                      ++answers;
                                      EXPECT_FALSE(body) << *body;
                                  });
    events.settle();
    EXPECT_EQ(answers, 1);
}

}  // namespace
