#include "support/systemReport.h"

#include <algorithm>
#include <array>
#include <memory>
#include <variant>
#include <vector>

#include "mail/OutlookVersion.h"
#include "platform/text.h"
#include "settings/basRegistry.h"

namespace support::systemReport {

namespace {

using platform::MachineRegistry;
using platform::RootKey;

constexpr std::uint32_t windows9x = 1;
constexpr std::uint32_t windowsNt = 2;

struct NamedVersion {
    std::uint32_t platform;
    std::uint32_t major;
    std::uint32_t minor;
    const wchar_t* name;
    /// Null where a server is not told apart.
    const wchar_t* server = nullptr;
};

constexpr NamedVersion versions[] = {
    {windows9x, 4, 0, L"Microsoft Windows 95 "},
    {windows9x, 4, 10, L"Microsoft Windows 98 "},
    {windows9x, 4, 90, L"Microsoft Windows Millennium "},
    {windowsNt, 3, 51, L"Windows NT 3.51 "},
    {windowsNt, 4, 0, L"Windows NT 4.0 "},
    {windowsNt, 5, 0, L"Windows 2000 "},
    {windowsNt, 5, 1, L"Windows XP "},
    {windowsNt, 6, 0, L"Windows Vista "},
    {windowsNt, 6, 1, L"Windows 7 "},
    {windowsNt, 6, 2, L"Windows 8 ", L"Windows Server 2012 "},
    {windowsNt, 6, 3, L"Windows 8.1 ", L"Windows Server 2012 R2 "},
};

/// From Windows 10 on versions differ by the number of the build alone.
struct NamedBuild {
    std::uint32_t first;
    const wchar_t* name;
};
constexpr NamedBuild builds[] = {{22000, L"Windows 11 "}, {0, L"Windows 10 "}};
constexpr NamedBuild serverBuilds[] = {{26100, L"Windows Server 2025 "},
                                       {20348, L"Windows Server 2022 "},
                                       {17763, L"Windows Server 2019 "},
                                       {0, L"Windows Server 2016 "}};

std::wstring nameOf(const platform::WindowsVersion& version) {
    if (version.platform == windowsNt && version.major == 10) {
        const auto named = [&version](const NamedBuild& build) { return version.build >= build.first; };
        return version.server ? std::ranges::find_if(serverBuilds, named)->name
                              : std::ranges::find_if(builds, named)->name;
    }
    const auto found = std::ranges::find_if(versions, [&version](const NamedVersion& named) {
        return named.platform == version.platform && named.major == version.major &&
               named.minor == version.minor;
    });
    if (found == std::end(versions)) {
        return L"Windows " + std::to_wstring(version.major) + L'.' + std::to_wstring(version.minor) + L' ';
    }
    return version.server && found->server ? found->server : found->name;
}

struct AddIn {
    std::wstring progId;
    std::wstring friendlyName;
    std::wstring loadBehavior;

    bool operator==(const AddIn&) const = default;
};

constexpr wchar_t dashes[] = L"----------------------------------------------------------";

std::wstring line(std::wstring_view label, std::wstring_view value) {
    return std::wstring(label) + std::wstring(value) + std::wstring(text::lineBreak);
}

/// Empty when the key has no such value.
std::wstring valueOf(platform::RegistryKey& key, const std::wstring& name) {
    basRegistry::RegistryValue value;
    if (basRegistry::QueryValue(key, name, value) != platform::registry::success) {
        return {};
    }
    if (const auto* const number = std::get_if<std::uint32_t>(&value)) {
        return std::to_wstring(*number);
    }
    const auto* const stored = std::get_if<std::wstring>(&value);
    return stored ? std::wstring(text::before(*stored, L'\0')) : std::wstring();
}

/// The add-ins below one key, in one view of the registry, and what is said about those that cannot be read.
class Listing {
  public:
    Listing(MachineRegistry& registry, RootKey root, std::wstring path)
        : registry_(registry), root_(root), path_(std::move(path)) {}

    void read(std::uint32_t view) {
        std::unique_ptr<platform::RegistryKey> key;
        const std::uint32_t access = platform::registry::readAccess | view;
        const std::int32_t status = registry_.open(root_, path_, access, key);
        if (status == platform::registry::fileNotFound) {
            return;
        }
        std::wstring name;
        std::uint32_t index = 0;
        std::int32_t listed = status;
        for (; key && (listed = key->enumerateKey(index, name)) == platform::registry::success; ++index) {
            add(name, access);
        }
        if (listed != platform::registry::noMoreItems) {
            errors_ += line(L"Unable to open a subkey", L"");
        }
    }

    std::wstring text() const {
        std::wstring text;
        for (const AddIn& addIn : found_) {
            text += line(L"Addin ID: ", addIn.progId);
            text += addIn.friendlyName.empty() ? L"" : line(L"Name: ", addIn.friendlyName);
            text += addIn.loadBehavior.empty() ? L"" : line(L"Load Behavior: ", addIn.loadBehavior);
        }
        return text + errors_;
    }

  private:
    void add(const std::wstring& name, std::uint32_t access) {
        const std::wstring path = path_ + L'\\' + name;
        std::unique_ptr<platform::RegistryKey> key;
        if (registry_.open(root_, path, access, key) != platform::registry::success) {
            errors_ += line(L"Error RegOpenKeyEx for ", path);
            return;
        }
        AddIn addIn{name, valueOf(*key, L"FriendlyName"), valueOf(*key, L"LoadBehavior")};
        if (std::ranges::find(found_, addIn) == found_.end()) {
            found_.push_back(std::move(addIn));
        }
    }

    MachineRegistry& registry_;
    RootKey root_;
    std::wstring path_;
    std::vector<AddIn> found_;
    std::wstring errors_;
};

}  // namespace

std::wstring OutlookVersion(const std::wstring& version) {
    struct Named {
        mail::OutlookVersion major;
        const wchar_t* label;
    };
    constexpr std::array<Named, 5> labels{{{mail::outlook2000, L"Outlook 2000: "},
                                           {mail::outlook2002, L"Outlook 2002: "},
                                           {mail::outlook2003, L"Outlook 2003: "},
                                           {mail::outlook2007, L"Outlook 2007: "},
                                           {mail::OutlookVersion(14), L"Outlook 2010: "}}};
    const auto found = std::ranges::find(labels, mail::OutlookVersion(version), &Named::major);
    return (found == labels.end() ? L"Outlook Version Unknown: " : found->label) + version;
}

std::wstring WindowsVersion(platform::SystemInfo& system) {
    const auto version = system.windowsVersion();
    if (!version) {
        return L"Failed to get Operating System";
    }
    return nameOf(*version) + (system.is64Bit() ? L" (64-bit)" : L" (32-bit)");
}

std::wstring AddInList(MachineRegistry& registry, bool is64Bit) {
    Listing user(registry, RootKey::CurrentUser, L"Software\\Microsoft\\Office\\Outlook\\Addins");
    user.read(0);
    Listing machine(registry, RootKey::LocalMachine, L"SOFTWARE\\Microsoft\\Office\\Outlook\\Addins");
    if (is64Bit) {
        machine.read(platform::registry::view64);
        machine.read(platform::registry::view32);
    } else {
        machine.read(0);
    }
    return line(L"List of Current User Add-ins:", L"") + line(dashes, L"") + user.text() +
           std::wstring(text::lineBreak) + line(L"List of Local Machine Add-ins:", L"") + line(dashes, L"") +
           machine.text();
}

}  // namespace support::systemReport
