#pragma once

#include <memory>
#include <string>

#include "host/HostObject.h"

namespace host {

/// One of Outlook's objects as a program has it that is not trusted: everything that it leads to is not
/// trusted either. It has the members and the events of the object, and not its identity.
class Untrusted : public HostObject {
  public:
    Untrusted(Core& core, std::shared_ptr<HostObject> object)
        : HostObject(core), object_(std::move(object)) {}

    std::wstring className() const override { return object_->className(); }
    void checkUsable() const override { object_->checkUsable(); }
    bool sameAs(const Target& other) const override;
    EventSource* eventSource() override { return object_->eventSource(); }
    std::shared_ptr<HostObject> behind() override { return object_->behind(); }

  protected:
    Found findMember(std::wstring_view name) override { return {object_->memberId(name), true}; }
    std::wstring memberName(std::int32_t member) override { return object_->nameOfMember(member); }
    automation::Value perform(std::int32_t member, automation::Access access,
                              std::span<const automation::Value> arguments) override;

  private:
    std::shared_ptr<HostObject> object_;
};

}  // namespace host
