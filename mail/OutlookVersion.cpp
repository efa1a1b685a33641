#include "mail/OutlookVersion.h"

#include "platform/number.h"
#include "platform/text.h"

namespace mail {

OutlookVersion::OutlookVersion(std::wstring_view version)
    : major_(number::toInteger<std::int32_t>(number::leading(text::before(version, L'.')))) {}

OutlookVersion outlookVersion(const Globals& globals) {
    return OutlookVersion(globals.outlook.version());
}

}  // namespace mail
