#include <gtest/gtest.h>

#include "host/mapiTag.h"
#include "tests/host/EventLog.h"

namespace {

using automation::Binary;
using automation::Date;
using automation::Object;
using automation::Value;

constexpr std::int32_t notFound = -2147221233;  // MAPI_E_NOT_FOUND
constexpr std::int32_t denied = -2147024891;    // E_ACCESSDENIED
constexpr std::int32_t failed = automation::errors::failed;

std::wstring tagged(const std::wstring& tag) {
    return L"http://schemas.microsoft.com/mapi/proptag/0x" + tag;
}

Object accessorOf(const Object& object) {
    return object.get(L"PropertyAccessor").toObject();
}

Value read(const Object& object, const std::wstring& tag) {
    return accessorOf(object).call(L"GetProperty", tagged(tag));
}

host::Address exchangeUser() {
    return {.name = L"Ann",
            .address = L"/o=x/cn=ann",
            .type = L"EX",
            .proxies = {L"SMTP:ann@example.org", L"smtp:a@example.org"},
            .smtpAddress = L"ann@example.org"};
}

/// A mail with everything that an accessor reads.
host::Message richMail() {
    host::Message message = mailTo(L"bob@example.com");
    message.from = exchangeUser();
    message.onBehalfOf = host::Address{.name = L"Boss", .address = L"boss@example.org"};
    message.cc = {exchangeUser(), {.name = L"Gone", .address = L"/o=x/cn=gone", .type = L"EX"}};
    message.headers = L"Received: by mail.example.org\r\n";
    message.deliveryTime = Date{45427.5};
    message.attachments = {
        {.fileName = L"logo.png", .contentId = L"logo@1", .flags = 4, .hidden = true},
        {.fileName = L"plan.pdf"},
    };
    return message;
}

class HostPropertyAccessorTest : public testing::Test {
  protected:
    void open(const std::wstring& version = L"16.0.17328") {
        outlook_ = std::make_unique<host::Outlook>(
            host::Profile{.version = version, .addressBook = {exchangeUser()}});
        mail_ = outlook_->receive(richMail());
    }
    Object recipient(int place) const { return mail_.get(L"Recipients", place).toObject(); }
    Object entry(int place) const { return recipient(place).get(L"AddressEntry").toObject(); }
    Object attachment(int place) const { return mail_.get(L"Attachments", place).toObject(); }

