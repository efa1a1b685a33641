#include "program/windows/sampleMail.h"

namespace program::windows {

std::vector<host::Message> sampleMail(const std::wstring& ownAddress, automation::Date now) {
    const host::Address own{.name = ownAddress, .address = ownAddress};
    const host::Address ann{.name = L"Ann Archer", .address = L"ann.archer@example.com"};
    const host::Address bernd{.name = L"Bernd K\u00F6hler", .address = L"bernd@example.net"};
    const host::Address carla{.name = L"Carla Diaz", .address = L"carla.diaz@example.com"};

    host::Message old;
    old.from = bernd;
    old.to = {own};
    old.subject = L"Keys";
    old.body = L"The keys are with the neighbours.\r\n\r\nBernd";
    old.deliveryTime = automation::Date{now.days - 40};

    host::Message toAll;
    toAll.from = ann;
    toAll.to = {own, bernd};
    toAll.cc = {carla};
    toAll.subject = L"SPAM-LOW: Offer for the roof";
    toAll.body = L"Dear all,\r\n\r\nwhich of the two offers shall we take?\r\n\r\nAnn";
    toAll.deliveryTime = automation::Date{now.days - 1};

    host::Message blind;
    blind.from = carla;
    blind.to = {ann};
    blind.subject = L"FW: RE: Budget";
    blind.body = L"Ann,\r\n\r\nthis is what remains of the budget. You did not get it from me.\r\n\r\nCarla";
    blind.deliveryTime = now;
    return {old, toAll, blind};
}

}  // namespace program::windows
