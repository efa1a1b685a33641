#include "settings/CopyMsgToInbox.h"

#include <gtest/gtest.h>

#include "platform/text.h"
#include "tests/TestWorld.h"
#include "tests/scenarios/AddInWorld.h"

namespace {

/// Takes nothing any more.
class FullStore : public platform::MemorySettingsStore {
    void write(const std::wstring&, const std::wstring&) override {
        throw automation::Error(automation::errors::failed, L"The store is full");
    }
};

TEST(CopyMsgToInbox, LeavesNoMailWhereThatCannotBeNoted) {
    FullStore full;
    platform::MemorySettingsStore store;
    const struct {
        platform::SettingsStore& store;
        std::size_t mails;
    } cases[] = {{full, 0}, {store, 1}};
    for (const auto& test : cases) {
        TestWorld world(test.store, text::fromUtf8(addInFolder().string()));
        settings::CopyMsgToInbox(world.globals);
        settings::CopyMsgToInbox(world.globals);
        EXPECT_EQ(world.outlook.itemsIn(L"Inbox").size(), test.mails);
    }
}

}  // namespace
