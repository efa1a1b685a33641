#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>

#include "program/Session.h"
#include "tests/host/EventLog.h"
#include "tests/host/stamps.h"

namespace {

using automation::Object;
using automation::Value;
using host::AccountType;
using nlohmann::json;

constexpr std::int32_t failed = automation::errors::failed;
constexpr std::int32_t badIndex = -2147352567;
constexpr std::int32_t badCount = -2147352562;
constexpr std::int32_t notFound = -2147221233;
constexpr std::int32_t accessDenied = -2147024891;

constexpr auto tag(std::uint32_t value) {
    return static_cast<std::int32_t>(value);
}

constexpr std::int32_t primaryAccount = tag(0x0E28001E);
constexpr std::int32_t nextAccount = tag(0x0E29001E);
constexpr std::int32_t accountName = tag(0x812C001E);
constexpr std::int32_t sendStamp = tag(0x000E001F);

/// A profile with an account of each type, and a session of Redemption's that is tied to Outlook's.
class HostAccountsTest : public testing::Test {
  protected:
    static host::Profile profile() {
        host::Profile result;
        result.accounts = {
            {.name = L"Directory", .address = L"ldap.example.org", .type = AccountType::Ldap},
            {.name = L"Work", .address = L"me@example.org", .stamp = L"00000007", .sendStamp = L"W7"},
            {.name = L"2", .address = L"me@home.example", .type = AccountType::Imap},
            {.name = L"Office", .address = L"/o=Org/cn=me", .type = AccountType::Exchange},
            {.name = L"Web", .address = L"me@web.example", .type = AccountType::Http},
            {.name = L"Fax", .address = L"fax", .type = AccountType::Mapi}};
        return result;
    }
    void open(host::Profile chosen) {
        outlook_ = std::make_unique<host::Outlook>(std::move(chosen));
        nameSpace_ = outlook_->application().get(L"Session").toObject();
        session_ = make(L"vtRDOSession");
        session_.put(L"MAPIOBJECT", nameSpace_.get(L"MAPIOBJECT"));
        accounts_ = session_.get(L"Accounts").toObject();
    }
    void SetUp() override { open(profile()); }

    Object make(const std::wstring& name) {
        return outlook_->automation().createObject(L"vtRedemption." + name);
    }
    Object safe(const Object& item) {
        const Object result = make(L"vtSafeMailItem");
        result.put(L"Item", item);
        return result;
    }
    Object account(const Value& key) { return accounts_.get(L"Item", key).toObject(); }
    /// The item as Redemption's session opens it by its id.
    Object message(const Object& item) {
        return session_.call(L"GetMessageFromID", item.get(L"EntryID")).toObject();
    }
    void stamp(const Object& item, const Object& with) {
        const Object mail = safe(item);
        writeStamp(mail, with);
        mail.call(L"Save");
    }

