#include "support/supportEmail.h"

#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "mail/product.h"
#include "platform/text.h"
#include "support/systemReport.h"

namespace support {

namespace {

constexpr std::wstring_view rule = L"----------------------------------------------------------";
constexpr std::wstring_view end = L"============================================================";
constexpr std::size_t linesForTheQuestion = 8;

std::wstring body(const mail::Globals& globals) {
    platform::Platform& platform = globals.platform;
    const std::wstring lineBreak(text::lineBreak);
    const std::wstring paragraphBreak(text::paragraphBreak);
    std::wstring text;
    for (std::size_t count = 0; count < linesForTheQuestion; ++count) {
        text += lineBreak;
    }
    text += L"[Enter your question above]" + lineBreak + std::wstring(rule) + paragraphBreak;
    text += systemReport::OutlookVersion(globals.outlook.version()) + lineBreak;
    text += globals.product.title + L" " + mail::product::versionText + lineBreak;
    text += systemReport::WindowsVersion(platform.system) + paragraphBreak;
    text += systemReport::AddInList(platform.registry, platform.system.is64Bit()) + lineBreak;
    return text + std::wstring(end);
}

}  // namespace

void ComposeSupportEmail(const mail::Globals& globals) {
    mail::skipErrors([&] {
        const outlook::Item item = globals.outlook.createMail();
        item.setTo(globals.product.supportAddress);
        item.setSubject(globals.product.title);
        const mail::SafeItem safe(globals, item);
        safe.prepareBody(body(globals));
        if (globals.provider->readsPeople()) {
            mail::skipErrors([&] { safe.recipients().object().call(L"ResolveAll"); });
        }
        item.display();
    });
}

}  // namespace support
