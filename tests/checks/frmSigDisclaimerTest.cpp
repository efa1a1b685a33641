#include "checks/frmSigDisclaimer.h"

#include <gtest/gtest.h>

#include "settings/modRegKeys.h"
#include "tests/TestWorld.h"

namespace {

TEST(SignatureDialog, LoadsAndStoresWhatIsToBeIgnored) {
    TestWorld world(
        {L"frmSigDisclaimer=chkIgnoreText=0; txtSigDisclaimer= new text ; chkIgnoreAttach=1; "
         L"txtIgnoreAttach=me.vcf; cmdSave"});
    world.settings.write(L"IgnoreText", L"True");
    world.settings.write(L"IgnoreTextValue", L"old text");

    checks::frmSigDisclaimer form(world.globals);
    world.desktop.showModal(form);

    ASSERT_EQ(world.log.forms.size(), 1U);
    EXPECT_EQ(world.log.forms[0].caption, L"Attachment Sentry Advance settings");
    EXPECT_EQ(form.find(L"txtSigDisclaimer")->value(), L" new text ");
    EXPECT_FALSE(modRegKeys::IgnoreText.read(world.globals));
    EXPECT_TRUE(modRegKeys::IgnoreAttach.read(world.globals));
    EXPECT_EQ(modRegKeys::IgnoreTextValue.read(world.globals), L"new text");
    EXPECT_EQ(modRegKeys::IgnoreAttachValue.read(world.globals), L"me.vcf");
}

TEST(SignatureDialog, StaysOpenUntilWhatIsTickedIsFilledIn) {
    TestWorld world({L"frmSigDisclaimer=chkIgnoreText=1; chkIgnoreAttach=1; cmdSave",
                     L"Ignore text missing - Veltro=OK", L"frmSigDisclaimer=txtSigDisclaimer=Ann; cmdSave",
                     L"Attachment name missing - Veltro=OK", L"frmSigDisclaimer=cmdCancel"});

    checks::frmSigDisclaimer form(world.globals);
    world.desktop.showModal(form);

    EXPECT_FALSE(world.desktop.unanswered());
    ASSERT_EQ(world.log.messages.size(), 2U);
    EXPECT_EQ(world.log.messages[0].text,
              L"No text entered.\r\n\r\nPlease enter the text you want attachment sentry to ignore.");
    EXPECT_EQ(
        world.log.messages[1].text,
        L"Attachment name is missing.\r\n\r\nPlease enter the name of the attachment you want attachment "
        L"sentry to ignore.");
    EXPECT_EQ(world.log.messages[1].style.icon, platform::Icon::Information);
    EXPECT_EQ(world.settings.read(L"IgnoreText"), std::nullopt);
}

}  // namespace
