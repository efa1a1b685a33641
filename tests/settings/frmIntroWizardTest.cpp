#include "settings/frmIntroWizard.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "mail/Provider.h"
#include "tests/TestWorld.h"

namespace {

/// Notes which keys are written, and fails one write.
class NotingStore : public platform::MemorySettingsStore {
  public:
    explicit NotingStore(std::size_t failingWrite) : failingWrite_(failingWrite) {
        MemorySettingsStore::write(L"EmailList", L"me@x.org");
    }
    void write(const std::wstring& key, const std::wstring& value) override {
        keys.push_back(key);
        if (keys.size() == failingWrite_) {
            throw automation::Error(automation::errors::failed, L"The store is full");
        }
        MemorySettingsStore::write(key, value);
    }

    std::vector<std::wstring> keys;

  private:
    std::size_t failingWrite_;
};

const std::vector<std::wstring> order{L"ReplyMultiple",
                                      L"ReplyALL_BCC",
                                      L"ReplyAllAny",
                                      L"ReplyInternalCheck",
                                      L"DomainName",
                                      L"ReplyAllAutoRemove",
                                      L"PlaySound",
                                      L"CheckEmptySubject",
                                      L"RemoveSpamWords",
                                      L"AutoRemoveSpamWords",
                                      L"SpamKeyWords",
                                      L"CheckMultipleReFwd",
                                      L"PromptReplyOnOlderEmails",
                                      L"OldEmailDays",
                                      L"CheckAttachMissing",
                                      L"AttachKeyWords",
                                      L"MsgAddAddress",
                                      L"DoNotShowSelect",
                                      L"DisplayConfirmation",
                                      L"ConfirmEmailAddrs",
                                      L"ConfirmForXRecipients",
                                      L"XRecipients",
                                      L"DelayEmails",
                                      L"DelayTime",
                                      L"AutoDelayAll",
                                      L"DelayedEmailAddrs",
                                      L"NotifyBeforeDelaying",
                                      L"UseOutlookSettings",
                                      L"EmailList"};

TEST(SavedSettings, AreWrittenInTheirOrderWhicheverWriteFails) {
    for (std::size_t failing = 0; failing <= order.size(); ++failing) {
        NotingStore store(failing);
        TestWorld world(store);
        settings::frmIntroWizard form(world.globals, nullptr);
        EXPECT_TRUE(form.find(L"cmdNav(4)")->enter({}));
        EXPECT_EQ(store.keys, order) << "write " << failing;
        const auto missing = std::ranges::count_if(
            order, [&](const std::wstring& key) { return store.read(key) == std::nullopt; });
        EXPECT_EQ(missing, failing == 0 || failing == order.size() ? 0 : 1) << "write " << failing;
    }
}

/// The addresses that a profile would give must not be overwritten because it could not be read.
TEST(SavedSettings, LeaveOwnAddressesAbsentThatCouldNotBeFound) {
    for (const bool told : {false, true}) {
        TestWorld world({L"Veltro=OK"}, {.redemptionRegistered = false});
        if (told) {
            world.globals.provider = &mail::untrustedProvider();
        }
        settings::frmIntroWizard form(world.globals, nullptr);
        EXPECT_TRUE(form.find(L"cmdNav(4)")->enter({}));
        EXPECT_EQ(world.settings.read(L"EmailList"), std::nullopt);
        EXPECT_EQ(world.settings.read(L"UseOutlookSettings"), L"True");
        EXPECT_EQ(world.log.messages.size(), told ? 0U : 1U);
    }
}

/// As a settings file may bring it.
TEST(SavedSettings, AreNotHeldUpByALockedDomain) {
    TestWorld world;
    world.settings.write(L"ReplyInternalCheck", L"True");
    world.settings.write(L"LockFields", L"Donot_Warn_for_this_Domain=Yes");
    world.settings.write(L"Password", L"x");
    settings::frmIntroWizard form(world.globals, nullptr);
    EXPECT_TRUE(form.find(L"cmdNav(4)")->enter({}));
    EXPECT_EQ(world.settings.read(L"ReplyAllAny"), L"True");
}

/// What the pages say, apart from what is asked on them.
TEST(SettingsPages, ExplainThemselves) {
    const struct {
        const wchar_t* caption;
        const wchar_t* heading;
        const wchar_t* explanation;
        /// A label on it.
        const wchar_t* label;
        const wchar_t* labelCaption;
    } pages[] = {
        {L"Intro", L"Welcome to Veltro - Outgoing Email Protection for Outlook",
         L"Veltro looks over each e-mail before it leaves and asks where something looks wrong. Nothing else "
         L"about sending changes.",
         L"lblChecks",
         L"On the next pages you choose what it looks for: replies to too many people, missing subjects and "
         L"attachments, the wrong sending account, e-mails that should be confirmed or wait a little before "
         L"they leave.\r\n\r\nThe settings are a good start as they are. Press Next to see them, or Save to "
         L"keep them. You find them again in the group Veltro on Outlook's Home tab; up to Outlook 2007 in its "
         L"menu under Tarnwell, Veltro, Settings."},
        {L"Reply Sentry", L"REPLY SENTRY SETTINGS",
         L"Reply Sentry: Keeps an answer from reaching more people than you meant, and from showing that you "
         L"were a blind copy recipient.",
         L"lblDomains", L"Several &domains are parted by \";\"."},
        {L"Subject Sentry", L"SUBJECT SENTRY SETTINGS",
         L"Subject Sentry: Your e-mails leave with a subject that is there, clean and fits.", L"lblSpamWords",
         L"SPAM &marks:"},
        {L"Attachment Sentry", L"ATTACHMENT SENTRY SETTINGS",
         L"Attachment Sentry: Reminds you of the file when your e-mail speaks of an attachment and has none.",
         L"lblKeywords", L"&Keywords:"},
        {L"Account Sentry", L"ACCOUNT SENTRY SETTINGS",
         L"Account Sentry: Each e-mail leaves from the account that its recipient knows you by.",
         L"lblAgStatus", L"Account Sentry is only supported in Outlook 2003 and above"},
        {L"Send Confirm", L"SEND CONFIRM SETTINGS",
         L"Send-Confirm: Avoid accidentally sending incomplete or inappropriate emails. Displays a  message "
         L"to get confirmation before sending emails to all or selected people.",
         L"lblConfirmEmailAddresses", L"&E-mail addresses:"},
        {L"Delay Sentry", L"DELAY SENTRY SETTINGS",
         L"Delay Sentry: Holds your e-mails back for a moment, in which you can still take them out of the "
         L"Outbox.",
         L"lblDelayToEAddr", L"&E-mail addresses:"},
        {L"My Email Accounts", L"MY EMAIL ACCOUNTS",
         L"My Email Accounts: The addresses by which Veltro knows you among the recipients of an e-mail.",
         L"lblEmailAccounts", L"My &e-mail addresses:"}};
    TestWorld world;
    settings::frmIntroWizard form(world.globals, nullptr);
    for (std::size_t number = 0; const auto& page : pages) {
        const std::wstring index = L"(" + std::to_wstring(number++) + L")";
        EXPECT_EQ(form.find(L"TabStripWizard")->value(), page.caption);
        EXPECT_EQ(form.find(L"lblTabTitle")->caption(), page.heading);
        EXPECT_EQ(form.find(L"fraStep" + index)->caption(), page.caption);
        EXPECT_EQ(form.find(L"lblStep" + index)->caption(), page.explanation);
        EXPECT_EQ(form.find(page.label)->caption(), page.labelCaption);
        form.find(L"cmdNav(3)")->enter({});
    }
}

TEST(SettingsPages, CaptionWhatIsDoneOnThem) {
    TestWorld world;
    settings::frmIntroWizard form(world.globals, nullptr);
    const std::pair<const wchar_t*, const wchar_t*> captions[] = {
        {L"cmdAdd_Spam", L"&Add..."},
        {L"cmdDelete_Spam", L"&Delete"},
        {L"cmdReset_Spam", L"&Reset"},
        {L"chkPromptReplyOlderEmails",
         L"Prompt me to change Subject if I am replying to an email that is older than:"},
        {L"chkConfirmForXRecipt", L"Display message if more than "},
        {L"chkNotifyDelay", L"Get confirmation before delaying (untick to automatically delay all emails)"}};
    for (const auto& [control, caption] : captions) {
        EXPECT_EQ(form.find(control)->caption(), caption);
    }
}

}  // namespace
