#include "addin/Connect.h"
#include "mail/errorTrap.h"

/// The windows that Connect itself watches: new ones, and the closing of the last.
namespace addin {

namespace {

using mail::attempt;
using mail::skipErrors;

bool isWrapped(std::int32_t itemClass) {
    namespace known = outlook::itemClass;
    switch (itemClass) {
        case known::mail:
        case known::post:
        case known::appointment:
        case known::contact:
        case known::distributionList:
        case known::task:
        case known::journal:
        case known::document:
            return true;
        default:
            return false;
    }
}

}  // namespace

void Connect::setExplorer(const outlook::Explorer& explorer) {
    objExplEvents_.end();
    objExpl_ = explorer;
    if (explorer) {
        objExplEvents_ = automation::subscribe(explorer.object(), outlook::events::explorer,
                                               [this](std::int32_t event, std::span<automation::Value>) {
                                                   if (event == outlook::events::explorerClose) {
                                                       objExpl_Close();
                                                   }
                                               });
    }
}

void Connect::setInspector(const outlook::Inspector& inspector) {
    objInspEvents_.end();
    objInsp_ = inspector;
    if (inspector) {
        objInspEvents_ = automation::subscribe(inspector.object(), outlook::events::inspector,
                                               [this](std::int32_t event, std::span<automation::Value>) {
                                                   if (event == outlook::events::inspectorClose) {
                                                       objInsp_Close();
                                                   } else if (event == outlook::events::inspectorActivate) {
                                                       tellOfMissingLibrary();
                                                   }
                                               });
    }
}

void Connect::objExpl_Close() {
    skipErrors([&] { setExplorer(application_.activeExplorer()); });
    const bool lastWindow = !objExpl_ && attempt([&] { return colInsp_.count(); }).value_or(1) < 1;
    if (lastWindow && outAddIn_) {
        outAddIn_->lastWindowCloses();
    }
}

void Connect::objInsp_Close() {
    const outlook::Inspector closing = objInsp_;
    skipErrors([&] { setInspector(application_.activeInspector()); });
    // The closing inspector may still be counted.
    const bool lastWindow = attempt([&] { return colExpl_.count(); }).value_or(1) < 1 &&
                            attempt([&] { return colInsp_.count(); }).value_or(2) < 2;
    if (lastWindow && outAddIn_) {
        outAddIn_->lastWindowCloses(closing);
    }
}

void Connect::colExpl_NewExplorer(const outlook::Explorer& explorer) {
    if (globals_.startingUp) {
        return;
    }
    skipErrors([&] { setExplorer(explorer); });
    ensureOutAddIn();
    wrappers_.AddExpl(explorer);
}

void Connect::colInsp_NewInspector(const outlook::Inspector& inspector) {
    skipErrors([&] { setInspector(inspector); });
    ensureOutAddIn();
    wrapInspector(inspector);
}

void Connect::wrapInspector(const outlook::Inspector& inspector) {
    const outlook::Item item = inspector.currentItem();
    const std::int32_t itemClass = item.itemClass();
    if (isWrapped(itemClass)) {
        wrappers_.AddInsp(inspector, item, itemClass);
    }
}

void Connect::ensureOutAddIn() {
    if (!outAddIn_ || !outAddIn_->initialised()) {
        skipErrors([&] { initialiseOutAddIn(); });
    }
}

}  // namespace addin
