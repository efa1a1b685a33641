#include "addin/WindowWrappers.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "addin/ExplorerWrap.h"
#include "addin/clsInspWrap.h"
#include "mail/errorTrap.h"

namespace addin {

void WindowWrappers::AddExpl(const outlook::Explorer& explorer, Window window) {
    auto wrapper = std::make_shared<ExplorerWrap>(
        globals_, ExplorerWrap::Keeper{.closed = [this](auto closed) { KillExpl(closed->Key(), closed); },
                                       .othersAct =
                                           [this](const ExplorerWrap& asking) {
                                               return inspectorActs(asking) || otherExplorerActs(asking);
                                           }});
    wrapper->setExplorer(explorer);
    explorers_.add(wrapper);
    wrapper->InitButton();
    if (window == Window::Open) {
        wrapper->watchSelection();
    }
}

void WindowWrappers::RemoveExplMenu() const {
    explorers_.forEach([this](const ExplorerWrap& wrapper) {
        if (wrapper.hasMenu()) {
            mail::skipErrors([&] { menu::remove(globals_, wrapper.Explorer()); });
        }
    });
}

void WindowWrappers::KillExpl(std::int32_t key, std::shared_ptr<ExplorerWrap>& wrapper) {
    explorers_.remove(key, wrapper, L"Unexpected Error in KillExpl");
}

/// True when the mail is open in the active item window and that window has a wrapper, which then handles the
/// event. A window that could not be wrapped has none.
bool WindowWrappers::inspectorActs(const ExplorerWrap& asking) const {
    const auto acts = [&] {
        const outlook::Inspector active = globals_.outlook.activeInspector();
        return active && asking.watches(active.currentItem()) && watches(active);
    };
    return mail::attempt(acts).value_or(false);
}

/// The mail may be selected in several main windows, each of which hears that it is answered: the active one
/// handles it, or the oldest of them when the active one shows something else. Where that cannot be told the
/// check is made: once too often is better than never.
bool WindowWrappers::otherExplorerActs(const ExplorerWrap& asking) const {
    const auto active = mail::attempt([&] { return globals_.outlook.activeExplorer().object(); });
    if (!active || *active == asking.Explorer().object()) {
        return false;
    }
    bool acts = false;
    explorers_.forEach([&](const ExplorerWrap& other) {
        const bool goesFirst = other.Key() < asking.Key() || other.Explorer().object() == *active;
        const auto same = [&] { return other.watches(asking.watchedItem()); };
        acts = acts || (goesFirst && mail::attempt(same).value_or(false));
    });
    return acts;
}

std::wstring WindowWrappers::AddInsp(const outlook::Inspector& inspector, const outlook::Item& item,
                                     std::int32_t itemClass) {
    letGoOfAbandoned();
    auto wrapper = std::make_shared<clsInspWrap>(
        globals_, clsInspWrap::Keeper{.activated = std::bind_front(&WindowWrappers::takeBack, this),
                                      .itemCloses = std::bind_front(&WindowWrappers::setAside, this),
                                      .closed = std::bind_front(&WindowWrappers::letGo, this)});
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
    if (wrapper->editedInWord()) {
        editedInWord_ = true;
        mail::skipErrors([&] { timer_->Start(); });
    }
    if (aside_.erase(wrapper) == 0) {
        auto removed = wrapper;
        KillInsp(wrapper->Key(), removed);
    }
}

void WindowWrappers::sendEnds() {
    explorers_.forEach([](ExplorerWrap& wrapper) { wrapper.inlineSendEnds(); });
}

bool WindowWrappers::watches(const outlook::Inspector& inspector) const {
    const auto mine = [&](const clsInspWrap& wrapper) {
        return wrapper.Inspector().object() == inspector.object();
    };
    bool found = std::ranges::any_of(aside_, [&](const auto& wrapper) { return mine(*wrapper); });
    inspectors_.forEach([&](const clsInspWrap& wrapper) { found = found || mine(wrapper); });
    return found;
}

bool WindowWrappers::writesInline(const outlook::Item& item) const {
    bool found = false;
    explorers_.forEach([&](const ExplorerWrap& wrapper) { found = found || wrapper.writesInline(item); });
    return found;
}

bool WindowWrappers::watches(const outlook::Explorer& explorer) const {
    bool found = false;
    explorers_.forEach([&](const ExplorerWrap& wrapper) {
        found = found || wrapper.Explorer().object() == explorer.object();
    });
    return found;
}

bool WindowWrappers::editedInWord() const {
    bool edited = editedInWord_;
    inspectors_.forEach([&](const clsInspWrap& wrapper) { edited = edited || wrapper.editedInWord(); });
    return edited;
}

outlook::Inspector WindowWrappers::inspectorOf(const outlook::Item& item) const {
    outlook::Inspector found;
    inspectors_.forEach([&](const clsInspWrap& wrapper) {
        if (wrapper.item().object() == item.object()) {
            found = wrapper.Inspector();
        }
    });
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
        } else if (mail::skipErrors([&] { letGo(wrapper); })) {
            wrapper->release();
        }
    }
}

void WindowWrappers::release() {
    timer_->Stop();
    editedInWord_ = false;
    explorers_.release();
    inspectors_.release();
    for (const auto& wrapper : std::exchange(aside_, {})) {
        wrapper->release();
    }
}

}  // namespace addin
