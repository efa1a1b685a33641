#include "settings/lockFields.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "settings/frmIntroWizard.h"
#include "settings/frmLockFields.h"
#include "tests/TestWorld.h"

namespace {

using Names = std::vector<std::wstring>;

/// In the order of the lock dialog.
const struct {
    const wchar_t* name;
    const wchar_t* description;
    /// In the order of the pages.
    Names controls;
} fields[] = {
    {L"Warn_Reply_Click_Mult_Recpt",
     L"Warn when clicking reply for e-mails with multiple recipients",
     {L"chkReplyMultiple"}},
    {L"Warn_Replytoall_click_BCCed",
     L"Warn when Reply to All is clicked on an e-mail on which I was BCCed",
     {L"chkReplyALL_BCC"}},
    {L"Warn_Replytoall_Click", L"Warn when Reply to All is clicked on any e-mail", {L"chkReplyAll_Any"}},
    {L"Donot_Warn_for_this_Domain",
     L"Do not warn when all recipients are part of the domain:",
     {L"chkReplyInternalCheck", L"txtDomains"}},
    {L"Auto_Removeme_on_Replytoall",
     L"Automatically remove me when doing a Reply to All",
     {L"chkReplyAll_AutoRemoveMe"}},
    {L"PlaySound_Every_Prompt", L"Play sound for every prompt in Veltro", {L"chkPlaySound"}},
    {L"Notify_Subject_Empty", L"Notify if Subject is empty", {L"chkSubjectEmpty"}},
    {L"Correct_REFW_in_Subject",
     L"Check and correct if RE:, FW: etc appears multiple times in Subject",
     {L"chkReFwd"}},
    {L"Clear_Spam_marks_in_Subject",
     L"Clear SPAM Marks added in Subject by Anti-Spam software",
     {L"chkRemoveSpamWord"}},
    {L"Auto_or_Prompt_on_Spam_Mark_Removal",
     L"Automatically remove or prompt me for confirmation before removing SPAM marks from Subject",
     {L"optAutoRemoveSpamWords", L"optPromptRemoveSpamWords"}},
    {L"Spam_Marks",
     L"SPAM Marks list",
     {L"lstSpamWords", L"cmdAdd_Spam", L"cmdDelete_Spam", L"cmdReset_Spam"}},
    {L"Change_Subject_Reply_old_Email",
     L"Prompt me to change Subject if I am replying to an older e-mail",
     {L"chkPromptReplyOlderEmails", L"txtOldEmailsDays"}},
    {L"Notify_Attachments_Missing", L"Notify if attachments are missing", {L"chkAttachMissing"}},
    {L"Attachments_Words_List",
     L"List of keywords to which indicates that there should be attachments to the e-mail",
     {L"lstKeywords", L"cmdAdd_Attach", L"cmdDelete_Attach", L"cmdReset_Attach"}},
    {L"Attachment_advanced_Settings",
     L"Advanced Settings (Avoid false triggers of Attachment Sentry)",
     {L"lblIgnoreSig"}},
    {L"Set_Preferred_Account", L"How to set Prefered Accounts", {L"optShowMessage", L"optDontShowMessage"}},
    {L"Using_wrong_accounts",
     L"What should Veltro do if I am using the WRONG Account",
     {L"optNotify", L"optDoNotNotify"}},
    {L"Send_Confirm",
     L"Display Send-Confirm message to all or selected people",
     {L"optNoConfirmation", L"optConfirmEveryone", L"optConfirmToSpecific", L"lstConfirmEmailAddresses",
      L"cmdAdd_Confirm", L"cmdDelete_Confirm"}},
    {L"Display_message_more_than_x_Recipt",
     L"Display message if more than x recipients",
     {L"chkConfirmForXRecipt", L"txtXRecipients"}},
    {L"Delay_Emails_by_x_Seconds", L"Delay e-mails by x seconds", {L"chkDelay", L"txtDelayTime"}},
    {L"Delay_All_or_to_Specific_email_addresses",
     L"Delay e-mails to everyone or to specific e-mail addresses",
     {L"optAutoDelay", L"optDelayToEmails", L"lstDelayToEAddr", L"cmdAdd_EAddr", L"cmdDelete_EAddr"}},
    {L"Get_Confirmation_before_Delaying", L"Get confirmation before delaying", {L"chkNotifyDelay"}},
    {L"My_Email_Accounts",
     L"Let Veltro detect my email addresses using the accounts I have setup in Outlook",
     {L"chkEmailFromOutlook", L"lstEmailAccounts", L"cmdAdd_EmailAcc", L"cmdDelete_EmailAcc"}},
};

TEST(LockFields, AreShownAndStoredInTheirOrder) {
    TestWorld world({L"frmLockFields=lstVSettings=2,6; txtPassword=abc123; txtVerifyPassword=abc123; cmdOK",
                     L"Lock Veltro settings=Yes"});
    settings::frmLockFields form(world.globals, [] {});
    world.desktop.showModal(form);
    std::wstring shown;
    std::wstring stored;
    for (std::size_t row = 1; const auto& field : fields) {
        shown += (row > 1 ? L"\n" : L"") + std::wstring(field.description);
        stored +=
            (row > 1 ? L";" : L"") + std::wstring(field.name) + (row == 2 || row == 6 ? L"=Yes" : L"=No");
        ++row;
    }
    const auto& controls = world.log.forms.at(0).controls;
    const auto list = std::ranges::find(controls, L"lstVSettings", &platform::ControlState::name);
    ASSERT_NE(list, controls.end());
    EXPECT_EQ(list->caption, shown);
    EXPECT_EQ(world.settings.read(L"LockFields"), stored);
}

/// The names of the controls that cannot be used, but for the button that turns back before the first page.
Names disabledBy(const std::wstring& lockFields) {
    TestWorld world({L"frmIntroWizard=cmdNav(1)"});
    world.settings.write(L"LockFields", lockFields);
    world.settings.write(L"Password", L"x");
    settings::frmIntroWizard form(world.globals, nullptr);
    world.desktop.showModal(form);
    Names names;
    for (const platform::ControlState& control : world.log.forms.at(0).controls) {
        if (!control.enabled && control.name != L"cmdNav(2)") {
            names.push_back(control.name);
        }
    }
    return names;
}

TEST(LockFields, DisableTheirOwnControlsAndNoOthers) {
    for (const auto& field : fields) {
        Names disabled = disabledBy(field.name + std::wstring(L"=Yes"));
        EXPECT_TRUE(std::ranges::is_permutation(disabled, field.controls))
            << testing::PrintToString(disabled);
    }
}

}  // namespace
