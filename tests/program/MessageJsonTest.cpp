#include "program/MessageJson.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "host/LocalTime.h"

namespace {

std::wstring emoji() {
    return sizeof(wchar_t) == 2 ? std::wstring{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)}
                                : std::wstring(1, static_cast<wchar_t>(0x1F600));
}

TEST(MessageJson, KeepsEverythingThatAMessageHolds) {
    host::Message message;
    message.itemClass = host::itemClass::post;
    message.from = host::Address{.name = L"Ann \"A\" Archer", .address = L"ann@example.com"};
    message.onBehalfOf = host::Address{.name = L"Chief", .address = L"chief@example.com"};
    message.to = {{.name = L"Staff",
                   .address = L"/o=x/cn=staff",
                   .type = L"EX",
                   .proxies = {L"SMTP:staff@example.org"},
                   .smtpAddress = L"staff@example.org",
                   .members = {{.name = L"Bo", .address = L"bo@example.org"}},
                   .distributionList = true,
                   .resolvable = false}};
    message.subject = L"a\\b \u20AC " + emoji() + std::wstring(1, L'\0') + L"end";
    message.body = std::wstring(L"lone ") + static_cast<wchar_t>(0xDC00) + static_cast<wchar_t>(0xD800) +
                   L"\r\nline " + emoji();
    message.html = L"<p>";
    message.attachments = {{.fileName = L"a.pdf", .contentId = L"x@y"}};
    message.deliveryTime = host::toDate({2024, 2, 29, 23, 59, 58});
    message.account = L"Work";

    const auto json = program::toJson({{L"folder/a.eml", message}});
    const auto read = program::parseMessages(json);
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(read[0].name, L"folder/a.eml");
    const host::Message& again = read[0].message;
    EXPECT_EQ(again.itemClass, message.itemClass);
    EXPECT_EQ(again.from->name, message.from->name);
    EXPECT_EQ(again.onBehalfOf->address, message.onBehalfOf->address);
    ASSERT_EQ(again.to.size(), 1U);
    EXPECT_EQ(again.to[0].type, L"EX");
    EXPECT_EQ(again.to[0].proxies, message.to[0].proxies);
    EXPECT_EQ(again.to[0].members.at(0).address, L"bo@example.org");
    EXPECT_TRUE(again.to[0].distributionList);
    EXPECT_FALSE(again.to[0].resolvable);
    EXPECT_EQ(again.subject, message.subject);
    EXPECT_EQ(again.body, message.body);
    EXPECT_EQ(again.attachments.at(0).contentId, L"x@y");
    EXPECT_EQ(host::toIsoTime(*again.deliveryTime), "2024-02-29T23:59:58");
    EXPECT_FALSE(again.deferredDeliveryTime);
    EXPECT_EQ(program::toJson(read), json);
}

/// A line break could pass for another row of the list in which recipients are ticked.
TEST(MessageJson, KeepsPeopleOnOneLine) {
    const auto read = program::parseMessages(
        R"([{"to": [{"name": "Ann\r\nBob", "address": "a\nb", "proxies": ["SMTP:a\u001bb"]}]}])");
    EXPECT_EQ(read.at(0).message.to.at(0).name, L"Ann  Bob");
    EXPECT_EQ(read[0].message.to[0].address, L"a b");
    EXPECT_EQ(read[0].message.to[0].proxies.at(0), L"SMTP:a b");
}

TEST(MessageJson, SaysWhatIsNoMessage) {
    const struct {
        const char* json;
        const char* told;
    } cases[] = {
        {"", "is no JSON"},
        {"[", "is no JSON"},
        {"{}", "not an object"},
        {"[1]", "message 1: an object"},
        {"[{}, {\"subject\": 5}]", "message 2: subject: a text was expected, not a number"},
        {"[{\"to\": [{}, {\"name\": 5}]}]", "message 1: to 2: name: a text was expected"},
        {"[{\"from\": {\"proxies\": [\"a\", 5]}}]", "message 1: from: proxies 2: a text was expected"},
        {"[{\"subject\": [[[]]]}]", "not a list"},
        {"[{\"subject\": true}]", "not true or false"},
        {"[{\"to\": {}}]", "to is no list"},
        {"[{\"to\": [\"ann\"]}]", "an object"},
        {"[{\"to\": [{\"resolvable\": 0}]}]", "resolvable is neither"},
        {"[{\"to\": [{\"distributionList\": \"no\"}]}]", "distributionList is neither"},
        {"[{\"class\": 1e300}]", "class"},
        {"[{\"class\": -1}]", "class"},
        {"[{\"class\": 65536}]", "class"},
        {"[{\"class\": \"mail\"}]", "class"},
        {"[{\"subject\": {\"utf16\": [\"a\"]}}]", "utf16"},
        {"[{\"subject\": {\"utf16\": [1e300]}}]", "utf16"},
        {"[{\"subject\": {\"utf16\": [65, -1]}}]", "utf16"},
        {"[{\"subject\": {\"utf16\": [65536]}}]", "utf16"},
        {"[{\"deliveryTime\": 5}]", "deliveryTime"},
        {"[{\"deliveryTime\": \"yesterday\"}]", "deliveryTime"},
        {"[{\"deliveryTime\": \"2023-02-29T00:00:00\"}]", "deliveryTime"},
        {"[{\"deliveryTime\": \"2023-02-28T24:00:00\"}]", "deliveryTime"},
        {"[{\"deliveryTime\": \"2023-02-28T00:00:00Z\"}]", "deliveryTime"},
        {"[{\"deliveryTime\": \"2023-+2-28T 0:00:00\"}]", "deliveryTime"},
        {"[{\"deliveryTime\": \"0000-02-28T00:00:00\"}]", "deliveryTime"},
    };
    for (const auto& [json, told] : cases) {
        try {
            program::parseMessages(json);
            ADD_FAILURE() << "accepted " << json;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(told), std::string::npos) << json << error.what();
        }
    }
}

}  // namespace
