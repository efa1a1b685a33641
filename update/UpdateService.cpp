#include "update/UpdateService.h"

#include "mail/product.h"
#include "platform/text.h"
#include "settings/basRegistry.h"

namespace update {

namespace {

constexpr wchar_t machineKey[] = L"SOFTWARE\\Corvane\\Veltro";
constexpr wchar_t serviceValue[] = L"UpdateService";

}  // namespace

UpdateService UpdateService::ofMachine(const mail::Globals& globals) {
    const auto value = basRegistry::ReadValue(globals.platform.registry, platform::RootKey::LocalMachine,
                                              machineKey, serviceValue);
    const std::wstring* const given = std::get_if<std::wstring>(&value);
    UpdateService service;
    service.off_ = given && text::equalsTrimmed(*given, L"Off");
    std::wstring_view address = given ? *given : globals.product.webSite;
    address = text::trim(address);
    if (address.ends_with(L'/')) {
        address.remove_suffix(1);
    }
    service.address_ = platform::WebAddress::parse(address);
    return service;
}

std::optional<platform::WebAddress> UpdateService::question() const {
    return address_ ? address_->with(std::wstring(L"/services/uploadversion.asp?program=") +
                                     mail::product::identifier + L"&version=" + mail::product::versionText)
                    : std::nullopt;
}

}  // namespace update
