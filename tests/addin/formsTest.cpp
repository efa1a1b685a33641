#include <gtest/gtest.h>

#include <memory>

#include "accounts/frmAddEmailToList.h"
#include "accounts/frmEmailAddress.h"
#include "accounts/frmEmailAddressEdit.h"
#include "accounts/frmSelectSendAcct.h"
#include "checks/frmNoSubject.h"
#include "checks/frmNotifyB4Delay.h"
#include "checks/frmOldSubject.h"
#include "checks/frmRemoveSpam.h"
#include "checks/frmReplyMultRecipt.h"
#include "checks/frmSigDisclaimer.h"
#include "settings/frmGetUserInput.h"
#include "settings/frmIntroWizard.h"
#include "settings/frmLockFields.h"
#include "settings/frmUnlockFields.h"
#include "settings/wizardLists.h"
#include "tests/accounts/AccountsWorld.h"

namespace {

using accounts::frmEmailAddressEdit;
using MakeForm = std::unique_ptr<forms::Form> (*)(AccountsWorld&);
using FormPointer = std::unique_ptr<forms::Form>;

FormPointer makeWizard(AccountsWorld& world) {
    return std::make_unique<settings::frmIntroWizard>(world.globals,
                                                      [] { throw automation::Error(76, L"Path not found"); });
}
FormPointer makeLock(AccountsWorld& world) {
    return std::make_unique<settings::frmLockFields>(world.globals, [] {});
}
FormPointer makeUnlock(AccountsWorld& world) {
    return std::make_unique<settings::frmUnlockFields>(world.globals, [] {});
}
FormPointer makeList(AccountsWorld& world) {
    return std::make_unique<accounts::frmEmailAddress>(world.globals, world.list);
}
template <frmEmailAddressEdit::Mode mode>
FormPointer makeEditor(AccountsWorld& world) {
    return std::make_unique<frmEmailAddressEdit>(world.globals, world.list, mode,
                                                 frmEmailAddressEdit::Entry{L"", L"Work", L"Gone"});
}
FormPointer makeOffer(AccountsWorld& world) {
    return std::make_unique<accounts::frmAddEmailToList>(world.globals, world.list, L"a\t@b.org", L"Work");
}
FormPointer makeInput(AccountsWorld& world) {
    return std::make_unique<settings::frmGetUserInput>(world.globals, settings::wizardLists::keywords.rules,
                                                       [](const std::wstring&) { return false; });
}
FormPointer makeSignatures(AccountsWorld& world) {
    return std::make_unique<checks::frmSigDisclaimer>(world.globals);
}

TEST(Forms, HaveTheirCaptions) {
    using Mode = frmEmailAddressEdit::Mode;
    const struct {
        MakeForm make;
        const wchar_t* caption;
    } cases[] = {
        {makeWizard, L"Settings"},
        {makeLock, L"Lock Veltro settings"},
        {makeUnlock, L"Unlock Veltro settings"},
        {makeList, L"Veltro Account List"},
        {makeEditor<Mode::Add>, L"Add Preferred Account"},
        {makeEditor<Mode::Edit>, L"Edit"},
        {makeEditor<Mode::MissingAccount>, L"Select Preferred Account"},
        {makeOffer, L"Add To List"},
        {makeSignatures, L"Attachment Sentry Advance settings"},
        {[](AccountsWorld& world) -> FormPointer {
             return std::make_unique<accounts::frmSelectSendAcct>(world.globals, world.list, L"Home",
                                                                  L"a@b.org", L"Work");
         },
         L"Veltro"},
        {[](AccountsWorld& world) -> FormPointer {
             return std::make_unique<checks::frmNoSubject>(world.globals, L"");
         },
         L"Empty Subject - Veltro"},
        {[](AccountsWorld& world) -> FormPointer {
             return std::make_unique<checks::frmNotifyB4Delay>(world.globals, L"");
         },
         L"Delay emails - Veltro"},
        {[](AccountsWorld& world) -> FormPointer {
             return std::make_unique<checks::frmOldSubject>(world.globals, 7, L"");
         },
         L"Is the Subject to this email correct? - Veltro"},
        {[](AccountsWorld& world) -> FormPointer {
             return std::make_unique<checks::frmRemoveSpam>(world.globals, L"", L"");
         },
         L"Remove Spam Mark Phrases - Veltro"},
        {[](AccountsWorld& world) -> FormPointer {
             return std::make_unique<checks::frmReplyMultRecipt>(world.globals,
                                                                 std::vector<forms::MarkedList::Row>{});
         },
         L"Multiple recipients - Veltro"},
    };
    for (const auto& [make, caption] : cases) {
        AccountsWorld world(Entries{});
        EXPECT_EQ(make(world)->caption(), caption);
    }
}

struct Failure {
    MakeForm make;
    /// Presses a button whose work needs what fails.
    std::wstring answer;
    const wchar_t* failing;
    const wchar_t* procedure;
};

/// The form stays, and says where it failed.
TEST(Forms, ReportWhatTheyCouldNotDo) {
    const std::wstring wizard = L"frmIntroWizard=";
    const std::wstring onSubjects = wizard + L"TabStripWizard=Subject Sentry; ";
    const std::wstring onSendConfirm = wizard + L"TabStripWizard=Send Confirm; ";
    const Failure cases[] = {
        {makeWizard, wizard + L"cmdNav(0)", L"Using_Veltro/vt_settings.htm", L"frmIntroWizard.cmdNav_Click"},
        {makeWizard, wizard + L"chkReplyInternalCheck=1; cmdNav(4)", L"Please enter a domain",
         L"frmIntroWizard.cmdNav_Click"},
        {makeWizard, wizard + L"cmdLockControls", L"frmLockFields", L"frmIntroWizard.cmdLockControls_Click"},
        {makeWizard, wizard + L"cmdSaveSettings", L"Where do you want to save the Settings file?",
         L"frmIntroWizard.cmdSaveSettings_Click"},
        {makeWizard, onSubjects + L"lblOlderEmailLink", L"An old e-mail",
         L"frmIntroWizard.lblOlderEmailLink_Click"},
        {makeWizard, onSubjects + L"txtOldEmailsDays=0; cmdNav(3)", L"Please enter a numeric",
         L"frmIntroWizard.txtOldEmailsDays_LostFocus"},
        {makeWizard, onSubjects + L"cmdDelete_Spam", L"Please select",
         L"frmIntroWizard.cmdDelete_Spam_Click"},
        {makeWizard, onSendConfirm + L"chkConfirmForXRecipt=1; txtXRecipients=0; cmdNav(3)",
         L"Please enter a numeric", L"frmIntroWizard.txtXRecipients_LostFocus"},
        {makeWizard, wizard + L"TabStripWizard=Delay Sentry; txtDelayTime=0; cmdNav(3)",
         L"Please enter a whole number", L"frmIntroWizard.txtDelayTime_LostFocus"},
        {makeWizard, wizard + L"txtDomains=a; cmdNav(3)", L"At least one",
         L"frmIntroWizard.txtDomains_LostFocus"},
        {makeWizard, wizard + L"TabStripWizard=Attachment Sentry; lblIgnoreSig", L"",
         L"frmIntroWizard.lblIgnoreSig_Click"},
        {makeWizard, wizard + L"TabStripWizard=Attachment Sentry; cmdAdd_Attach", L"frmGetUserInput",
         L"frmIntroWizard.cmdAdd_Attach_Click"},
        {makeWizard,
         wizard +
             L"TabStripWizard=My Email Accounts; chkEmailFromOutlook=0; chkEmailFromOutlook=1; cmdNav(1)",
         L"This action", L"frmIntroWizard.chkEmailFromOutlook_Click"},
        {makeLock, L"frmLockFields=cmdOK", L"You have not selected", L"frmLockFields.cmdOK_Click"},
        {makeUnlock, L"frmUnlockFields=cmdOK", L"Password was not", L"frmUnlockFields.cmdOK_Click"},
        {makeList, L"frmEmailAddress=cmdAdd", L"frmEmailAddressEdit", L"frmEmailAddress.cmdAdd_Click"},
        {makeList, L"frmEmailAddress=cmdEdit", L"Please select", L"frmEmailAddress.cmdEdit_Click"},
        {makeList, L"frmEmailAddress=cmdDelete", L"Please select", L"frmEmailAddress.cmdDelete_Click"},
        {makeEditor<frmEmailAddressEdit::Mode::Add>, L"frmEmailAddressEdit=cmdOK", L"Please enter",
         L"frmEmailAddressEdit.cmdOK_Click"},
        {makeOffer, L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit", L"frmAddEmailToList.cmdYes_Click"},
        {makeOffer, L"frmAddEmailToList=cmdNo", L"Email Address cannot", L"frmAddEmailToList.cmdNo_Click"},
        {makeInput, L"frmGetUserInput=cmdOK", L"Please enter", L"frmGetUserInput.cmdOK_Click"},
        {makeSignatures, L"frmSigDisclaimer=chkIgnoreText=1; cmdSave", L"No text",
         L"frmSigDisclaimer.cmdSave_Click"},
    };
    for (const auto& [make, answer, failing, procedure] : cases) {
        SCOPED_TRACE(text::toUtf8(answer));
        AccountsWorld world(Entries{}, {answer});
        world.settings.write(L"ShowStartupWizard", L"False");
        world.log.failing = failing;
        const FormPointer form = make(world);
        world.desktop.showModal(*form);
        ASSERT_FALSE(world.log.messages.empty());
        EXPECT_EQ(world.log.messages.back().text, procedure + std::wstring(L" - Error 76: Path not found"));
        EXPECT_EQ(world.log.messages.back().title, L"Veltro");
    }
}

}  // namespace
