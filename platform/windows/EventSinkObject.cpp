#include "platform/windows/EventSinkObject.h"

#include <utility>

#include "platform/windows/comErrors.h"

namespace platform::windows {

ComPtr<EventSinkObject> EventSinkObject::make(const GUID& eventInterface, automation::EventSink handler,
                                              std::shared_ptr<ObjectTranslator> translator) {
    return ComPtr<EventSinkObject>::adopt(
        new EventSinkObject(eventInterface, std::move(handler), std::move(translator)));
}

EventSinkObject::EventSinkObject(const GUID& eventInterface, automation::EventSink handler,
                                 std::shared_ptr<ObjectTranslator> translator)
    : DispatchObject(translator->liveObjects()),
      eventInterface_(eventInterface),
      handler_(std::make_shared<const automation::EventSink>(std::move(handler))),
      translator_(std::move(translator)) {}

void* EventSinkObject::find(REFIID id) noexcept {
    return id == IID_IDispatch || id == eventInterface_ ? static_cast<IDispatch*>(this) : nullptr;
}

STDMETHODIMP EventSinkObject::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP EventSinkObject::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                     EXCEPINFO* details, UINT*) {
    const ComPtr<IDispatch> self(this);
    const auto handler = handler_;
    // The handler may wait in a dialog while the add-in is disconnected; what it works on stays until it is
    // out.
    const auto owner = translator_->owner();
    if (!handler) {
        return S_OK;
    }
    return guardedInvoke(details, [&] {
        IncomingArguments arguments(parameters, false, *translator_);
        (*handler)(event, arguments.values());
        arguments.writeBack();
        return S_OK;
    });
}

}  // namespace platform::windows
