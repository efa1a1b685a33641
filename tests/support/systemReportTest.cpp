#include "support/systemReport.h"

#include <gtest/gtest.h>

#include "platform/native/FakeRegistry.h"
#include "platform/native/FixedSystemInfo.h"
#include "platform/text.h"

namespace {

using namespace support;
using platform::RootKey;
using platform::native::FakeRegistry;

TEST(SystemReport, NamesOutlook) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"9.0.0.2711", L"Outlook 2000: 9.0.0.2711"},
        {L"10.0.0.2627", L"Outlook 2002: 10.0.0.2627"},
        {L"11.0.0.5510", L"Outlook 2003: 11.0.0.5510"},
        {L"12.0.0.4518", L"Outlook 2007: 12.0.0.4518"},
        {L"14.0.0.4760", L"Outlook 2010: 14.0.0.4760"},
        {L"15.0.0.4420", L"Outlook Version Unknown: 15.0.0.4420"},
        {L"16.0.0.17726", L"Outlook Version Unknown: 16.0.0.17726"},
        {L"", L"Outlook Version Unknown: "}};
    for (const auto& [version, line] : cases) {
        EXPECT_EQ(systemReport::OutlookVersion(version), line);
    }
}

TEST(SystemReport, NamesWindows) {
    const struct {
        platform::WindowsVersion version;
        bool wide;
        const wchar_t* line;
    } cases[] = {
        {{1, 4, 0, 950, false}, false, L"Microsoft Windows 95  (32-bit)"},
        {{1, 4, 10, 2222, false}, false, L"Microsoft Windows 98  (32-bit)"},
        {{1, 4, 90, 3000, false}, false, L"Microsoft Windows Millennium  (32-bit)"},
        {{2, 3, 51, 1057, false}, false, L"Windows NT 3.51  (32-bit)"},
        {{2, 4, 0, 1381, true}, false, L"Windows NT 4.0  (32-bit)"},
        {{2, 5, 0, 2195, false}, false, L"Windows 2000  (32-bit)"},
        {{2, 5, 1, 2600, false}, false, L"Windows XP  (32-bit)"},
        {{2, 6, 0, 6002, false}, true, L"Windows Vista  (64-bit)"},
        {{2, 6, 1, 7601, true}, true, L"Windows 7  (64-bit)"},
        {{2, 6, 2, 9200, false}, true, L"Windows 8  (64-bit)"},
        {{2, 6, 2, 9200, true}, true, L"Windows Server 2012  (64-bit)"},
        {{2, 6, 3, 9600, false}, true, L"Windows 8.1  (64-bit)"},
        {{2, 6, 3, 9600, true}, true, L"Windows Server 2012 R2  (64-bit)"},
        {{2, 10, 0, 19045, false}, false, L"Windows 10  (32-bit)"},
        {{2, 10, 0, 21999, false}, true, L"Windows 10  (64-bit)"},
        {{2, 10, 0, 22000, false}, true, L"Windows 11  (64-bit)"},
        {{2, 10, 0, 14393, true}, true, L"Windows Server 2016  (64-bit)"},
        {{2, 10, 0, 17763, true}, true, L"Windows Server 2019  (64-bit)"},
        {{2, 10, 0, 20348, true}, true, L"Windows Server 2022  (64-bit)"},
        {{2, 10, 0, 26100, true}, true, L"Windows Server 2025  (64-bit)"},
        {{2, 5, 2, 3790, false}, true, L"Windows 5.2  (64-bit)"},
        {{2, 12, 1, 1, false}, true, L"Windows 12.1  (64-bit)"},
    };
    platform::native::FixedSystemInfo system(L".");
    for (const auto& given : cases) {
        system.version = given.version;
        system.wide = given.wide;
        EXPECT_EQ(systemReport::WindowsVersion(system), given.line);
    }
    system.version = std::nullopt;
    EXPECT_EQ(systemReport::WindowsVersion(system), L"Failed to get Operating System");
}

constexpr wchar_t dashes[] = L"----------------------------------------------------------\r\n";
constexpr wchar_t userKey[] = L"Software\\Microsoft\\Office\\Outlook\\Addins";
constexpr wchar_t machineKey[] = L"SOFTWARE\\Microsoft\\Office\\Outlook\\Addins";
constexpr wchar_t narrowKey[] = L"SOFTWARE\\WOW6432Node\\Microsoft\\Office\\Outlook\\Addins";

std::wstring report(const std::wstring& user, const std::wstring& machine) {
    return std::wstring(L"List of Current User Add-ins:\r\n") + dashes + user +
           L"\r\nList of Local Machine Add-ins:\r\n" + dashes + machine;
}

void add(FakeRegistry& registry, RootKey root, const std::wstring& key, const wchar_t* name, int behavior) {
    if (*name) {
        registry.setText(root, key, L"FriendlyName", name);
    }
    registry.setNumber(root, key, L"LoadBehavior", static_cast<std::uint32_t>(behavior));
}

TEST(SystemReport, ListsTheAddInsOfUserAndMachine) {
    FakeRegistry registry;
    EXPECT_EQ(systemReport::AddInList(registry, true), report(L"", L"")) << "no add-in at all";
    registry.addKey(RootKey::CurrentUser, userKey);
    EXPECT_EQ(systemReport::AddInList(registry, false), report(L"", L"")) << "nor below its key";

    add(registry, RootKey::CurrentUser, std::wstring(userKey) + L"\\Veltro.Connect", L"Veltro", 3);
    registry.addKey(RootKey::CurrentUser, std::wstring(userKey) + L"\\Bare.AddIn");
    for (const wchar_t* key : {machineKey, narrowKey}) {
        add(registry, RootKey::LocalMachine, std::wstring(key) + L"\\Same.AddIn", L"Same", 3);
        add(registry, RootKey::LocalMachine, std::wstring(key) + L"\\Other.AddIn", L"",
            key == narrowKey ? 2 : 3);
    }
    const std::wstring user =
        L"Addin ID: Veltro.Connect\r\nName: Veltro\r\nLoad Behavior: 3\r\nAddin ID: Bare.AddIn\r\n";
    const std::wstring machine =
        L"Addin ID: Same.AddIn\r\nName: Same\r\nLoad Behavior: 3\r\nAddin ID: Other.AddIn\r\nLoad Behavior: 3\r\n";
    EXPECT_EQ(systemReport::AddInList(registry, false), report(user, machine));
    EXPECT_EQ(systemReport::AddInList(registry, true),
              report(user, machine + L"Addin ID: Other.AddIn\r\nLoad Behavior: 2\r\n"));
}

TEST(SystemReport, TellsWhatCannotBeRead) {
    FakeRegistry registry;
    const std::wstring key = std::wstring(userKey) + L"\\Locked.AddIn";
    registry.addKey(RootKey::CurrentUser, key);
    registry.failOpen(RootKey::CurrentUser, key);
    registry.addKey(RootKey::LocalMachine, machineKey);
    registry.failListing(RootKey::LocalMachine, machineKey);
    EXPECT_EQ(systemReport::AddInList(registry, false),
              report(L"Error RegOpenKeyEx for " + key + L"\r\n", L"Unable to open a subkey\r\n"));
}

}  // namespace
