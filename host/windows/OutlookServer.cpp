#include "host/windows/OutlookServer.h"

#include <objbase.h>
#include <oleauto.h>

#include "host/windows/leftBehind.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/RegKey.h"
#include "platform/windows/comErrors.h"

namespace host::windows {

using platform::windows::ComPtr;
using platform::windows::Exporter;
using platform::windows::RegKey;

namespace {

/// Where a request for a class comes from.
constexpr DWORD thisProcess = CLSCTX_INPROC_SERVER;
constexpr DWORD everyProcess = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER;

struct KnownClass {
    const wchar_t* progId;
    const wchar_t* classId;
    DWORD context;
};

/// On a ProgID that a host registered: its process.
constexpr wchar_t ownerValue[] = L"Veltro host";

/// Outlook and Word have ids of their own; Redemption's are this host's where none is registered. The process
/// that plays Word makes Redemption's objects, too.
constexpr KnownClass knownClasses[] = {
    {L"Outlook.Application", L"{0006F03A-0000-0000-C000-000000000046}", everyProcess},
    {L"Word.Application", L"{000209FF-0000-0000-C000-000000000046}", thisProcess},
    {L"vtRedemption.vtSafeMailItem", L"{6C1B1D5E-52C4-4B0E-9B0B-5A1E6C0D7B01}", everyProcess},
    {L"vtRedemption.vtSafePostItem", L"{6C1B1D5E-52C4-4B0E-9B0B-5A1E6C0D7B02}", everyProcess},
    {L"vtRedemption.vtSafeReportItem", L"{6C1B1D5E-52C4-4B0E-9B0B-5A1E6C0D7B03}", everyProcess},
    {L"vtRedemption.vtSafeInspector", L"{6C1B1D5E-52C4-4B0E-9B0B-5A1E6C0D7B04}", everyProcess},
    {L"vtRedemption.vtRDOSession", L"{6C1B1D5E-52C4-4B0E-9B0B-5A1E6C0D7B05}", everyProcess},
    {L"vtRedemption.vtMAPIUtils", L"{6C1B1D5E-52C4-4B0E-9B0B-5A1E6C0D7B06}", everyProcess},
};

/// Makes objects of one of the simulated Outlook's classes.
class HostFactory final : public platform::windows::ComObject<IClassFactory> {
  public:
    HostFactory(Outlook& outlook, std::shared_ptr<Exporter> exporter, std::wstring progId)
        : ComObject(exporter->liveObjects()),
          outlook_(outlook),
          exporter_(std::move(exporter)),
          progId_(std::move(progId)) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
        if (!object) {
            return E_POINTER;
        }
        *object = nullptr;
        if (outer) {
            return CLASS_E_NOAGGREGATION;
        }
        return platform::windows::guarded([&] {
            const auto made = exporter_->exportObject(outlook_.automation().createObject(progId_));
            return made->QueryInterface(id, object);
        });
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

  private:
    void* find(REFIID id) noexcept override {
        return id == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
    }

    Outlook& outlook_;
    std::shared_ptr<Exporter> exporter_;
    std::wstring progId_;
};

}  // namespace

/// A ProgID that leads to a class: the one that the machine knows, or one made here and taken back at the
/// end.
class OutlookServer::ProgId {
  public:
    ProgId(const std::wstring& progId, const std::wstring& classId) : path_(L"Software\\Classes\\" + progId) {
        sweep();
        if (SUCCEEDED(CLSIDFromProgID(progId.c_str(), &id_))) {
            return;
        }
        platform::windows::check(CLSIDFromString(classId.c_str(), &id_));
        root_ = HKEY_LOCAL_MACHINE;
        LONG status = write(classId);
        if (status == ERROR_ACCESS_DENIED) {
            root_ = HKEY_CURRENT_USER;
            status = write(classId);
        }
        platform::windows::check(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
    }
    ProgId(const ProgId&) = delete;
    ProgId& operator=(const ProgId&) = delete;
    ~ProgId() {
        if (root_) {
            platform::windows::deleteKeyTree(root_, path_);
        }
    }

    const CLSID& id() const { return id_; }

  private:
    LONG write(const std::wstring& classId) {
        RegKey key;
        RegKey classKey;
        LONG status = key.create(root_, path_);
        // Marked first: a host may be killed at any time.
        status = status == ERROR_SUCCESS ? key.setNumber(ownerValue, GetCurrentProcessId()) : status;
        status = status == ERROR_SUCCESS ? classKey.create(root_, path_ + L"\\CLSID") : status;
        return status == ERROR_SUCCESS ? classKey.setText(L"", classId) : status;
    }

    /// Deletes what a host left that was killed. What another program registered has no owner.
    void sweep() const {
        for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
            RegKey key;
            if (key.open(root, path_, KEY_READ) != ERROR_SUCCESS) {
                continue;
            }
            const auto owner = key.number(ownerValue);
            key.close();
            if (owner && isLeftBehind(*owner)) {
                platform::windows::deleteKeyTree(root, path_);
            }
        }
    }

    std::wstring path_;
    CLSID id_{};
    HKEY root_ = nullptr;
};

struct OutlookServer::Class {
    Class(const KnownClass& known, IClassFactory& factory) : progId(known.progId, known.classId) {
        platform::windows::check(
            CoRegisterClassObject(progId.id(), &factory, known.context, REGCLS_MULTIPLEUSE, &cookie));
    }
    Class(const Class&) = delete;
    Class& operator=(const Class&) = delete;
    ~Class() { CoRevokeClassObject(cookie); }

    ProgId progId;
    DWORD cookie = 0;
};

OutlookServer::OutlookServer(Outlook& outlook, std::shared_ptr<Exporter> exporter)
    : outlook_(outlook), exporter_(std::move(exporter)) {
    for (const KnownClass& known : knownClasses) {
        const auto factory = ComPtr<HostFactory>::adopt(new HostFactory(outlook_, exporter_, known.progId));
        classes_.push_back(std::make_unique<Class>(known, *factory));
    }
    const auto application = exporter_->exportObject(outlook_.application());
    platform::windows::check(
        RegisterActiveObject(application.get(), classes_[0]->progId.id(), ACTIVEOBJECT_STRONG, &running_));
    outlook_.onWord([this](const automation::Object& word) { wordRuns(word); });
}

void OutlookServer::wordRuns(const automation::Object& word) {
    if (wordRunning_ != 0) {
        RevokeActiveObject(wordRunning_, nullptr);
        wordRunning_ = 0;
    }
    if (word) {
        platform::windows::check(RegisterActiveObject(exporter_->exportObject(word).get(),
                                                      classes_[1]->progId.id(), ACTIVEOBJECT_STRONG,
                                                      &wordRunning_));
    }
}

OutlookServer::~OutlookServer() {
    outlook_.onWord(nullptr);
    wordRuns({});
    RevokeActiveObject(running_, nullptr);
}

}  // namespace host::windows
