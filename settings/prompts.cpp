#include "settings/prompts.h"

#include "mail/errorTrap.h"
#include "settings/modRegKeys.h"

namespace prompts {

void inform(const mail::Globals& globals, const std::wstring& caption, const std::wstring& text) {
    ask(globals, caption, text, {platform::Buttons::Ok, platform::Icon::Information});
}

void soundAlert(const mail::Globals& globals) {
    if (modRegKeys::PlaySound.read(globals)) {
        mail::skipErrors([&] { globals.platform.desktop.beep(); });
    }
}

void showHelp(const mail::Globals& globals, const std::wstring& file, const std::wstring& topic,
              platform::HelpView view) {
    const std::wstring name = file.substr(file.find_last_of(L"\\/") + 1);
    switch (globals.platform.desktop.showHelp(file, topic, view)) {
        case platform::HelpOutcome::Shown:
            break;
        case platform::HelpOutcome::Missing:
            inform(globals, L"Help",
                   L"The help file " + name + L" is missing from the folder where " + globals.product.title +
                       L" is installed.");
            break;
        case platform::HelpOutcome::OnNetwork:
            inform(globals, L"Help",
                   L"Windows does not show the help file " + name + L", because " + globals.product.title +
                       L" is installed on a network drive.");
            break;
    }
}

std::wstring titled(const mail::Globals& globals, const std::wstring& caption) {
    return caption + L" - " + globals.product.title;
}

platform::Answer ask(const mail::Globals& globals, const std::wstring& caption, const std::wstring& prompt,
                     platform::MessageStyle style) {
    return globals.platform.desktop.messageBox(prompt, style, titled(globals, caption));
}

void show(const mail::Globals& globals, forms::Form& form) {
    soundAlert(globals);
    globals.platform.desktop.showModal(form);
}

}  // namespace prompts
