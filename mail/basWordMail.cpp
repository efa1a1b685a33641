#include "mail/basWordMail.h"

#include "mail/OutlookVersion.h"
#include "mail/SafeItems.h"

namespace basWordMail {

namespace {

/// The Word that edits the item of the window.
automation::Object wordOf(const mail::Globals& globals, const outlook::Inspector& inspector) {
    const automation::Object safe =
        globals.platform.automation.createObject(redemption::progId::safeInspector);
    safe.put(L"Item", inspector.object());
    return safe.get(L"WordEditor").toObject().get(L"Application").toObject();
}

bool hasWordWindows(const mail::Globals& globals) {
    return mail::outlookVersion(globals) < mail::outlook2007;
}

}  // namespace

bool editsInWord(const mail::Globals& globals, const outlook::Inspector& inspector) {
    return hasWordWindows(globals) && inspector.editorType() == outlook::editorWord;
}

bool editsInWord(const mail::Globals& globals) {
    return hasWordWindows(globals) && globals.outlook.activeInspector().editorType() == outlook::editorWord;
}

automation::Object activeWord(const mail::Globals& globals) {
    return wordOf(globals, globals.outlook.activeInspector());
}

void runMacro(const mail::Globals& globals, const outlook::Inspector& inspector, std::wstring_view macro,
              const outlook::Item& item, bool& cancel) {
    automation::Value cancelled = cancel;
    wordOf(globals, inspector).call(L"Run", macro, item.object(), automation::Value::reference(cancelled));
    cancel = cancelled.toBool();
}

}  // namespace basWordMail