    std::unique_ptr<host::Outlook> outlook_;
    Object nameSpace_;
    Object session_;
    Object accounts_;
};

TEST_F(HostAccountsTest, EachCategoryHasItsKindsInTheProfilesOrder) {
    struct Case {
        int category;
        std::vector<std::wstring> names;
        std::int32_t error;
    };
    const Case cases[] = {{0, {}, failed},
                          {1, {L"Office"}, 0},
                          {2, {L"Work", L"2", L"Office", L"Web", L"Fax"}, 0},
                          {3, {L"Directory"}, 0},
                          {4, {}, failed}};
    for (const Case& test : cases) {
        std::vector<std::wstring> names;
        const auto error = errorOf([&] {
            const Object order = accounts_.call(L"getorder", test.category).toObject();
            for (int i = 1; i <= order.get(L"COUNT").toInteger(); ++i) {
                names.push_back(order.get(L"Item", i).toObject().get(L"Name").toText());
            }
        });
        EXPECT_EQ(error, test.error) << test.category;
        EXPECT_EQ(names, test.names) << test.category;
    }
    const Object order = accounts_.call(L"GetOrder", 2).toObject();
    EXPECT_EQ(errorOf([&] { order.call(L"GetOrder", 2); }), 438) << "the order has no order";
    EXPECT_EQ(errorOf([&] { order.get(L"Item", L"Directory"); }), notFound) << "left out, so not in it";
    EXPECT_EQ(order.get(L"Item", 3).toObject(), account(L"OFFICE")) << "one account, reached in two ways";
    open({.accounts = {}});
    EXPECT_EQ(accounts_.call(L"GetOrder", 2).toObject().get(L"Count").toInteger(), 0);
}

TEST_F(HostAccountsTest, ATextIsANameAndANumberIsAPlace) {
    struct Case {
        Value key;
        const wchar_t* name;
        std::int32_t error;
    };
    const Case cases[] = {{L"Work", L"Work", 0},     {L"wORK", L"Work", 0},    {L"2", L"2", 0},
                          {2, L"Work", 0},           {6, L"Fax", 0},           {L" Work", nullptr, notFound},
                          {L"1", nullptr, notFound}, {L"", nullptr, notFound}, {0, nullptr, badIndex},
                          {-1, nullptr, badIndex},   {7, nullptr, badIndex},   {Object(), nullptr, 13}};
    for (const Case& test : cases) {
        const auto row = &test - cases;
        Object found;
        EXPECT_EQ(errorOf([&] { found = account(test.key); }), test.error) << row;
        ASSERT_EQ(static_cast<bool>(found), test.name != nullptr) << row;
        EXPECT_TRUE(!found || found.get(L"Name").toText() == test.name) << row;
    }
}

TEST_F(HostAccountsTest, OnlyInternetAccountsHaveAnSmtpAddress) {
    const wchar_t* const addresses[] = {
        L"me@example.org", L"me@home.example", L"me@web.example", nullptr, nullptr, nullptr};
    const wchar_t* const names[] = {L"Work", L"2", L"Web", L"Office", L"Fax", L"Directory"};
    for (int type = 0; type < 6; ++type) {
        const Object found = account(names[type]);
        EXPECT_EQ(found.get(L"AccountType").toInteger(), type);
        std::wstring address;
        const auto error = errorOf([&] { address = found.get(L"smtpaddress").toText(); });
        EXPECT_EQ(error, addresses[type] ? 0 : 438) << type;
        EXPECT_EQ(address, addresses[type] ? addresses[type] : L"") << type;
    }
}

TEST_F(HostAccountsTest, StampsTellAccountsApart) {
    EXPECT_EQ(account(L"Work").get(L"Stamp").toText(), L"00000007");
    EXPECT_EQ(account(L"Work").get(L"Fields", sendStamp).toText(), L"W7");
    std::vector<std::wstring> seen;
    for (int i = 1; i <= accounts_.get(L"Count").toInteger(); ++i) {
        const Object one = account(i);
        seen.push_back(one.get(L"Stamp").toText());
        seen.push_back(one.get(L"Fields", sendStamp).toText());
    }
    EXPECT_EQ(std::ranges::count(seen, L""), 0);
    std::ranges::sort(seen);
    EXPECT_EQ(std::ranges::adjacent_find(seen), seen.end()) << "nor is a stamp a send stamp";
    const Object work = account(L"Work");
    EXPECT_TRUE(work.get(L"Fields", tag(0x7FFF001F)).isEmpty());
    EXPECT_EQ(errorOf([&] { work.get(L"Fields"); }), badCount);
    EXPECT_EQ(errorOf([&] { work.get(L"Fields", L"stamp"); }), 13);
}

TEST_F(HostAccountsTest, AStampedMailLeavesWithThatAccountAndKeepsTheStamps) {
    open({.accounts = {profile().accounts[1], profile().accounts[2], profile().accounts[3]}});
    struct Case {
        const wchar_t* chosen;
        const wchar_t* stamped;
        const wchar_t* expected;
    };
    const Case cases[] = {{nullptr, nullptr, L"Work"},  {L"OFFICE", nullptr, L"Office"},
                          {nullptr, L"2", L"2"},        {nullptr, L"Office", L"Office"},
                          {L"2", L"Office", L"Office"}, {L"Office", L"Work", L"Work"}};
    for (const Case& test : cases) {
        const Object inspector = outlook_->openNewMail(mailTo(L"bob@example.com"));
        const Object item = outlook_->itemOf(inspector);
        EXPECT_FALSE(item.get(L"SendUsingAccount").toObject()) << "none chosen yet";
        if (test.chosen) {
            item.putReference(L"SendUsingAccount", nameSpace_.get(L"Accounts", test.chosen));
        }
        if (test.stamped) {
            stamp(item, account(test.stamped));
        } else {
            safe(item).put(L"Fields", accountName, L"");
        }
        EXPECT_EQ(outlook_->view(item).account, test.expected) << "while it is open";
        const host::SendOutcome sent = outlook_->send(inspector);
        EXPECT_EQ(sent.mail.account, test.expected);
        EXPECT_EQ(message(sent.item).get(L"Account").toObject(), account(test.expected));
        if (test.stamped) {
            const Object used = account(test.stamped);
            const std::wstring send = used.get(L"Fields", sendStamp).toText();
            const Object mail = safe(sent.item);
            EXPECT_EQ(mail.get(L"Fields", primaryAccount).toText(), send);
            EXPECT_EQ(mail.get(L"Fields", nextAccount).toText(), send);
            EXPECT_EQ(mail.get(L"Fields", tag(0x812D001F)).toText(), used.get(L"Stamp").toText());
        }
    }
}

TEST_F(HostAccountsTest, AnItemTellsTheAccountChosenOrStampedButNotTheDefaultOne) {
    const Object item = outlook_->receive(mailTo(L"me@example.org"));
    const Object mail = message(item);
    EXPECT_FALSE(mail.get(L"Account").toObject());
    item.putReference(L"SendUsingAccount", nameSpace_.get(L"Accounts", L"Web"));
    EXPECT_FALSE(mail.get(L"Account").toObject()) << "not saved yet";
    item.call(L"Save");
    EXPECT_EQ(mail.get(L"ACCOUNT").toObject(), account(L"Web"));
    stamp(item, account(L"2"));
    EXPECT_EQ(mail.get(L"Account").toObject(), account(L"2"));
    mail.put(L"Fields", accountName, L"Renamed since");
    EXPECT_EQ(mail.get(L"Account").toObject(), account(L"2"));
    mail.put(L"Fields", nextAccount, L"Another");
    EXPECT_EQ(mail.get(L"Account").toObject(), account(L"Web"))
        << "a stamp that is not whole counts for none";
    EXPECT_EQ(errorOf([&] { safe(item).get(L"Account"); }), 438) << "only the session's messages have it";
    EXPECT_EQ(errorOf([&] { item.putReference(L"SendUsingAccount", L"Web"); }), 13)
        << "an account, not its name";
    EXPECT_EQ(errorOf([&] { item.putReference(L"SendUsingAccount", account(L"Web")); }), 13)
        << "not Redemption's";
}

TEST_F(HostAccountsTest, ASessionAnswersOnlyWhileItIsTiedOrLoggedOn) {
    const std::wstring id = outlook_->receive(mailTo(L"me@example.org")).get(L"EntryID").toText();
    const Object session = make(L"vtrdosession");
    const auto expect = [&](std::int32_t tied, std::int32_t loggedOn) {
        EXPECT_EQ(session.get(L"loggedon").toBool(), loggedOn == 0);
        EXPECT_EQ(errorOf([&] { session.get(L"Accounts"); }), tied);
        EXPECT_EQ(errorOf([&] { session.get(L"Stores"); }), loggedOn);
        EXPECT_EQ(errorOf([&] { session.get(L"CurrentUser"); }), loggedOn);
        EXPECT_EQ(errorOf([&] { session.call(L"GetMessageFromID", id); }), tied);
    };
    expect(failed, failed);
    for (const Value& wrong : {Value(nameSpace_), Value(L"session"), Value(outlook_->application())}) {
        EXPECT_EQ(errorOf([&] { session.put(L"MAPIOBJECT", wrong); }), 13);
    }
    expect(failed, failed);
    session.put(L"mapiobject", nameSpace_.get(L"MAPIOBJECT"));
    expect(0, failed);
    session.call(L"Logoff");
    expect(failed, failed);
    session.call(L"Logon");
    expect(0, 0);
    const Object utilities = make(L"vtMAPIUtils");
    EXPECT_EQ(errorOf([&] { utilities.put(L"MAPIOBJECT", nameSpace_); }), 13);
    utilities.put(L"MAPIOBJECT", nameSpace_.get(L"MAPIOBJECT"));
    utilities.call(L"Cleanup");
    expect(0, 0);
}

TEST_F(HostAccountsTest, MessagesAreOpenedByTheIdThatTheyHaveNow) {
    const Object item = outlook_->receive(mailTo(L"me@example.org"));
    const Object inbox = nameSpace_.call(L"GetDefaultFolder", 6).toObject();
    const std::wstring id = item.get(L"EntryID").toText();
    const auto open = [&](auto... arguments) {
        return session_.call(L"GetMessageFromID", arguments...).toObject();
    };
    EXPECT_EQ(open(id).get(L"Subject").toText(), L"Budget");
    const Object mail = open(id, inbox.get(L"StoreID"));
    for (const bool unread : {false, true}) {
        mail.put(L"Unread", unread);
        EXPECT_EQ(outlook_->view(item).unread, unread);
        EXPECT_EQ(mail.get(L"UNREAD").toBool(), unread);
    }
    const Object moved = item.call(L"Move", nameSpace_.call(L"GetDefaultFolder", 16)).toObject();
    EXPECT_EQ(errorOf([&] { open(id); }), notFound) << "moved";
    EXPECT_NE(errorOf([&] { mail.get(L"UnRead"); }), 0) << "opened before the move";
    const std::wstring now = moved.get(L"EntryID").toText();
    EXPECT_TRUE(open(now).get(L"UnRead").toBool());
    moved.call(L"Delete");
    outlook_->deleteItem(outlook_->itemsIn(L"Deleted Items").front());
    EXPECT_EQ(errorOf([&] { open(now); }), notFound) << "deleted for good";
    const Object fresh = outlook_->itemOf(outlook_->openNewMail(mailTo(L"bob@example.com")));
    EXPECT_EQ(errorOf([&] { message(fresh); }), notFound) << "never saved";
    EXPECT_EQ(errorOf([&] { open(); }), badCount);
}

TEST_F(HostAccountsTest, AReadOnlyStoreRefusesToSaveAStampedItem) {
    auto readOnly = profile();
    readOnly.stores[0].readOnly = true;
    readOnly.messages = {{.folder = L"Inbox", .message = mailTo(L"me@example.org")}};
    open(readOnly);
    const Object fresh = outlook_->itemOf(outlook_->openNewMail(mailTo(L"bob@example.com")));
    EXPECT_EQ(errorOf([&] { stamp(fresh, account(L"2")); }), accessDenied);
    EXPECT_EQ(fresh.get(L"EntryID").toText(), L"");
    const Object mail = message(outlook_->itemsIn(L"Inbox").front());
    mail.put(L"Subject", L"New");
    EXPECT_EQ(errorOf([&] { mail.call(L"SAVE"); }), accessDenied);
}

struct Run {
    program::ExitStatus status = program::ExitStatus::BadInput;
    std::vector<json> events{};
};

/// A whole run; `prepare` does what an add-in does when it is connected.
Run run(const program::CommandLine& line, const std::vector<program::MessageFile>& messages,
        const std::function<automation::Subscription(host::Outlook&)>& prepare) {
    std::ostringstream output;
    program::Report report(output, program::Report::Format::JsonLines);
    host::Outlook outlook(line.profile());
    const auto token = prepare(outlook);
    program::Session session(
        line, outlook, report, [] { return false; }, [] {});
    Run result{.status = session.run(messages)};
    session.quit();
    std::istringstream lines(output.str());
    for (std::string one; std::getline(lines, one);) {
        result.events.push_back(json::parse(one));
    }
    return result;
}

TEST(HostAccountsInRunsTest, TheSentEventTellsTheAccountThatTheMailLeftWith) {
    const auto line = program::parseCommandLine(
        {L"send", L"x", L"--account", L"Work=me@example.org", L"--account", L"Caf\u00e9=me@cafe.example"});
    auto chosen = mailTo(L"bob@example.com", L"Chosen");
    chosen.account = L"Caf\u00e9";
    const auto stampOnSend = [](host::Outlook& outlook, std::span<Value> arguments) {
        const Object item = arguments[0].toObject();
        if (item.get(L"Subject").toText() == L"Stamped") {
            stampItem(outlook, item, L"Caf\u00e9");
        }
    };
    const auto result =
        run(line,
            {{L"a.eml", mailTo(L"bob@example.com", L"Plain")},
             {L"b.eml", chosen},
             {L"c.eml", mailTo(L"bob@example.com", L"Stamped")}},
            [&](host::Outlook& outlook) {
                return automation::subscribe(outlook.application(), outlook::events::application,
                                             [&](std::int32_t event, std::span<Value> arguments) {
                                                 if (event == 0xF002) {
                                                     stampOnSend(outlook, arguments);
                                                 }
                                             });
            });
    EXPECT_EQ(result.status, program::ExitStatus::Done);
    ASSERT_EQ(result.events.size(), 3U);
    const char* const expected[] = {"Work", "Caf\u00e9", "Caf\u00e9"};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(result.events[i]["event"], "sent");
        EXPECT_EQ(result.events[i]["account"], expected[i]) << i;
    }
}

