#include "program/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <thread>

#include "platform/replaceFile.h"
#include "platform/text.h"
#include "program/FileSettingsStore.h"
#include "tests/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

template <class Act>
std::string whyRefused(Act act) {
    try {
        act();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

std::size_t filesIn(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

TEST(FileNames, HoldAnyBytes) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    for (const std::string& bytes :
         {std::string("caf\u00E9.eml"), std::string("caf\xE9.eml"), std::string("\xED\xB2\x80"),
          std::string("\xF0\x9F\x98"), std::string("\u20AC\U0001F600"), std::string("\xC3"), all}) {
        EXPECT_EQ(program::pathOf(program::fileNameFromBytes(bytes)).string(), bytes);
    }
    EXPECT_EQ(program::fileNameFromBytes("caf\u00E9"), L"caf\u00E9");
}

TEST(ReplaceFile, KeepsPermissionsAndLinksAndLeavesNothingBehind) {
    const TemporaryFolder folder;
    const auto file = folder.file("kept");
    platform::replaceFile(file, "one");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);

    const auto shared = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(file, shared);
    fs::create_symlink("kept", folder.file("link"));
    fs::create_symlink("link", folder.file("linkToLink"));
    platform::replaceFile(folder.file("linkToLink"), "two");
    EXPECT_EQ(program::readKeptFile(file), "two");
    EXPECT_EQ(fs::status(file).permissions(), shared);
    EXPECT_TRUE(fs::is_symlink(folder.file("link")));

    fs::create_symlink("later", folder.file("dangling"));
    EXPECT_EQ(program::readKeptFile(folder.file("dangling")), "");
    platform::replaceFile(folder.file("dangling"), "three");
    EXPECT_EQ(program::readKeptFile(folder.file("later")), "three");
    EXPECT_EQ(filesIn(folder.file(".")), 5U);
}

TEST(KeptFiles, ThatCannotBeKeptAreNamedSo) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), S_IRUSR | S_IWUSR), 0);
    fs::permissions(folder.write("readOnly", "x"), fs::perms::owner_read);
    fs::permissions(folder.write("closed", "x"), fs::perms::none);
    fs::create_symlink("loop", folder.file("loop"));
    folder.write("locked", "x");
    fs::create_directory(folder.file("locked.lock"));
    const struct {
        const char* file;
        const char* told;
    } cases[] = {
        {"pipe", "no regular file"},
        {".", "is a folder"},
        {"readOnly", "is read-only"},
        {"missing/kept", "no such"},
        {"readOnly/kept", ""},
        {"loop", ""},
        {"readOnly/../kept/x", "no such"},
        {"closed", "permission denied"},
    };
    EXPECT_TRUE(
        whyRefused([&] { program::FileLock lock(folder.file("locked")); }).starts_with("its .lock file:"));
    for (const auto& [name, told] : cases) {
        const auto file = folder.file(name);
        const std::string why = whyRefused([&file] { program::FileLock lock(file); });
        EXPECT_NE(why, "") << name;
        EXPECT_NE(why.find(told), std::string::npos) << name << ": " << why;
        EXPECT_NE(whyRefused([&file] { platform::replaceFile(file, "y"); }), "") << name;
    }
}

TEST(ReadFile, SaysWhyItCannot) {
    const TemporaryFolder folder;
    const auto closed = folder.file("closed");
    fs::create_directory(closed);
    std::ofstream(closed / "mail.eml") << "x";
    EXPECT_NE(whyRefused([&] { program::readFile(folder.file("none")); }).find("no such file"),
              std::string::npos);
    EXPECT_NE(whyRefused([&] { program::readFile(closed); }).find("is a folder"), std::string::npos);
    EXPECT_NE(whyRefused([] { program::readFile("/dev/zero"); }).find("larger than"), std::string::npos);

    fs::permissions(closed, fs::perms::none);
    const auto self = geteuid();
    constexpr uid_t nobody = 65534;
    if (self == 0) {  // Nothing is closed to the administrator.
        fs::permissions(folder.file("."), fs::perms::all);
        ASSERT_EQ(seteuid(nobody), 0);
    }
    const std::string inside = whyRefused([&] { program::readFile(closed / "mail.eml"); });
    const std::string lock = whyRefused([&] { program::FileLock hold(closed / "kept"); });
    ASSERT_EQ(seteuid(self), 0);
    fs::permissions(closed, fs::perms::owner_all);
    EXPECT_EQ(inside, "permission denied");
    EXPECT_EQ(lock, "permission denied");
}

TEST(FileLock, HoldsOthersOffUntilItEnds) {
    const TemporaryFolder folder;
    const auto file = folder.file("kept");
    fs::create_symlink("kept", folder.file("link"));
    // What a killed run left.
    std::ofstream(folder.file("kept.lock")) << "";
    auto lock = program::FileLock::tryLock(file);
    ASSERT_TRUE(lock);
    EXPECT_FALSE(program::FileLock::tryLock(file));
    EXPECT_FALSE(program::FileLock::tryLock(folder.file("link")));
    EXPECT_TRUE(program::FileLock::tryLock(folder.file("other")));
    platform::replaceFile(file, "x");
    EXPECT_FALSE(program::FileLock::tryLock(file));
    lock.reset();
    EXPECT_TRUE(program::FileLock::tryLock(file));
    EXPECT_EQ(filesIn(folder.file(".")), 2U);
}

TEST(FileSettingsStore, LosesNothingOfRunsAtTheSameTime) {
    const TemporaryFolder folder;
    const auto file = folder.file("settings.json");
    constexpr int runs = 8;
    constexpr int settings = 12;
    std::vector<std::jthread> threads;
    for (int run = 0; run < runs; ++run) {
        threads.emplace_back([&file, run] {
            program::FileSettingsStore store(file);
            for (int setting = 0; setting < settings; ++setting) {
                store.write(std::to_wstring(run) + L"." + std::to_wstring(setting), L"kept");
            }
        });
    }
    threads.clear();
    EXPECT_EQ(program::FileSettingsStore(file).all().size(), std::size_t{runs * settings});
    EXPECT_EQ(filesIn(folder.file(".")), 1U);
}

}  // namespace
