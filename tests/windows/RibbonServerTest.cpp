#include <gtest/gtest.h>
#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <set>

#include "mail/product.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/Variant.h"
#include "platform/windows/WindowsSystemInfo.h"
#include "platform/windows/extensibility.h"
#include "platform/windows/ribbonInterface.h"
#include "robot/importTable.h"
#include "tests/windows/ComTest.h"
#include "tests/windows/LoadedServer.h"
#include "tests/windows/TestTarget.h"

using automation::Object;
using automation::Value;
using platform::windows::Bstr;
using platform::windows::ComPtr;
using platform::windows::IDTExtensibility2;
using platform::windows::IRibbonExtensibility;
using platform::windows::query;
using platform::windows::Variant;

namespace {

constexpr GUID connectClass = {0x77FDA4DD, 0xF8B7, 0x45DE, {0x93, 0x24, 0x31, 0xC9, 0x13, 0x53, 0x8B, 0xA5}};
constexpr wchar_t explorer[] = L"Microsoft.Outlook.Explorer";

class RibbonServerTest : public ComTest {
  protected:
    ComPtr<IRibbonExtensibility> make() const {
        ComPtr<IClassFactory> factory;
        server.getClassObject(connectClass, IID_IClassFactory, factory.putVoid());
        ComPtr<IUnknown> made;
        factory->CreateInstance(nullptr, platform::windows::extensibilityId, made.putVoid());
        return query<IRibbonExtensibility>(made.get(), platform::windows::ribbonExtensibilityId);
    }

    static std::wstring ribbonFor(IRibbonExtensibility& ribbon, const wchar_t* ribbonId) {
        BSTR text = nullptr;
        EXPECT_EQ(ribbon.GetCustomUI(Bstr(ribbonId).get(), &text), S_OK);
        EXPECT_TRUE(!text || SysStringLen(text) > 0);
        return Bstr::toText(Bstr::adopt(text).get());
    }

    static DISPID idOf(IDispatch& object, const wchar_t* name) {
        std::wstring asked(name);
        LPOLESTR names[] = {asked.data()};
        DISPID id = DISPID_UNKNOWN;
        const HRESULT answer = object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
        EXPECT_EQ(answer, id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK);
        return id;
    }

    /// Calls a callback as Office does, for the button with this id.
    Variant callBack(IDispatch& object, DISPID id, const wchar_t* button) {
        const auto control = std::make_shared<TestTarget>();
        control->add(L"Id", [button](automation::Access, std::span<const Value>) { return Value(button); });
        VARIANT argument{};
        argument.vt = VT_DISPATCH;
        const auto shown = host->exportObject(Object(control));
        argument.pdispVal = shown.get();
        DISPPARAMS parameters{&argument, nullptr, 1, 0};
        Variant answer;
        EXPECT_EQ(object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                answer.address(), nullptr, nullptr),
                  S_OK);
        return answer;
    }

    LoadedServer server;
};

