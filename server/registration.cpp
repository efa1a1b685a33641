#include "server/registration.h"

#include <variant>
#include <vector>

#include "platform/windows/RegKey.h"

namespace server {

namespace {

using platform::windows::deleteKeyTree;
using platform::windows::RegKey;

/// A class of the DLL, as COM finds it.
struct ComClass {
    std::wstring id;
    std::wstring progId;
    std::wstring name;

    std::wstring key() const { return L"Software\\Classes\\CLSID\\" + id; }
    std::wstring versionedProgId() const { return progId + L".1"; }
    std::wstring progIdKey() const { return L"Software\\Classes\\" + progId; }
    std::wstring versionedProgIdKey() const { return L"Software\\Classes\\" + versionedProgId(); }
};

const std::vector<ComClass>& classes() {
    static const std::vector<ComClass> all = {
        {L"{77FDA4DD-F8B7-45DE-9324-31C913538BA5}", L"Veltro.Connect", L"Veltro add-in for Outlook"},
        {L"{697A9D62-0FD6-4831-AC1A-44B2D8E14F22}", L"Veltro.Buttons", L"Veltro in Word"}};
    return all;
}

constexpr wchar_t addInKey[] = L"Software\\Microsoft\\Office\\Outlook\\Addins\\Veltro.Connect";

/// Load when Outlook starts.
constexpr DWORD loadAtStartup = 3;

/// The keys that belong to the add-in alone, each with everything below it.
std::vector<std::wstring> ownKeys() {
    std::vector<std::wstring> keys = {addInKey};
    for (const ComClass& each : classes()) {
        keys.insert(keys.end(), {each.progIdKey(), each.versionedProgIdKey(), each.key()});
    }
    return keys;
}

/// Keys of Office's that registering makes on a machine that does not have them, innermost first.
constexpr const wchar_t* sharedKeys[] = {L"Software\\Microsoft\\Office\\Outlook\\Addins",
                                         L"Software\\Microsoft\\Office\\Outlook",
                                         L"Software\\Microsoft\\Office"};

struct Entry {
    std::wstring key;
    std::wstring name;
    std::variant<std::wstring, DWORD> data;
};

void addEntries(const ComClass& comClass, const std::wstring& path, std::vector<Entry>& entries) {
    const std::wstring key = comClass.key();
    const std::wstring progId = comClass.progIdKey();
    const std::wstring versioned = comClass.versionedProgIdKey();
    entries.insert(entries.end(), {
                                      {key, L"", comClass.name},
                                      {key + L"\\InprocServer32", L"", path},
                                      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
                                      {key + L"\\ProgID", L"", comClass.versionedProgId()},
                                      {key + L"\\VersionIndependentProgID", L"", comClass.progId},
                                      {progId, L"", comClass.name},
                                      {progId + L"\\CLSID", L"", comClass.id},
                                      {progId + L"\\CurVer", L"", comClass.versionedProgId()},
                                      {versioned, L"", comClass.name},
                                      {versioned + L"\\CLSID", L"", comClass.id},
                                  });
}

std::vector<Entry> entries(const std::wstring& path) {
    std::vector<Entry> all;
    for (const ComClass& each : classes()) {
        addEntries(each, path, all);
    }
    all.insert(all.end(), {{addInKey, L"FriendlyName", L"Veltro"},
                           {addInKey, L"Description", L"Stops mistakes before an e-mail leaves."},
                           {addInKey, L"LoadBehavior", loadAtStartup}});
    return all;
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
    for (const std::wstring& key : ownKeys()) {
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
