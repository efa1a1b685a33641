#include <gtest/gtest.h>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComAutomation.h"
#include "platform/windows/Exporter.h"
#include "platform/windows/buttonsInterface.h"
#include "platform/windows/comErrors.h"
#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

/// Veltro.Buttons as a compiled client calls it, by its virtual table.
namespace {

using namespace platform::windows;

TEST(Buttons, AsksByItsVirtualTable) {
    Given setup{
        .profile = profileWith(listText(Entries{{L"bob@example.org", L"Home"}}), corvaneFolder),
        .answers = {L"frmNoSubject=cmdCancel", L"frmNotifyB4Delay=cmdYes", L"frmAddEmailToList=Command1",
                    L"frmEmailAddressEdit=cmdCancel", L"frmSelectSendAcct=cmdOK"}};
    setup.settings = {{L"DelayEmails", L"True"},
                      {L"AutoDelayAll", L"1"},
                      {L"DelayTime", L"60"},
                      {L"NotifyBeforeDelaying", L"True"}};
    Bench bench(setup);
    bench.outlook().openNewMail(plainMail(L""));

    LiveObjects objects;
    const auto exporter = Exporter::make(objects);
    ComAutomation automation(exporter);
    const auto buttons = query<IButtons>(
        exporter->exportObject(automation.createObject(L"Veltro.Buttons")).get(), buttonsInterfaceId);
    const automation::Object window =
        automation.createObject(L"Outlook.Application").call(L"ActiveInspector").toObject();
    const auto item = exporter->exportObject(window.get(L"CurrentItem").toObject());

    VARIANT_BOOL cancel = VARIANT_FALSE;
    VARIANT_BOOL held = VARIANT_FALSE;
    EXPECT_EQ(buttons->EmptySubjectCheck(item.get(), &cancel, &held), S_OK);
    EXPECT_EQ(held, VARIANT_TRUE);
    EXPECT_EQ(cancel, VARIANT_TRUE);
    EXPECT_EQ(buttons->DelayEmailSending(item.get(), &cancel, &held), S_OK);
    EXPECT_EQ(held, VARIANT_FALSE);
    const Bstr home(L"Home");
    const Bstr work(L"Work");
    const Bstr address(L"bob@example.org");
    const Bstr message(L"Gone.");
    EXPECT_EQ(buttons->AddEmailAddressToList(address.get(), work.get(), &held), S_OK);
    EXPECT_EQ(buttons->PrefAcctExistsFalse(4, work.get(), address.get(), message.get(), &held), S_OK);
    EXPECT_EQ(buttons->SelPostroute(work.get(), home.get(), address.get(), &held), S_OK);
    EXPECT_EQ(held, VARIANT_FALSE) << "Outlook was told";

    ASSERT_EQ(bench.prompts().size(), 5U);
    EXPECT_EQ(bench.prompts()[3].control(L"lblMsg").caption, L"Gone.");
    EXPECT_EQ(bench.prompts()[3].control(L"cmbAccounts").value, L"Work");
    EXPECT_EQ(bench.prompts()[4].control(L"lblPrefAcct").caption, L"(Home)");
    EXPECT_EQ(bench.prompts()[4].control(L"cmbAccts").value, L"Work");
}

}  // namespace