    std::unique_ptr<host::Outlook> outlook_;
    Object mail_;
};

TEST_F(HostPropertyAccessorTest, ReadsWhatAnObjectHasAndFailsForAllElse) {
    open();
    const struct {
        const char* name;
        Object object;
        const wchar_t* tag;
        /// Nothing: an error.
        const wchar_t* expected;
    } cases[] = {
        {"subject", mail_, L"0037001F", L"Budget"},
        {"the same as an 8-bit text", mail_, L"0037001E", L"Budget"},
        {"as a number", mail_, L"00370003", nullptr},
        {"transport headers", mail_, L"007D001F", L"Received: by mail.example.org\r\n"},
        {"on behalf of, type", mail_, L"0064001F", L"SMTP"},
        {"on behalf of, address", mail_, L"0065001F", L"boss@example.org"},
        {"sender's type", mail_, L"0C1E001F", L"EX"},
        {"sender's address", mail_, L"0C1F001F", L"/o=x/cn=ann"},
        {"what nobody has set", mail_, L"0E28001F", nullptr},
        {"content id", attachment(1), L"3712001F", L"logo@1"},
        {"flags", attachment(1), L"37140003", L"4"},
        {"flags as a text", attachment(1), L"3714001F", nullptr},
        {"hidden", attachment(1), L"7FFE000B", L"True"},
        {"short file name", attachment(1), L"3704001F", L"logo.png"},
        {"long file name", attachment(1), L"3707001E", L"logo.png"},
        {"no content id", attachment(2), L"3712001F", nullptr},
        {"no flags", attachment(2), L"37140003", nullptr},
        {"not said to be hidden", attachment(2), L"7FFE000B", nullptr},
        {"entry's type", entry(1), L"3002001F", L"SMTP"},
        {"entry's SMTP address", entry(1), L"39FE001F", L"bob@example.com"},
        {"of Exchange's, address", entry(2), L"3003001F", L"/o=x/cn=ann"},
        {"of Exchange's, SMTP address", entry(2), L"39FE001F", L"ann@example.org"},
        {"of one without", entry(3), L"39FE001F", nullptr},
        {"of one without proxies", entry(3), L"800F101F", nullptr},
        {"recipient's type", recipient(2), L"0C150003", L"2"},
        {"recipient's SMTP address", recipient(2), L"39FE001F", L"ann@example.org"},
        {"of a recipient without", recipient(3), L"39FE001F", nullptr},
    };
    for (const auto& test : cases) {
        std::wstring found;
        const std::int32_t error = errorOf([&] { found = read(test.object, test.tag).toText(); });
        EXPECT_EQ(error, test.expected ? 0 : notFound) << test.name;
        EXPECT_EQ(found, test.expected ? test.expected : L"") << test.name;
    }
    const automation::Array proxies = read(entry(2), L"800F101F").toArray();
    ASSERT_EQ(proxies.size(), 2U);
    EXPECT_EQ(proxies[0].toText(), L"SMTP:ann@example.org");
}

TEST_F(HostPropertyAccessorTest, KnowsNamesInTheirOneSpelling) {
    open();
    for (const wchar_t* name :
         {L"", L"0x0037001F", L"https://schemas.microsoft.com/mapi/proptag/0x0037001F",
          L"http://schemas.microsoft.com/MAPI/proptag/0x0037001F",
          L"http://schemas.microsoft.com/mapi/proptag/0X0037001F",
          L"http://schemas.microsoft.com/mapi/proptag/0x37001F",
          L"http://schemas.microsoft.com/mapi/proptag/0x0037001F ",
          L"http://schemas.microsoft.com/mapi/proptag/0x0037001f",
          L"http://schemas.microsoft.com/mapi/proptag/0x0037001G", L"urn:schemas:httpmail:subject"}) {
        EXPECT_EQ(errorOf([&] { accessorOf(mail_).call(L"GetProperty", name); }), notFound)
            << std::wstring_view(name).size();
    }
    const Value several =
        accessorOf(mail_).call(L"GetProperties", automation::Array{tagged(L"0037001F"), tagged(L"0E28001F")});
    ASSERT_EQ(several.toArray().size(), 2U);
    EXPECT_EQ(several.toArray()[0].toText(), L"Budget");
    EXPECT_TRUE(several.toArray()[1].isEmpty());
}

TEST_F(HostPropertyAccessorTest, TellsTimesInUtcOfWhichTheUserIsAhead) {
    open();
    EXPECT_DOUBLE_EQ(read(mail_, L"0E060040").toDate().days, 45427.5 - 1 / 24.0);
    const Object accessor = accessorOf(mail_);
    accessor.call(L"SetProperty", tagged(L"0E060040"), Date{45427.25});
    EXPECT_DOUBLE_EQ(mail_.get(L"ReceivedTime").toDate().days, 45427.25 + 1 / 24.0);
    EXPECT_DOUBLE_EQ(accessor.call(L"UTCToLocalTime", Date{45427}).toDate().days, 45427 + 1 / 24.0);
    EXPECT_DOUBLE_EQ(accessor.call(L"LocalTimeToUTC", Date{45427}).toDate().days, 45427 - 1 / 24.0);
}

TEST_F(HostPropertyAccessorTest, WritesWithTheTypeOfTheTagWhatMayBeWritten) {
    open();
    const struct {
        const char* name;
        Object object;
        const wchar_t* tag;
        Value value;
        std::int32_t error;
    } cases[] = {
        {"a text", mail_, L"0E28001F", L"text", 0},
        {"a number", mail_, L"0E290003", 5, 0},
        {"bytes", mail_, L"00410102", Binary{1, 2}, 0},
        {"texts", mail_, L"8000101F", automation::Array{L"a"}, 0},
        {"a number as a text", mail_, L"0E28001F", 5, 13},
        {"a text as a number", mail_, L"0E290003", L"5", 13},
        {"numbers as bytes", mail_, L"00410102", automation::Array{1, 2}, 13},
        {"what the store computes", mail_, L"0E04001F", L"Ann", denied},
        {"the body", mail_, L"1000001F", L"text", failed},
        {"an attachment", attachment(1), L"3712001F", L"x", denied},
        {"an entry", entry(1), L"39FE001F", L"x", denied},
    };
    for (const auto& test : cases) {
        const Object accessor = accessorOf(test.object);
        EXPECT_EQ(errorOf([&] { accessor.call(L"SetProperty", tagged(test.tag), test.value); }), test.error)
            << test.name;
    }
    EXPECT_EQ(read(mail_, L"0E28001E").toText(), L"text");
    EXPECT_EQ(read(mail_, L"00410102").toBinary(), (Binary{1, 2}));
    EXPECT_FALSE(mail_.get(L"Saved").toBool());
    const Object accessor = accessorOf(mail_);
    accessor.call(L"DeleteProperty", tagged(L"0E28001F"));
    EXPECT_EQ(errorOf([&] { read(mail_, L"0E28001F"); }), notFound);
    EXPECT_EQ(errorOf([&] { accessor.call(L"DeleteProperty", tagged(L"0E28001F")); }), notFound);
    accessor.call(L"SetProperties", automation::Array{tagged(L"0E28001F"), tagged(L"0E290003")},
                  automation::Array{5, 6});
    EXPECT_EQ(errorOf([&] { read(mail_, L"0E28001F"); }), notFound) << "a number is no text";
    EXPECT_EQ(read(mail_, L"0E290003").toInteger(), 6) << "one that fails does not keep the others";
}

TEST_F(HostPropertyAccessorTest, OfVersion2007HoldsFourKilobytes) {
    for (const bool is2007 : {true, false}) {
        open(is2007 ? L"12.0.6607" : L"14.0.4760");
        const Object accessor = accessorOf(mail_);
        for (const auto& [length, fits] : {std::pair{2048U, true}, {2049U, !is2007}}) {
            accessor.call(L"SetProperty", tagged(L"0E28001F"), std::wstring(length, L'x'));
            EXPECT_EQ(errorOf([&] { read(mail_, L"0E28001F"); }), fits ? 0 : automation::errors::outOfMemory);
            accessor.call(L"SetProperty", tagged(L"00410102"), Binary(length * 2));
            EXPECT_EQ(errorOf([&] { read(mail_, L"00410102"); }), fits ? 0 : automation::errors::outOfMemory);
        }
    }
}

TEST_F(HostPropertyAccessorTest, IsThereFromVersion2007OnAndNotAtRedemptions) {
    for (const auto& [version, there] : {std::pair{L"11.0.5608", false}, {L"12.0.4518", true}}) {
        open(version);
        for (const Object& object : {mail_, recipient(1), entry(1), attachment(1)}) {
            EXPECT_EQ(errorOf([&] { accessorOf(object); }), there ? 0 : 438) << version;
        }
    }
    const Object safe = outlook_->automation().createObject(L"vtRedemption.vtSafeMailItem");
    safe.put(L"Item", mail_);
    EXPECT_EQ(errorOf([&] { accessorOf(safe.get(L"Attachments", 1).toObject()); }), 438);
    EXPECT_EQ(errorOf([&] { accessorOf(safe.get(L"Recipients", 1).toObject()); }), 438);
    const Object kept = accessorOf(mail_);
    mail_.call(L"Delete");
    EXPECT_NE(errorOf([&] { kept.call(L"GetProperty", tagged(L"0037001F")); }), 0);
}

TEST_F(HostPropertyAccessorTest, LeadsFromTheSendersIdToHisEntry) {
    open(L"12.0.6607");
    const Object session = outlook_->application().get(L"Session").toObject();
    const auto entryOf = [&](const Object& item) {
        const Object accessor = accessorOf(item);
        const Value id = accessor.call(L"GetProperty", tagged(L"0C190102"));
        const std::wstring text = accessor.call(L"BinaryToString", id).toText();
        EXPECT_EQ(accessor.call(L"StringToBinary", text).toBinary(), id.toBinary());
        return session.call(L"GetAddressEntryFromID", text).toObject();
    };
    EXPECT_EQ(entryOf(mail_).call(L"GetExchangeUser").toObject().get(L"PrimarySmtpAddress").toText(),
              L"ann@example.org");
    host::Message plain = mailTo(L"me@example.org");
    plain.from = host::Address{.name = L"Cy", .address = L"cy@example.com"};
    const Object entry = entryOf(outlook_->receive(plain));
    EXPECT_EQ(entry.get(L"Name").toText(), L"Cy");
    EXPECT_EQ(entry.get(L"Address").toText(), L"cy@example.com");
    plain.from = host::Address{.name = L"Left", .address = L"/o=x/cn=left", .type = L"EX"};
    EXPECT_EQ(errorOf([&] { entryOf(outlook_->receive(plain)); }), notFound);
    EXPECT_EQ(errorOf([&] { session.call(L"GetAddressEntryFromID", L"nonsense"); }), notFound);
    EXPECT_EQ(errorOf([&] {
                  accessorOf(mail_).call(L"BinaryToString", automation::Array{1, 2});
              }),
              13)
        << "an array of numbers is no binary value";
    EXPECT_EQ(errorOf([&] { accessorOf(mail_).call(L"StringToBinary", L"0"); }), failed);
}

TEST(HostMapiTag, ReadsPairsOfDigits) {
    EXPECT_EQ(host::fromHexadecimal(L""), Binary{});
    EXPECT_EQ(host::fromHexadecimal(L"0AFF"), (Binary{10, 255}));
    for (const wchar_t* wrong : {L"0", L"0AF", L"0a", L"0G", L"G0"}) {
        EXPECT_EQ(host::fromHexadecimal(wrong), std::nullopt);
    }
}

}  // namespace
