#include "host/Untrusted.h"

#include "host/Core.h"

namespace host {

using automation::Object;
using automation::Value;

bool Untrusted::sameAs(const Target& other) const {
    const auto* const untrusted = dynamic_cast<const Untrusted*>(&other);
    return untrusted && object_->sameAs(*untrusted->object_);
}

Value Untrusted::perform(std::int32_t member, automation::Access access, std::span<const Value> arguments) {
    const Guard::Stranger calling(core().guard());
    Value result = object_->dispatch(member, access, arguments);
    if (result.holds<Object>()) {
        if (auto found = std::dynamic_pointer_cast<HostObject>(result.toObject().target())) {
            return core().makeObject<Untrusted>(std::move(found));
        }
    }
    return result;
}

}  // namespace host
