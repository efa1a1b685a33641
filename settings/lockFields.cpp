#include "settings/lockFields.h"

#include <algorithm>
#include <iterator>

#include "platform/text.h"

namespace settings::lockFields {

namespace {

constexpr Field fields[] = {
    {L"Warn_Reply_Click_Mult_Recpt", L"Warn when clicking reply for e-mails with multiple recipients"},
    {L"Warn_Replytoall_click_BCCed", L"Warn when Reply to All is clicked on an e-mail on which I was BCCed"},
    {L"Warn_Replytoall_Click", L"Warn when Reply to All is clicked on any e-mail"},
    {L"Donot_Warn_for_this_Domain", L"Do not warn when all recipients are part of the domain:"},
    {L"Auto_Removeme_on_Replytoall", L"Automatically remove me when doing a Reply to All"},
    {L"PlaySound_Every_Prompt", L"Play sound for every prompt in Veltro"},
    {L"Notify_Subject_Empty", L"Notify if Subject is empty"},
    {L"Correct_REFW_in_Subject", L"Check and correct if RE:, FW: etc appears multiple times in Subject"},
    {L"Clear_Spam_marks_in_Subject", L"Clear SPAM Marks added in Subject by Anti-Spam software"},
    {L"Auto_or_Prompt_on_Spam_Mark_Removal",
     L"Automatically remove or prompt me for confirmation before removing SPAM marks from Subject"},
    {L"Spam_Marks", L"SPAM Marks list"},
    {L"Change_Subject_Reply_old_Email", L"Prompt me to change Subject if I am replying to an older e-mail"},
    {L"Notify_Attachments_Missing", L"Notify if attachments are missing"},
    {L"Attachments_Words_List",
     L"List of keywords to which indicates that there should be attachments to the e-mail"},
    {L"Attachment_advanced_Settings", L"Advanced Settings (Avoid false triggers of Attachment Sentry)"},
    {L"Set_Preferred_Account", L"How to set Prefered Accounts"},
    {L"Using_wrong_accounts", L"What should Veltro do if I am using the WRONG Account"},
    {L"Send_Confirm", L"Display Send-Confirm message to all or selected people"},
    {L"Display_message_more_than_x_Recipt", L"Display message if more than x recipients"},
    {L"Delay_Emails_by_x_Seconds", L"Delay e-mails by x seconds"},
    {L"Delay_All_or_to_Specific_email_addresses",
     L"Delay e-mails to everyone or to specific e-mail addresses"},
    {L"Get_Confirmation_before_Delaying", L"Get confirmation before delaying"},
    {L"My_Email_Accounts",
     L"Let Veltro detect my email addresses using the accounts I have setup in Outlook"},
};

}  // namespace

std::span<const Field> all() {
    return fields;
}

std::wstring Get_EnableField_Description(std::wstring_view name) {
    const auto found = std::ranges::find(fields, name, &Field::name);
    return found == std::end(fields) ? std::wstring() : found->description;
}

std::vector<Entry> parse(std::wstring_view stored) {
    std::vector<Entry> entries;
    for (const std::wstring_view each : ::text::split(stored, L';')) {
        if (const auto cut = each.find(L'='); cut != std::wstring_view::npos) {
            entries.push_back({std::wstring(each.substr(0, cut)),
                               ::text::equalsIgnoringCase(each.substr(cut + 1), L"YES")});
        }
    }
    return entries;
}

std::wstring text(const std::vector<Entry>& entries) {
    std::wstring joined;
    for (const Entry& entry : entries) {
        joined += (joined.empty() ? L"" : L";") + entry.name + (entry.locked ? L"=Yes" : L"=No");
    }
    return joined;
}

}  // namespace settings::lockFields
