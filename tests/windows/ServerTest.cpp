#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/windows/AddInLoader.h"
#include "platform/windows/ActivationContext.h"
#include "platform/windows/RegKey.h"
#include "platform/windows/WindowsResources.h"
#include "platform/windows/buttonsInterface.h"
#include "platform/windows/extensibility.h"
#include "robot/DialogRobot.h"
#include "tests/windows/ComTest.h"
#include "tests/windows/LoadedServer.h"
#include "tests/windows/TestTarget.h"

using automation::Object;
using automation::Value;
using platform::windows::ComPtr;
using platform::windows::RegKey;

namespace {

const std::wstring progId = L"Veltro.Connect";
const std::wstring officePath = L"Software\\Microsoft\\Office";

std::string lower(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// The names of all keys below a key.
void listKeys(HKEY root, const std::wstring& path, std::set<std::wstring>& found) {
    RegKey key;
    if (key.open(root, path, KEY_READ) != ERROR_SUCCESS) {
        return;
    }
    found.insert(path);
    std::wstring name;
    for (DWORD index = 0; key.enumerateKey(index, name) == ERROR_SUCCESS; ++index) {
        listKeys(root, path + L'\\' + name, found);
    }
}

/// What registering may touch.
std::set<std::wstring> registryKeys() {
    std::set<std::wstring> found;
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        listKeys(root, officePath, found);
        listKeys(root, L"Software\\Classes\\Veltro.Connect", found);
        listKeys(root, L"Software\\Classes\\Veltro.Connect.1", found);
        listKeys(root, L"Software\\Classes\\CLSID\\{77FDA4DD-F8B7-45DE-9324-31C913538BA5}", found);
        listKeys(root, L"Software\\Classes\\Veltro.Buttons", found);
        listKeys(root, L"Software\\Classes\\Veltro.Buttons.1", found);
        listKeys(root, L"Software\\Classes\\CLSID\\{697A9D62-0FD6-4831-AC1A-44B2D8E14F22}", found);
    }
    return found;
}

bool isRegistered() {
    return std::ranges::any_of(host::windows::registeredAddIns(),
                               [](const auto& addIn) { return addIn.progId == progId; });
}

/// Registers the server for a test and leaves the machine as it was.
class ServerTest : public ComTest {
  protected:
    ServerTest() : wasRegistered_(isRegistered()) {}
    ~ServerTest() override {
        if (wasRegistered_) {
            server.registerServer();
        } else {
            server.unregisterServer();
        }
    }

    ComPtr<IClassFactory> factory() const {
        CLSID id{};
        CLSIDFromProgID(progId.c_str(), &id);
        ComPtr<IClassFactory> made;
        server.getClassObject(id, IID_IClassFactory, made.putVoid());
        return made;
    }

    LoadedServer server;

  private:
    bool wasRegistered_;
};

TEST_F(ServerTest, TheFileNeedsNothingThatWindowsXpLacks) {
    EXPECT_EQ(server.exports(), (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject",
                                                       "DllRegisterServer", "DllUnregisterServer"}));
    const std::set<std::string> systemFiles = {"advapi32.dll", "comctl32.dll", "gdi32.dll",    "kernel32.dll",
                                               "msvcrt.dll",   "ole32.dll",    "oleaut32.dll", "shell32.dll",
                                               "shlwapi.dll",  "user32.dll",   "version.dll",  "wininet.dll"};
    const std::set<std::string> tooNew = {"AcquireSRWLockExclusive",
                                          "CompareStringEx",
                                          "CompareStringOrdinal",
                                          "CreateEventExW",
                                          "CreateSymbolicLinkW",
                                          "FlsAlloc",
                                          "GetFinalPathNameByHandleW",
                                          "GetLocaleInfoEx",
                                          "GetThreadId",
                                          "GetTickCount64",
                                          "GetUserDefaultLocaleName",
                                          "InitOnceExecuteOnce",
                                          "InitializeCriticalSectionEx",
                                          "InitializeConditionVariable",
                                          "InitializeSRWLock",
                                          "LCMapStringEx",
                                          "QueryFullProcessImageNameW",
                                          "RegDeleteKeyExW",
                                          "RegDeleteTreeW",
                                          "RegGetValueW",
                                          "SHGetKnownFolderPath",
                                          "SetProcessDPIAware",
                                          "SleepConditionVariableCS",
                                          "SleepConditionVariableSRW",
                                          "TaskDialogIndirect",
                                          "WakeAllConditionVariable",
                                          "WakeConditionVariable"};
    for (const auto& [file, function] : server.imports()) {
        EXPECT_TRUE(systemFiles.contains(lower(file))) << file << " " << function;
        EXPECT_FALSE(tooNew.contains(function)) << function;
    }
}

