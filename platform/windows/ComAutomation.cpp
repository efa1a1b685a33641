#include "platform/windows/ComAutomation.h"

#include <objbase.h>
#include <oleauto.h>

#include <string>

#include "platform/windows/comErrors.h"

namespace platform::windows {

namespace {

CLSID classOf(std::wstring_view progId) {
    CLSID id{};
    if (FAILED(CLSIDFromProgID(std::wstring(progId).c_str(), &id))) {
        throw errorOf(REGDB_E_CLASSNOTREG);
    }
    return id;
}

}  // namespace

automation::Object ComAutomation::createObject(std::wstring_view progId) {
    ComPtr<IUnknown> object;
    check(CoCreateInstance(classOf(progId), nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IUnknown,
                           object.putVoid()));
    return exporter_->toObject(object.get());
}

automation::Object ComAutomation::activeObject(std::wstring_view progId) {
    ComPtr<IUnknown> object;
    check(GetActiveObject(classOf(progId), nullptr, object.put()));
    return exporter_->toObject(object.get());
}

}  // namespace platform::windows
