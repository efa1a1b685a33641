#include "host/HostAutomation.h"

#include "host/Application.h"
#include "host/Core.h"
#include "host/RdoSession.h"
#include "host/SafeItem.h"
#include "host/Untrusted.h"
#include "host/Word.h"
#include "platform/text.h"

namespace host {

using automation::Object;

namespace {

[[noreturn]] void cannotCreate() {
    throw automation::Error(automation::errors::cannotCreateObject, L"ActiveX component can't create object");
}

template <SafeItem::Kind Kind>
Object makeSafeItem(Core& core) {
    return core.makeObject<SafeItem>(Kind, nullptr);
}

template <class T>
Object makePlain(Core& core) {
    return core.makeObject<T>();
}

struct RedemptionClass {
    std::wstring_view progId;
    Object (*make)(Core&);
};

constexpr RedemptionClass redemptionClasses[] = {
    {L"vtRedemption.vtSafeMailItem", makeSafeItem<SafeItem::Kind::Mail>},
    {L"vtRedemption.vtSafePostItem", makeSafeItem<SafeItem::Kind::Post>},
    {L"vtRedemption.vtSafeReportItem", makeSafeItem<SafeItem::Kind::Report>},
    {L"vtRedemption.vtSafeInspector", makePlain<SafeInspector>},
    {L"vtRedemption.vtRDOSession", makePlain<RdoSession>},
    {L"vtRedemption.vtMAPIUtils", makePlain<MapiUtils>},
};

}  // namespace

Object HostAutomation::createObject(std::wstring_view progId) {
    core_.meter()->called(L"createObject", progId);
    if (text::equalsIgnoringCase(progId, L"Outlook.Application")) {
        return untrustedApplication();
    }
    if (text::equalsIgnoringCase(progId, L"Word.Application") && core_.profile().wordRegistered) {
        return core_.makeObject<WordApplication>();
    }
    for (const RedemptionClass& known : redemptionClasses) {
        if (text::equalsIgnoringCase(progId, known.progId) && core_.profile().redemptionRegistered) {
            return known.make(core_);
        }
    }
    cannotCreate();
}

/// Outlook runs once: making its application gives the one that runs, but without its trust.
Object HostAutomation::untrustedApplication() {
    auto made = untrusted_.lock();
    if (!made) {
        made = core_.make<Untrusted>(core_.application().shared_from_this());
        untrusted_ = made;
    }
    return Object(made);
}

Object HostAutomation::activeObject(std::wstring_view progId) {
    core_.meter()->called(L"activeObject", progId);
    if (text::equalsIgnoringCase(progId, L"Outlook.Application")) {
        return core_.application().object();
    }
    const auto word = core_.runningWord();
    if (!word || !text::equalsIgnoringCase(progId, L"Word.Application")) {
        cannotCreate();
    }
    return word->object();
}

}  // namespace host
