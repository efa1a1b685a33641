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
    world.registry.setValue(RootKey::LocalMachine, path, L"closed",
                            {registry::typeString, {'a', 0, 0, 0, 'b', 0, 0, 0, 0, 0}});

    const auto read = [&](const wchar_t* name) {
        return ReadValue(world.registry, RootKey::LocalMachine, path, name);
    };
    EXPECT_EQ(read(L"text"), RegistryValue(L"one"));
    EXPECT_EQ(read(L"number"), RegistryValue(70000U));
    EXPECT_EQ(read(L"open"), RegistryValue(L"ab"));
    EXPECT_EQ(read(L"bytes"), RegistryValue());
    EXPECT_EQ(read(L"closed"), RegistryValue(L"a"));
    EXPECT_EQ(read(L"absent"), RegistryValue());
    EXPECT_EQ(ReadValue(world.registry, RootKey::CurrentUser, path, L"text"), RegistryValue());
}

TEST(Registry, RendersValuesAsTextOrPassesThemOver) {
    const struct {
        std::uint32_t type;
        std::vector<std::uint8_t> bytes;
        /// Nothing for a value that is passed over.
        std::optional<std::wstring> text;
    } cases[] = {
        {registry::typeString, {'a', 0, 'b', 0, 0, 0}, L"ab"},
        {registry::typeString, {'a', 0, 'b', 0, 0, 0, 0, 0, 'c'}, L"ab"},
        {registry::typeString, {}, L""},
        {registry::typeExpandableString, {'%', 0, 'x', 0, '%', 0, 0, 0}, L"%x%"},
        {registry::typeStrings, {'a', 0, 0, 0, 'b', 0, 0, 0, 0, 0}, L"a;b"},
        {registry::typeStrings, {0, 0}, L""},
        {registry::typeNumber, {0, 0x28, 0x6B, 0xEE}, L"4000000000"},
        {registry::typeLongNumber, {1, 0, 0, 0, 1, 0, 0, 0}, L"4294967297"},
        {registry::typeBinary, {0x0A, 0xFF, 0}, L"0AFF00"},
        {0, {'a', 0, 0, 0}, std::nullopt},           // of no type
        {5, {0, 0, 0, 7}, std::nullopt},             // a number, high byte first
        {8, {1, 2, 3, 4, 5, 6}, std::nullopt},       // a list of resources
        {0x12345678, {'a', 0, 0, 0}, std::nullopt},  // of a type of some program's own
    };
    for (const auto& [type, bytes, text] : cases) {
        TestWorld world;
        world.registry.setValue(RootKey::LocalMachine, path, L"value", {type, bytes});
        world.registry.setText(RootKey::LocalMachine, path, L"next", L"one");
        const auto values = EnumerateValues(world.globals, RootKey::LocalMachine, path);
        ASSERT_EQ(values.size(), text ? 2U : 1U) << type;
        EXPECT_EQ(values.back().data, L"one") << type;
        EXPECT_EQ(values.front().data, text.value_or(L"one")) << type;
        EXPECT_EQ(values.front().type, text ? type : registry::typeString) << type;
    }
}

TEST(Registry, SaysThatAValueCannotBeRead) {
    TestWorld world;
    world.registry.setText(RootKey::LocalMachine, path, L"first", L"one");
    world.registry.setText(RootKey::LocalMachine, path, L"second", L"two");
    world.registry.failValue(RootKey::LocalMachine, path, L"second", 1234);
    try {
        EnumerateValues(world.globals, RootKey::LocalMachine, path);
        ADD_FAILURE() << "the second value is missing";
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), 1234);
    }
}

TEST(Registry, SaysThatAKeyCannotBeOpened) {
    TestWorld world({L"Product=OK"});
    world.globals.product.title = L"Product";
    EXPECT_TRUE(EnumerateValues(world.globals, RootKey::LocalMachine, L"none").empty());
    ASSERT_EQ(world.log.messages.size(), 1U);
    EXPECT_EQ(world.log.messages[0].text, L"Error opening key.");
    EXPECT_EQ(world.log.messages[0].title, L"Product");
}

}  // namespace
