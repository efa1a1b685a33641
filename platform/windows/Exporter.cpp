#include "platform/windows/Exporter.h"

#include "platform/windows/ComTarget.h"
#include "platform/windows/ExportedObject.h"

namespace platform::windows {

std::shared_ptr<Exporter> Exporter::make(LiveObjects& liveObjects) {
    return std::shared_ptr<Exporter>(new Exporter(liveObjects));
}

ComPtr<IDispatch> Exporter::exportObject(const automation::Object& object) {
    return query<IDispatch>(toCom(object).get(), IID_IDispatch);
}

ComPtr<IUnknown> Exporter::toCom(const automation::Object& object) {
    if (!object) {
        return nullptr;
    }
    if (const auto* target = dynamic_cast<const ComTarget*>(object.target().get())) {
        return target->unknown();
    }
    if (ExportedObject* known = find(*object.target())) {
        return ComPtr<IUnknown>(known->identity());
    }
    const auto adapter =
        ComPtr<ExportedObject>::adopt(new ExportedObject(object.target(), shared_from_this()));
    adapters_.emplace(object.target().get(), adapter.get());
    identities_.emplace(adapter->identity(), adapter.get());
    return ComPtr<IUnknown>(adapter->identity());
}

automation::Object Exporter::toObject(IUnknown* object) {
    const ComPtr<IUnknown> identity = query<IUnknown>(object, IID_IUnknown);
    if (!identity) {
        return {};
    }
    const auto known = identities_.find(identity.get());
    if (known != identities_.end()) {
        return automation::Object(known->second->target());
    }
    return automation::Object(std::make_shared<ComTarget>(ComPtr<IUnknown>(object), shared_from_this()));
}

ExportedObject* Exporter::find(const automation::Target& target) const {
    const auto same = adapters_.find(&target);
    if (same != adapters_.end()) {
        return same->second;
    }
    // Two targets may stand for one object.
    for (const auto& [known, adapter] : adapters_) {
        if (target.sameAs(*known)) {
            return adapter;
        }
    }
    return nullptr;
}

void Exporter::forget(const ExportedObject& adapter) noexcept {
    adapters_.erase(adapter.target().get());
    identities_.erase(adapter.identity());
}

}  // namespace platform::windows
