#include "mail/basWordMail.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "mail/OpenPrompt.h"
#include "mail/OutlookVersion.h"
#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "platform/files.h"

namespace basWordMail {

namespace {

using automation::Object;
using automation::Value;
using mail::Globals;

constexpr wchar_t templateName[] = L"Veltro.dot";
constexpr wchar_t wordProgId[] = L"Word.Application";
constexpr std::int32_t doNotSaveChanges = 0;

/// The document of the item window.
Object documentOf(const Globals& globals, const outlook::Inspector& inspector) {
    return globals.provider->openWindow(globals, inspector).get(L"WordEditor").toObject();
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

/// The document in which the mail of the window is written; nothing when the window is not Word's.
Object editedDocument(const Globals& globals, const outlook::Inspector& window) {
    const auto document = [&] {
        return editsInWord(globals, window) ? documentOf(globals, window) : Object();
    };
    return mail::attempt(document).value_or(Object());
}

/// True when Word is hidden and has nothing open, or nothing but the window of the document. What a user has
/// started or opened keeps Word running: then it says that it is under the user's control.
bool nothingElseOpen(const Object& word, const Object& document) {
    const Object windows = word.get(L"Windows").toObject();
    const std::int32_t count = windows.get(L"Count").toInteger();
    if (count == 0) {
        return word.get(L"Documents").toObject().get(L"Count").toInteger() == 0 &&
               !word.get(L"UserControl").toBool();
    }
    return count == 1 && document &&
           windows.call(L"Item", 1).toObject().get(L"Document").toObject() == document;
}

/// Loads the add-in's template. Without the template's file, or when Word refuses, nothing is loaded.
void LoadAddin(const Globals& globals, const Object& word) {
    mail::skipErrors([&] {
        if (templateExists(globals)) {
            const Object addIns = word.get(L"AddIns").toObject();
            addIns.call(L"Add", templatePath(globals)).toObject().put(L"Installed", true);
        }
    });
}

/// Has Word take the template for saved, so that it never asks to save it.
void TemplateMarkSaved(const Object& word) {
    mail::skipErrors([&] {
        const Object templates = word.get(L"Templates").toObject();
        templates.call(L"Item", templateName).toObject().put(L"Saved", true);
    });
}

void prepare(const Globals& globals, const Object& word) {
    LoadAddin(globals, word);
    TemplateMarkSaved(word);
}

/// Quits Word when nothing is open in it but the window. What the user has changed in Word's own templates
/// meanwhile is Word's to save: it is told nothing of that.
void leaveWord(const Globals& globals, const outlook::Inspector& window, bool closesDocument) {
    const Object word = globals.platform.automation.activeObject(wordProgId);
    const Object document = editedDocument(globals, window);
    const bool quits = nothingElseOpen(word, document);
    if (closesDocument && document) {
        document.call(L"Close", doNotSaveChanges);
    }
    if (quits) {
        word.call(L"Quit");
    }
}

}  // namespace

bool editsInWord(const Globals& globals, const outlook::Inspector& inspector) {
    return inspector && globals.provider->reachesWord() &&
           mail::outlookVersion(globals) < mail::outlook2007 && inspector.editorType() == outlook::editorWord;
}

void PrepareWord(const Globals& globals, const outlook::Inspector& inspector) {
    mail::skipErrors([&] { prepare(globals, wordOf(globals, inspector)); });
}

/// While Word asks, the user and others go on working in Outlook, so that another mail may be sent inside of
/// the call; the flag that this one's macro sets is set back for it.
bool runInWord(Globals& globals, const outlook::Inspector& inspector,
               const std::function<Value(const Object& word)>& run) {
    const bool before = std::exchange(globals.sendCancelled, false);
    const mail::OpenPrompt asking(globals);
    bool held = false;
    mail::skipErrors([&] {
        const Object word = wordOf(globals, inspector);
        prepare(globals, word);  // A window that never was in front since the start has loaded nothing.
        held = run(word).toBool();
    });
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
    mail::skipErrors([&] { leaveWord(globals, globals.outlook.activeInspector(), true); });
}

void QuitUnusedWord(const Globals& globals, const outlook::Inspector& closing) noexcept {
    mail::skipErrors([&] { leaveWord(globals, closing, false); });
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
