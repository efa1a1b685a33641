#include "mail/basWordMail.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "mail/OpenPrompt.h"
#include "mail/OutlookVersion.h"
#include "mail/SafeItems.h"
#include "mail/errorTrap.h"
#include "platform/files.h"

namespace basWordMail {

namespace {

using automation::Object;
using automation::Value;
using mail::Globals;

constexpr wchar_t templateName[] = L"Veltro.dot";
constexpr std::int32_t doNotSaveChanges = 0;

/// The document of the item window. Outlook's own Inspector would have the user asked whether a program may
/// look at it.
Object documentOf(const Globals& globals, const outlook::Inspector& inspector) {
    const Object safe = globals.platform.automation.createObject(redemption::progId::safeInspector);
    safe.put(L"Item", inspector.object());
    return safe.get(L"WordEditor").toObject();
}

/// The Word that edits the item of the window.
Object wordOf(const Globals& globals, const outlook::Inspector& inspector) {
    return documentOf(globals, inspector).get(L"Application").toObject();
}

std::wstring templatePath(const Globals& globals) {
    return platform::joinPath(globals.platform.system.addInFolder(), templateName);
}

bool templateExists(const Globals& globals) {
    std::error_code ignored;
    return std::filesystem::exists(platform::filePath(templatePath(globals)), ignored);
}

/// The document in which the mail in front is written; nothing when that is not Word's.
Object activeDocument(const Globals& globals) {
    const outlook::Inspector active = globals.outlook.activeInspector();
    return editsInWord(globals, active) ? documentOf(globals, active) : Object();
}

/// True when Word has no window, or only that of the document. A window of the user's own keeps Word running.
bool nothingElseOpen(const Object& word, const Object& document) {
    const Object windows = word.get(L"Windows").toObject();
    const std::int32_t count = windows.get(L"Count").toInteger();
    return count == 0 || (count == 1 && document &&
                          windows.call(L"Item", 1).toObject().get(L"Document").toObject() == document);
}

}  // namespace

bool editsInWord(const Globals& globals, const outlook::Inspector& inspector) {
    return inspector && mail::outlookVersion(globals) < mail::outlook2007 &&
           inspector.editorType() == outlook::editorWord;
}

void LoadAddin(const Globals& globals, const outlook::Inspector& inspector) {
    mail::skipErrors([&] {
        if (templateExists(globals)) {
            const Object addIns = wordOf(globals, inspector).get(L"AddIns").toObject();
            addIns.call(L"Add", templatePath(globals)).toObject().put(L"Installed", true);
        }
    });
}

void TemplateMarkSaved(const Globals& globals, const outlook::Inspector& inspector) {
    mail::skipErrors([&] {
        const Object templates = wordOf(globals, inspector).get(L"Templates").toObject();
        templates.call(L"Item", templateName).toObject().put(L"Saved", true);
    });
}

/// While Word asks, the user and others go on working in Outlook, so that another mail may be sent inside of
/// the call; the flag that this one's macro sets is set back for it.
bool runInWord(Globals& globals, const outlook::Inspector& inspector,
               const std::function<Value(const Object& word)>& run) {
    const bool before = std::exchange(globals.sendCancelled, false);
    const mail::OpenPrompt asking(globals);
    bool held = false;
    mail::skipErrors([&] { held = run(wordOf(globals, inspector)).toBool(); });
    return std::exchange(globals.sendCancelled, before) || held;
}

void runCheck(Globals& globals, const outlook::Inspector& inspector, std::wstring_view macro,
              const outlook::Item& item, bool& cancel) {
    Value passedItem = item.object();
    Value passedCancel = cancel;
    const bool held =
        runMacro(globals, inspector, macro, Value::reference(passedItem), Value::reference(passedCancel));
    cancel = cancel || held || mail::attempt([&] { return passedCancel.toBool(); }).value_or(false);
}

void CloseWord(const Globals& globals) noexcept {
    mail::skipErrors([&] {
        const Object word = globals.platform.automation.activeObject(L"Word.Application");
        const Object document = mail::attempt([&] { return activeDocument(globals); }).value_or(Object());
        const bool quits = nothingElseOpen(word, document);
        if (document) {
            document.call(L"Close", doNotSaveChanges);
        }
        if (quits) {
            word.call(L"Quit", doNotSaveChanges);
        }
    });
}

Variables GetVariables(Globals& globals) {
    if (!globals.outlook) {
        globals.outlook =
            outlook::Application(globals.platform.automation.createObject(L"Outlook.Application"));
    }
    const Object addIns = globals.outlook.object().get(L"COMAddIns").toObject();
    const Object addIn = addIns.call(L"Item", addInProgId).toObject().get(L"Object").toObject();
    Value list;
    addIn.call(L"WordEditorVariablesGet", Value::reference(list));
    return {addIn, list.toObject()};
}

void SetVariables(const Variables& variables, bool cancel) {
    Value passedCancel = cancel;
    Value passedList = variables.list;
    variables.addIn.call(L"WordEditorVariablesSet", Value::reference(passedCancel),
                         Value::reference(passedList));
}

}  // namespace basWordMail
