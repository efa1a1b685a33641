#include "host/windows/AddInLoader.h"

#include <objbase.h>

#include <set>

#include "platform/text.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/RegKey.h"
#include "platform/windows/comErrors.h"
#include "platform/windows/ribbonInterface.h"

namespace host::windows {

using namespace platform::windows;

namespace {

constexpr wchar_t addInsPath[] = L"Software\\Microsoft\\Office\\Outlook\\Addins";
/// Connected now, and at every start.
constexpr DWORD loadAtStartup = 3;

/// The array that Office passes to every call, empty as it always is.
class CustomArray {
  public:
    CustomArray() : array_(SafeArrayCreateVector(VT_VARIANT, 1, 0)) {}
    CustomArray(const CustomArray&) = delete;
    CustomArray& operator=(const CustomArray&) = delete;
    ~CustomArray() { SafeArrayDestroy(array_); }
    SAFEARRAY** address() noexcept { return &array_; }

  private:
    SAFEARRAY* array_;
};

/// `known` are the upper-cased names of the add-ins met so far, loaded or not.
void addFrom(HKEY root, std::set<std::wstring>& known, std::vector<RegisteredAddIn>& addIns) {
    RegKey all;
    if (all.open(root, addInsPath, KEY_READ) != ERROR_SUCCESS) {
        return;
    }
    std::wstring progId;
    for (DWORD index = 0; all.enumerateKey(index, progId) == ERROR_SUCCESS; ++index) {
        RegKey key;
        if (known.insert(text::upper(progId)).second &&
            key.open(root, addInsPath + (L'\\' + progId), KEY_READ) == ERROR_SUCCESS &&
            key.number(L"LoadBehavior") == loadAtStartup) {
            addIns.push_back(
                {progId, key.text(L"FriendlyName").value_or(L""), key.text(L"Description").value_or(L"")});
        }
    }
}

}  // namespace

std::vector<RegisteredAddIn> registeredAddIns() {
    std::vector<RegisteredAddIn> addIns;
    std::set<std::wstring> known;
    addFrom(HKEY_CURRENT_USER, known, addIns);  // The user's own entry hides the machine's.
    addFrom(HKEY_LOCAL_MACHINE, known, addIns);
    return addIns;
}

LoadedAddIn::LoadedAddIn(const std::wstring& progId) {
    CLSID id{};
    check(CLSIDFromProgID(progId.c_str(), &id));
    check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, extensibilityId, addIn_.putVoid()));
}

std::optional<RibbonAddIn> LoadedAddIn::ribbon(Exporter& exporter) const {
    const auto extensibility = query<IRibbonExtensibility>(addIn_.get(), ribbonExtensibilityId);
    if (!extensibility) {
        return std::nullopt;
    }
    return RibbonAddIn{[extensibility](const std::wstring& ribbonId) {
                           BSTR made = nullptr;
                           check(extensibility->GetCustomUI(Bstr(ribbonId).get(), &made));
                           const Bstr ribbon = Bstr::adopt(made);
                           return Bstr::toText(ribbon.get());
                       },
                       exporter.toObject(extensibility.get())};
}

void LoadedAddIn::connect(IDispatch* application, ConnectMode mode, IDispatch* addInInstance) {
    CustomArray custom;
    check(addIn_->OnConnection(application, mode, addInInstance, custom.address()));
}

void LoadedAddIn::startupComplete() {
    CustomArray custom;
    check(addIn_->OnStartupComplete(custom.address()));
}

void LoadedAddIn::beginShutdown() {
    CustomArray custom;
    check(addIn_->OnBeginShutdown(custom.address()));
}

void LoadedAddIn::disconnect(RemoveMode mode) {
    CustomArray custom;
    check(addIn_->OnDisconnection(mode, custom.address()));
}

}  // namespace host::windows
