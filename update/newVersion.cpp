#include "update/newVersion.h"

#include "mail/product.h"
#include "settings/prompts.h"
#include "update/updateAnswer.h"

namespace update::newVersion {

std::wstring caption(const mail::Globals& globals) {
    return prompts::titled(globals, L"New Version");
}

std::wstring announcement(const mail::Globals& globals, const std::wstring& version) {
    return L"Version " + shownVersion(version) + L" of " + globals.product.title +
           L" is available. You have version " + shownVersion(mail::product::versionText) + L".";
}

void show(forms::TextBox& box, const std::wstring& message) {
    box.setReadOnly(true);
    box.setText(message);
    box.setVisible(!message.empty());
}

}  // namespace update::newVersion
