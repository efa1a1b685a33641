#pragma once

#include <ocidl.h>

#include <map>
#include <memory>

#include "platform/automation.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/ComPtr.h"

namespace platform::windows {

class Exporter;

/// An automation object as COM sees it: late bound, a source of the events that its target raises, and a
/// collection to be walked if it has the members of one.
class ExportedObject final : public DispatchObject<IDispatch, IConnectionPointContainer> {
  public:
    /// Made by Exporter::toCom only.
    ExportedObject(std::shared_ptr<automation::Target> target, std::shared_ptr<Exporter> exporter);

    const std::shared_ptr<automation::Target>& target() const noexcept { return target_; }
    Exporter& exporter() const noexcept { return *exporter_; }

    /// Starts to send the events to `sink`; gives the cookie that ends it. Throws Error.
    DWORD advise(automation::EventInterface events, ComPtr<IDispatch> sink);
    /// False when there is no such connection.
    bool unadvise(DWORD cookie);

    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* details, UINT* badArgument) override;
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

  private:
    ~ExportedObject() override;
    void* find(REFIID id) noexcept override;
    automation::Value access(DISPID member, WORD flags, std::span<const automation::Value> arguments);

    std::shared_ptr<Exporter> exporter_;
    std::shared_ptr<automation::Target> target_;
    std::map<DWORD, automation::Subscription> connections_;
    DWORD lastCookie_ = 0;
};

}  // namespace platform::windows
