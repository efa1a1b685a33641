#include <windows.h>

#include <olectl.h>

#include "platform/windows/comErrors.h"
#include "platform/windows/ownModule.h"
#include "server/ButtonsObject.h"
#include "server/ClassFactory.h"
#include "server/ConnectObject.h"
#include "server/Module.h"
#include "server/registration.h"

using platform::windows::guarded;

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
    if (!object) {
        return E_POINTER;
    }
    *object = nullptr;
    const auto make = classId == server::connectClass   ? &server::ConnectObject::make
                      : classId == server::buttonsClass ? &server::ButtonsObject::make
                                                        : nullptr;
    if (!make) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    return guarded([&] { return server::ClassFactory::make(make)->QueryInterface(id, object); });
}

STDAPI DllCanUnloadNow() {
    return server::liveObjects().count() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return guarded([] {
        const auto path = platform::windows::modulePath(platform::windows::ownModule());
        return server::registerServer(path) == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS;
    });
}

STDAPI DllUnregisterServer() {
    return guarded([] { return server::unregisterServer() == ERROR_SUCCESS ? S_OK : SELFREG_E_CLASS; });
}
