#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/automation.h"

namespace addin {

/// The wrappers of all open windows of one kind, each under its key as decimal text. Keys grow and are never
/// used twice while Outlook runs.
template <class Wrapper>
class WrapperCollection {
  public:
    std::int32_t nextKey() const { return nextKey_; }
    std::size_t count() const { return wrappers_.size(); }

    /// Adds the wrapper under the next key, which becomes its own. Returns the key as text.
    std::wstring add(std::shared_ptr<Wrapper> wrapper) {
        wrapper->setKey(nextKey_);
        const std::wstring key = std::to_wstring(nextKey_++);
        wrappers_.emplace(key, std::move(wrapper));
        return key;
    }

    /// Removes the wrapper and the caller's reference to it. Throws Error 1 with the description when another
    /// object stands under the key, or none; the collection is left as it is.
    void remove(std::int32_t key, std::shared_ptr<Wrapper>& wrapper, const wchar_t* description) {
        const auto found = wrappers_.find(std::to_wstring(key));
        if (found == wrappers_.end() || found->second != wrapper) {
            throw automation::Error(unexpectedWrapper, description);
        }
        wrappers_.erase(found);
        wrapper.reset();
    }

    /// A window may close meanwhile.
    template <class Action>
    void forEach(const Action& action) const {
        const auto present = wrappers_;
        for (const auto& [key, wrapper] : present) {
            action(*wrapper);
        }
    }

    /// Releases all wrappers, and has them let their windows go; keys go on growing.
    void release() {
        for (const auto& [key, wrapper] : std::exchange(wrappers_, {})) {
            wrapper->release();
        }
    }

  private:
    static constexpr std::int32_t unexpectedWrapper = 1;

    std::map<std::wstring, std::shared_ptr<Wrapper>> wrappers_;
    std::int32_t nextKey_ = 0;
};

}  // namespace addin
