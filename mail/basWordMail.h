#pragma once

#include <functional>
#include <string_view>

#include "mail/Globals.h"
#include "platform/outlook.h"

/// Word as the e-mail editor of Outlook versions below 12, where an item window is a Word window: there the
/// macros of the add-in's template ask instead of the add-in's own dialogs.
///
/// Word is a process of its own. The macros make a Veltro.Buttons there, which asks and then calls the add-in
/// in Outlook's process: Outlook's list of add-ins leads to it.
namespace basWordMail {

// In Outlook's process.

/// True when the item window is a Word window. False without a window. Throws automation::Error.
bool editsInWord(const mail::Globals& globals, const outlook::Inspector& inspector);

/// Loads the add-in's template into the Word of the item window, and has it take the template for saved.
/// Where that cannot be done nothing is loaded.
void PrepareWord(const mail::Globals& globals, const outlook::Inspector& inspector);

/// Has the Word of the item window run a macro, and waits for it. True when the user does not want the mail
/// to leave, which the macro says by its result, and Buttons by the send-cancel flag: either may be lost when
/// Word goes. Where the macro cannot be run nothing is asked, and the result is false.
bool runInWord(mail::Globals& globals, const outlook::Inspector& inspector,
               const std::function<automation::Value(const automation::Object& word)>& run);

/// The same of a macro by its name and arguments.
template <class... Arguments>
bool runMacro(mail::Globals& globals, const outlook::Inspector& inspector, std::wstring_view macro,
              const Arguments&... arguments) {
    return runInWord(globals, inspector,
                     [&](const automation::Object& word) { return word.call(L"Run", macro, arguments...); });
}

/// Runs the macro of a check with the item and the cancel flag; sets the flag, and never clears it.
void runCheck(mail::Globals& globals, const outlook::Inspector& inspector, std::wstring_view macro,
              const outlook::Item& item, bool& cancel);

/// Closes the document of the active item window without saving it, when that window is Word's, and quits
/// Word when nothing else is open in it: Outlook has ended. Never throws.
void CloseWord(const mail::Globals& globals) noexcept;
/// Quits Word when nothing is open in it, or only the item window that is closing. Never throws.
void QuitUnusedWord(const mail::Globals& globals, const outlook::Inspector& closing = {}) noexcept;

// In Word's process.

/// The add-in in Outlook's process, and the one list of preferred accounts that it has handed out.
struct Variables {
    automation::Object addIn;
    automation::Object list;
};

/// Takes hold of Outlook unless that is done already, and of what both sides share. Throws automation::Error
/// when the add-in cannot be reached.
Variables GetVariables(mail::Globals& globals);
/// Brings the answers to the add-in. Throws automation::Error.
void SetVariables(const Variables& variables, bool cancel);

/// What the add-in is called in Outlook's list of add-ins.
inline constexpr wchar_t addInProgId[] = L"Veltro.Connect";

}  // namespace basWordMail