TEST(HostAccountsInRunsTest, TheListOpensFromTheMenuOrIsSaidToBeMissing) {
    const auto line = program::parseCommandLine({L"list", L"--outlook", L"12.0.0.4518"});
    const auto without = run(line, {}, [](host::Outlook&) { return automation::Subscription(); });
    EXPECT_EQ(without.status, program::ExitStatus::Cancelled);
    ASSERT_EQ(without.events.size(), 1U);
    EXPECT_EQ(without.events[0]["event"], "error");
    EXPECT_EQ(
        without.events[0]["text"],
        "the command \"Send Account (Preferred) List\" cannot be chosen: The operation failed. An object could "
        "not be found.");
    int pressed = 0;
    const auto with = run(line, {}, [&pressed](host::Outlook& outlook) {
        Object control = outlook.explorers().front().get(L"CommandBars", 1).toObject();
        for (const auto& [type, caption] :
             {std::pair{10, L"&Tarnwell"}, {10, L"Vel&tro"}, {1, L"Send &Account (Preferred) List"}}) {
            control = control.get(L"Controls").toObject().call(L"Add", type).toObject();
            control.put(L"Caption", caption);
        }
        return automation::subscribe(control, outlook::events::commandBarButton,
                                     [&pressed](std::int32_t, std::span<Value>) { ++pressed; });
    });
    EXPECT_EQ(with.status, program::ExitStatus::Done);
    EXPECT_TRUE(with.events.empty());
    EXPECT_EQ(pressed, 1);
}

TEST(HostAccountsInRunsTest, AListOnTheCommandLineIsInTheSettingsFolder) {
    const auto line = program::parseCommandLine(
        {L"list", L"--list", L"ann@example.org=Work", L"--list", L"bob@example.org="});
    const host::Outlook outlook(line.profile());
    const auto items = outlook.itemsIn(L"Corvane Settings\\Veltro");
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].get(L"Subject").toText(), L"Email Address");
    EXPECT_TRUE(items[0].get(L"Body").toText().ends_with(
        L"<rs:data>\r\n\t<z:row strEmailAddress='ann@example.org' strAccount='Work'/>\r\n\t<z:row "
        L"strEmailAddress='bob@example.org' strAccount=''/>\r\n</rs:data>\r\n</xml>"));
}

}  // namespace
