#include "program/Session.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "platform/outlook.h"

namespace {

using nlohmann::json;

constexpr std::int32_t itemSend = 0xF002;
constexpr std::int32_t newInspector = 0xF001;

std::vector<json> lines(const std::ostringstream& output) {
    std::vector<json> events;
    std::istringstream text(output.str());
    for (std::string line; std::getline(text, line);) {
        events.push_back(json::parse(line));
    }
    return events;
}

host::Message mailTo(const std::wstring& address, const std::wstring& subject) {
    host::Message message;
    message.to = {{.name = address, .address = address}};
    message.subject = subject;
    message.body = L"Hello.";
    return message;
}

host::Message receivedMail() {
    host::Message message = mailTo(L"me@example.org", L"Lunch");
    message.from = host::Address{.name = L"Ann", .address = L"ann@example.com"};
    message.cc = {{.name = L"Bo", .address = L"bo@example.net"}};
    return message;
}

struct Run {
    program::ExitStatus status;
    std::vector<json> events;
};

/// A run without an add-in; `onItemSend` stands for what one does when a mail leaves.
Run run(const std::vector<std::wstring>& words, const std::vector<program::MessageFile>& messages,
        const std::function<void(std::span<automation::Value>)>& onItemSend = {},
        const bool* unanswered = nullptr) {
    const auto line = program::parseCommandLine(words);
    std::ostringstream output;
    program::Report report(output, program::Report::Format::JsonLines);
    host::Outlook outlook(line.profile());
    const auto token =
        automation::subscribe(outlook.application(), outlook::events::application,
                              [&onItemSend](std::int32_t event, std::span<automation::Value> arguments) {
                                  if (event == 0xF002 && onItemSend) {
                                      onItemSend(arguments);
                                  }
                              });
    program::Session session(
        line, outlook, report, [unanswered] { return unanswered && *unanswered; }, [] {});
    const auto status = session.run(messages);
    session.quit();
    return {status, lines(output)};
}

TEST(Session, ReportsSendsInOrder) {
    auto deferred = mailTo(L"bo@example.net", L"Later");
    deferred.deferredDeliveryTime = automation::Date{46023.5};
    const auto result =
        run({L"send", L"x"}, {{L"a.eml", mailTo(L"ann@example.com", L"Now")}, {L"b.eml", deferred}});
    EXPECT_EQ(result.status, program::ExitStatus::Done);
    ASSERT_EQ(result.events.size(), 2U);
    EXPECT_EQ(result.events[0], json::parse(R"({"event": "sent", "file": "a.eml", "subject": "Now",
        "to": ["ann@example.com"], "deferred": null, "account": "Work"})"));
    EXPECT_EQ(result.events[1]["deferred"], "2026-01-01T12:00:00");
}

TEST(Session, GoesOnAfterACancelledSend) {
    int sends = 0;
    const auto cancelFirst = [&sends](std::span<automation::Value> arguments) {
        if (++sends == 1) {
            arguments[1].variable() = true;
        }
    };
    const auto result =
        run({L"send", L"x"},
            {{L"a.eml", mailTo(L"ann@example.com", L"One")}, {L"b.eml", mailTo(L"ann@example.com", L"Two")}},
            cancelFirst);
    EXPECT_EQ(result.status, program::ExitStatus::Cancelled);
    ASSERT_EQ(result.events.size(), 2U);
    EXPECT_EQ(result.events[0]["event"], "cancelled");
    EXPECT_EQ(result.events[1]["event"], "sent");
}

TEST(Session, SendsNothingOnceAPromptFoundNoAnswer) {
    bool unanswered = false;
    const auto askInVain = [&unanswered](std::span<automation::Value>) { unanswered = true; };
    const auto result =
        run({L"send", L"x"},
            {{L"a.eml", mailTo(L"ann@example.com", L"One")}, {L"b.eml", mailTo(L"ann@example.com", L"Two")}},
            askInVain, &unanswered);
    EXPECT_EQ(result.status, program::ExitStatus::UnansweredPrompt);
    ASSERT_EQ(result.events.size(), 1U);
    EXPECT_EQ(result.events[0]["event"], "cancelled");
    EXPECT_EQ(result.events[0]["file"], "a.eml");
}

TEST(Session, EndsEachSendWithItsOutcomeWhateverHappens) {
    const struct {
        const char* fault;
        std::int32_t event;
        std::function<void(host::Outlook&)> act;
        const char* outcome;
    } cases[] = {
        {"the window is gone before Send is pressed", newInspector,
         [](host::Outlook& host) { host.closeInspector(host.inspectors().back()); }, "cancelled"},
        {"the mail is deleted as its window opens", newInspector,
         [](host::Outlook& host) { host.deleteItem(host.itemOf(host.inspectors().back())); }, "cancelled"},
        {"the mail is deleted while it is sent", itemSend,
         [](host::Outlook& host) { host.deleteItem(host.itemOf(host.inspectors().back())); }, "cancelled"},
        {"the window is closed while the mail is sent", itemSend,
         [](host::Outlook& host) { host.closeInspector(host.inspectors().back()); }, "sent"},
    };
    for (const auto& test : cases) {
        const auto line = program::parseCommandLine({L"send", L"x"});
        std::ostringstream output;
        program::Report report(output, program::Report::Format::JsonLines);
        host::Outlook host(line.profile());
        const auto act = [&](std::int32_t event, std::span<automation::Value>) {
            if (event == test.event) {
                test.act(host);
            }
        };
        const auto send = automation::subscribe(host.application(), outlook::events::application, act);
        const auto open = automation::subscribe(host.application().get(L"Inspectors").toObject(),
                                                outlook::events::inspectors, act);
        program::Session session(
            line, host, report, [] { return false; }, [] {});
        session.run({{L"a.eml", mailTo(L"ann@example.com", L"One")}});
        session.quit();
        const auto events = lines(output);
        ASSERT_FALSE(events.empty()) << test.fault;
        EXPECT_EQ(events.back()["event"], test.outcome) << test.fault << output.str();
        EXPECT_EQ(events.back()["subject"], "One") << test.fault << output.str();
        EXPECT_EQ(events.back()["file"], "a.eml") << test.fault;
    }
}

TEST(Session, TellsOfAHandlerThatFails) {
    const auto result =
        run({L"send", L"x"}, {{L"a.eml", mailTo(L"ann@example.com", L"One")}},
            [](std::span<automation::Value>) { throw automation::Error(13, L"Type mismatch"); });
    EXPECT_EQ(result.status, program::ExitStatus::Done);
    ASSERT_EQ(result.events.size(), 2U);
    EXPECT_EQ(
        result.events[0],
        json::parse(R"({"event": "error", "file": "a.eml", "text": "ItemSend: error 13, Type mismatch"})"));
    EXPECT_EQ(result.events[1]["event"], "sent");
}

TEST(Session, AnswersReceivedMail) {
    struct Case {
        std::vector<std::wstring> words;
        const char* expected;
    };
    const Case cases[] = {
        {{L"reply", L"x"},
         R"({"event": "reply", "file": "a.eml", "kind": "reply", "subject": "RE: Lunch", "recipients": ["ann@example.com"]})"},
        {{L"reply-all", L"x"},
         R"({"event": "reply", "file": "a.eml", "kind": "reply-all", "subject": "RE: Lunch",
             "recipients": ["ann@example.com", "me@example.org", "bo@example.net"]})"},
        {{L"forward", L"x"},
         R"({"event": "reply", "file": "a.eml", "kind": "forward", "subject": "FW: Lunch", "recipients": []})"},
        {{L"reply-all", L"x", L"--bcc-me", L"--account", L"Home=bo@example.net"},
         R"({"event": "reply", "file": "a.eml", "kind": "reply-all", "subject": "RE: Lunch",
             "recipients": ["ann@example.com", "me@example.org"]})"},
    };
    for (const Case& test : cases) {
        const auto result = run(test.words, {{L"a.eml", receivedMail()}});
        EXPECT_EQ(result.status, program::ExitStatus::Done);
        ASSERT_EQ(result.events.size(), 1U);
        EXPECT_EQ(result.events[0], json::parse(test.expected));
    }
}

}  // namespace
