#include "addin/productTexts.h"

#include "mail/errorTrap.h"
#include "platform/files.h"

namespace addin {

namespace {

/// String resources of the product's texts.
namespace stringId {
constexpr std::uint32_t webSite = 511;
constexpr std::uint32_t supportAddress = 513;
constexpr std::uint32_t downloadPage = 514;
constexpr std::uint32_t productTitle = 515;
constexpr std::uint32_t aboutText = 524;
}  // namespace stringId

void openResourceLibrary(mail::Globals& globals) {
    globals.resources = std::make_unique<mail::clsResource>(globals.platform.resources);
    mail::skipErrors([&] {
        globals.resources->setLibraryFilePath(
            platform::joinPath(globals.platform.system.addInFolder(), L"Resource.dll"));
    });
}

}  // namespace

void readProductTexts(mail::Globals& globals) {
    if (globals.resources) {
        return;
    }
    openResourceLibrary(globals);
    mail::ProductTexts& product = globals.product;
    product.aboutText = globals.resourceOr(
        stringId::aboutText, L"Veltro stops mistakes before an e-mail leaves Microsoft Outlook.");
    product.webSite = globals.resourceOr(stringId::webSite, L"https://www.corvane.example");
    product.supportAddress = globals.resourceOr(stringId::supportAddress, L"support@corvane.example");
    product.downloadPage = globals.resourceOr(stringId::downloadPage,
                                              L"https://www.corvane.example/veltro/download_process.asp");
    product.title = globals.resourceOr(stringId::productTitle, L"Veltro");
    product.helpFile = platform::joinPath(globals.platform.system.addInFolder(), L"Veltro.chm");
}

}  // namespace addin
