#include "host/WindowList.h"

#include <algorithm>
#include <ranges>

#include "host/Core.h"
#include "host/Explorer.h"
#include "host/Folder.h"
#include "host/Inspector.h"
#include "host/Item.h"
#include "host/Ribbons.h"

namespace host {

namespace {

/// Dispatch ids that explorers and inspectors share.
constexpr std::int32_t activated = 0xF001;
constexpr std::int32_t deactivated = 0xF006;
constexpr std::int32_t closed = 0xF008;

template <class T, class Predicate>
std::shared_ptr<T> topmost(const std::vector<std::shared_ptr<HostObject>>& order, const Predicate& wanted) {
    for (const auto& window : std::views::reverse(order)) {
        if (auto found = std::dynamic_pointer_cast<T>(window); found && wanted(*found)) {
            return found;
        }
    }
    return nullptr;
}

/// Keeps an entry in a list for its own life.
template <class T>
class Listed {
  public:
    Listed(std::vector<T>& list, T entry) : list_(list), entry_(entry) { list_.push_back(entry); }
    Listed(const Listed&) = delete;
    Listed& operator=(const Listed&) = delete;
    ~Listed() { list_.erase(std::ranges::find(list_, entry_)); }

  private:
    std::vector<T>& list_;
    T entry_;
};

}  // namespace

void WindowList::open(int explorers, int inspectors) {
    explorerCollection_ = core_.make<Explorers>();
    inspectorCollection_ = core_.make<Inspectors>();
    for (int i = 0; i < explorers; ++i) {
        const auto inbox = core_.mailbox().defaultFolder(defaultFolder::inbox);
        explorers_.push_back(core_.make<Explorer>(inbox, nullptr));
        explorers_.back()->shown();
        order_.push_back(explorers_.back());
    }
    for (int i = 0; i < inspectors; ++i) {
        inspectors_.push_back(core_.make<Inspector>(core_.make<Item>(ItemContent{})));
        order_.push_back(inspectors_.back());
    }
}

std::shared_ptr<HostObject> WindowList::top() const {
    return order_.empty() ? nullptr : order_.back();
}

std::shared_ptr<Explorer> WindowList::topExplorer() const {
    return topExplorer([](const Explorer&) { return true; });
}

std::shared_ptr<Explorer> WindowList::topExplorer(const std::function<bool(const Explorer&)>& wanted) const {
    return topmost<Explorer>(order_, wanted);
}

std::shared_ptr<Inspector> WindowList::topInspector() const {
    return topmost<Inspector>(order_, [](const Inspector&) { return true; });
}

std::shared_ptr<Inspector> WindowList::inspectorOf(const Item& item) const {
    const auto found = std::ranges::find_if(
        inspectors_, [&](const auto& inspector) { return inspector->item().get() == &item; });
    return found == inspectors_.end() ? nullptr : *found;
}

std::shared_ptr<Explorer> WindowList::openExplorer(const std::shared_ptr<Folder>& folder) {
    const auto explorer = core_.make<Explorer>(folder, topExplorer().get());
    explorers_.push_back(explorer);
    core_.ribbons().show(explorer);
    core_.raise(*explorerCollection_->eventSource(), L"NewExplorer", 0xF001, {explorer->object()});
    activate(explorer);
    return explorer;
}

std::shared_ptr<Inspector> WindowList::makeInspector(const std::shared_ptr<Item>& item) {
    const auto inspector = core_.make<Inspector>(item);
    item->hiddenInspector = inspector;
    core_.raise(*inspectorCollection_->eventSource(), L"NewInspector", 0xF001, {inspector->object()});
    return inspector;
}

std::shared_ptr<Inspector> WindowList::show(const std::shared_ptr<Item>& item) {
    if (const auto open = inspectorOf(*item)) {
        activate(open);
        return open;
    }
    auto inspector = item->hiddenInspector.lock();
    if (!inspector) {
        inspector = core_.make<Inspector>(item);
        inspectors_.push_back(inspector);
        core_.ribbons().show(inspector);
        core_.raise(*inspectorCollection_->eventSource(), L"NewInspector", 0xF001, {inspector->object()});
    } else {
        inspectors_.push_back(inspector);
        item->hiddenInspector.reset();
        core_.ribbons().show(inspector);
    }
    if (core_.raiseCancellable(*item->eventSource(), L"Open", 0xF003)) {
        close(inspector);
        return nullptr;
    }
    if (item->gone() || inspectorOf(*item) != inspector) {  // A handler has closed or deleted it.
        return nullptr;
    }
    activate(inspector);
    return inspector;
}

void WindowList::deactivate(const HostObject& window) {
    const auto keep = top();
    if (keep && keep.get() == &window) {
        core_.raise(*keep->eventSource(), L"Deactivate", deactivated);
    }
}

void WindowList::activate(const std::shared_ptr<HostObject>& window) {
    const auto before = top();
    if (before == window) {
        return;
    }
    if (before) {
        core_.raise(*before->eventSource(), L"Deactivate", deactivated);
    }
    std::erase(order_, window);
    order_.push_back(window);
    if (const auto explorer = std::dynamic_pointer_cast<Explorer>(window)) {
        explorer->shown();
    }
    core_.raise(*window->eventSource(), L"Activate", activated);
}

void WindowList::close(const std::shared_ptr<HostObject>& window) {
    if (std::ranges::find(closing_, window.get()) != closing_.end()) {
        return;
    }
    const Listed closing(closing_, static_cast<const HostObject*>(window.get()));
    const bool wasTop = top() == window;
    deactivate(*window);
    // A closing window is not the active one any more, but still counted.
    std::erase(order_, window);
    core_.raise(*window->eventSource(), L"Close", closed);
    core_.ribbons().closed(*window);
    if (const auto explorer = std::dynamic_pointer_cast<Explorer>(window)) {
        explorer->closed();
        std::erase(explorers_, explorer);
    } else if (const auto inspector = std::dynamic_pointer_cast<Inspector>(window)) {
        inspector->closed();
        std::erase(inspectors_, inspector);
    }
    if (const auto below = top(); below && wasTop) {
        core_.raise(*below->eventSource(), L"Activate", activated);
    }
}

bool WindowList::closeInspector(const std::shared_ptr<Inspector>& inspector, SaveAnswer answer) {
    if (std::ranges::find(asked_, inspector.get()) != asked_.end()) {
        return true;
    }
    const Listed asked(asked_, static_cast<const HostObject*>(inspector.get()));
    const auto item = inspector->item();
    if (core_.raiseCancellable(*item->eventSource(), L"Close", 0xF004) || answer == SaveAnswer::Cancel) {
        return false;
    }
    if (answer == SaveAnswer::Yes && !item->gone()) {
        item->save();
    }
    if (std::ranges::find(inspectors_, inspector) != inspectors_.end()) {
        close(inspector);
    }
    return true;
}

}  // namespace host
