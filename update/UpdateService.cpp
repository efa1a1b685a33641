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
    // A number was hardly meant to be an address.
    service.off_ =
        std::holds_alternative<std::uint32_t>(value) || (given && text::equalsTrimmed(*given, L"Off"));
    std::wstring_view address = given ? *given : globals.product.webSite;
    address = text::trim(address);
    if (address.ends_with(L'/')) {
        address.remove_suffix(1);
    }
    // The question has a query of its own.
    if (address.find_first_of(L"?#") == std::wstring_view::npos) {
        service.address_ = platform::WebAddress::parse(address);
    }
    return service;
}

std::optional<platform::WebAddress> UpdateService::question() const {
    return address_ ? address_->with(std::wstring(L"/services/uploadversion.asp?program=") +
                                     mail::product::identifier + L"&version=" + mail::product::versionText)
                    : std::nullopt;
}

}  // namespace update
