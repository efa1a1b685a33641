#include "host/MsgFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>

#include "host/CompoundFile.h"
#include "platform/text.h"
#include "tests/TemporaryFolder.h"
#include "tests/host/EventLog.h"
#include "tests/scenarios/AddInWorld.h"

namespace {

using automation::Object;

std::filesystem::path introduction() {
    return addInFolder() / "Introducing_Veltro.msg";
}

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What the error says, or that there is none.
std::wstring refusalOf(std::string_view bytes) {
    try {
        host::parseMsgFile(bytes);
    } catch (const automation::Error& error) {
        return error.description();
    }
    return L"none";
}

constexpr std::wstring_view corrupted = L"The document has been corrupted.";
constexpr std::size_t sectorSize = 512;

std::string numberText(std::uint32_t number) {
    std::string bytes;
    for (int byte = 0; byte < 4; ++byte) {
        bytes += static_cast<char>(number >> (8 * byte));
    }
    return bytes;
}

/// UTF-16, as names stand in the directory.
std::string wide(std::string_view name) {
    std::string units;
    for (const char character : name) {
        units += {character, '\0'};
    }
    return units;
}

TEST(HostMsgFile, RefusesWhatOutlookRefuses) {
    using namespace std::string_literals;
    const std::string whole = bytesOf(introduction());
    ASSERT_EQ(refusalOf(whole), L"none");
    const std::string subjectRow = "\x1E\0\x37\0\x06\0\0\0"s;
    const struct {
        const char* name;
        std::string part;
        std::string other;
    } cases[] = {
        {"no compound file", "\xD0\xCF", "\xD0\xCE"},
        {"version 4", "\x3E\0\x03\0"s, "\x3E\0\x04\0"s},
        {"big-endian", "\xFE\xFF\x09"s, "\xFF\xFE\x09"s},
        {"larger sectors", "\xFE\xFF\x09"s, "\xFE\xFF\x0C"s},
        {"larger small sectors", "\x09\0\x06\0"s, "\x09\0\x07\0"s},
        {"the class of a document", "\x0B\x0D\x02", "\x06\x09\x02"},
        {"no root", wide("Root Entry"s + std::string(22, '\0')) + "\x16\0\x05"s,
         wide("Root Entry"s + std::string(22, '\0')) + "\x16\0\x02"s},
        {"no named properties", wide("__nameid_"), wide("__namedi_")},
        {"no list of their names", wide("00040102"), wide("00050102")},
        {"no table of properties", wide("__properties_version1.0"), wide("__properties_version1.1")},
        {"a name with other letters", wide("__substg1.0_0037001E"), wide("__substg1.0_0037001\xE9")},
        {"a text without its stream", wide("0037001E"), wide("0036001E")},
        {"a text of another length", subjectRow + "\x13"s, subjectRow + "\x12"s},
        {"an entry id of another length", "\x02\x01\x41\0\x06\0\0\0\x3C"s, "\x02\x01\x41\0\x06\0\0\0\x3B"s},
        {"no flags", "\x03\0\x07\x0E"s, "\x03\0\x08\x0E"s},
    };
    for (const auto& test : cases) {
        std::string bytes = whole;
        const std::size_t place = bytes.find(test.part);
        ASSERT_NE(place, std::string::npos) << test.name;
        bytes.replace(place, test.part.size(), test.other);
        EXPECT_EQ(refusalOf(bytes), corrupted) << test.name;
    }
}

std::uint32_t numberIn(const std::string& bytes, std::size_t place) {
    return host::numberAt<std::uint32_t>(bytes, place);
}

std::string with(std::string bytes, std::size_t place, std::uint32_t number) {
    return bytes.replace(place, 4, numberText(number));
}

std::size_t placeOfSector(std::uint32_t number) {
    return (number + 1) * sectorSize;
}

TEST(HostMsgFile, FollowsNoChainTwiceNorBeyondTheEnd) {
    const std::string whole = bytesOf(introduction());
    for (std::size_t size = 0; size < whole.size(); size += 64) {
        EXPECT_EQ(refusalOf(whole.substr(0, size)), corrupted) << "cut at " << size;
    }
    constexpr std::uint32_t chainEnd = 0xFFFFFFFE;
    for (const std::size_t table :
         {placeOfSector(numberIn(whole, 0x4C)), placeOfSector(numberIn(whole, 0x3C))}) {
        for (std::uint32_t entry = 0; entry < sectorSize / 4; ++entry) {
            const std::size_t place = table + 4 * entry;
            if (numberIn(whole, place) > chainEnd || numberIn(whole, place) == 0xFFFFFFFD) {
                continue;  // Free, or a sector of the table.
            }
            for (const std::uint32_t next : {entry, 0x00FFFFFFU, 0x80000000U}) {
                EXPECT_EQ(refusalOf(with(whole, place, next)), corrupted) << entry << " to " << next;
            }
        }
    }
    const std::size_t directory = placeOfSector(numberIn(whole, 0x30));
    std::uint32_t entries = 0;
    const std::size_t directoryEnd = placeOfSector(numberIn(whole, 0x4C));
    for (std::size_t place = directory + 128; place < directoryEnd && whole[place + 0x42] != 0;
         place += 128) {
        ++entries;
        for (const std::size_t link : {0x44U, 0x48U, 0x4CU}) {
            const bool followed = link != 0x4C || whole[place + 0x42] == 1;
            for (const std::uint32_t other : {entries, 0U, 1U, 0x00FFFFFFU}) {
                EXPECT_EQ(refusalOf(with(whole, place + link, other)), followed ? corrupted : L"none")
                    << "entry " << entries << " to " << other;
            }
        }
    }
    EXPECT_GT(entries, 15U);
}

TEST(HostMsgFile, HoldsSizesToTheirLimits) {
    const std::string whole = bytesOf(introduction());
    const std::size_t topic = whole.find(wide("__substg1.0_0070001E"));
    const std::size_t row = whole.find(std::string("\x1E\0\x70\0\x06\0\0\0", 8));
    ASSERT_NE(topic, std::string::npos);
    ASSERT_NE(row, std::string::npos);
    const auto resized = [&](std::uint32_t size) {
        return with(with(whole, topic + 0x78, size), row + 8, size + 1);
    };
    EXPECT_EQ(refusalOf(resized(10)), L"none");
    const struct {
        const char* name;
        std::string bytes;
    } cases[] = {
        {"a text of no length", resized(0)},
        {"a stream longer than its chain", resized(100)},
        {"a small stream said to be a large one", resized(5000)},
        {"a table of no sectors", with(whole, 0x2C, 0)},
        {"a table of more sectors than the header names", with(whole, 0x2C, 110)},
        {"a sector of the table beyond the end", with(whole, 0x4C, 1000)},
        {"a directory beyond the end", with(whole, 0x30, 1000)},
        {"no directory", with(whole, 0x30, 0xFFFFFFFE)},
        {"a table of properties with half a row",
         with(whole, whole.find(wide("__properties_version1.0")) + 0x78, 300)},
        {"a table of properties without its head",
         with(whole, whole.find(wide("__properties_version1.0")) + 0x78, 20)},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(refusalOf(test.bytes), corrupted) << test.name;
    }
}

TEST(HostMsgFile, IsReadAsDeepAsMessagesAre) {
    const std::string whole = bytesOf(introduction());
    const std::size_t directory = placeOfSector(numberIn(whole, 0x30));
    constexpr std::uint32_t nothing = 0xFFFFFFFF;
    // The entries become storages, each inside the one before it; the last is a stream.
    const auto nested = [&](std::uint32_t depth) {
        std::string bytes = with(whole, directory + 0x4C, 1);
        for (std::uint32_t entry = 1; entry <= depth; ++entry) {
            const std::size_t place = directory + 128 * entry;
            bytes = with(with(bytes, place + 0x44, nothing), place + 0x48, nothing);
            bytes = with(bytes, place + 0x4C, entry + 1);
            bytes[place + 0x42] = entry == depth ? 2 : 1;
        }
        return bytes;
    };
    EXPECT_EQ(host::readCompoundFile(nested(5)).streams.size(), 1U);
    EXPECT_NE(errorOf([&] { host::readCompoundFile(nested(18)); }), 0);
}

/// vtRDOSession, logged on.
Object sessionOf(host::Outlook& outlook) {
    const Object session = outlook.automation().createObject(L"vtRedemption.vtRDOSession");
    session.call(L"Logon");
    return session;
}

Object newMessage(const Object& session) {
    return session.call(L"GetDefaultFolder", 6)
        .toObject()
        .get(L"Items")
        .toObject()
        .call(L"Add", L"IPM.Note")
        .toObject();
}

TEST(HostMsgFile, IsCopiedIntoANewMessageOfAFolder) {
    host::Outlook outlook({});
    const Object session = sessionOf(outlook);
    const Object file =
        session.call(L"GetMessageFromMsgFile", text::fromUtf8(introduction().string())).toObject();
    const Object message = newMessage(session);
    message.put(L"Sent", true);
    message.put(L"UnRead", true);
    file.call(L"CopyTo", message);
    EXPECT_TRUE(outlook.itemsIn(L"Inbox").empty()) << "not before it is saved";
    message.call(L"Save");
    const Object item = outlook.itemsIn(L"Inbox").front();
    EXPECT_EQ(outlook.view(item).subject, L"Introducing Veltro");
    EXPECT_TRUE(outlook.view(item).unread);
    EXPECT_TRUE(item.get(L"Sent").toBool());
    EXPECT_NE(errorOf([&] { message.put(L"Sent", false); }), 0) << "only before the first save";
    EXPECT_NE(errorOf([&] { message.call(L"Save"); }), 0);

    // A copy is a draft, and read, when either was.
    const Object draft = newMessage(session);
    file.call(L"CopyTo", draft);
    EXPECT_FALSE(draft.get(L"Sent").toBool());
    EXPECT_FALSE(draft.get(L"UnRead").toBool());
}

TEST(HostMsgFile, IsRefusedByTheSessionWhereItCannotBeUsed) {
    constexpr std::int32_t noFile = -2147287038;   // STG_E_FILENOTFOUND
    constexpr std::int32_t badFile = -2147286775;  // STG_E_DOCFILECORRUPT
    constexpr std::int32_t refused = -2147024891;  // E_ACCESSDENIED
    const TemporaryFolder folder;
    const auto path = [](const std::filesystem::path& file) { return text::fromUtf8(file.string()); };
    const std::wstring missing = path(folder.file("none.msg"));
    const std::wstring broken = path(folder.write("broken.msg", "x"));
    const std::wstring whole = path(introduction());
    std::string other = bytesOf(introduction());
    other.replace(other.find("IPM.Note"), 8, "IPM.Task");
    const std::wstring task = path(folder.write("task.msg", other));
    host::Outlook outlook({});
    host::Outlook full({.stores = {{.readOnly = true}}});
    const Object session = sessionOf(outlook);
    const auto open = [](const Object& from, const std::wstring& file) {
        return from.call(L"GetMessageFromMsgFile", file).toObject();
    };
    const Object stranger = outlook.automation().createObject(L"vtRedemption.vtRDOSession");
    const struct {
        const char* name;
        std::function<void()> action;
        std::int32_t number;
    } cases[] = {
        {"missing", [&] { open(session, missing); }, noFile},
        {"a folder", [&] { open(session, path(folder.file("."))); }, noFile},
        {"broken", [&] { open(session, broken); }, badFile},
        {"of another class", [&] { open(session, task); }, automation::errors::failed},
        {"not logged on", [&] { open(stranger, whole); }, automation::errors::failed},
        {"a folder, not logged on", [&] { stranger.call(L"GetDefaultFolder", 6); },
         automation::errors::failed},
        {"no such folder", [&] { session.call(L"GetDefaultFolder", 99); }, -2147221233},
        {"saved back into the file", [&] { open(session, whole).call(L"Save"); }, refused},
        {"a store that takes nothing", [&] { newMessage(sessionOf(full)); }, refused},
        {"copied into something else", [&] { open(session, whole).call(L"CopyTo", session); }, 13},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(errorOf(test.action), test.number) << test.name;
    }
}

}  // namespace
