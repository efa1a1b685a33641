#include "program/SettingsFolder.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/text.h"
#include "program/files.h"
#include "tests/TemporaryFolder.h"

namespace {

class SettingsFolderFile : public testing::Test {
  protected:
    program::CommandLine parse(std::vector<std::wstring> words) const {
        words.insert(words.begin(), {L"list", L"--folder", text::fromUtf8(file().string())});
        return program::parseCommandLine(words);
    }
    std::filesystem::path file() const { return folder_.file("kept.json"); }

  private:
    TemporaryFolder folder_;
};

std::vector<std::wstring> subjects(const host::Outlook& outlook) {
    std::vector<std::wstring> result;
    for (const auto& item : outlook.itemsIn(host::settingsFolder)) {
        result.push_back(outlook.view(item).subject);
    }
    return result;
}

TEST_F(SettingsFolderFile, KeepsTheItemsBetweenRuns) {
    const auto line = parse({L"--list", L"o'neil@example.org=R&D <lab>"});
    {
        host::Outlook first(program::prepareProfile(line));
        host::Message note;
        note.subject = L"Caf\u00e9 \u20ac";
        first.store(host::settingsFolder, note);
        program::keepSettingsFolder(line, first);
    }
    const host::Outlook second(program::prepareProfile(parse({})));
    EXPECT_EQ(subjects(second), (std::vector<std::wstring>{L"Email Address", L"Caf\u00e9 \u20ac"}));
    const auto list = second.view(second.itemsIn(host::settingsFolder).front());
    EXPECT_NE(
        list.body.find(L"strEmailAddress='o&#x27;neil@example.org' strAccount='R&#x26;D &#x3c;lab&#x3e;'"),
        std::wstring::npos);

    const host::Outlook third(program::prepareProfile(parse({L"--list", L"ann@example.org=Work"})));
    EXPECT_EQ(subjects(third).size(), 2U) << "the list given replaces the one kept";
}

TEST_F(SettingsFolderFile, IsMadeOnlyOfAFolderThatIsThere) {
    const auto line = parse({L"--first-run"});
    host::Outlook outlook(program::prepareProfile(line));
    program::keepSettingsFolder(line, outlook);
    EXPECT_FALSE(std::filesystem::exists(file()));
}

TEST_F(SettingsFolderFile, ThatIsBrokenIsNamedAndLeftAlone) {
    std::ofstream(file()) << "[{]";
    try {
        program::prepareProfile(parse({}));
        ADD_FAILURE() << "accepted";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("kept.json"), std::string::npos) << error.what();
    }
    EXPECT_EQ(program::readFile(file()), "[{]");
}

TEST_F(SettingsFolderFile, IsKeptToOneRunAtATime) {
    const auto line = parse({});
    int waits = 0;
    {
        const auto held = program::holdSettingsFolder(line, [&waits] { ++waits; });
        host::Outlook outlook(program::prepareProfile(line));
        program::keepSettingsFolder(line, outlook);
        EXPECT_FALSE(program::FileLock::tryLock(file())) << "replacing the file gives it away";
    }
    EXPECT_EQ(waits, 0);
    auto other = program::FileLock::tryLock(file());
    ASSERT_TRUE(other);
    const auto held = program::holdSettingsFolder(line, [&] {
        ++waits;
        other.reset();
    });
    EXPECT_EQ(waits, 1);
    EXPECT_TRUE(held);
}

TEST_F(SettingsFolderFile, IsNotTheSettingsFileToo) {
    auto line = parse({L"--settings", text::fromUtf8(file().string())});
    EXPECT_THROW(program::holdSettingsFolder(line, [] {}), std::runtime_error);
    line.settingsFile = (file().parent_path() / "." / file().filename()).wstring();
    EXPECT_THROW(program::holdSettingsFolder(line, [] {}), std::runtime_error) << "the same, not made yet";
}

}  // namespace
