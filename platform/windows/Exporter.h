#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>

#include "platform/automation.h"
#include "platform/windows/ComPtr.h"
#include "platform/windows/LiveObjects.h"
#include "platform/windows/values.h"

namespace platform::windows {

class ExportedObject;

/// Shows automation objects to COM, and COM objects as automation objects. An object that this exporter
/// showed and that comes back is the object itself again; one that came from COM goes back as it came.
///
/// One thread only, the apartment's that owns the objects. It lives as long as anything made by it.
class Exporter final : public ObjectTranslator, public std::enable_shared_from_this<Exporter> {
  public:
    /// `liveObjects` counts everything that COM holds of this module through this exporter.
    static std::shared_ptr<Exporter> make(LiveObjects& liveObjects);

    /// The same object gives the same COM identity as long as anybody holds it. Nothing gives nothing.
    ComPtr<IDispatch> exportObject(const automation::Object& object);
    /// How many objects COM holds through this exporter now.
    std::size_t liveAdapters() const noexcept { return adapters_.size(); }

    ComPtr<IUnknown> toCom(const automation::Object& object) override;
    automation::Object toObject(IUnknown* object) override;
    LiveObjects& liveObjects() override { return liveObjects_; }

    /// Keeps `owner` alive through every event handler and every call from outside that is at work, whoever
    /// lets go of it meanwhile.
    void keepDuringEvents(std::weak_ptr<void> owner) { owner_ = std::move(owner); }
    std::shared_ptr<void> owner() override { return owner_.lock(); }

  private:
    friend class ExportedObject;

    explicit Exporter(LiveObjects& liveObjects) : liveObjects_(liveObjects) {}
    ExportedObject* find(const automation::Target& target) const;
    void forget(const ExportedObject& adapter) noexcept;

    LiveObjects& liveObjects_;
    std::weak_ptr<void> owner_;
    std::unordered_map<const automation::Target*, ExportedObject*> adapters_;
    /// The identities of the adapters, to know them again.
    std::unordered_map<const IUnknown*, ExportedObject*> identities_;
};

}  // namespace platform::windows
