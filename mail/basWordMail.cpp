#include "mail/basWordMail.h"

#include "mail/SafeItems.h"
#include "mail/basGlobals.h"

namespace basWordMail {

bool editsInWord(const basGlobals::Globals& globals) {
    // From version 12 on Word edits every mail, but inside Outlook's own window.
    return basGlobals::OutlookMajorNumber(globals) < 12 &&
           globals.outlook.activeInspector().editorType() == outlook::editorWord;
}

automation::Object activeWord(const basGlobals::Globals& globals) {
    const automation::Object safe =
        globals.platform.automation.createObject(redemption::progId::safeInspector);
    safe.put(L"Item", globals.outlook.activeInspector().object());
    return safe.get(L"WordEditor").toObject().get(L"Application").toObject();
}

void runMacro(const basGlobals::Globals& globals, std::wstring_view macro, const outlook::Item& item,
              bool& cancel) {
    automation::Value cancelled = cancel;
    activeWord(globals).call(L"Run", macro, item.object(), automation::Value::reference(cancelled));
    cancel = cancelled.toBool();
}

}  // namespace basWordMail
