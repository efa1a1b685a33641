#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "mail/Globals.h"
#include "platform/formPages.h"
#include "settings/WizardFields.h"
#include "settings/wizardSteps.h"

namespace settings {

/// The one settings dialog. Nothing is stored before the user presses Save. Its first page is there only as
/// long as the dialog has never been shown at a start.
class frmIntroWizard : public forms::Form {
  public:
    /// `showAttachmentSettings` opens the dialog of a higher room behind the attachment page's link.
    frmIntroWizard(mail::Globals& globals, std::function<void()> showAttachmentSettings);

    /// Shows the picture on the first page.
    void setPicture(std::shared_ptr<platform::Picture> picture);

    /// Puts the stored lock into force, which disables the controls of locked fields; or enables all fields
    /// that it names.
    void ApplyLockSettings(bool unlockAll);
    void EnableControl(std::wstring_view lockedField, bool enabled);

  private:
    using Handler = void (frmIntroWizard::*)();

    std::function<void()> trapped(const wchar_t* procedure, Handler handler);
    std::function<bool()> trappedCheck(const wchar_t* procedure, std::function<bool()> check);
    void connectButtons();
    void connectFields();
    void turnPage(int by);
    void pageChanged();
    bool mayBeSaved();

    void cmdHelp_Click();
    void cmdSave_Click();
    void cmdLockControls_Click();
    void cmdSaveSettings_Click();
    void chkEmailFromOutlook_Click();
    void lblOlderEmailLink_Click();

    mail::Globals& globals_;
    std::function<void()> showAttachmentSettings_;

    forms::TabStrip TabStripWizard{*this, L"TabStripWizard", {7, 7, 456, 15}};
    forms::Label lblTabTitle{*this, L"lblTabTitle", {14, 28, 442, 10}, L"", forms::Label::Look::Heading};
    IntroStep intro_{*this};
    WizardSteps steps_{*this, globals_};
    WizardFields fields_{globals_, steps_};
    /// Those that the tabs lead to.
    std::vector<const WizardStep*> shownSteps_;

    forms::Button cmdHelp{*this, L"cmdNav(0)", {7, 256, 46, 14}, L"&Help"};
    forms::Button cmdLockControls{*this, L"cmdLockControls", {57, 256, 46, 14}, L"&Lock"};
    forms::Button cmdSaveSettings{*this, L"cmdSaveSettings", {107, 256, 72, 14}, L"Export Settings"};
    forms::Button cmdBack{*this, L"cmdNav(2)", {251, 256, 50, 14}, L"< &Back"};
    forms::Button cmdNext{*this, L"cmdNav(3)", {305, 256, 50, 14}, L"&Next >"};
    forms::Button cmdSave{*this, L"cmdNav(4)", {363, 256, 48, 14}, L"&Save", forms::Button::Role::Default};
    forms::Button cmdCancel{*this, L"cmdNav(1)", {415, 256, 48, 14}, L"Cancel", forms::Button::Role::Cancel};
};

}  // namespace settings
