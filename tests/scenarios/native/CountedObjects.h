#pragma once

#include <cstddef>
#include <memory>

#include "platform/automation.h"

/// Hands objects to the add-in as others that count themselves, as the adapters of COM do on Windows: so that
/// a scenario sees whether the add-in lets go of everything.
class CountedObjects : public automation::Automation {
  public:
    explicit CountedObjects(automation::Automation& objects) : objects_(objects) {}

    automation::Object createObject(std::wstring_view progId) override {
        return counted(objects_.createObject(progId));
    }
    automation::Object activeObject(std::wstring_view progId) override {
        return counted(objects_.activeObject(progId));
    }
    automation::Object counted(const automation::Object& object) const;
    std::size_t count() const { return *count_; }

  private:
    automation::Automation& objects_;
    std::shared_ptr<std::size_t> count_ = std::make_shared<std::size_t>(0);
};
