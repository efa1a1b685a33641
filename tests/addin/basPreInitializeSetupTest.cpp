#include "addin/basPreInitializeSetup.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/TestWorld.h"

namespace {

using addin::basPreInitializeSetup::InitializeSetup;
using addin::basPreInitializeSetup::presetKey;
using platform::RootKey;
namespace registry = platform::registry;

constexpr wchar_t report[] = L"basPreInitializeSetup.InitializeSetup - Error ";

/// The id stands first, as where an administrator writes it before the values.
void presetDelay(TestWorld& world) {
    world.registry.setText(RootKey::LocalMachine, presetKey, L"PreSetupID", L"7");
    world.registry.setNumber(RootKey::LocalMachine, presetKey, L"DelayTime", 90);
    world.registry.setText(RootKey::LocalMachine, presetKey, L"OldEmailDays", L"14");
}

TEST(Presets, CountAsAppliedOnlyWhenAllOfThemCouldBeRead) {
    TestWorld world({L"Veltro=OK"});
    presetDelay(world);
    world.registry.failValue(RootKey::LocalMachine, presetKey, L"OldEmailDays");
    InitializeSetup(world.globals);
    EXPECT_EQ(world.settings.read(L"PreSetupID"), std::nullopt);
    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_TRUE(world.log.messages[0].text.starts_with(report));

    world.registry.failValue(RootKey::LocalMachine, presetKey, L"OldEmailDays", registry::success);
    InitializeSetup(world.globals);
    EXPECT_EQ(world.settings.read(L"DelayTime"), L"90");
    EXPECT_EQ(world.settings.read(L"OldEmailDays"), L"14");
    EXPECT_EQ(world.settings.read(L"PreSetupID"), L"7");
}

TEST(Presets, CountAsAppliedOnlyWhenTheyCouldBeListed) {
    TestWorld world({L"Veltro=OK"});
    presetDelay(world);
    world.registry.failListing(RootKey::LocalMachine, presetKey);
    InitializeSetup(world.globals);
    EXPECT_EQ(world.settings.read(L"PreSetupID"), std::nullopt);
    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_EQ(world.log.messages[0].text, L"Error opening key.");
}

/// Of which one setting cannot be written.
class HalfBrokenStore : public platform::MemorySettingsStore {
  public:
    void write(const std::wstring& key, const std::wstring& value) override {
        if (key == L"OldEmailDays") {
            throw std::runtime_error("unwritable");
        }
        MemorySettingsStore::write(key, value);
    }
};

TEST(Presets, CountAsAppliedOnlyWhenAllOfThemCouldBeWritten) {
    HalfBrokenStore store;
    TestWorld world(store);
    presetDelay(world);
    InitializeSetup(world.globals);
    EXPECT_EQ(store.read(L"DelayTime"), L"90");
    EXPECT_EQ(store.read(L"PreSetupID"), std::nullopt);
    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_TRUE(world.log.messages[0].text.starts_with(report));
}

TEST(Presets, OfTypesWithoutATextAndTheUnnamedValueAreNoSettings) {
    TestWorld world;
    presetDelay(world);
    world.registry.setText(RootKey::LocalMachine, presetKey, L"", L"default");
    world.registry.setValue(RootKey::LocalMachine, presetKey, L"XRecipients", {0, {'9', 0, 0, 0}});
    InitializeSetup(world.globals);
    EXPECT_EQ(world.settings.read(L"DelayTime"), L"90");
    EXPECT_EQ(world.settings.read(L""), std::nullopt);
    EXPECT_EQ(world.settings.read(L"XRecipients"), std::nullopt);
    EXPECT_EQ(world.settings.read(L"PreSetupID"), L"7");
}

}  // namespace
