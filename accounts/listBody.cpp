#include "accounts/listBody.h"

#include "accounts/Rowset.h"
#include "accounts/XmlReader.h"
#include "mail/errorTrap.h"

namespace accounts::listBody {

namespace {

using mail::attempt;

/// An item that could not be saved would go on showing, and Outlook perhaps save later, what was only meant
/// to be stored. What somebody else has written there meanwhile stays.
Outcome takeBack(const mail::SafeItem& item, const std::wstring& before, const std::wstring& after) {
    const bool takenBack = mail::skipErrors([&] {
        if (holdSameList(item.body(), after)) {
            item.setBody(before);
            item.commit();
        }
    });
    const auto now = attempt([&] { return item.body(); });
    if (!now) {
        return takenBack ? Outcome::Refused : Outcome::Uncertain;
    }
    if (holdSameList(*now, before)) {
        return Outcome::Refused;
    }
    return holdSameList(*now, after) ? Outcome::Uncertain : Outcome::Overwritten;
}

}  // namespace

bool holdSameList(const std::wstring& left, const std::wstring& right) {
    if (left == right) {
        return true;
    }
    try {
        return rowset::sameRows(rowset::readRowset(left), rowset::readRowset(right));
    } catch (const rowset::NotARowset&) {
        return false;
    }
}

/// Outlook has no means to write only what nobody else has written meanwhile. What another writer stores
/// during the one call that sets the body, between the last look at it and the new text, is lost; what he
/// stores later is either seen afterwards or lets the saving fail.
Result replace(const mail::SafeItem& item, const std::wstring& before, const std::wstring& after) {
    if (!holdSameList(item.body(), before)) {
        return {Outcome::Overtaken, {}};
    }
    try {
        item.setBody(after);
        item.commit();
    } catch (...) {
        std::wstring error = mail::currentError().description();
        return {takeBack(item, before, after), std::move(error)};
    }
    const auto now = attempt([&] { return item.body(); });
    return {!now || holdSameList(*now, after) ? Outcome::Stored : Outcome::Overwritten, {}};
}

}  // namespace accounts::listBody
