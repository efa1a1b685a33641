#include <windows.h>

#include <olectl.h>

#include "platform/windows/comErrors.h"
#include "platform/windows/ownModule.h"
#include "server/ClassFactory.h"
#include "server/Module.h"
#include "server/registration.h"

using platform::windows::guarded;

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
    if (!object) {
        return E_POINTER;
    }
    *object = nullptr;
    if (classId != server::connectClass) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    return guarded([&] { return server::ClassFactory::make()->QueryInterface(id, object); });
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
