#include <gtest/gtest.h>
#include <windows.h>

#include <map>
#include <memory>
#include <string>

#include "platform/automation.h"
#include "platform/windows/RegKey.h"
#include "platform/windows/RegistrySettingsStore.h"
#include "platform/windows/WindowsRegistry.h"

using platform::RegistryData;
using platform::windows::RegKey;

namespace {

const std::wstring application = L"veltro-test";
const std::wstring settingsPath = L"Software\\VB and VBA Program Settings\\" + application;

class RegistryTest : public testing::Test {
  protected:
    RegistryTest() { clear(); }
    ~RegistryTest() override { clear(); }

    static void clear() { platform::windows::deleteKeyTree(HKEY_CURRENT_USER, settingsPath); }

    platform::windows::RegistrySettingsStore store{application, L"section"};
};

TEST_F(RegistryTest, AbsentAndEmptySettingsDiffer) {
    EXPECT_EQ(store.read(L"Key"), std::nullopt);
    store.write(L"Key", L"");
    EXPECT_EQ(store.read(L"Key"), L"");
    EXPECT_EQ(store.read(L"Other"), std::nullopt);
}

TEST_F(RegistryTest, SettingsComeBackAsTheyWereStored) {
    const std::wstring values[] = {L"True", L"Grüße; \"x\"\r\nzweite Zeile", L" spaces ",
                                   std::wstring(1, wchar_t{0xD83D}), std::wstring(40000, L'a')};
    for (const std::wstring& value : values) {
        store.write(L"KeyWords", value);
        EXPECT_EQ(store.read(L"keywords"), value);
    }
}

TEST_F(RegistryTest, SaysWhySettingsCannotBeStored) {
    constexpr std::size_t tooLongForAKey = 300;
    platform::windows::RegistrySettingsStore impossible(application, std::wstring(tooLongForAKey, L'x'));
    const std::wstring start = L"The settings cannot be written: ";
    try {
        impossible.write(L"Key", L"x");
        ADD_FAILURE() << "a key of any length was made";
    } catch (const automation::Error& error) {
        EXPECT_TRUE(error.description().starts_with(start));
        EXPECT_GT(error.description().size(), start.size());
    }
}

TEST_F(RegistryTest, SettingsLieWhereVisualBasicProgramsLookForThem) {
    store.write(L"OldEmailDays", L"28");
    RegKey key;
    ASSERT_EQ(key.open(HKEY_CURRENT_USER, settingsPath + L"\\section", KEY_READ), ERROR_SUCCESS);
    RegistryData data;
    ASSERT_EQ(key.query(L"OldEmailDays", data), ERROR_SUCCESS);
    EXPECT_EQ(data.type, DWORD{REG_SZ});
    EXPECT_EQ(data.bytes, (std::vector<std::uint8_t>{'2', 0, '8', 0, 0, 0}));
}

TEST_F(RegistryTest, ForeignValuesAreNoSettings) {
    RegKey key;
    ASSERT_EQ(key.create(HKEY_CURRENT_USER, settingsPath + L"\\section"), ERROR_SUCCESS);
    key.setNumber(L"Number", 5);
    EXPECT_EQ(store.read(L"Number"), std::nullopt);
    // Some tools forget the closing NUL, some write more than one, some leave older text behind it.
    HKEY raw = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, (settingsPath + L"\\section").c_str(), 0, KEY_WRITE, &raw),
              ERROR_SUCCESS);
    for (const std::wstring& stored :
         {std::wstring(L"on"), std::wstring(L"on\0\0\0", 5), std::wstring(L"on\0older", 8)}) {
        RegSetValueExW(raw, L"Text", 0, REG_SZ, reinterpret_cast<const BYTE*>(stored.data()),
                       static_cast<DWORD>(stored.size() * sizeof(wchar_t)));
        EXPECT_EQ(store.read(L"Text"), L"on") << stored.size();
    }
    RegSetValueExW(raw, L"Empty", 0, REG_SZ, nullptr, 0);
    RegCloseKey(raw);
    EXPECT_EQ(store.read(L"Empty"), L"");
}

TEST_F(RegistryTest, TheMachinesRegistryIsReadRaw) {
    RegKey written;
    ASSERT_EQ(written.create(HKEY_CURRENT_USER, settingsPath), ERROR_SUCCESS);
    written.setText(L"PreSetupID", L"7");
    written.setNumber(L"Number", 0x01020304);

    platform::windows::WindowsRegistry registry;
    std::unique_ptr<platform::RegistryKey> key;
    EXPECT_EQ(registry.open(platform::RootKey::CurrentUser, settingsPath + L"\\missing", 0, key),
              platform::registry::fileNotFound);
    EXPECT_FALSE(key);
    for (const std::uint32_t access : {0U, platform::registry::readAccess}) {
        ASSERT_EQ(registry.open(platform::RootKey::CurrentUser, settingsPath, access, key),
                  platform::registry::success);
        std::map<std::wstring, RegistryData> values;
        std::wstring name;
        RegistryData data;
        std::int32_t status = 0;
        for (std::uint32_t index = 0; (status = key->enumerate(index, name, data)) == 0; ++index) {
            values[name] = data;
        }
        EXPECT_EQ(status, platform::registry::noMoreItems);
        ASSERT_EQ(values.size(), 2U);
        EXPECT_EQ(values[L"PreSetupID"].bytes, (std::vector<std::uint8_t>{'7', 0, 0, 0}));
        EXPECT_EQ(values[L"Number"].type, platform::registry::typeNumber);
        EXPECT_EQ(values[L"Number"].bytes, (std::vector<std::uint8_t>{4, 3, 2, 1}));
        EXPECT_EQ(key->query(L"nothing", data), platform::registry::fileNotFound);
        EXPECT_EQ(key->close(), platform::registry::success);
    }
}

}  // namespace
