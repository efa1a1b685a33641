#include "settings/frmIntroWizard.h"

#include <gtest/gtest.h>

#include <algorithm>

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
        world.globals.redemptionMissing = told;
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

}  // namespace
