#include "settings/basRegistry.h"

#include <gtest/gtest.h>

#include "tests/TestWorld.h"

namespace {

using basRegistry::EnumerateValues;
using basRegistry::ReadValue;
using basRegistry::RegistryValue;
using platform::RootKey;
namespace registry = platform::registry;

constexpr wchar_t path[] = L"SOFTWARE\\Test";

TEST(Registry, ReadsTextsWithoutTheirNulAndNumbers) {
    TestWorld world;
    world.registry.setText(RootKey::LocalMachine, path, L"text", L"one");
    world.registry.setNumber(RootKey::LocalMachine, path, L"number", 70000);
    world.registry.setValue(RootKey::LocalMachine, path, L"open", {registry::typeString, {'a', 0, 'b', 0}});
    world.registry.setValue(RootKey::LocalMachine, path, L"bytes", {registry::typeBinary, {1, 2}});

    const auto read = [&](const wchar_t* name) {
        return ReadValue(world.registry, RootKey::LocalMachine, path, name);
    };
    EXPECT_EQ(read(L"text"), RegistryValue(L"one"));
    EXPECT_EQ(read(L"number"), RegistryValue(70000U));
    EXPECT_EQ(read(L"open"), RegistryValue(L"ab"));
    EXPECT_EQ(read(L"bytes"), RegistryValue());
    EXPECT_EQ(read(L"absent"), RegistryValue());
    EXPECT_EQ(ReadValue(world.registry, RootKey::CurrentUser, path, L"text"), RegistryValue());
}

TEST(Registry, RendersEveryValueAsText) {
    TestWorld world;
    world.registry.setText(RootKey::LocalMachine, path, L"text", L"one");
    world.registry.setNumber(RootKey::LocalMachine, path, L"number", 4000000000U);
    world.registry.setValue(RootKey::LocalMachine, path, L"bytes", {registry::typeBinary, {0x0A, 0xFF, 0}});

    const auto values = EnumerateValues(world.registry, world.desktop, RootKey::LocalMachine, path);

    ASSERT_EQ(values.size(), 3U);
    EXPECT_EQ(values[0].data, L"one");
    EXPECT_EQ(values[1].data, L"4000000000");
    EXPECT_EQ(values[2].data, L"0AFF00");
}

TEST(Registry, SaysThatAKeyCannotBeOpened) {
    TestWorld world({L"Veltro=OK"});
    EXPECT_TRUE(EnumerateValues(world.registry, world.desktop, RootKey::LocalMachine, L"none").empty());
    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_EQ(world.log.messages[0].text, L"Error opening key.");
}

}  // namespace
