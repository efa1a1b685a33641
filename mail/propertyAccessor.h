#pragma once

#include <cstdint>
#include <string>

#include "platform/automation.h"

/// The MAPI properties of Outlook's own objects, from Outlook 2007 on.
namespace mail::propertyAccessor {

namespace tag {
inline constexpr std::uint32_t onBehalfAddressType = 0x0064001F;
inline constexpr std::uint32_t onBehalfAddress = 0x0065001F;
inline constexpr std::uint32_t submitTime = 0x00390040;
inline constexpr std::uint32_t senderEntryId = 0x0C190102;
inline constexpr std::uint32_t senderAddressType = 0x0C1E001F;
inline constexpr std::uint32_t senderAddress = 0x0C1F001F;
inline constexpr std::uint32_t deliveryTime = 0x0E060040;
inline constexpr std::uint32_t contentId = 0x3712001F;
inline constexpr std::uint32_t smtpAddress = 0x39FE001F;
}  // namespace tag

automation::Object of(const automation::Object& object);

/// An empty value for a property that the object does not have. Times are UTC. Throws automation::Error.
automation::Value read(const automation::Object& object, std::uint32_t tag);

/// The text by which Outlook's methods take an id that is stored as bytes; empty when there is none. Throws
/// automation::Error.
std::wstring readId(const automation::Object& object, std::uint32_t tag);

/// A time in local time. Throws automation::Error.
void writeTime(const automation::Object& object, std::uint32_t tag, automation::Date local);

}  // namespace mail::propertyAccessor