TEST_F(RibbonServerTest, IsTheConnectObjectWithATableOfItsOwn) {
    {
        const auto ribbon = make();
        ASSERT_TRUE(ribbon);
        const auto extensibility = query<IDTExtensibility2>(ribbon.get(), platform::windows::extensibilityId);
        ASSERT_TRUE(addIn);
        EXPECT_TRUE(platform::windows::sameObject(ribbon.get(), extensibility.get()));
        EXPECT_EQ(
            query<IRibbonExtensibility>(extensibility.get(), platform::windows::ribbonExtensibilityId).get(),
            ribbon.get());
        EXPECT_NE(static_cast<void*>(ribbon.get()), static_cast<void*>(extensibility.get()));
        // Office is compiled against the seventh place, counted from 0.
        using GetCustomUI = HRESULT(STDMETHODCALLTYPE*)(void*, BSTR, BSTR*);
        const auto* const table = *reinterpret_cast<GetCustomUI* const*>(ribbon.get());
        BSTR text = nullptr;
        EXPECT_EQ(table[7](ribbon.get(), Bstr(explorer).get(), &text), S_OK);
        EXPECT_NE(Bstr::adopt(text).get(), nullptr);
        EXPECT_EQ(ribbon->GetCustomUI(Bstr(explorer).get(), nullptr), E_POINTER);
        EXPECT_EQ(server.canUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(server.canUnloadNow(), S_OK);
}

TEST_F(RibbonServerTest, AnswersBeforeTheConnectionAndAfterIt) {
    const auto ribbon = make();
    constexpr wchar_t compose[] = L"Microsoft.Outlook.Mail.Compose";
    const struct {
        const wchar_t* version;
        bool inlineResponses;
        const wchar_t* nameSpace;
    } programs[] = {{L"12.0.4518.1014", false, L"2006/01"},
                    {L"14.0.7268.5000", false, L"2009/07"},
                    {L"16.0.17328.20000", true, L"2009/07"}};
    for (const auto& [version, inlineResponses, nameSpace] : programs) {
        robot::tellProgramVersion(version);
        const std::wstring main = ribbonFor(*ribbon, explorer);
        EXPECT_NE(main.find(L"TabMail"), std::wstring::npos);
        EXPECT_EQ(main.find(L"TabComposeTools") != std::wstring::npos, inlineResponses);
        EXPECT_NE(ribbonFor(*ribbon, compose).find(nameSpace), std::wstring::npos);
    }
    for (const wchar_t* other : {L"Microsoft.Outlook.Appointment", L"", L"Microsoft.Word.Document"}) {
        EXPECT_EQ(ribbonFor(*ribbon, other), L"");
    }
    const auto extensibility = query<IDTExtensibility2>(ribbon.get(), platform::windows::extensibilityId);
    EXPECT_EQ(extensibility->OnDisconnection(platform::windows::RemoveMode::UserClosed, nullptr), S_OK);
    EXPECT_EQ(idOf(*ribbon, L"RibbonPressed"), DISPID_UNKNOWN);
    EXPECT_EQ(ribbon->Invoke(101, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, nullptr, nullptr, nullptr,
                             nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(ribbonFor(*ribbon, explorer), L"");
}

TEST_F(RibbonServerTest, TheVersionIsThatOfTheFile) {
    const std::wstring major = std::to_wstring(mail::product::version.major);
    EXPECT_TRUE(
        platform::windows::WindowsSystemInfo::fileVersion(LoadedServer::path()).starts_with(major + L'.'));
    EXPECT_EQ(platform::windows::WindowsSystemInfo().programVersion(), L"") << "the tests have none";
}

TEST_F(RibbonServerTest, AnswersLateBoundToo) {
    const auto ribbon = make();
    EXPECT_EQ(idOf(*ribbon, L"getcustomui"), 1);
    const Bstr wanted(explorer);
    VARIANT argument{};
    argument.vt = VT_BSTR;
    argument.bstrVal = wanted.get();
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    Variant answer;
    EXPECT_EQ(ribbon->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, answer.address(),
                             nullptr, nullptr),
              S_OK);
    ASSERT_EQ(answer->vt, VT_BSTR);
    EXPECT_EQ(Bstr::toText(answer->bstrVal), ribbonFor(*ribbon, explorer));
    DISPPARAMS none{};
    EXPECT_EQ(
        ribbon->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
        DISP_E_BADPARAMCOUNT);
}

/// Side length and kind of a picture that Office is given.
std::pair<LONG, short> lookOf(const Variant& answer) {
    const auto picture =
        query<IPicture>(answer.get().vt == VT_DISPATCH ? answer.get().pdispVal : nullptr, IID_IPicture);
    if (!picture || !query<IPictureDisp>(picture.get(), IID_IPictureDisp)) {
        return {};
    }
    short type = 0;
    picture->get_Type(&type);
    OLE_HANDLE handle = 0;
    picture->get_Handle(&handle);
    ICONINFO info{};
    GetIconInfo(reinterpret_cast<HICON>(static_cast<INT_PTR>(static_cast<int>(handle))), &info);
    BITMAP shown{};
    GetObjectW(info.hbmColor, sizeof shown, &shown);
    DeleteObject(info.hbmColor);
    DeleteObject(info.hbmMask);
    return {shown.bmWidth, type};
}

/// By either of the object's dispatch interfaces: Office may ask for the other one first.
TEST_F(RibbonServerTest, GivesPicturesOfTheSizeOfTheButtons) {
    const auto ribbon = make();
    const auto other = query<IDispatch>(ribbon.get(), IID_IDispatch);
    EXPECT_EQ(idOf(*ribbon, L"RibbonPicture"), DISPID_UNKNOWN) << "there is no ribbon yet";
    ribbonFor(*ribbon, explorer);
    const HDC screen = GetDC(nullptr);
    const LONG dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    const LONG small = dpi * 16 / 96;
    for (IDispatch* const object : {static_cast<IDispatch*>(ribbon.get()), other.get()}) {
        const DISPID id = idOf(*object, L"RibbonPicture");
        EXPECT_EQ(lookOf(callBack(*object, id, L"VeltroSettings")),
                  std::pair(2 * small, short{PICTYPE_ICON}));
        EXPECT_EQ(lookOf(callBack(*object, id, L"VeltroHelp")), std::pair(small, short{PICTYPE_ICON}));
        EXPECT_EQ(callBack(*object, id, L"NoSuchButton")->vt, VT_EMPTY);
    }
    const DISPID pressed = idOf(*other, L"RibbonPressed");
    EXPECT_EQ(callBack(*other, pressed, L"VeltroSettings")->vt, VT_EMPTY) << "not connected yet";
}

/// Each of the icons has every size that a button may be drawn in, up to 200 %.
TEST_F(RibbonServerTest, TheLibraryHasEachPictureInEachSize) {
    std::wstring path = LoadedServer::path();
    path.replace(path.find_last_of(L'\\') + 1, std::wstring::npos, L"Resource.dll");
    const HMODULE library = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(library);
    for (const int id : {601, 611, 612, 613, 614, 615, 616}) {
        const HRSRC group = FindResourceW(library, MAKEINTRESOURCEW(id), RT_GROUP_ICON);
        ASSERT_TRUE(group) << id;
        const auto* const entries = static_cast<const BYTE*>(LockResource(LoadResource(library, group)));
        std::set<int> sizes;
        for (int index = 0; index < entries[4]; ++index) {
            sizes.insert(entries[6 + 14 * index]);
        }
        for (const int size : {16, 20, 24, 32, 40, 48, 64}) {
            EXPECT_TRUE(sizes.contains(size)) << id << ": " << size;
        }
    }
    FreeLibrary(library);
}

}  // namespace
