#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/host/EventLog.h"
#include "tests/scenarios/AddInWorld.h"

namespace {

using automation::Object;
using automation::Value;

constexpr std::int32_t notFound = -2147221233;  // MAPI_E_NOT_FOUND

std::vector<host::Account> accounts() {
    using host::AccountType;
    return {{.name = L"Work", .address = L"me@example.org"},
            {.name = L"Imap", .address = L"i@example.org", .type = AccountType::Imap},
            {.name = L"Directory", .type = AccountType::Ldap},
            {.name = L"Web", .address = L"", .type = AccountType::Http},
            {.name = L"Office", .address = L"me@office.example", .type = AccountType::Exchange},
            {.name = L"Fax", .address = L"fax", .type = AccountType::Mapi}};
}

/// What Outlook has learnt since 2003, without any helper library.
class HostLaterOutlookTest : public testing::Test {
  protected:
    void open(host::Profile profile) {
        outlook_ = std::make_unique<host::Outlook>(std::move(profile));
        session_ = outlook_->application().get(L"Session").toObject();
    }
    Object newMail() { return outlook_->itemOf(outlook_->openNewMail(mailTo(L"bob@example.com"))); }
    Object account(const wchar_t* name) const { return session_.get(L"Accounts", name).toObject(); }

    std::unique_ptr<host::Outlook> outlook_;
    Object session_;
};

TEST_F(HostLaterOutlookTest, AccountsAreThoseThatSendWithOutlooksNumbers) {
    open({.accounts = accounts()});
    const struct {
        const wchar_t* name;
        int type;
        const wchar_t* address;
    } cases[] = {{L"Work", 2, L"me@example.org"},
                 {L"Imap", 1, L"i@example.org"},
                 {L"Web", 3, L""},
                 {L"Office", 0, L"me@office.example"},
                 {L"Fax", 5, L"fax"}};
    const Object list = session_.get(L"Accounts").toObject();
    ASSERT_EQ(list.get(L"Count").toInteger(), 5) << "a directory is none";
    for (int i = 0; i < 5; ++i) {
        const Object one = list.get(L"Item", i + 1).toObject();
        EXPECT_EQ(one.get(L"DisplayName").toText(), cases[i].name);
        EXPECT_EQ(one.get(L"AccountType").toInteger(), cases[i].type);
        EXPECT_EQ(one.get(L"SmtpAddress").toText(), cases[i].address);
    }
    EXPECT_EQ(errorOf([&] { account(L"Directory"); }), notFound);
}

TEST_F(HostLaterOutlookTest, AnAccountIsPutByReferenceOnly) {
    open({.accounts = accounts()});
    const Object mail = newMail();
    for (const Value& wrong : {Value(account(L"Imap")), Value(L"Imap"), Value()}) {
        mail.put(L"SendUsingAccount", wrong);
        EXPECT_FALSE(mail.get(L"SendUsingAccount").toObject());
    }
    mail.putReference(L"SendUsingAccount", account(L"Imap"));
    EXPECT_EQ(mail.get(L"SendUsingAccount").toObject(), account(L"Imap"));
    EXPECT_EQ(errorOf([&] { mail.putReference(L"SendUsingAccount", L"Imap"); }), 13);
    EXPECT_EQ(errorOf([&] { mail.putReference(L"Subject", L"x"); }), 438) << "a text is no reference";

    host::Message gone = mailTo(L"bob@example.com");
    gone.account = L"Gone";
    EXPECT_FALSE(outlook_->itemOf(outlook_->openNewMail(gone)).get(L"SendUsingAccount").toObject());
}

TEST_F(HostLaterOutlookTest, AnAccountSetWhileTheMailIsSentCountsWhenItIsSavedThen) {
    for (const wchar_t* event : {L"item Send", L"app ItemSend"}) {
        for (const bool saves : {false, true}) {
            open({.accounts = accounts()});
            const Object mail = newMail();
            EventLog log;
            log.watch(mail, outlook::events::item, L"item");
            log.watch(outlook_->application(), outlook::events::application, L"app");
            log.on(event, [&](auto) {
                mail.putReference(L"SendUsingAccount", account(L"Imap"));
                if (saves) {
                    mail.call(L"Save");
                }
            });
            EXPECT_EQ(outlook_->sendByProgram(mail).mail.account, saves ? L"Imap" : L"Work");
        }
    }
    open({.accounts = accounts()});
    const Object mail = newMail();
    mail.putReference(L"SendUsingAccount", account(L"Imap"));
    EXPECT_EQ(outlook_->sendByProgram(mail).mail.account, L"Imap") << "before the send it needs no save";
}

TEST_F(HostLaterOutlookTest, ExchangeKnowsItsOwn) {
    const std::vector<host::Address> entries = {
        {.name = L"Ann", .address = L"/o=x/cn=ann", .type = L"EX", .smtpAddress = L"ann@example.org"},
        {.name = L"Old", .address = L"/o=x/cn=old", .type = L"EX"},
        {.name = L"All",
         .address = L"/o=x/cn=all",
         .type = L"EX",
         .smtpAddress = L"all@example.org",
         .members = {{.name = L"Cy"}},
         .distributionList = true},
        {.name = L"Bob", .address = L"bob@example.com"},
        {.name = L"Team", .address = L"t", .type = L"MAPIPDL", .members = {{.name = L"Cy"}}}};
    open({});
    host::Message message = mailTo(L"x@example.com");
    message.to = entries;
    const Object mail = outlook_->receive(message);
    const struct {
        const wchar_t* user;  // Nothing: no such object.
        const wchar_t* list;
    } expected[] = {{L"ann@example.org", nullptr},
                    {L"", nullptr},
                    {nullptr, L"all@example.org"},
                    {nullptr, nullptr},
                    {nullptr, nullptr}};
    for (int i = 0; i < 5; ++i) {
        const Object entry = mail.get(L"Recipients", i + 1).toObject().get(L"AddressEntry").toObject();
        const auto check = [&](const wchar_t* member, const wchar_t* address) {
            const Object found = entry.call(member).toObject();
            ASSERT_EQ(static_cast<bool>(found), address != nullptr) << i;
            if (address) {
                EXPECT_EQ(found.get(L"PrimarySmtpAddress").toText(), address);
                EXPECT_EQ(found.get(L"Name").toText(), entries[static_cast<std::size_t>(i)].name);
            }
        };
        check(L"GetExchangeUser", expected[i].user);
        check(L"GetExchangeDistributionList", expected[i].list);
    }
    message.from =
        host::Address{.name = L"Left", .address = L"/o=x/cn=left", .type = L"EX", .resolvable = false};
    const Object sender = outlook_->receive(message).get(L"Sender").toObject();
    EXPECT_EQ(sender.get(L"Name").toText(), L"Left");
    EXPECT_EQ(errorOf([&] { sender.call(L"GetExchangeUser"); }), automation::errors::failed)
        << "the server has no such person any more";
    EXPECT_FALSE(newMail().get(L"Sender").toObject());
}

TEST_F(HostLaterOutlookTest, StoresTellWhoseTheyAre) {
    using host::StoreKind;
    open({.stores = {{.name = L"Me", .kind = StoreKind::PrimaryExchange},
                     {.name = L"Boss", .kind = StoreKind::DelegateExchange},
                     {.name = L"Public", .kind = StoreKind::PublicFolders},
                     {.name = L"Archive", .kind = StoreKind::PstUnicode}}});
    const Object stores = session_.get(L"Stores").toObject();
    ASSERT_EQ(stores.get(L"Count").toInteger(), 4);
    const wchar_t* const names[] = {L"Me", L"Boss", L"Public", L"Archive"};
    for (int i = 0; i < 4; ++i) {
        const Object store = stores.get(L"Item", i + 1).toObject();
        EXPECT_EQ(store.get(L"DisplayName").toText(), names[i]);
        EXPECT_EQ(store.get(L"ExchangeStoreType").toInteger(), i);
        const Object root = store.call(L"GetRootFolder").toObject();
        EXPECT_EQ(root.get(L"FolderPath").toText(), L"\\\\" + std::wstring(names[i]));
        EXPECT_EQ(root.get(L"StoreID").toText(), store.get(L"StoreID").toText());
    }
    EXPECT_EQ(stores.get(L"Item", L"boss").toObject(), stores.get(L"Item", 2).toObject());
}

TEST_F(HostLaterOutlookTest, AMessageFileIsAnItemThatMoveFilesIntoAFolder) {
    open({});
    const std::wstring path = (addInFolder() / "Introducing_Veltro.msg").wstring();
    const Object item = session_.call(L"OpenSharedItem", path).toObject();
    EXPECT_EQ(item.get(L"Subject").toText(), L"Introducing Veltro");
    EXPECT_EQ(item.get(L"EntryID").toText(), L"");
    EXPECT_TRUE(outlook_->itemsIn(L"Inbox").empty());
    const Object moved = item.call(L"Move", session_.call(L"GetDefaultFolder", 6)).toObject();
    ASSERT_EQ(outlook_->itemsIn(L"Inbox").size(), 1U);
    EXPECT_TRUE(moved.get(L"Sent").toBool());
    moved.put(L"UnRead", true);
    moved.call(L"Save");
    EXPECT_TRUE(outlook_->view(outlook_->itemsIn(L"Inbox").front()).unread);
    EXPECT_NE(errorOf([&] { item.get(L"Subject"); }), 0);
    EXPECT_NE(errorOf([&] { session_.call(L"OpenSharedItem", path + L"x"); }), 0);
}

TEST_F(HostLaterOutlookTest, ItemsAreFoundBySubject) {
    open({});
    const wchar_t* const subjects[] = {L"Email Address", L"email address", L"It's \"it\"", L""};
    for (const wchar_t* subject : subjects) {
        outlook_->receive(mailTo(L"me@example.org", subject));
    }
    const Object items = session_.call(L"GetDefaultFolder", 6).toObject().get(L"Items").toObject();
    constexpr std::int32_t cannotParse = -2147352567;
    const struct {
        const wchar_t* filter;
        int count;  // Less than none: an error.
    } cases[] = {{L"[Subject] = 'EMAIL Address'", 2},
                 {L"[subject]=\"Email Address\"", 2},
                 {L" [Subject]  =  'It''s \"it\"' ", 1},
                 {L"[Subject] = \"It's \"\"it\"\"\"", 1},
                 {L"[Subject] = ''", 1},
                 {L"[Subject] = 'Email'", 0},
                 {L"[Subject] = 'It's \"it\"'", -1},
                 {L"[Subject] = Email", -1},
                 {L"[Subject] = 'Email", -1},
                 {L"[Subject] = '", -1},
                 {L"[Subject] =", -1},
                 {L"[Subject]", -1},
                 {L"[Subject] <> 'x'", -1},
                 {L"[Size] = '1'", -1},
                 {L"[Subject] = 'a' And [Subject] = 'b'", -1},
                 {L"", -1}};
    for (const auto& test : cases) {
        const std::string name = text::toUtf8(test.filter);
        Object found;
        EXPECT_EQ(errorOf([&] { found = items.call(L"Find", test.filter).toObject(); }),
                  test.count < 0 ? cannotParse : 0)
            << name;
        EXPECT_EQ(static_cast<bool>(found), test.count > 0) << name;
        if (test.count >= 0) {
            const Object some = items.call(L"Restrict", test.filter).toObject();
            EXPECT_EQ(some.get(L"Count").toInteger(), test.count) << name;
            EXPECT_TRUE(!found || some.get(L"Item", 1).toObject() == found) << name;
        }
    }
}

TEST_F(HostLaterOutlookTest, MembersAreThereFromTheirVersionOn) {
    const struct {
        const char* name;
        int since;
        std::function<void()> use;
    } cases[] = {
        {"Accounts", 12, [&] { session_.get(L"Accounts"); }},
        {"Stores", 12, [&] { session_.get(L"Stores"); }},
        {"GetAddressEntryFromID", 12, [&] { session_.call(L"GetAddressEntryFromID", L"x"); }},
        {"OpenSharedItem", 12, [&] { session_.call(L"OpenSharedItem", L"x"); }},
        {"SendUsingAccount", 12, [&] { newMail().get(L"SendUsingAccount"); }},
        {"Sender", 14, [&] { newMail().get(L"Sender"); }},
    };
    for (const int version : {11, 12, 14}) {
        open({.version = std::to_wstring(version) + L".0"});
        for (const auto& test : cases) {
            EXPECT_EQ(errorOf(test.use) != 438, version >= test.since) << test.name << " in " << version;
        }
    }
}

}  // namespace
