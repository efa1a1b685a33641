#include "host/HostAutomation.h"

#include "host/Application.h"
#include "host/RdoSession.h"
#include "host/SafeItem.h"
#include "host/Word.h"
#include "host/World.h"
#include "platform/text.h"

namespace host {

using automation::Object;

namespace {

[[noreturn]] void cannotCreate() {
    throw automation::Error(automation::errors::cannotCreateObject, L"ActiveX component can't create object");
}

template <SafeItem::Kind Kind>
Object makeSafeItem(World& world) {
    return world.makeObject<SafeItem>(Kind, nullptr);
}

template <class T>
Object makePlain(World& world) {
    return world.makeObject<T>();
}

struct RedemptionClass {
    std::wstring_view progId;
    Object (*make)(World&);
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
    world_.meter()->called(L"createObject", progId);
    // Outlook runs once: making its application gives the one that runs.
    if (text::equalsIgnoringCase(progId, L"Outlook.Application")) {
        return world_.application().object();
    }
    if (text::equalsIgnoringCase(progId, L"Word.Application") && world_.profile().wordRegistered) {
        return world_.makeObject<WordApplication>();
    }
    for (const RedemptionClass& known : redemptionClasses) {
        if (text::equalsIgnoringCase(progId, known.progId) && world_.profile().redemptionRegistered) {
            return known.make(world_);
        }
    }
    cannotCreate();
}

Object HostAutomation::activeObject(std::wstring_view progId) {
    world_.meter()->called(L"activeObject", progId);
    if (text::equalsIgnoringCase(progId, L"Outlook.Application")) {
        return world_.application().object();
    }
    const auto word = world_.runningWord();
    if (!word || !text::equalsIgnoringCase(progId, L"Word.Application")) {
        cannotCreate();
    }
    return word->object();
}

}  // namespace host
