#include "checks/basWordMail.h"

#include "mail/SafeItems.h"
#include "mail/basGlobals.h"

namespace basWordMail {

bool editsInWord(const basGlobals::Globals& globals) {
    // From version 12 on Word edits every mail, but inside Outlook's own window.
    return basGlobals::OutlookMajorNumber(globals) < 12 &&
           globals.outlook.activeInspector().editorType() == outlook::editorWord;
}

void runMacro(const basGlobals::Globals& globals, std::wstring_view macro, const outlook::Item& item,
              bool& cancel) {
    const automation::Object safe =
        globals.platform.automation.createObject(redemption::progId::safeInspector);
    safe.put(L"Item", globals.outlook.activeInspector().object());
    const automation::Object word = safe.get(L"WordEditor").toObject().get(L"Application").toObject();
    automation::Value cancelled = cancel;
    word.call(L"Run", macro, item.object(), automation::Value::reference(cancelled));
    cancel = cancelled.toBool();
}

}  // namespace basWordMail
