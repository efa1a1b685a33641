#include <gtest/gtest.h>
#include <windows.h>

#include <iterator>

#include "platform/MemorySettingsStore.h"
#include "settings/modLoadSettings.h"
#include "settings/settingsFile.h"
#include "tests/TemporaryFolder.h"

namespace {

using modLoadSettings::exportSettingsFile;

TEST(SettingsExport, WritesAFileThatReadsBackOrLeavesTheOldOne) {
    const TemporaryFolder folder;
    const auto place = folder.file("Gr") += L"\u00FC\u00DFe";
    std::filesystem::create_directory(place);
    const auto file = place / settings::settingsFile::name;
    platform::MemorySettingsStore store;
    store.write(L"DomainName", L"\u00FC.example");
    ASSERT_TRUE(exportSettingsFile(store, place.wstring()));
    const auto importedDomain = [&file] {
        platform::MemorySettingsStore imported;
        settings::SettingsFileReader().read(file, imported);
        return imported.read(L"DomainName");
    };
    EXPECT_EQ(importedDomain(), L"\u00FC.example");

    for (const wchar_t* lacking : {L"\u4E2D", L"\u0101", L"\xD800"}) {
        store.write(L"DomainName", lacking);
        EXPECT_FALSE(exportSettingsFile(store, place.wstring()));
    }
    store.write(L"DomainName", L"x");
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(exportSettingsFile(store, place.wstring()));
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(importedDomain(), L"\u00FC.example");
    EXPECT_FALSE(exportSettingsFile(store, (place / L"none").wstring()));
    EXPECT_FALSE(exportSettingsFile(store, place.wstring() + L"\\" + std::wstring(300, L'x')));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(place), {}), 1);
}

}  // namespace
