#pragma once

#include <memory>

#include "platform/automation.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/values.h"

namespace platform::windows {

/// What an event source is given to call: one class for all event interfaces, which are all of the dispatch
/// kind. By-reference arguments, such as Cancel, go back when the handler returns without an error.
class EventSinkObject final : public DispatchObject<IDispatch> {
  public:
    static ComPtr<EventSinkObject> make(const GUID& eventInterface, automation::EventSink handler,
                                        std::shared_ptr<ObjectTranslator> translator);

    /// Events that still arrive from now on are ignored; a handler at work finishes.
    void silence() noexcept { handler_ = nullptr; }

    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID event, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* details, UINT* badArgument) override;

  private:
    EventSinkObject(const GUID& eventInterface, automation::EventSink handler,
                    std::shared_ptr<ObjectTranslator> translator);
    void* find(REFIID id) noexcept override;

    GUID eventInterface_;
    /// Shared with the call at work, which may end its own subscription.
    std::shared_ptr<const automation::EventSink> handler_;
    std::shared_ptr<ObjectTranslator> translator_;
};

}  // namespace platform::windows
