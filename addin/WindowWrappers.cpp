#include "addin/WindowWrappers.h"

#include <algorithm>
#include <utility>

#include "addin/ExplorerWrap.h"
#include "addin/clsInspWrap.h"
#include "mail/errorTrap.h"

void WindowWrappers::AddExpl(const outlook::Explorer& explorer) {
    auto wrapper = std::make_shared<ExplorerWrap>(globals_, *this);
    wrapper->setExplorer(explorer);
    explorers_.add(wrapper);
    wrapper->InitButton();
}

void WindowWrappers::RemoveExplMenu() const {
    explorers_.forEach([this](const ExplorerWrap& wrapper) {
        basGlobals::skipErrors([&] { menu::remove(globals_, wrapper.Explorer()); });
    });
}

void WindowWrappers::KillExpl(std::int32_t key, std::shared_ptr<ExplorerWrap>& wrapper) {
    explorers_.remove(key, wrapper, L"Unexpected Error in KillExpl");
}

std::wstring WindowWrappers::AddInsp(const outlook::Inspector& inspector, const outlook::Item& item,
                                     std::int32_t itemClass) {
    letGoOfAbandoned();
    auto wrapper = std::make_shared<clsInspWrap>(globals_, *this);
    wrapper->setInspector(inspector);
    switch (itemClass) {
        case outlook::itemClass::mail:
            wrapper->setMailItem(item);
            break;
        case outlook::itemClass::contact:
            wrapper->setContactItem(item);
            break;
        case outlook::itemClass::post:
            wrapper->setPostItem(item);
            break;
        case outlook::itemClass::task:
            wrapper->setTaskItem(item);
            break;
        default:
            wrapper->setOtherItem(item);
            break;
    }
    uncertain_.push_back(wrapper);
    return inspectors_.add(std::move(wrapper));
}

void WindowWrappers::KillInsp(std::int32_t key, std::shared_ptr<clsInspWrap>& wrapper) {
    inspectors_.remove(key, wrapper, L"Unexpected Error in KillInsp");
}

void WindowWrappers::setAside(const std::shared_ptr<clsInspWrap>& wrapper) {
    if (aside_.contains(wrapper)) {
        return;
    }
    auto removed = wrapper;
    KillInsp(wrapper->Key(), removed);
    aside_.insert(wrapper);
    uncertain_.push_back(wrapper);
}

void WindowWrappers::takeBack(const std::shared_ptr<clsInspWrap>& wrapper) {
    if (aside_.erase(wrapper) > 0) {
        inspectors_.add(wrapper);
    }
}

void WindowWrappers::letGo(const std::shared_ptr<clsInspWrap>& wrapper) {
    if (aside_.erase(wrapper) == 0) {
        auto removed = wrapper;
        KillInsp(wrapper->Key(), removed);
    }
}

bool WindowWrappers::watches(const outlook::Inspector& inspector) const {
    const auto mine = [&](const clsInspWrap& wrapper) {
        return wrapper.Inspector().object() == inspector.object();
    };
    bool found = std::ranges::any_of(aside_, [&](const auto& wrapper) { return mine(*wrapper); });
    inspectors_.forEach([&](const clsInspWrap& wrapper) { found = found || mine(wrapper); });
    return found;
}

/// A program that takes an item's GetInspector without showing it, to send the item, makes a window that
/// never tells of its closing. Two wrappers are looked at for each that comes, so that the abandoned ones
/// cannot pile up and the look costs the same however many windows are open.
void WindowWrappers::letGoOfAbandoned() {
    constexpr int most = 2;
    int looks = 0;
    for (std::size_t left = uncertain_.size(); left > 0 && looks < most && !uncertain_.empty(); --left) {
        const auto wrapper = uncertain_.front().lock();
        uncertain_.pop_front();
        if (!wrapper || (wrapper->wasShown() && !aside_.contains(wrapper))) {
            continue;
        }
        ++looks;
        if (!wrapper->isAbandoned()) {
            uncertain_.push_back(wrapper);
        } else if (basGlobals::skipErrors([&] { letGo(wrapper); })) {
            wrapper->release();
        }
    }
}

void WindowWrappers::release() {
    explorers_.release();
    inspectors_.release();
    for (const auto& wrapper : std::exchange(aside_, {})) {
        wrapper->release();
    }
}
