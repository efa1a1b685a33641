#include "settings/SettingsFileReader.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "platform/MemorySettingsStore.h"
#include "platform/automation.h"
#include "tests/TemporaryFolder.h"

namespace {

using platform::MemorySettingsStore;
using settings::SettingsFileReader;
using Settings = std::map<std::wstring, std::wstring>;

Settings contentsOf(const MemorySettingsStore& store) {
    Settings contents;
    for (const auto& [upperKey, setting] : store.settings()) {
        contents[setting.key] = setting.value;
    }
    return contents;
}

bool read(SettingsFileReader& reader, const std::string& bytes, platform::SettingsStore& store) {
    std::istringstream file(bytes);
    return reader.read(file, store);
}

/// The file's lines behind a first one, which has rules of its own.
std::string lines(const std::string& rest) {
    return "' Veltro Settings\r\n" + rest;
}

struct Case {
    const char* name;
    std::string file;
    Settings before;
    /// Without SettingsID, which every file without one empties.
    Settings after;
};

void expectReads(const Case& given) {
    MemorySettingsStore store;
    for (const auto& [key, value] : given.before) {
        store.write(key, value);
    }
    SettingsFileReader reader;
    EXPECT_TRUE(read(reader, given.file, store)) << given.name;
    Settings after = contentsOf(store);
    if (!given.after.contains(L"SettingsID")) {
        EXPECT_EQ(after[L"SettingsID"], L"") << given.name;
        after.erase(L"SettingsID");
    }
    EXPECT_EQ(after, given.after) << given.name;
}

TEST(SettingsFile, IsReadLineByLine) {
    const Case cases[] = {
        {"nothing", "", {}, {}},
        {"values as they stand",
         "A=1\r\nb= x = y \r\nC=\r\n",
         {},
         {{L"A", L"1"}, {L"b", L" x = y "}, {L"C", L""}}},
        {"any key, as it stands", lines(" Key =v\r\nunknown=1"), {}, {{L" Key ", L"v"}, {L"unknown", L"1"}}},
        {"comments and lines without a setting",
         lines("'A=1\r\n   \r\n\r\nword\r\n'\r\nB=2"),
         {},
         {{L"B", L"2"}}},
        {"a comment begins its line", lines(" 'A=1"), {}, {{L" 'A", L"1"}}},
        {"the last of two", lines("A=1\r\nA=2"), {{L"A", L"0"}}, {{L"A", L"2"}}},
        {"no key", lines("=1\r\nB=2"), {}, {{L"B", L"2"}}},
        {"line feeds", "A=1\nB=2\n\nC=3", {}, {{L"A", L"1"}, {L"B", L"2"}, {L"C", L"3"}}},
        {"carriage returns", "A=1\rB=2\r\rC=3\r", {}, {{L"A", L"1"}, {L"B", L"2"}, {L"C", L"3"}}},
        {"the code page", "A=\x80\xFC\x81", {}, {{L"A", L"\u20AC\u00FC\u0081"}}},
        {"a password outside of the lock block", lines("Password=x"), {}, {{L"Password", L"x"}}},
        // UTF-8 has no place in the format; what is damaged is the first line and what is not ASCII.
        {"UTF-8 with its mark", "\xEF\xBB\xBF' x\r\nA=1\r\n", {}, {{L"A", L"1"}}},
        {"UTF-16", std::string("\xFF\xFE\x41\0=\0\x31\0\r\0\n\0\x42\0=\0\x32\0", 18), {}, {}},
        {"noise",
         std::string("\0=\x01\xFF\r\n\x7F\x1A==\n=\0\nA=1", 17),
         {},
         {{L"\x7F\x1A", L"="}, {L"A", L"1"}}},
    };
    for (const Case& given : cases) {
        expectReads(given);
    }
}

TEST(SettingsFile, IsAppliedOncePerIdentifier) {
    const Case cases[] = {
        {"first", lines("SettingsID=7\r\nA=1"), {}, {{L"SettingsID", L"7"}, {L"A", L"1"}}},
        {"same", lines("SettingsID=7\r\nA=1"), {{L"SettingsID", L"7"}}, {{L"SettingsID", L"7"}}},
        {"same, in the first line", "SettingsID=7\r\nA=1", {{L"SettingsID", L"7"}}, {{L"SettingsID", L"7"}}},
        {"other",
         lines("SettingsID=8\r\nA=1"),
         {{L"SettingsID", L"7"}},
         {{L"SettingsID", L"8"}, {L"A", L"1"}}},
        {"settings before it",
         lines("A=1\r\nSettingsID=7\r\nB=2"),
         {{L"SettingsID", L"7"}},
         {{L"SettingsID", L"7"}, {L"A", L"1"}}},
        {"the last of two",
         lines("SettingsID=8\r\nA=1\r\nSettingsID=7\r\nB=2"),
         {{L"SettingsID", L"7"}},
         {{L"SettingsID", L"7"}, {L"A", L"1"}}},
        {"empty stored",
         lines("SettingsID=\r\nA=1"),
         {{L"SettingsID", L""}},
         {{L"SettingsID", L""}, {L"A", L"1"}}},
        {"none in the file", lines("A=1"), {{L"SettingsID", L"7"}}, {{L"SettingsID", L""}, {L"A", L"1"}}},
        {"a blank more",
         lines("SettingsID=7 \r\nA=1"),
         {{L"SettingsID", L"7"}},
         {{L"SettingsID", L"7 "}, {L"A", L"1"}}},
        {"letter case",
         lines("SETTINGSID=7\r\nA=1"),
         {{L"SettingsID", L"7"}},
         {{L"SettingsID", L""}, {L"A", L"1"}}},
    };
    for (const Case& given : cases) {
        expectReads(given);
    }
}

TEST(SettingsFile, HasASignatureOfSeveralLines) {
    const Case cases[] = {
        {"one line",
         lines("IgnoreTextValue=<VTSig>a = b</VTSig>\r\nA=1"),
         {},
         {{L"IgnoreTextValue", L"a = b"}, {L"A", L"1"}}},
        {"none", lines("IgnoreTextValue=<VTSig></VTSig>"), {}, {{L"IgnoreTextValue", L""}}},
        {"three lines",
         lines("IgnoreTextValue=<VTSig>a\r\n\r\n 'A=2</VTSig>\r\nA=1"),
         {},
         {{L"IgnoreTextValue", L"a\r\n\r\n 'A=2"}, {L"A", L"1"}}},
        {"line feeds",
         lines("IgnoreTextValue=<VTSig>a\nb\rc</VTSig>"),
         {},
         {{L"IgnoreTextValue", L"a\r\nb\r\nc"}}},
        {"never closed", lines("A=1\r\nIgnoreTextValue=<VTSig>a\r\nB=2"), {}, {{L"A", L"1"}}},
        {"begun twice",
         lines("IgnoreTextValue=<VTSig>a\r\nIgnoreTextValue=<VTSig>b</VTSig>"),
         {},
         {{L"IgnoreTextValue", L"b"}}},
        {"two, the last of which counts",
         lines("IgnoreTextValue=<VTSig>a\r\nb</VTSig>\r\nIgnoreTextValue=<VTSig>c</VTSig>"),
         {},
         {{L"IgnoreTextValue", L"c"}}},
        {"cut by the lengths of the markers",
         lines("IgnoreTextValue=[VTSig]abc</VTSig>12345678"),
         {},
         {{L"IgnoreTextValue", L"abc</VTSig>"}}},
        {"too short for its markers", lines("IgnoreTextValue=a</VTSig>\r\nA=1"), {}, {{L"A", L"1"}}},
        {"begun inside of another value",
         lines("A=IgnoreTextValue=\r\nB=2\r\n</VTSig>\r\nC=3"),
         {},
         {{L"A", L"IgnoreTextValue=\r\nB=2\r\n</VTSig>"}, {L"C", L"3"}}},
        {"in a comment", lines("' IgnoreTextValue=\r\nA=1\r\n</VTSig>\r\nB=2"), {}, {{L"B", L"2"}}},
        {"the first line is whole",
         "IgnoreTextValue=<VTSig>a</VTSig>\r\nA=1",
         {},
         {{L"IgnoreTextValue", L"a"}, {L"A", L"1"}}},
        {"the first line goes not on",
         "IgnoreTextValue=<VTSig>abcdefghijk\r\nA=1",
         {},
         {{L"IgnoreTextValue", L"abc"}, {L"A", L"1"}}},
    };
    for (const Case& given : cases) {
        expectReads(given);
    }
}

TEST(SettingsFile, CarriesTheLock) {
    const Case cases[] = {
        {"password and fields",
         lines("A=1\r\n'[Enable Fields]\r\nPassword=p = q \r\nOne=Yes\r\nTwo=No\r\n'[/Enable Fields]\r\n'"),
         {},
         {{L"A", L"1"}, {L"Password", L"p = q "}, {L"LockFields", L"One=Yes;Two=No"}}},
        {"an empty password",
         lines("'[Enable Fields]\r\nPassword=\r\n'[/Enable Fields]"),
         {{L"Password", L"p"}, {L"LockFields", L"x"}},
         {{L"Password", L""}, {L"LockFields", L""}}},
        {"lines as they stand",
         lines(
             "  '[Enable Fields]  \r\n One = Yes \r\n ' \r\n' two\r\n\r\n Password=x\r\nTwo\r\n '[/Enable Fields] "),
         {},
         {{L"LockFields", L" One = Yes ;' two;; Password=x;Two"}}},
        {"blank lines first",
         lines("'[Enable Fields]\r\n\r\nOne=Yes\r\n'[/Enable Fields]"),
         {},
         {{L"LockFields", L"One=Yes"}}},
        {"no block", lines("A=1"), {{L"LockFields", L"x"}}, {{L"LockFields", L"x"}, {L"A", L"1"}}},
        {"never closed",
         lines("'[Enable Fields]\r\nOne=Yes"),
         {{L"LockFields", L"x"}},
         {{L"LockFields", L"x"}}},
        {"settings behind it",
         lines("'[Enable Fields]\r\nOne=Yes\r\n'[/Enable Fields]\r\nA=1"),
         {},
         {{L"LockFields", L"One=Yes"}, {L"A", L"1"}}},
        {"closed without a beginning", lines("'[/Enable Fields]\r\nA=1"), {}, {{L"A", L"1"}}},
        {"letter case", lines("'[enable fields]\r\nA=1"), {}, {{L"A", L"1"}}},
        {"in the first line",
         "'[Enable Fields]\r\nOne=Yes\r\n'[/Enable Fields]",
         {},
         {{L"LockFields", L"One=Yes"}}},
    };
    for (const Case& given : cases) {
        expectReads(given);
    }
}

TEST(SettingsFile, LeavesAnOpenLockBlockOpenForTheNextAndItsIdentifierNot) {
    MemorySettingsStore store;
    SettingsFileReader reader;
    read(reader, lines("SettingsID=7\r\n'[Enable Fields]\r\nOne=Yes"), store);
    EXPECT_EQ(store.read(L"SettingsID"), L"7");
    read(reader, lines("Two=Yes\r\n'[/Enable Fields]\r\nA=1"), store);
    EXPECT_EQ(contentsOf(store), (Settings{{L"SettingsID", L""},
                                           {L"LockFields", L"One=Yes;' Veltro Settings;Two=Yes"},
                                           {L"A", L"1"}}));
}

/// The registry as it is when it takes everything but one value.
class FailingStore : public MemorySettingsStore {
  public:
    explicit FailingStore(std::size_t failing) : failing_(failing) {}
    void write(const std::wstring& key, const std::wstring& value) override {
        if (++writes == failing_) {
            throw automation::Error(automation::errors::fileAccess, L"unwritable");
        }
        MemorySettingsStore::write(key, value);
    }
    std::size_t writes = 0;

