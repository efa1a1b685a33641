#include "settings/wizardValidation.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "mail/basEmailAddressValidity.h"
#include "platform/number.h"
#include "platform/text.h"
#include "settings/encodings.h"
#include "settings/prompts.h"

namespace settings::wizardValidation {

namespace {

bool refuse(const mail::Globals& globals, forms::TextBox& box, const std::wstring& caption,
            const std::wstring& text) {
    prompts::inform(globals, caption, text);
    box.setFocus();
    return false;
}

}  // namespace

bool isCount(const mail::Globals& globals, forms::TextBox& box, const wchar_t* noun) {
    const std::wstring what = L"Number of " + std::wstring(noun);
    const std::wstring wanted = L"Please enter a numeric value greater than 0.";
    if (text::trim(box.text()).empty()) {  // May stay so: an empty setting reads as its default.
        prompts::inform(globals, what + L" missing", wanted);
        return false;
    }
    const double whole = std::floor(number::parse(box.text()).value_or(0));
    if (!(whole >= 1) || !std::isfinite(whole)) {
        return refuse(globals, box, L"Invalid " + what, wanted);
    }
    box.setText(modRegKeys::WholeNumber::shown(whole));
    return true;
}

bool isDelayTime(const mail::Globals& globals, forms::TextBox& box) {
    const double seconds = number::parse(box.text()).value_or(0);
    if (!(seconds >= 1)) {
        return refuse(globals, box, L"Invalid time",
                      L"Please enter a whole number greater than 0 for the delay time.");
    }
    if (seconds > std::numeric_limits<std::int32_t>::max()) {
        return refuse(globals, box, L"Invalid time", L"Please enter a whole number between 0 and 2147483647");
    }
    return true;
}

bool areDomains(const mail::Globals& globals, forms::TextBox& box) {
    const auto isDomain = [](std::wstring_view part) {
        return basEmailAddressValidity::IsValidEmailAddress(L"abc@" + std::wstring(part));
    };
    if (std::ranges::all_of(text::split(text::trim(box.text()), L';'), isDomain)) {
        return true;
    }
    return refuse(globals, box, L"Verify domain",
                  L"At least one of the domains entered is incorrect.\r\nPlease verify that you have entered "
                  L"the correct domains.");
}

}  // namespace settings::wizardValidation
