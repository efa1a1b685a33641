#include "fuzz/fuzzInput.h"
#include "platform/text.h"
#include "update/updateAnswer.h"

namespace {

void check(const update::Link& link) {
    fuzz::require(link.text.size() <= platform::WebAddress::longest + 3);
    fuzz::require(!link.address || platform::WebAddress::parse(link.address->text()).has_value());
}

}  // namespace

/// Any bytes are read; what is offered is a version, and what can be opened an address on the web.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring body = text::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
    const update::Answer answer = update::readAnswer(body);
    fuzz::require(answer.version.find_first_not_of(L"0123456789.") == std::wstring::npos);
    fuzz::require(!update::isNewer(answer.version, L"2.0.0") || answer.version.starts_with(L"2.") ||
                  answer.version.starts_with(L"0"));
    for (const update::Link* link :
         {&answer.freeDownload, &answer.download, &answer.upgradePolicy, &answer.features}) {
        check(*link);
    }
    update::shownVersion(body);
    return 0;
}