  private:
    std::size_t failing_;
};

TEST(SettingsFile, IsStoredButForWhatCannotBe) {
    constexpr std::size_t settings = 6;
    for (std::size_t failing = 1; failing <= settings; ++failing) {
        FailingStore store(failing);
        SettingsFileReader reader;
        EXPECT_TRUE(
            read(reader,
                 lines("SettingsID=7\r\nA=1\r\nB=2\r\nIgnoreTextValue=<VTSig>a\r\nb</VTSig>\r\n'[Enable "
                       "Fields]\r\nPassword=p\r\nOne=Yes\r\n'[/Enable Fields]"),
                 store));
        EXPECT_EQ(store.writes, settings);
        EXPECT_EQ(store.settings().size(), settings - 1) << failing;
    }
}

TEST(SettingsFile, IsAppliedWhenTheStoreCannotTellWhichWasTheLast) {
    struct UnreadableStore : MemorySettingsStore {
        std::optional<std::wstring> read(const std::wstring&) override {
            throw automation::Error(automation::errors::fileAccess, L"unreadable");
        }
    } store;
    SettingsFileReader reader;
    read(reader, lines("SettingsID=7\r\nA=1"), store);
    EXPECT_EQ(contentsOf(store), (Settings{{L"SettingsID", L"7"}, {L"A", L"1"}}));
}

/// A file on a share that goes away.
class LostFile : public std::streambuf {
  public:
    explicit LostFile(std::string start) : start_(std::move(start)) {
        setg(start_.data(), start_.data(), start_.data() + start_.size());
    }

