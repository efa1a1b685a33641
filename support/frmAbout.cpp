#include "support/frmAbout.h"

#include <optional>

#include "mail/errorTrap.h"
#include "mail/product.h"
#include "platform/WebAddress.h"
#include "platform/text.h"
#include "support/StartSysInfo.h"

namespace support {

namespace {

/// Pictures of the resource library.
namespace pictureId {
constexpr std::uint32_t logo = 605;
constexpr std::uint32_t aboutScreen = 606;
}  // namespace pictureId

std::wstring versionLine() {
    using mail::product::version;
    return L"Version " + std::to_wstring(version.major) + L"." + std::to_wstring(version.minor) + L"." +
           std::to_wstring(version.revision);
}

/// A picture that the library does not have leaves its place empty.
void fill(forms::Picture& place, const mail::Globals& globals, std::uint32_t id) {
    if (auto picture = globals.resources ? globals.resources->DLL_LoadBitmap(id) : nullptr) {
        place.setBitmap(std::move(picture));
    } else {
        place.setVisible(false);
    }
}

}  // namespace

frmAbout::frmAbout(mail::Globals& globals)
    : Form(L"frmAbout", L"About " + globals.product.title, 280, 168),
      globals_(globals),
      // As the caption of a label marks access keys.
      lblTitle(*this, L"lblTitle", {52, 50, 218, 12}, text::replaceAll(globals.product.title, L"&", L"&&"),
               forms::Label::Look::Heading),
      lblHomePage(*this, L"lblHomePage", {52, 128, 218, 10}, globals.product.webSite) {
    lblVersion.setCaption(versionLine());
    lblAbout.setCaption(globals.product.aboutText);
    fill(imgLogo, globals, pictureId::logo);
    fill(imgAboutScreen, globals, pictureId::aboutScreen);
    lblHomePage.onClick = [this] {
        mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmAbout.lblHomePage_Click"),
                         [&] { lblHomePage_Click(); });
    };
    cmdSysInfo.onClick = [this] {
        mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmAbout.cmdSysInfo_Click"),
                         [&] { StartSysInfo(globals_); });
    };
    cmdOK.onClick = [this] { hide(); };
    cmdOK.setFocus();
}

void frmAbout::lblHomePage_Click() {
    if (const auto address = platform::WebAddress::parse(globals_.product.webSite)) {
        globals_.platform.desktop.openAddress(*address);
    }
}

}  // namespace support
