#include "mail/errorTrap.h"

#include "mail/Provider.h"

namespace mail {

std::wstring ErrorReport::text(const automation::Error& error) const {
    const std::wstring number = std::to_wstring(error.number());
    switch (wording_) {
        case Wording::Check:
            return label_ + L" - Error: " + number + L" " + error.description();
        case Wording::Module:
            return L"Error " + number + L" (" + error.description() + L") in procedure " + label_ +
                   L" of Module basVeltro";
        case Wording::Usual:
            break;
    }
    return label_ + L" - Error " + number + L": " + error.description();
}

void reportError(Globals& globals, const ErrorReport& report, const automation::Error& error) noexcept {
    if (!report.isOfRefusals() && isRefusal(globals, error)) {
        ++globals.refusals;
        return;  // Whoever refused knows.
    }
    skipErrors([&] {
        globals.platform.desktop.messageBox(report.text(error), {platform::Buttons::Ok, platform::Icon::None},
                                            globals.product.title);
    });
}

}  // namespace mail
