#include "server/ClassFactory.h"

#include "platform/windows/comErrors.h"
#include "server/Module.h"

namespace server {

using platform::windows::ComPtr;

ComPtr<IClassFactory> ClassFactory::make(Make makeObject) {
    return ComPtr<IClassFactory>::adopt(new ClassFactory(makeObject));
}

ClassFactory::ClassFactory(Make makeObject) : ComObject(liveObjects()), makeObject_(makeObject) {}

void* ClassFactory::find(REFIID id) noexcept {
    return id == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
    if (!object) {
        return E_POINTER;
    }
    *object = nullptr;
    if (outer) {
        return CLASS_E_NOAGGREGATION;
    }
    return platform::windows::guarded([&] { return makeObject_()->QueryInterface(id, object); });
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
    if (lock) {
        liveObjects().add();
    } else {
        liveObjects().remove();
    }
    return S_OK;
}

}  // namespace server
