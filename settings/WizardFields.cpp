#include "settings/WizardFields.h"

#include "mail/errorTrap.h"
#include "settings/modRegKeys.h"

namespace settings {

WizardFields::WizardFields(mail::Globals& globals, WizardSteps& steps) : globals_(globals) {
    addReplies(steps.reply);
    addSubjects(steps.subject);
    add(L"Notify_Attachments_Missing", modRegKeys::CheckAttachMissing, steps.attachment.chkAttachMissing);
    add(L"Attachments_Words_List", modRegKeys::AttachKeyWords, steps.attachment.lstKeywords);
    rows_.push_back({L"Attachment_advanced_Settings", {&steps.attachment.lblIgnoreSig}, nullptr, nullptr});
    add(L"Set_Preferred_Account", modRegKeys::MsgAddAddress,
        {{&steps.account.optShowMessage, 0}, {&steps.account.optDontShowMessage, 1}});
    add(L"Using_wrong_accounts", modRegKeys::DoNotShowSelect,
        {{&steps.account.optNotify, 0}, {&steps.account.optDoNotNotify, 1}});
    addSending(steps);
    add(L"My_Email_Accounts", modRegKeys::UseOutlookSettings, steps.ownAddresses.chkEmailFromOutlook);
    add(L"My_Email_Accounts", modRegKeys::EmailList, steps.ownAddresses.lstEmailAccounts);
}

void WizardFields::addReplies(ReplyStep& step) {
    add(L"Warn_Reply_Click_Mult_Recpt", modRegKeys::ReplyMultiple, step.chkReplyMultiple);
    add(L"Warn_Replytoall_click_BCCed", modRegKeys::ReplyALL_BCC, step.chkReplyALL_BCC);
    add(L"Warn_Replytoall_Click", modRegKeys::ReplyAllAny, step.chkReplyAll_Any);
    add(L"Donot_Warn_for_this_Domain", modRegKeys::ReplyInternalCheck, step.chkReplyInternalCheck);
    add(L"Donot_Warn_for_this_Domain", modRegKeys::DomainName, step.txtDomains);
    add(L"Auto_Removeme_on_Replytoall", modRegKeys::ReplyAllAutoRemove, step.chkReplyAll_AutoRemoveMe);
    add(L"PlaySound_Every_Prompt", modRegKeys::PlaySound, step.chkPlaySound);
}

void WizardFields::addSubjects(SubjectStep& step) {
    add(L"Notify_Subject_Empty", modRegKeys::CheckEmptySubject, step.chkSubjectEmpty);
    add(L"Clear_Spam_marks_in_Subject", modRegKeys::RemoveSpamWords, step.chkRemoveSpamWord);
    add(L"Auto_or_Prompt_on_Spam_Mark_Removal", modRegKeys::AutoRemoveSpamWords,
        {{&step.optAutoRemoveSpamWords, 1}, {&step.optPromptRemoveSpamWords, 0}});
    add(L"Spam_Marks", modRegKeys::SpamKeyWords, step.lstSpamWords);
    add(L"Correct_REFW_in_Subject", modRegKeys::CheckMultipleReFwd, step.chkReFwd);
    add(L"Change_Subject_Reply_old_Email", modRegKeys::PromptReplyOnOlderEmails,
        step.chkPromptReplyOlderEmails);
    add(L"Change_Subject_Reply_old_Email", modRegKeys::OldEmailDays, step.txtOldEmailsDays);
}

void WizardFields::addSending(WizardSteps& steps) {
    SendConfirmStep& confirm = steps.sendConfirm;
    add(L"Send_Confirm", modRegKeys::DisplayConfirmation,
        {{&confirm.optNoConfirmation, 0},
         {&confirm.optConfirmEveryone, 1},
         {&confirm.optConfirmToSpecific, 2}});
    add(L"Send_Confirm", modRegKeys::ConfirmEmailAddrs, confirm.lstConfirmEmailAddresses);
    add(L"Display_message_more_than_x_Recipt", modRegKeys::ConfirmForXRecipients,
        confirm.chkConfirmForXRecipt);
    add(L"Display_message_more_than_x_Recipt", modRegKeys::XRecipients, confirm.txtXRecipients);
    DelayStep& delay = steps.delay;
    add(L"Delay_Emails_by_x_Seconds", modRegKeys::DelayEmails, delay.chkDelay);
    add(L"Delay_Emails_by_x_Seconds", modRegKeys::DelayTime, delay.txtDelayTime);
    add(L"Delay_All_or_to_Specific_email_addresses", modRegKeys::AutoDelayAll,
        {{&delay.optAutoDelay, 1}, {&delay.optDelayToEmails, 0}});
    add(L"Delay_All_or_to_Specific_email_addresses", modRegKeys::DelayedEmailAddrs, delay.lstDelayToEAddr);
    add(L"Get_Confirmation_before_Delaying", modRegKeys::NotifyBeforeDelaying, delay.chkNotifyDelay);
}

void WizardFields::add(const wchar_t* lockedField, const modRegKeys::TextFlag& setting,
                       forms::CheckBox& box) {
    rows_.push_back({lockedField,
                     {&box},
                     [this, setting, &box] { box.setState(setting.read(globals_) ? 1 : 0); },
                     [this, setting, &box] { setting.write(globals_, box.state()); }});
}

void WizardFields::add(const wchar_t* lockedField, const modRegKeys::WholeNumber& setting,
                       forms::TextBox& box) {
    rows_.push_back({lockedField,
                     {&box},
                     [this, setting, &box] { box.setText(setting.shown(setting.read(globals_))); },
                     [this, setting, &box] { setting.write(globals_, box.text()); }});
}

void WizardFields::add(const wchar_t* lockedField, const modRegKeys::Text& setting, forms::TextBox& box) {
    rows_.push_back({lockedField,
                     {&box},
                     [this, setting, &box] { box.setText(setting.read(globals_)); },
                     [this, setting, &box] { setting.write(globals_, box.text()); }});
}

template <class Setting>
void WizardFields::add(const wchar_t* lockedField, const Setting& setting, Options options) {
    const std::vector<std::pair<forms::OptionButton*, std::int16_t>> choices(options);
    Row row{lockedField, {}, nullptr, nullptr};
    for (const auto& [option, number] : choices) {
        row.controls.push_back(option);
    }
    row.load = [this, setting, choices] {
        for (const auto& [option, number] : choices) {
            if (setting.read(globals_) == number) {
                option->select();
            }
        }
    };
    row.save = [this, setting, choices] {
        for (const auto& [option, number] : choices) {
            if (option->selected()) {
                setting.write(globals_, number);
            }
        }
    };
    rows_.push_back(std::move(row));
}

void WizardFields::add(const wchar_t* lockedField, const modRegKeys::Text& setting, EditedList& list) {
    rows_.push_back({lockedField, list.controls(),
                     [this, setting, &list] { list.setText(setting.read(globals_)); },
                     [this, setting, &list] { setting.write(globals_, list.text()); }});
}

void WizardFields::add(const wchar_t* lockedField, const modRegKeys::OwnAddresses& setting,
                       EditedList& list) {
    const auto save = [this, setting, &list] {
        const auto stored = mail::attempt([&] { return globals_.platform.settings.read(setting.key); });
        if (!list.text().empty() || (stored && *stored)) {
            setting.write(globals_, list.text());
        }
    };
    rows_.push_back({lockedField, list.controls(),
                     [this, setting, &list] { list.setText(setting.read(globals_)); }, save});
}

void WizardFields::load() const {
    for (const Row& row : rows_) {
        if (row.load) {
            row.load();
        }
    }
}

void WizardFields::save() const {
    for (const Row& row : rows_) {
        if (row.save) {
            row.save();
        }
    }
}

void WizardFields::EnableControl(std::wstring_view lockedField, bool enabled) const {
    for (const Row& row : rows_) {
        if (row.lockedField == lockedField) {
            for (forms::Control* control : row.controls) {
                control->setEnabled(enabled);
            }
        }
    }
}

}  // namespace settings
