#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>

#include "platform/automation.h"
#include "platform/windows/ComObject.h"
#include "platform/windows/ComPtr.h"

namespace platform::windows {

class Exporter;

/// Walks a collection as For Each does: by its Count and Item, as they are at each step.
class Enumerator final : public ComObject<IEnumVARIANT> {
  public:
    /// Throws Error when `collection` has no Count or no Item.
    static ComPtr<IEnumVARIANT> make(std::shared_ptr<automation::Target> collection,
                                     std::shared_ptr<Exporter> exporter);

    STDMETHODIMP Next(ULONG count, VARIANT* elements, ULONG* fetched) override;
    STDMETHODIMP Skip(ULONG count) override;
    STDMETHODIMP Reset() override;
    STDMETHODIMP Clone(IEnumVARIANT** clone) override;

  private:
    Enumerator(std::shared_ptr<automation::Target> collection, std::shared_ptr<Exporter> exporter);
    void* find(REFIID id) noexcept override;
    /// How many elements are still to come.
    ULONG left() const;

    std::shared_ptr<Exporter> exporter_;
    automation::Object collection_;
    ULONG passed_ = 0;
};

}  // namespace platform::windows
