#include "settings/AlertingDesktop.h"

#include "settings/prompts.h"

namespace settings {

platform::Answer AlertingDesktop::messageBox(const std::wstring& prompt, platform::MessageStyle style,
                                             const std::wstring& title) {
    prompts::soundAlert(globals_);
    const mail::OpenPrompt open(globals_);
    return shown_.messageBox(prompt, style, title);
}

}  // namespace settings
