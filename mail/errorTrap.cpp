#include "mail/errorTrap.h"

#include <new>

#include "platform/text.h"

namespace basGlobals {

namespace {

/// Numbers for failures that come from the language instead of an automation object.
constexpr std::int32_t outOfMemory = 7;
constexpr std::int32_t internalError = 51;

}  // namespace

automation::Error currentError() {
    try {
        throw;
    } catch (const automation::Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return {outOfMemory, L"Out of memory"};
    } catch (const std::exception& error) {
        return {internalError, text::fromUtf8(error.what())};
    } catch (...) {
        return {internalError, L"Internal error"};
    }
}

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
    skipErrors([&] {
        globals.platform.desktop.messageBox(report.text(error), {platform::Buttons::Ok, platform::Icon::None},
                                            globals.product.title);
    });
}

}  // namespace basGlobals
