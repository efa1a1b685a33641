#include "addin/Connect.h"

#include <utility>

#include "accounts/basSendAcct.h"
#include "addin/basPreInitializeSetup.h"
#include "addin/eventArguments.h"
#include "addin/missingLibrary.h"
#include "addin/productTexts.h"
#include "addin/settingsFolder.h"
#include "addin/settingsWizard.h"
#include "mail/ProfileAddresses.h"
#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "settings/modLoadSettings.h"
#include "settings/modRegKeys.h"
#include "update/basAutoUpdate.h"

namespace addin {

namespace {

using mail::attempt;
using mail::skipErrors;

/// Why Outlook unloads the add-in: the user has taken it off the list of add-ins.
constexpr int userRemoved = 1;

/// Clears the start-up flag on every way out, the early one of a start without a window excepted.
class StartingUp {
  public:
    explicit StartingUp(bool& flag) : flag_(flag) { flag_ = true; }
    ~StartingUp() { flag_ = left_; }
    StartingUp(const StartingUp&) = delete;
    StartingUp& operator=(const StartingUp&) = delete;

    void leaveSet() { left_ = true; }

  private:
    bool& flag_;
    bool left_ = false;
};

}  // namespace

void Connect::OnConnection(const automation::Object& application, int /*connectMode*/,
                           const automation::Object& addInInst) {
    application_ = outlook::Application(application);
    addInInst_ = addInInst;
    StartingUp startingUp(globals_.startingUp);
    toldOfLibrary_ = false;
    ribbon_.connected();
    const std::size_t promptsBefore = globals_.promptsShown;

    readProductTexts(globals_);
    basPreInitializeSetup::InitializeSetup(globals_);
    modLoadSettings::importSettingsFile(globals_, settingsFile_);
    if (!takeHoldOfOutlook()) {
        startingUp.leaveSet();
        return;
    }
    tellOfMissingLibrary();
    wrapOpenInspectors();
    if (wrapOpenExplorers()) {
        openAccountList();
        settingsWizard::welcome(globals_);
    }
    refreshEmailList();
    globals_.tellPreferredAccountChanges();  // In windows that Outlook has drawn by now.
    updateCheck_ = update::basAutoUpdate::StartDailyCheck(globals_);
    if (globals_.promptsShown != promptsBefore) {
        wrapOpenExplorers();  // Those that the user has opened behind a box.
    }
}

/// Once, and with a window on the screen: a program that has started Outlook without one, or works with a
/// window that it never shows, must not wait for an answer.
void Connect::tellOfMissingLibrary() {
    if (!globals_.provider->hasAccounts() && !std::exchange(toldOfLibrary_, true)) {
        skipErrors([&] { missingLibrary::tellOnce(globals_); });
    }
}

/// Whatever fails here is skipped, so that one window that cannot be wrapped leaves the others guarded. False
/// when Outlook has no window at all; new inspectors are then wrapped, new explorers not.
bool Connect::takeHoldOfOutlook() {
    globals_.outlook = application_;
    globals_.provider = &missingLibrary::bestProvider(globals_);  // Before the first event.
    skipErrors([&] {
        colExpl_ = application_.explorers();
        colExplEvents_ = automation::subscribe(
            colExpl_.object(), outlook::events::explorers,
            [this](std::int32_t, std::span<automation::Value> arguments) {
                skipErrors([&] {
                    colExpl_NewExplorer(outlook::Explorer(eventArguments::at(arguments, 0).toObject()));
                });
            });
    });
    skipErrors([&] {
        colInsp_ = application_.inspectors();
        colInspEvents_ = automation::subscribe(
            colInsp_.object(), outlook::events::inspectors,
            [this](std::int32_t, std::span<automation::Value> arguments) {
                skipErrors([&] {
                    colInsp_NewInspector(outlook::Inspector(eventArguments::at(arguments, 0).toObject()));
                });
            });
    });
    skipErrors([&] { globals_.progId = addInInst_.get(L"ProgId").toText(); });
    skipErrors([&] { addInInst_.put(L"Object", exposed()); });
    if (hasNoWindow()) {
        return false;
    }
    skipErrors([&] { setExplorer(colExpl_.item(1)); });
    skipErrors([&] { initialiseOutAddIn(); });
    return true;
}

/// A count that cannot be read counts as a window: guarding too much is the lesser fault.
bool Connect::hasNoWindow() const {
    return attempt([&] { return colExpl_.count(); }).value_or(1) < 1 &&
           attempt([&] { return colInsp_.count(); }).value_or(1) < 1;
}

void Connect::initialiseOutAddIn() {
    if (!outAddIn_) {
        outAddIn_ = std::make_shared<OutAddIn>(globals_, wrappers_);
    }
    outAddIn_->Initialise(application_, globals_.progId);
}

bool Connect::wrapOpenExplorers() {
    const std::int32_t count = attempt([&] { return colExpl_.count(); }).value_or(0);
    for (std::int32_t index = 1; index <= count; ++index) {
        skipErrors([&] {
            const outlook::Explorer explorer = colExpl_.item(index);
            if (!wrappers_.watches(explorer)) {
                wrappers_.AddExpl(explorer, WindowWrappers::Window::Open);
            }
        });
    }
    return count >= 1;
}

/// One that opens inside of these calls is told of as any other.
void Connect::wrapOpenInspectors() {
    const std::int32_t count = attempt([&] { return colInsp_.count(); }).value_or(0);
    for (std::int32_t index = 1; index <= count; ++index) {
        skipErrors([&] {
            const outlook::Inspector inspector = colInsp_.item(index);
            if (!wrappers_.watches(inspector)) {
                setInspector(inspector);
                wrapInspector(inspector);
            }
        });
    }
}

void Connect::openAccountList() {
    const auto list = accounts::basSendAcct::TheList(globals_);
    const auto top = attempt([&] { return accounts::listFolder::topFolders(globals_); });
    if (top) {
        settingsFolder::moveToCurrentPlace(globals_, *top);
    }
    const auto found = top ? list->Initialise(*top) : list->Initialise();
    if (globals_.provider->hasAccounts() && !list->LoadFound(found)) {
        list->LoadList();
    }
}

void Connect::refreshEmailList() {
    if (!modRegKeys::UseOutlookSettings.read(globals_)) {
        return;
    }
    // A profile that cannot be read must not empty the list.
    if (const auto addresses = mail::vtAccountsEmailAddress(globals_)) {
        modRegKeys::EmailList.write(globals_, *addresses);
    }
}

std::wstring Connect::GetCustomUI(const std::wstring& ribbonId) {
    readProductTexts(globals_);
    return ribbon_.customUI(ribbonId);
}

bool Connect::TutorialScreen() const {
    return modRegKeys::Tutorial.read(globals_) == L"True";
}

void Connect::OnDisconnection(int removeMode) {
    if (updateCheck_) {  // Letting go of Outlook lets timers in.
        updateCheck_->Stop();
    }
    globals_.sendAccounts.reset();
    if (removeMode == userRemoved) {
        wrappers_.RemoveExplMenu();
    }
    if (!outAddIn_) {
        outAddIn_ = std::make_shared<OutAddIn>(globals_, wrappers_);
    }
    outAddIn_->UnInitialise();
    outAddIn_.reset();
    objExplEvents_.end();
    objExpl_ = {};
    colExplEvents_.end();
    colExpl_ = {};
    objInspEvents_.end();
    objInsp_ = {};
    colInspEvents_.end();
    colInsp_ = {};
    ribbon_.disconnected();
    globals_.resources.reset();
    updateCheck_.reset();
    unexpose();
    addInInst_ = {};
    application_ = {};
}

}  // namespace addin