TEST_F(ServerTest, TheFileCarriesItsVersionAndTheDialogsManifest) {
    EXPECT_TRUE(FindResourceW(server.module(), MAKEINTRESOURCEW(1), RT_VERSION));
    EXPECT_TRUE(
        FindResourceW(server.module(), MAKEINTRESOURCEW(platform::windows::dialogManifest), RT_MANIFEST));
}

TEST_F(ServerTest, RegistersAsAnAddInAndLeavesNothing) {
    ASSERT_EQ(server.unregisterServer(), S_OK);
    const auto before = registryKeys();
    EXPECT_FALSE(isRegistered());

    ASSERT_EQ(server.registerServer(), S_OK);
    const auto addIns = host::windows::registeredAddIns();
    const auto found = std::ranges::find(addIns, progId, &host::windows::RegisteredAddIn::progId);
    ASSERT_NE(found, addIns.end());
    EXPECT_EQ(found->friendlyName, L"Veltro");
    EXPECT_FALSE(found->description.empty());
    {
        CLSID id{};
        CLSID versioned{};
        ASSERT_EQ(CLSIDFromProgID(progId.c_str(), &id), S_OK);
        ASSERT_EQ(CLSIDFromProgID(L"Veltro.Connect.1", &versioned), S_OK);
        EXPECT_EQ(id, versioned);
        ComPtr<IUnknown> made;
        EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, made.putVoid()), S_OK);
    }

    EXPECT_EQ(server.unregisterServer(), S_OK);
    EXPECT_EQ(registryKeys(), before);
    EXPECT_EQ(server.unregisterServer(), S_OK) << "there may be nothing left to remove";
}

