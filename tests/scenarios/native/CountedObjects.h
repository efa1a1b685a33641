#pragma once

#include <cstddef>
#include <memory>

#include "platform/automation.h"

/// Hands objects to the add-in as others that count themselves, as the adapters of COM do on Windows: so that
/// a scenario sees whether the add-in lets go of everything.
class CountedObjects : public automation::Automation {
  public:
    /// Of all that was handed out.
    struct State {
        std::size_t count = 0;
        bool lost = false;
        void check() const;
    };

    explicit CountedObjects(automation::Automation& objects) : objects_(objects) {}

    automation::Object createObject(std::wstring_view progId) override {
        state_->check();
        return counted(objects_.createObject(progId));
    }
    automation::Object activeObject(std::wstring_view progId) override {
        return counted(objects_.activeObject(progId));
    }
    automation::Object counted(const automation::Object& object) const;
    /// An object of the add-in's, as the host calls it: the arguments are handed out counted.
    automation::Object countingArguments(const automation::Object& object) const;
    std::size_t count() const { return state_->count; }
    /// From now on every call to what was handed out fails, as it does for a process that has ended.
    void lose() { state_->lost = true; }

  private:
    automation::Automation& objects_;
    std::shared_ptr<State> state_ = std::make_shared<State>();
};