  protected:
    int_type underflow() override { throw std::ios_base::failure("lost"); }

  private:
    std::string start_;
};

TEST(SettingsFile, ThatIsLostMeanwhileIsTriedAgain) {
    for (const char* end : {"", "\r", "\r\n", "B=2"}) {
        MemorySettingsStore store;
        store.write(L"SettingsID", L"6");
        LostFile lost(lines(std::string("SettingsID=7\r\nA=1\r\nB") + end));
        std::istream file(&lost);
        SettingsFileReader reader;
        EXPECT_FALSE(reader.read(file, store)) << end;
        EXPECT_EQ(contentsOf(store), (Settings{{L"SettingsID", L"6"}, {L"A", L"1"}})) << end;
    }
}

TEST(SettingsFile, MayBeLarge) {
    constexpr std::size_t size = 10'000'000;
    std::string file = lines("A=" + std::string(size, 'x') + "\r\nIgnoreTextValue=<VTSig>");
    for (std::size_t written = 0; written < size; written += 40) {
        file += std::string(38, 'y') + "\r\n";
    }
    file += "</VTSig>\r\nB=2";
    MemorySettingsStore store;
    SettingsFileReader reader;
    read(reader, file, store);
    EXPECT_EQ(store.read(L"A").value_or(L"").size(), size);
    EXPECT_EQ(store.read(L"IgnoreTextValue").value_or(L"").size(), size);
    EXPECT_EQ(store.read(L"B"), L"2");
}

TEST(SettingsFile, MustBeAFile) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("folder"));
    MemorySettingsStore store;
    SettingsFileReader reader;
    EXPECT_FALSE(reader.read(folder.file("none"), store));
    EXPECT_FALSE(reader.read(folder.file("folder"), store));
    EXPECT_FALSE(reader.read("/dev/null", store));
    EXPECT_TRUE(store.settings().empty());
    EXPECT_TRUE(reader.read(folder.write("file", "A=1"), store));
    EXPECT_EQ(store.read(L"A"), L"1");
}

}  // namespace
