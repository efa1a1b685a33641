#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

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
#include "platform/files.h"
#include "platform/text.h"
#include "platform/windows/WindowsPlatform.h"
#include "settings/frmGetUserInput.h"
#include "settings/frmIntroWizard.h"
#include "settings/frmLockFields.h"
#include "settings/frmUnlockFields.h"
#include "settings/wizardLists.h"
#include "support/frmAbout.h"
#include "tests/windows/AnsweredDialogs.h"
#include "tests/windows/layoutFaults.h"
#include "tests/windows/windowPicture.h"
#include "update/frmCheckUpdate.h"
#include "update/frmConfirmCheckUpdate.h"
#include "update/frmDownload.h"
#include "update/frmNoDownload.h"
#include "update/newVersion.h"

namespace {

using mail::Globals;
using Faults = std::vector<std::string>;

/// A dialog as its users meet it, with texts about as long as they get.
struct Example {
    const char* name;
    std::function<std::unique_ptr<forms::Form>(Globals&)> make;
};

std::vector<forms::MarkedList::Row> recipients() {
    std::vector<forms::MarkedList::Row> rows;
    for (int index = 1; index <= 40; ++index) {
        const std::wstring number = std::to_wstring(index);
        rows.push_back(
            {L"Colleague Number " + number + L" (colleague." + number + L"@example.org)", index % 3 == 1});
    }
    return rows;
}

const std::wstring subject = L"Re: Minutes of the meeting about next year's budget, and what is still open";

const std::wstring address = L"firstname.lastname@department.example-company.org";
const std::wstring account = L"Firstname Lastname (department.example-company.org)";

/// The dialogs keep a reference to the list, which needs no Outlook as long as nothing is saved.
template <class Form>
struct WithList : private accounts::clsSendAcct, Form {
    template <class... Arguments>
    explicit WithList(Globals& globals, Arguments&&... arguments)
        : accounts::clsSendAcct(globals),
          Form(globals, static_cast<accounts::clsSendAcct&>(*this), std::forward<Arguments>(arguments)...) {}
};

void fill(forms::Form& form, const wchar_t* list, std::vector<std::wstring> items) {
    auto& control = dynamic_cast<forms::List&>(*form.find(list));
    control.setItems(std::move(items));
    control.select(0);
}

std::unique_ptr<forms::Form> entryEditor(Globals& globals, accounts::frmEmailAddressEdit::Mode mode) {
    auto form = std::make_unique<WithList<accounts::frmEmailAddressEdit>>(
        globals, mode,
        accounts::frmEmailAddressEdit::Entry{
            address, account,
            L"Veltro has detected that the preffered account \r\n(" + account + L") for " + address +
                L" is not available.\r\n\r\nThis may be due to the account being renamed or deleted.\r\n\r\n"
                L"Please select another preferred account for this e-mail address.\r\n\r\nIf you click "
                L"Cancel, then the currently selected account will be used."});
    fill(*form, L"cmbAccounts", {account});
    return form;
}

/// With entries in each list, and the tabs of a first start.
std::unique_ptr<forms::Form> settingsPage(Globals& globals, const wchar_t* page) {
    globals.platform.settings.write(L"EmailList", {});  // There is no profile to ask for one.
    auto form = std::make_unique<settings::frmIntroWizard>(globals, nullptr);
    for (forms::Control* control : form->controls()) {
        if (auto* list = dynamic_cast<forms::SelectionList*>(control)) {
            list->setRows({{address, true}, {account, false}});
        }
    }
    form->find(L"TabStripWizard")->enter(page);
    for (const wchar_t* hidden : {L"lblAgStatus", L"imgIntro"}) {
        form->find(hidden)->setVisible(true);
    }
    return form;
}

constexpr wchar_t message[] = L"It is faster, and kinder to those who write in haste.";

/// The check for updates with its result, and one link that cannot be opened.
std::unique_ptr<forms::Form> updateResult(Globals& globals) {
    auto form = std::make_unique<update::frmConfirmCheckUpdate>(globals);
    dynamic_cast<forms::Label&>(*form->find(L"lblStatus"))
        .setCaption(
            L"The update service could not be reached, or did not answer as it should. Please try again later, "
            L"and check your connection to the internet.");
    update::newVersion::show(dynamic_cast<forms::TextBox&>(*form->find(L"txtMessage")), message);
    for (const wchar_t* shown : {L"lblDownload", L"lblUpgradePolicyText", L"lblFeatures"}) {
        form->find(shown)->setVisible(true);
    }
    return form;
}

const Example examples[] = {
    {"frmConfirmCheckUpdate",
     [](Globals& globals) { return std::make_unique<update::frmConfirmCheckUpdate>(globals); }},
    {"frmConfirmCheckUpdate_Result", updateResult},
    {"frmCheckUpdate", [](Globals& globals) { return std::make_unique<update::frmCheckUpdate>(globals); }},
    {"frmDownload",
     [](Globals& globals) {
         return std::make_unique<update::frmDownload>(
             globals, L"1.4294967295.4294967295", message,
             *platform::WebAddress::parse(L"https://www.corvane.example"));
     }},
    {"frmNoDownload",
     [](Globals& globals) {
         return std::make_unique<update::frmNoDownload>(globals, L"1.4294967295.4294967295", message,
                                                        L"file:///C:/Windows/System32/calc.exe");
     }},
    {"frmAbout",
     [](Globals& globals) {
         globals.resources = std::make_unique<mail::clsResource>(globals.platform.resources);
         globals.resources->setLibraryFilePath(
             platform::joinPath(globals.platform.system.addInFolder(), L"Resource.dll"));
         globals.product.aboutText = globals.resourceOr(524, L"");
         globals.product.webSite = globals.resourceOr(511, L"");
         return std::make_unique<support::frmAbout>(globals);
     }},
    {"frmIntroWizard_0", [](Globals& globals) { return settingsPage(globals, L"Intro"); }},
    {"frmIntroWizard_1", [](Globals& globals) { return settingsPage(globals, L"Reply Sentry"); }},
    {"frmIntroWizard_2", [](Globals& globals) { return settingsPage(globals, L"Subject Sentry"); }},
    {"frmIntroWizard_3", [](Globals& globals) { return settingsPage(globals, L"Attachment Sentry"); }},
    {"frmIntroWizard_4", [](Globals& globals) { return settingsPage(globals, L"Account Sentry"); }},
    {"frmIntroWizard_5", [](Globals& globals) { return settingsPage(globals, L"Send Confirm"); }},
    {"frmIntroWizard_6", [](Globals& globals) { return settingsPage(globals, L"Delay Sentry"); }},
    {"frmIntroWizard_7", [](Globals& globals) { return settingsPage(globals, L"My Email Accounts"); }},
    {"frmGetUserInput",
     [](Globals& globals) {
         return std::make_unique<settings::frmGetUserInput>(globals,
                                                            settings::wizardLists::confirmedAddresses.rules,
                                                            [](const std::wstring&) { return false; });
     }},
    {"frmLockFields",
     [](Globals& globals) { return std::make_unique<settings::frmLockFields>(globals, nullptr); }},
    {"frmUnlockFields",
     [](Globals& globals) { return std::make_unique<settings::frmUnlockFields>(globals, nullptr); }},
    {"frmSelectSendAcct",
     [](Globals& globals) {
         auto form =
             std::make_unique<WithList<accounts::frmSelectSendAcct>>(globals, account, address, account);
         fill(*form, L"cmbAccts", {account});
         return form;
     }},
    {"frmEmailAddress",
     [](Globals& globals) {
         auto form = std::make_unique<WithList<accounts::frmEmailAddress>>(globals);
         fill(*form, L"lstEmailAddress", std::vector<std::wstring>(40, address + L" (" + account + L")"));
         return form;
     }},
    {"frmEmailAddressEdit_Edit",
     [](Globals& globals) { return entryEditor(globals, accounts::frmEmailAddressEdit::Mode::Edit); }},
    {"frmEmailAddressEdit_Missing",
     [](Globals& globals) {
         return entryEditor(globals, accounts::frmEmailAddressEdit::Mode::MissingAccount);
     }},
    {"frmAddEmailToList",
     [](Globals& globals) {
         return std::make_unique<WithList<accounts::frmAddEmailToList>>(globals, address, account);
     }},
    {"frmNoSubject",
     [](Globals& globals) { return std::make_unique<checks::frmNoSubject>(globals, subject); }},
    {"frmSigDisclaimer",
     [](Globals& globals) { return std::make_unique<checks::frmSigDisclaimer>(globals); }},
    {"frmRemoveSpam",
     [](Globals& globals) {
         return std::make_unique<checks::frmRemoveSpam>(globals, L"SPAM-LOW: " + subject, subject);
     }},
    {"frmOldSubject",
     [](Globals& globals) { return std::make_unique<checks::frmOldSubject>(globals, 365, subject); }},
    {"frmNotifyB4Delay",
     [](Globals& globals) {
         return std::make_unique<checks::frmNotifyB4Delay>(
             globals, L"e-mails to firstname.lastname@department.example-company.org by 86400 seconds");
     }},
    {"frmReplyMultRecipt_Reply",
     [](Globals& globals) { return std::make_unique<checks::frmReplyMultRecipt>(globals, recipients()); }},
    {"frmReplyMultRecipt_ReplyToAll",
     [](Globals& globals) {
         auto form = std::make_unique<checks::frmReplyMultRecipt>(globals, recipients());
         form->Set_ReplyToAll();
         return form;
     }},
};

class LayoutTest : public AnsweredDialogs {
  protected:
    /// With VELTRO_PICTURES, the name of a folder, in the environment, a picture of each dialog is saved
    /// there.
    Faults faultsOf(forms::Form& form, const std::string& pictureName = {}) {
        Faults faults;
        meanwhile = [&](HWND dialog) {
            faults = layoutFaults(dialog);
            const char* folder = std::getenv("VELTRO_PICTURES");
            if (folder && !pictureName.empty()) {
                saveWindowPicture(dialog,
                                  text::fromUtf8(folder) + L"/" + text::fromUtf8(pictureName) + L".bmp");
            }
        };
        show(form, {{{}, L"{Escape}"}});
        return faults;
    }
};

class DialogsLayoutTest : public LayoutTest, public testing::WithParamInterface<Example> {
  protected:
    DialogsLayoutTest() { CoInitialize(nullptr); }
    ~DialogsLayoutTest() override { CoUninitialize(); }
};

TEST_P(DialogsLayoutTest, NothingIsCutOffAndNothingOverlaps) {
    platform::windows::LiveObjects objects;
    platform::windows::WindowsPlatform world(objects);
    Globals globals(world.platform());
    const auto form = GetParam().make(globals);
    EXPECT_EQ(faultsOf(*form, GetParam().name), Faults{});
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogsLayoutTest, testing::ValuesIn(examples),
                         [](const auto& test) { return std::string(test.param.name); });

void PrintTo(const Example& example, std::ostream* stream) {
    *stream << example.name;
}

/// The judge of the dialogs, judged: each form has one fault.
TEST_F(LayoutTest, FaultsAreFound) {
    const std::wstring sentence = L"A sentence that needs two lines of a narrow label";
    const struct {
        std::function<void(forms::Form&, std::vector<std::unique_ptr<forms::Control>>&)> build;
        Faults faults;
    } cases[] = {
        {[&](auto& form, auto& controls) {
             controls.push_back(
                 std::make_unique<forms::Label>(form, L"a", forms::Place{7, 7, 100, 9}, sentence));
         },
         {"a is cut off"}},
        {[&](auto& form, auto& controls) {
             controls.push_back(
                 std::make_unique<forms::Label>(form, L"a", forms::Place{7, 7, 100, 18}, sentence));
         },
         {}},
        {[&](auto& form, auto& controls) {
             controls.push_back(
                 std::make_unique<forms::CheckBox>(form, L"a", forms::Place{7, 7, 100, 11}, sentence));
         },
         {"a is cut off"}},
        {[&](auto& form, auto& controls) {
             controls.push_back(std::make_unique<forms::Button>(form, L"a", forms::Place{7, 7, 30, 14},
                                                                L"Forget &everything"));
         },
         {"a is cut off"}},
        {[&](auto& form, auto& controls) {
             controls.push_back(std::make_unique<forms::TextBox>(form, L"a", forms::Place{7, 7, 30, 8}));
         },
         {"a is cut off"}},
        {[&](auto& form, auto& controls) {
             controls.push_back(std::make_unique<forms::ListBox>(form, L"a", forms::Place{7, 7, 100, 20}));
             controls.push_back(std::make_unique<forms::TextBox>(form, L"b", forms::Place{7, 26, 100, 13}));
         },
         {"b overlaps a"}},
        {[&](auto& form, auto& controls) {
             controls.push_back(std::make_unique<forms::ListBox>(form, L"a", forms::Place{7, 7, 100, 90}));
         },
         {"a is not inside the dialog"}},
        {[&](auto& form, auto& controls) {
             controls.push_back(std::make_unique<forms::ListBox>(form, L"a", forms::Place{7, 7, 100, 90}));
             controls.back()->setVisible(false);
         },
         {}},
        {[&](auto& form, auto&) { form.setCaption(sentence); }, {"the title is cut off"}},
    };
    for (const auto& [build, faults] : cases) {
        std::vector<std::unique_ptr<forms::Control>> controls;
        forms::Form form(L"frmFaulty", L"Faults", 120, 60);
        build(form, controls);
        EXPECT_EQ(faultsOf(form), faults);
    }
}

}  // namespace
