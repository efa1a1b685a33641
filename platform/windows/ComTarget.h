#pragma once

#include <memory>

#include "platform/automation.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/values.h"

namespace platform::windows {

/// The id of an Outlook or Office event interface.
GUID eventInterfaceId(automation::EventInterface events);

/// A COM object as an automation object. One that has no IDispatch, as a MAPI session, can only be passed on.
class ComTarget : public automation::Target {
  public:
    ComTarget(ComPtr<IUnknown> object, std::shared_ptr<ObjectTranslator> translator);

    /// IDispatch when the object has it.
    const ComPtr<IUnknown>& unknown() const noexcept { return unknown_; }

    std::int32_t memberId(std::wstring_view name) override;
    automation::Value invoke(std::int32_t member, automation::Access access,
                             std::span<const automation::Value> arguments) override;
    automation::Subscription subscribe(automation::EventInterface events,
                                       automation::EventSink sink) override;
    bool sameAs(const Target& other) const override;

  private:
    IDispatch& dispatch() const;

    std::shared_ptr<ObjectTranslator> translator_;
    ComPtr<IDispatch> dispatch_;
    ComPtr<IUnknown> unknown_;
};

}  // namespace platform::windows
