#include <gtest/gtest.h>

#include <algorithm>

#include "tests/host/EventLog.h"

namespace {

using automation::Object;

constexpr std::int32_t aborted = host::guardRefusal::aborted;

host::Message received() {
    host::Message message = mailTo(L"me@example.org");
    message.from = host::Address{.name = L"Ann", .address = L"ann@example.com"};
    message.attachments = {{.fileName = L"a.txt"}};
    return message;
}

/// The calls that the guard knows, each with the least version that guards it.
struct Guarded {
    const wchar_t* name;
    int since;
    std::function<void(const Object& application, const Object& item)> call;
};

Object recipientOf(const Object& item) {
    return item.get(L"Recipients", 1).toObject();
}

const Guarded guardedCalls[] = {
    {L"MailItem.Body", 11, [](const Object&, const Object& item) { item.get(L"Body"); }},
    {L"MailItem.HTMLBody", 11, [](const Object&, const Object& item) { item.get(L"HTMLBody"); }},
    {L"MailItem.To", 9, [](const Object&, const Object& item) { item.get(L"To"); }},
    {L"MailItem.CC", 9, [](const Object&, const Object& item) { item.get(L"CC"); }},
    {L"MailItem.BCC", 9, [](const Object&, const Object& item) { item.get(L"BCC"); }},
    {L"MailItem.Recipients", 9, [](const Object&, const Object& item) { recipientOf(item); }},
    {L"MailItem.ReplyRecipients", 9, [](const Object&, const Object& item) { item.get(L"ReplyRecipients"); }},
    {L"MailItem.SenderName", 9, [](const Object&, const Object& item) { item.get(L"SenderName"); }},
    {L"MailItem.SentOnBehalfOfName", 9,
     [](const Object&, const Object& item) { item.get(L"SentOnBehalfOfName"); }},
    {L"MailItem.Send", 9, [](const Object&, const Object& item) { item.call(L"Send"); }},
    {L"UserProperties.Find", 9,
     [](const Object&, const Object& item) { item.get(L"UserProperties").toObject().call(L"Find", L"x"); }},
    {L"NameSpace.CurrentUser", 9,
     [](const Object& application, const Object&) {
         application.get(L"Session").toObject().get(L"CurrentUser");
     }},
    {L"MailItem.SenderEmailType", 11,
     [](const Object&, const Object& item) { item.get(L"SenderEmailType"); }},
    {L"MailItem.SenderEmailAddress", 11,
     [](const Object&, const Object& item) { item.get(L"SenderEmailAddress"); }},
    {L"MailItem.PropertyAccessor", 12,
     [](const Object&, const Object& item) { item.get(L"PropertyAccessor"); }},
    {L"Attachment.PropertyAccessor", 12,
     [](const Object&, const Object& item) {
         item.get(L"Attachments", 1).toObject().get(L"PropertyAccessor");
     }},
    {L"Account.SmtpAddress", 12,
     [](const Object& application, const Object&) {
         application.get(L"Session").toObject().get(L"Accounts", 1).toObject().get(L"SmtpAddress");
     }},
    {L"MailItem.Sender", 14, [](const Object&, const Object& item) { item.get(L"Sender"); }},
};

constexpr const wchar_t* versions[] = {L"9.0.0.4527", L"10.0.6626", L"11.0.8173", L"12.0.6607",
                                       L"16.0.17328"};

int majorOf(const std::wstring& version) {
    return std::stoi(version);
}

/// Makes each of the calls that the version knows; those that were refused.
std::vector<std::wstring> refusedOf(host::Outlook& outlook, const Object& application, const Object& item,
                                    int version, std::int32_t refusal = aborted) {
    std::vector<std::wstring> refused;
    for (const Guarded& guarded : guardedCalls) {
        if (version < guarded.since && errorOf([&] { guarded.call(application, item); }) == 438) {
            continue;
        }
        const auto before = outlook.guardPrompts().size();
        if (errorOf([&] { guarded.call(application, item); }) == refusal) {
            refused.emplace_back(guarded.name);
            EXPECT_EQ(outlook.guardPrompts().size(), before + 1) << guarded.name;
            EXPECT_EQ(outlook.guardPrompts().back(), guarded.name);
        }
    }
    return refused;
}

std::vector<std::wstring> allOf(int version) {
    std::vector<std::wstring> names;
    for (const Guarded& guarded : guardedCalls) {
        if (version >= guarded.since) {
            names.emplace_back(guarded.name);
        }
    }
    return names;
}

/// An item that the program has reached through the application.
Object firstMail(const Object& application) {
    return application.get(L"Session")
        .toObject()
        .call(L"GetDefaultFolder", 6)
        .toObject()
        .get(L"Items", 1)
        .toObject();
}

TEST(HostGuardTest, RefusesWhatTheVersionGuardsToThoseItDoesNotTrust) {
    for (const wchar_t* version : versions) {
        const int major = majorOf(version);
        const struct {
            host::GuardMode mode;
            bool created;
            bool refused;
        } cases[] = {
            {host::GuardMode::Off, false, false},
            {host::GuardMode::Off, true, false},
            {host::GuardMode::OfVersion, false, major < 11},
            {host::GuardMode::OfVersion, true, true},
            {host::GuardMode::Everybody, false, true},
            {host::GuardMode::Everybody, true, true},
        };
        for (const auto& test : cases) {
            host::Outlook outlook({.version = version, .guard = test.mode});
            outlook.receive(received());
            const Object application = test.created
                                           ? outlook.automation().createObject(L"Outlook.Application")
                                           : outlook.application();
            const auto refused = refusedOf(outlook, application, firstMail(application), major);
            EXPECT_EQ(refused, test.refused ? allOf(major) : std::vector<std::wstring>())
                << major << " created " << test.created;
        }
    }
}

TEST(HostGuardTest, LeavesAloneWhatIsNotGuarded) {
    host::Outlook outlook({.version = L"9.0.0.4527", .guard = host::GuardMode::Everybody});
    const Object item = outlook.receive(received());
    for (const wchar_t* member : {L"Subject", L"EntryID", L"Attachments", L"Body", L"HTMLBody", L"Sent",
                                  L"Saved", L"Class", L"Parent", L"ReceivedTime", L"UserProperties"}) {
        EXPECT_EQ(errorOf([&] { item.get(member); }), 0) << member;
    }
    item.put(L"To", L"Ann");
    item.put(L"Body", L"text");
    item.call(L"Save");
    const Object safe = outlook.automation().createObject(L"vtRedemption.vtSafeMailItem");
    safe.put(L"Item", item);
    const Object recipient = safe.get(L"Recipients", 1).toObject();
    EXPECT_EQ(recipient.get(L"Name").toText(), L"Ann");
    EXPECT_EQ(safe.get(L"To").toText(), L"Ann");
    EXPECT_TRUE(outlook.guardPrompts().empty());
}

TEST(HostGuardTest, RefusesWithTheNumberOfTheProfile) {
    for (const std::int32_t number : {host::guardRefusal::aborted, host::guardRefusal::userCancelled}) {
        host::Outlook outlook({.guard = host::GuardMode::Everybody, .guardRefusal = number});
        const Object item = outlook.receive(received());
        EXPECT_EQ(errorOf([&] { item.get(L"To"); }), number);
        EXPECT_EQ(outlook.guardPrompts(), std::vector<std::wstring>{L"MailItem.To"});
    }
}

TEST(HostGuardTest, AnApplicationThatWasMadeIsAnotherObjectWithTheSameEvents) {
    host::Outlook outlook({});
    const Object made = outlook.automation().createObject(L"Outlook.Application");
    EXPECT_EQ(made, made.get(L"Application").toObject());
    EXPECT_FALSE(made == outlook.application());
    int quits = 0;
    const auto token =
        automation::subscribe(made, outlook::events::application, [&](std::int32_t, auto) { ++quits; });
    outlook.quit();
    EXPECT_EQ(quits, 1);
}

}  // namespace
