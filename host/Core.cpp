#include "host/Core.h"

#include <algorithm>
#include <array>
#include <cwchar>

#include "host/AddIns.h"
#include "host/Application.h"
#include "host/Explorer.h"
#include "host/Folder.h"
#include "host/Inspector.h"
#include "host/Item.h"
#include "host/NameSpace.h"
#include "host/Ribbons.h"
#include "host/Word.h"
#include "platform/number.h"
#include "platform/text.h"

namespace host {

namespace {

/// `number` in capitals as hexadecimal digits.
std::wstring hexadecimal(std::uint32_t number, std::size_t digits) {
    std::wstring result(digits, L'0');
    for (std::size_t i = digits; i > 0 && number != 0; number >>= 4) {
        result[--i] = L"0123456789ABCDEF"[number & 15];
    }
    return result;
}

/// The number before the first "."; versions that are none become the nearest.
int majorOf(const std::wstring& version) {
    constexpr double latest = 9999;
    return static_cast<int>(std::clamp(number::leading(text::before(version, L'.')), 0.0, latest));
}

}  // namespace

Core::Core(Profile profile, std::function<automation::Date()> now)
    : profile_(std::move(profile)), majorVersion_(majorOf(profile_.version)), now_(std::move(now)) {
    if (profile_.stores.empty()) {  // Outlook does not start without one.
        profile_.stores.emplace_back();
    }
}

Core::~Core() {
    // The add-in's own object may hold objects of Outlook, its AddInInst among them.
    if (addIns_) {
        addIns_->releaseObjects();
    }
    if (ribbons_) {
        ribbons_->dropAddIns();
    }
}

std::shared_ptr<Core> Core::make(Profile profile, std::function<automation::Date()> now) {
    if (!now) {
        now = [] { return automation::Date{45292.5}; };
    }
    const std::shared_ptr<Core> core(new Core(std::move(profile), std::move(now)));
    core->start();
    return core;
}

void Core::start() {
    application_ = make<Application>();
    nameSpace_ = make<NameSpace>();
    addIns_ = make<AddIns>();
    ribbons_ = std::make_unique<Ribbons>(*this);
    mailbox_.fill(profile_);
    windows_.open(profile_.explorers, profile_.inspectors);
}

std::wstring Core::nextEntryId() {
    constexpr std::size_t digits = 140;  // As long as those of a personal store.
    return hexadecimal(0, digits - 8) + hexadecimal(++lastEntry_, 8);
}

std::shared_ptr<WordApplication> Core::runningWord() const {
    return word_ && word_->running() ? word_ : nullptr;
}

std::shared_ptr<WordApplication> Core::startWord() {
    if (!runningWord()) {
        word_ = make<WordApplication>();
        if (tellOfWord) {
            tellOfWord(word_->object());
        }
    }
    return word_;
}

void Core::wordEnds() {
    if (tellOfWord) {
        tellOfWord({});
    }
}

automation::Object Core::createForMacros(const std::wstring& progId) const {
    const auto found = classesForMacros.find(text::upper(progId));
    if (found == classesForMacros.end()) {
        throw automation::Error(automation::errors::cannotCreateObject,
                                L"ActiveX component can't create object");
    }
    return found->second();
}

const Account* Core::account(std::wstring_view name) const {
    const auto found = std::ranges::find_if(profile_.accounts, [&](const Account& account) {
        return text::equalsIgnoringCase(account.name, name);
    });
    return found == profile_.accounts.end() ? nullptr : &*found;
}

std::wstring Core::stampOf(const Account& account) const {
    if (!account.stamp.empty()) {
        return account.stamp;
    }
    return hexadecimal(static_cast<std::uint32_t>(&account - profile_.accounts.data()) + 1, 8);
}

std::wstring Core::sendStampOf(const Account& account) const {
    return account.sendStamp.empty() ? stampOf(account) + L"\x01" + account.address : account.sendStamp;
}

Address Core::addressOf(const Account& account) {
    return {.name = account.name, .address = account.address};
}

Address Core::currentUser() const {
    if (profile_.user) {
        return *profile_.user;
    }
    return profile_.accounts.empty() ? Address{.name = L"Unknown"} : addressOf(profile_.accounts.front());
}

void Core::raise(const EventSource& source, std::wstring_view name, std::int32_t event,
                 std::vector<automation::Value> arguments) {
    source.raise(event, arguments, keepingErrors(name));
}

void Core::raiseNewer(const EventSource& source, std::wstring_view name, std::int32_t event,
                      std::vector<automation::Value> arguments) {
    source.raiseNewer(event, arguments, keepingErrors(name));
}

EscapedError Core::keepingErrors(std::wstring_view name) {
    return [this, name = std::wstring(name)](std::int32_t number, const std::wstring& description) {
        errors_.push_back({name, number, description});
    };
}

bool Core::raiseCancellable(const EventSource& source, std::wstring_view name, std::int32_t event,
                            std::vector<automation::Value> arguments) {
    automation::Value cancel(false);
    arguments.push_back(automation::Value::reference(cancel));
    raise(source, name, event, std::move(arguments));
    try {
        return cancel.toBool();
    } catch (const automation::Error& error) {
        errors_.push_back({std::wstring(name), error.number(), error.description()});
        return false;
    }
}

}  // namespace host
