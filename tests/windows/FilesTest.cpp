#include "program/files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <stdexcept>
#include <thread>
#include <vector>

#include "platform/replaceFile.h"
#include "program/FileSettingsStore.h"

namespace {

namespace fs = std::filesystem;

class KeptFiles : public testing::Test {
  protected:
    KeptFiles() : folder_(fs::temp_directory_path() / ("veltro-" + std::to_string(GetCurrentProcessId()))) {
        fs::create_directory(folder_);
    }
    ~KeptFiles() override { fs::remove_all(folder_); }

    fs::path file(const char* name) const { return folder_ / name; }
    std::ptrdiff_t count() const { return std::distance(fs::directory_iterator(folder_), {}); }

  private:
    fs::path folder_;
};

TEST_F(KeptFiles, AreReplacedAsAWhole) {
    platform::replaceFile(file("kept"), "one");
    platform::replaceFile(file("kept"), "two");
    EXPECT_EQ(program::readKeptFile(file("kept")), "two");
    EXPECT_EQ(count(), 1);
    EXPECT_THROW(platform::replaceFile(file("missing/kept"), "x"), std::runtime_error);

    SetFileAttributesW(file("kept").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_THROW(program::FileLock lock(file("kept")), std::runtime_error);
    EXPECT_THROW(platform::replaceFile(file("kept"), "three"), std::runtime_error);
    SetFileAttributesW(file("kept").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(program::readKeptFile(file("kept")), "two");
}

TEST_F(KeptFiles, AreHeldByOneAtATime) {
    auto lock = program::FileLock::tryLock(file("kept"));
    ASSERT_TRUE(lock);
    EXPECT_FALSE(program::FileLock::tryLock(file("kept")));
    platform::replaceFile(file("kept"), "x");
    EXPECT_FALSE(program::FileLock::tryLock(file("kept")));
    lock.reset();
    EXPECT_TRUE(program::FileLock::tryLock(file("kept")));
    EXPECT_EQ(count(), 1);
    EXPECT_THROW(program::FileLock missing(file("missing/kept")), std::runtime_error);
}

TEST_F(KeptFiles, LoseNothingOfRunsAtTheSameTime) {
    constexpr int runs = 4;
    constexpr int settings = 6;
    std::vector<std::jthread> threads;
    for (int run = 0; run < runs; ++run) {
        threads.emplace_back([this, run] {
            program::FileSettingsStore store(file("settings.json"));
            for (int setting = 0; setting < settings; ++setting) {
                store.write(std::to_wstring(run) + L"." + std::to_wstring(setting), L"kept");
            }
        });
    }
    threads.clear();
    EXPECT_EQ(program::FileSettingsStore(file("settings.json")).all().size(), std::size_t{runs * settings});
    EXPECT_EQ(count(), 1);
}

}  // namespace
