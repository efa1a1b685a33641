#include <gtest/gtest.h>

#include "tests/scenarios/Bench.h"

namespace {

using Alerts = std::vector<bool>;

/// For each prompt in turn whether the alert preceded it.
Alerts alertsOf(const Bench& bench) {
    Alerts alerts;
    for (const auto& prompt : bench.prompts()) {
        alerts.push_back(prompt.alerted);
    }
    return alerts;
}

TEST(AlertSound, PrecedesWhateverASendShows) {
    const struct {
        const char* name;
        std::map<std::wstring, std::wstring> settings;
        std::vector<std::wstring> answers;
        Alerts alerts;
    } cases[] = {
        {"a question", {{L"DisplayConfirmation", L"1"}}, {L"Confirm=Yes"}, {true}},
        {"a dialog and an error",
         {{L"DelayEmails", L"True"}, {L"DelayTime", L"soon"}, {L"DisplayConfirmation", L"1"}},
         {L"Confirm=Yes", L"Veltro=OK"},
         {true, true}},
        // A dialog that an answer leaves open asks again without a sound.
        {"a dialog out of a dialog, and its complaint",
         {{L"MsgAddAddress", L"0"}},
         {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=txtEmailAddress=bob; cmdOK", L"Veltro=OK",
          L"frmEmailAddressEdit=cmdCancel"},
         {true, true, true, false}},
        {"a warning out of a dialog",
         {{L"MsgAddAddress", L"0"}},
         {L"frmAddEmailToList=chkDontShowMessAgain=1; Command1", L"Veltro=Yes"},
         {true, true}},
    };
    for (const auto& given : cases) {
        for (const bool wanted : {true, false}) {
            Given setup{.settings = given.settings, .answers = given.answers};
            setup.settings[L"PlaySound"] = wanted ? L"True" : L"False";
            Bench bench(setup);
            bench.send(plainMail());
            EXPECT_EQ(alertsOf(bench), wanted ? given.alerts : Alerts(given.alerts.size())) << given.name;
        }
    }
}

TEST(AlertSound, IsForWhatComesUnasked) {
    Bench bench({.settings = {{L"PlaySound", L"True"}},
                 .answers = {L"frmEmailAddress=cmdEdit", L"Veltro=OK", L"frmEmailAddress=cmdAdd",
                             L"frmEmailAddressEdit=cmdCancel", L"frmEmailAddress=cmdClose"}});
    bench.outlook().choose(bench.outlook().explorers().back(),
                           {L"Tarnwell", L"Veltro", L"Send Account (Preferred) List"});
    EXPECT_EQ(alertsOf(bench), (Alerts{false, true, false, false, false}));
}

}  // namespace
