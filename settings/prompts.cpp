#include "settings/prompts.h"

#include "mail/errorTrap.h"
#include "settings/modRegKeys.h"

namespace prompts {

void soundAlert(const basGlobals::Globals& globals) {
    if (modRegKeys::PlaySound.read(globals)) {
        basGlobals::skipErrors([&] { globals.platform.desktop.beep(); });
    }
}

std::wstring titled(const basGlobals::Globals& globals, const std::wstring& caption) {
    return caption + L" - " + globals.product.title;
}

platform::Answer ask(const basGlobals::Globals& globals, const std::wstring& caption,
                     const std::wstring& prompt, platform::MessageStyle style) {
    return globals.platform.desktop.messageBox(prompt, style, titled(globals, caption));
}

void show(const basGlobals::Globals& globals, forms::Form& form) {
    soundAlert(globals);
    globals.platform.desktop.showModal(form);
}

}  // namespace prompts
