#include "addin/WindowWrappers.h"

#include "addin/ExplorerWrap.h"
#include "addin/clsInspWrap.h"
#include "mail/errorTrap.h"

void WindowWrappers::AddExpl(const outlook::Explorer& explorer) {
    auto wrapper = std::make_shared<ExplorerWrap>(globals_, *this, explorers_.nextKey());
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
    auto wrapper = std::make_shared<clsInspWrap>(globals_, *this, inspectors_.nextKey());
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
        default:
            break;
    }
    return inspectors_.add(std::move(wrapper));
}

void WindowWrappers::KillInsp(std::int32_t key, std::shared_ptr<clsInspWrap>& wrapper) {
    inspectors_.remove(key, wrapper, L"Unexpected Error in KillInsp");
}

void WindowWrappers::release() {
    explorers_.release();
    inspectors_.release();
}
