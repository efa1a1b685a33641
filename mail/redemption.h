#pragma once

#include <cstdint>

/// The Redemption library, in the add-in's own copy: its classes, and the MAPI properties that its objects
/// give by their tags.
namespace redemption {

namespace progId {
inline constexpr wchar_t safeMailItem[] = L"vtRedemption.vtSafeMailItem";
inline constexpr wchar_t safePostItem[] = L"vtRedemption.vtSafePostItem";
inline constexpr wchar_t safeReportItem[] = L"vtRedemption.vtSafeReportItem";
inline constexpr wchar_t safeInspector[] = L"vtRedemption.vtSafeInspector";
inline constexpr wchar_t session[] = L"vtRedemption.vtRDOSession";
inline constexpr wchar_t mapiUtils[] = L"vtRedemption.vtMAPIUtils";
}  // namespace progId

/// As the signed numbers in which automation carries them.
namespace tag {
constexpr std::int32_t of(std::uint32_t tag) {
    return static_cast<std::int32_t>(tag);
}
/// Of an account: what its items' send-account properties hold.
inline constexpr std::int32_t accountSendStamp = of(0x000E001F);
inline constexpr std::int32_t onBehalfAddressType = of(0x0064001E);
inline constexpr std::int32_t onBehalfAddress = of(0x0065001E);
inline constexpr std::int32_t senderAddressType = of(0x0C1E001E);
inline constexpr std::int32_t deliveryTime = of(0x0E060040);
inline constexpr std::int32_t primarySendAccount = of(0x0E28001E);
inline constexpr std::int32_t nextSendAccount = of(0x0E29001E);
inline constexpr std::int32_t attachContentId = of(0x3712001E);
inline constexpr std::int32_t proxyAddresses = of(0x800F101E);
/// In the range of named properties, yet fixed: items carry them under these numbers whatever the store.
inline constexpr std::int32_t itemAccountName = of(0x812C001E);
inline constexpr std::int32_t itemAccountStamp = of(0x812D001E);
}  // namespace tag

}  // namespace redemption
