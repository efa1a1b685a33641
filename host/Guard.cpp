#include "host/Guard.h"

#include "host/hostErrors.h"

namespace host {

namespace {

constexpr int outlook2003 = 11;

}  // namespace

bool Guard::trusted() const {
    switch (mode_) {
        case GuardMode::Off:
            return true;
        case GuardMode::OfVersion:
            return majorVersion_ >= outlook2003 && strangers_ == 0;
        case GuardMode::Everybody:
            return false;
    }
    return false;
}

void Guard::check(std::wstring_view className, std::wstring_view member, Guarded guarded) {
    const bool concerned =
        guarded == Guarded::Yes || (guarded == Guarded::Since2003 && majorVersion_ >= outlook2003);
    if (!concerned || trusted()) {
        return;
    }
    prompts_.push_back(std::wstring(className) + L'.' + std::wstring(member));
    throw automation::Error(refusal_, L"Operation aborted", L"Microsoft Office Outlook");
}

}  // namespace host
