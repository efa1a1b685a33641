#include "platform/WebAddress.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

using platform::WebAddress;

TEST(WebAddress, IsWhatABrowserReadsInOneWayOnly) {
    const struct {
        std::wstring text;
        bool good;
    } cases[] = {
        {L"http://corvane.example", true},
        {L"HTTPS://www.corvane.example:8443/a/b?c=d&e=%20f#g", true},
        {L"  http://corvane.example/  ", true},
        {L"http://127.0.0.1:80/", true},
        {L"http://[::1]:80/x", true},
        {L"http://corvane.example:/", true},
        {L"http://corvane.example?q", true},
        {L"", false},
        {L"corvane.example", false},
        {L"ftp://corvane.example", false},
        {L"file:///C:/Windows/System32/calc.exe", false},
        {L"javascript:alert(1)", false},
        {L"http:/corvane.example", false},
        {L"http:corvane.example", false},
        {L"http://", false},
        {L"http:///path", false},
        {L"http://?q", false},
        {L"http://:80/", false},
        {L"http://corvane.example:70000/", false},
        {L"http://corvane.example:8a/", false},
        {L"http://corvane.example:000080/", false},
        {L"http://corvane.example@evil.example/", false},
        {L"http://corvane.example:80@evil.example/", false},
        {L"http://corvane.example\\@evil.example/", false},
        {L"http://[::1", false},
        {L"http://[]/", false},
        {L"http://[80]/", false},
        {L"http://corvane.example/a b", false},
        {L"http://corvane.example/\"calc", false},
        {L"http://corvane.example/<x>", false},
        {L"http://corvane.example/\r\nHost: evil", false},
        {L"http://corvane.example/\t", false},
        {std::wstring(L"http://corvane.example/\0.exe", 28), false},
        {L"http://corvane.example/\x7F", false},
        {L"http://corv\x430ne.example/", false},
        {L"http://corvane.example/" + std::wstring(2025, L'x'), true},
        {L"http://corvane.example/" + std::wstring(2026, L'x'), false},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(WebAddress::parse(given.text).has_value(), given.good) << text::toUtf8(given.text);
    }
    EXPECT_EQ(WebAddress::parse(L" http://a.example ")->text(), L"http://a.example");
    EXPECT_EQ(WebAddress::parse(L"http://a.example")->with(L"/b?c=d")->text(), L"http://a.example/b?c=d");
    EXPECT_FALSE(WebAddress::parse(L"http://a.example")->with(L".b@c/"));
}

}  // namespace