TEST_F(ServerTest, RegisteringForTheMachineEndsTheUsersOwnRegistration) {
    ASSERT_EQ(server.unregisterServer(), S_OK);
    const auto before = registryKeys();
    ASSERT_EQ(server.registerServer(), S_OK);
    const auto machines = registryKeys();
    const std::wstring ownClass = L"Software\\Classes\\CLSID\\{77FDA4DD-F8B7-45DE-9324-31C913538BA5}";
    {
        RegKey key;
        ASSERT_EQ(key.create(HKEY_CURRENT_USER, ownClass + L"\\InprocServer32"), ERROR_SUCCESS);
        key.setText(L"", L"C:\\old\\Veltro.dll");
        ASSERT_EQ(key.create(HKEY_CURRENT_USER, officePath + L"\\Outlook\\Addins\\" + progId), ERROR_SUCCESS);
        key.setNumber(L"LoadBehavior", 0);
    }
    EXPECT_FALSE(isRegistered()) << "the user's own comes first";

    ASSERT_EQ(server.registerServer(), S_OK);
    EXPECT_TRUE(isRegistered());
    RegKey key;
    EXPECT_EQ(key.open(HKEY_CURRENT_USER, ownClass, KEY_READ), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(registryKeys(), machines);
    EXPECT_EQ(server.unregisterServer(), S_OK);
    EXPECT_EQ(registryKeys(), before);
}

TEST_F(ServerTest, StaysLoadedWhileAnythingOfItIsHeld) {
    ASSERT_EQ(server.registerServer(), S_OK);
    CoFreeUnusedLibraries();
    EXPECT_EQ(server.canUnloadNow(), S_OK);
    {
        const auto factory = this->factory();
        ASSERT_TRUE(factory);
        EXPECT_EQ(server.canUnloadNow(), S_FALSE);
        factory->LockServer(TRUE);
    }
    EXPECT_EQ(server.canUnloadNow(), S_FALSE) << "locked";
    factory()->LockServer(FALSE);
    EXPECT_EQ(server.canUnloadNow(), S_OK);
    {
        ComPtr<IUnknown> object;
        factory()->CreateInstance(nullptr, IID_IUnknown, object.putVoid());
        EXPECT_EQ(server.canUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(server.canUnloadNow(), S_OK);
}

TEST_F(ServerTest, MakesOnlyItsOwnClassAndIsNotAggregated) {
    ASSERT_EQ(server.registerServer(), S_OK);
    void* object = &object;
    EXPECT_EQ(server.getClassObject(IID_IDispatch, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    object = &object;
    EXPECT_EQ(factory()->CreateInstance(factory().get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory()->CreateInstance(nullptr, IID_IClassFactory, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
}

/// An Outlook without windows, as when another program started it to send a mail.
std::shared_ptr<TestTarget> outlookWithoutWindows() {
    const auto none = std::make_shared<TestTarget>();
    none->add(L"Count", [](automation::Access, std::span<const Value>) { return Value(0); });
    const auto outlook = std::make_shared<TestTarget>();
    for (const wchar_t* collection : {L"Explorers", L"Inspectors"}) {
        outlook->add(collection,
                     [none](automation::Access, std::span<const Value>) { return Value(Object(none)); });
    }
    outlook->add(L"Version",
                 [](automation::Access, std::span<const Value>) { return Value(L"14.0.0.4760"); });
    return outlook;
}

TEST_F(ServerTest, ConnectsAndDisconnectsWithoutALeak) {
    ASSERT_EQ(server.registerServer(), S_OK);
    // Whatever the add-in may have to say about this Outlook.
    const robot::DialogRobot robot(
        {[](const auto& prompt) { return platform::neutralAnswer(prompt.style.buttons); },
         [](const auto&) { return std::nullopt; }});
    const auto outlook = outlookWithoutWindows();
    const auto instance = std::make_shared<TestTarget>();
    instance->add(L"ProgId", [](automation::Access, std::span<const Value>) { return Value(progId); });
    instance->add(L"Object", [](automation::Access, std::span<const Value>) { return Value(); });
    {
        host::windows::LoadedAddIn loaded(progId);
        loaded.connect(host->exportObject(Object(outlook)).get(), platform::windows::ConnectMode::Startup,
                       host->exportObject(Object(instance)).get());
        loaded.startupComplete();
        EXPECT_EQ(server.canUnloadNow(), S_FALSE);
        EXPECT_GT(host->liveAdapters(), 0U) << "it holds on to Outlook";
        loaded.beginShutdown();
        loaded.disconnect(platform::windows::RemoveMode::HostShutdown);
        EXPECT_EQ(host->liveAdapters(), 0U);
    }
    EXPECT_EQ(server.canUnloadNow(), S_OK);
}

TEST_F(ServerTest, ConnectsLateBoundToo) {
    ASSERT_EQ(server.registerServer(), S_OK);
    const robot::DialogRobot robot(
        {[](const auto& prompt) { return platform::neutralAnswer(prompt.style.buttons); },
         [](const auto&) { return std::nullopt; }});
    ComPtr<IUnknown> made;
    factory()->CreateInstance(nullptr, IID_IUnknown, made.putVoid());
    const Object connect = host->toObject(made.get());
    auto dispatch = platform::windows::query<IDispatch>(made.get(), IID_IDispatch);
    made = nullptr;
    EXPECT_THROW(connect.call(L"OnConnection"), automation::Error);
    EXPECT_THROW(connect.call(L"NoSuchCall"), automation::Error);
    LPOLESTR noName[] = {nullptr};
    DISPID id = 0;
    EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, noName, 1, LOCALE_USER_DEFAULT, &id), E_INVALIDARG);
    dispatch = nullptr;
    connect.call(L"onconnection", Object(outlookWithoutWindows()), 1, Object());
    EXPECT_GT(host->liveAdapters(), 0U);
    connect.call(L"OnDisconnection", 0);
    EXPECT_EQ(host->liveAdapters(), 0U);
}

/// Where no Outlook runs the macros of Word's template find nobody to ask for.
TEST_F(ServerTest, MakesButtonsThatAskNothingWithoutOutlook) {
    ASSERT_EQ(server.registerServer(), S_OK);
    CLSID id{};
    ASSERT_EQ(CLSIDFromProgID(L"Veltro.Buttons", &id), S_OK);
    ComPtr<IDispatch> made;
    ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, made.putVoid()), S_OK);
    EXPECT_EQ(server.canUnloadNow(), S_FALSE);
    {
        const Object buttons = host->toObject(made.get());
        EXPECT_FALSE(buttons.call(L"emptysubjectcheck", Object(), false).toBool());
        EXPECT_FALSE(buttons.call(L"DelayEmailSending", Object(), false).toBool());
        EXPECT_FALSE(buttons.call(L"AddEmailAddressToList", L"a@b.org", L"Work").toBool());
        EXPECT_FALSE(buttons.call(L"PrefAcctExistsFalse", 4, L"Work", L"a@b.org", L"Gone").toBool());
        EXPECT_FALSE(buttons.call(L"SelPostroute", L"Work", L"Home", L"a@b.org").toBool());
        EXPECT_THROW(buttons.call(L"SelPostroute", L"Work"), automation::Error);
        EXPECT_THROW(buttons.call(L"NoSuchCall"), automation::Error);
    }
    {
        const auto dual = platform::windows::query<platform::windows::IButtons>(
            made.get(), platform::windows::buttonsInterfaceId);
        VARIANT_BOOL held = VARIANT_TRUE;
        EXPECT_EQ(dual->AddEmailAddressToList(nullptr, nullptr, &held), S_OK);
        EXPECT_EQ(held, VARIANT_FALSE);
        EXPECT_EQ(dual->EmptySubjectCheck(nullptr, nullptr, nullptr), E_POINTER);
    }
    made = nullptr;
    EXPECT_EQ(server.canUnloadNow(), S_OK);
}

TEST_F(ServerTest, ReadsTheResourceLibrary) {
    platform::windows::WindowsResources resources;
    std::wstring path = LoadedServer::path();
    path.replace(path.find_last_of(L'\\') + 1, std::wstring::npos, L"Resource.dll");
    std::uint32_t error = 0;
    const auto library = resources.load(path, error);
    ASSERT_TRUE(library) << error;
    EXPECT_NE(library->handle(), 0U);
    EXPECT_EQ(library->string(515, 255), L"Veltro");
    EXPECT_EQ(library->string(515, 3), L"Vel");
    EXPECT_EQ(library->string(9999, 255), L"");

    const auto icon = library->pictureHandle(platform::PictureKind::Icon, 601);
    ASSERT_NE(icon, 0U);
    std::shared_ptr<platform::Picture> picture;
    EXPECT_EQ(resources.wrap(platform::PictureKind::Icon, icon, picture), 0);
    EXPECT_TRUE(picture);
    EXPECT_EQ(library->pictureHandle(platform::PictureKind::Bitmap, 9999), 0U);
    const struct {
        std::uint32_t id;
        std::pair<LONG, LONG> size;
    } bitmaps[] = {{602, {16, 16}}, {603, {16, 16}}, {604, {560, 150}}, {605, {48, 48}}, {606, {420, 64}}};
    for (const auto& [id, size] : bitmaps) {
        const auto handle = library->pictureHandle(platform::PictureKind::Bitmap, id);
        BITMAP shown{};
        GetObjectW(reinterpret_cast<HGDIOBJ>(handle), sizeof shown, &shown);
        EXPECT_EQ(std::pair(shown.bmWidth, shown.bmHeight), size) << id;
        resources.release(handle);
    }

    EXPECT_FALSE(resources.load(path + L".missing", error));
    EXPECT_NE(error, 0U);
}

}  // namespace
