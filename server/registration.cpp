#include "server/registration.h"

#include <variant>
#include <vector>

#include "platform/windows/RegKey.h"

namespace server {

namespace {

using platform::windows::deleteKeyTree;
using platform::windows::RegKey;

constexpr wchar_t classKey[] = L"Software\\Classes\\CLSID\\{77FDA4DD-F8B7-45DE-9324-31C913538BA5}";
constexpr wchar_t progIdKey[] = L"Software\\Classes\\Veltro.Connect";
constexpr wchar_t versionedProgIdKey[] = L"Software\\Classes\\Veltro.Connect.1";
constexpr wchar_t addInKey[] = L"Software\\Microsoft\\Office\\Outlook\\Addins\\Veltro.Connect";

constexpr wchar_t classId[] = L"{77FDA4DD-F8B7-45DE-9324-31C913538BA5}";
constexpr wchar_t className[] = L"Veltro add-in for Outlook";

/// Load when Outlook starts.
constexpr DWORD loadAtStartup = 3;

/// The keys that belong to the add-in alone, each with everything below it.
constexpr const wchar_t* ownKeys[] = {addInKey, progIdKey, versionedProgIdKey, classKey};

/// Keys of Office's that registering makes on a machine that does not have them, innermost first.
constexpr const wchar_t* sharedKeys[] = {L"Software\\Microsoft\\Office\\Outlook\\Addins",
                                         L"Software\\Microsoft\\Office\\Outlook",
                                         L"Software\\Microsoft\\Office"};

struct Entry {
    std::wstring key;
    std::wstring name;
    std::variant<std::wstring, DWORD> data;
};

std::vector<Entry> entries(const std::wstring& path) {
    const std::wstring comClass = classKey;
    return {
        {comClass, L"", className},
        {comClass + L"\\InprocServer32", L"", path},
        {comClass + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {comClass + L"\\ProgID", L"", L"Veltro.Connect.1"},
        {comClass + L"\\VersionIndependentProgID", L"", L"Veltro.Connect"},
        {progIdKey, L"", className},
        {progIdKey + std::wstring(L"\\CLSID"), L"", classId},
        {progIdKey + std::wstring(L"\\CurVer"), L"", L"Veltro.Connect.1"},
        {versionedProgIdKey, L"", className},
        {versionedProgIdKey + std::wstring(L"\\CLSID"), L"", classId},
        {addInKey, L"FriendlyName", L"Veltro"},
        {addInKey, L"Description", L"Stops mistakes before an e-mail leaves."},
        {addInKey, L"LoadBehavior", loadAtStartup},
    };
}

LONG write(HKEY root, const Entry& entry) {
    RegKey key;
    const LONG status = key.create(root, entry.key);
    if (status != ERROR_SUCCESS) {
        return status;
    }
    const auto* text = std::get_if<std::wstring>(&entry.data);
    return text ? key.setText(entry.name, *text) : key.setNumber(entry.name, std::get<DWORD>(entry.data));
}

LONG removeFrom(HKEY root) {
    LONG failure = ERROR_SUCCESS;
    for (const wchar_t* key : ownKeys) {
        const LONG status = deleteKeyTree(root, key);
        if (failure == ERROR_SUCCESS) {
            failure = status;
        }
    }
    for (const wchar_t* shared : sharedKeys) {
        RegKey key;
        if (key.open(root, shared, KEY_READ) != ERROR_SUCCESS) {
            continue;
        }
        const bool unused = key.isEmpty();
        key.close();
        if (unused) {
            RegDeleteKeyW(root, shared);
        }
    }
    return failure;
}

LONG writeTo(HKEY root, const std::wstring& path) {
    for (const Entry& entry : entries(path)) {
        if (const LONG status = write(root, entry); status != ERROR_SUCCESS) {
            removeFrom(root);
            return status;
        }
    }
    return ERROR_SUCCESS;
}

}  // namespace

LONG registerServer(const std::wstring& path) {
    const LONG status = writeTo(HKEY_LOCAL_MACHINE, path);
    if (status == ERROR_ACCESS_DENIED) {
        return writeTo(HKEY_CURRENT_USER, path);
    }
    // What is registered for the user comes first: a copy from earlier days would be loaded instead.
    return status == ERROR_SUCCESS ? removeFrom(HKEY_CURRENT_USER) : status;
}

LONG unregisterServer() {
    const LONG machine = removeFrom(HKEY_LOCAL_MACHINE);
    const LONG user = removeFrom(HKEY_CURRENT_USER);
    return machine != ERROR_SUCCESS ? machine : user;
}

}  // namespace server
