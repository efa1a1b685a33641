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
