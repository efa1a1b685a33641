#include "program/FileSettingsStore.h"

#include <gtest/gtest.h>

#include "platform/MemorySettingsStore.h"
#include "platform/automation.h"
#include "tests/TemporaryFolder.h"

namespace {

using platform::MemorySettingsStore;
using program::FileSettingsStore;

TEST(SettingsStores, KeepTextsByKeyWithoutRegardToCase) {
    const TemporaryFolder folder;
    MemorySettingsStore memory;
    FileSettingsStore file(folder.file("settings.json"));
    for (platform::SettingsStore* store :
         {static_cast<platform::SettingsStore*>(&memory), static_cast<platform::SettingsStore*>(&file)}) {
        EXPECT_EQ(store->read(L"OldEmailDays"), std::nullopt);
        const std::wstring odd = std::wstring(L"a\"\\\r\n\t\u00E9") + static_cast<wchar_t>(0xD800) + L"z";
        store->write(L"OldEmailDays", L"28");
        store->write(L"oldemaildays", L"7");
        store->write(L"Empty", L"");
        store->write(L"\u00C9t\u00E9", odd);
        EXPECT_EQ(store->read(L"OLDEMAILDAYS"), L"7");
        EXPECT_EQ(store->read(L"empty"), L"");
        EXPECT_EQ(store->read(L"\u00E9T\u00C9"), odd);
    }
    FileSettingsStore again(folder.file("settings.json"));
    EXPECT_EQ(again.read(L"OldEmailDays"), L"7");
}

TEST(FileSettingsStore, SaysThatAFileIsNoSettingsAndLeavesItAlone) {
    const TemporaryFolder folder;
    for (const char* contents : {"no json", "[1]", "{\"a\": 5}", "{\"a\": [\"x\"]}", "{\"a\": \"x\""}) {
        const auto file = folder.write("settings.json", contents);
        EXPECT_THROW(FileSettingsStore store(file), automation::Error) << contents;
        folder.write("settings.json", "{}");
        FileSettingsStore store(file);
        folder.write("settings.json", contents);
        EXPECT_THROW(store.read(L"a"), automation::Error) << contents;
        EXPECT_THROW(store.write(L"a", L"b"), automation::Error) << contents;
        EXPECT_EQ(std::filesystem::file_size(file), std::string(contents).size());
    }
    EXPECT_THROW(FileSettingsStore(folder.file("missing/settings.json")), automation::Error);
    EXPECT_THROW(FileSettingsStore(folder.file(".")), automation::Error);
}

TEST(FileSettingsStore, TakesAnEmptyFileForAnEmptyStore) {
    const TemporaryFolder folder;
    for (const char* contents : {"", "\n", " \r\n\t"}) {
        FileSettingsStore store(folder.write("settings.json", contents));
        EXPECT_EQ(store.read(L"a"), std::nullopt);
        store.write(L"a", L"b");
        EXPECT_EQ(store.read(L"a"), L"b");
    }
}

}  // namespace
