#include <gtest/gtest.h>

#include "accounts/frmEmailAddress.h"
#include "tests/accounts/AccountsWorld.h"

namespace {

const Entries threeEntries{{L"ann@example.org", L"Work"},
                           {L"bob@example.org", L"No Account Selected"},
                           {L"cy@example.org", L"Gone"}};

/// What the list window showed each time it asked, as its selected line.
std::vector<std::wstring> selections(const AccountsWorld& world) {
    std::vector<std::wstring> lines;
    for (const platform::FormPrompt& form : world.log.forms) {
        for (const platform::ControlState& control : form.controls) {
            if (form.form == L"frmEmailAddress" && control.name == L"lstEmailAddress") {
                lines.push_back(control.value);
            }
        }
    }
    return lines;
}

std::vector<std::wstring> texts(const AccountsWorld& world) {
    std::vector<std::wstring> lines;
    for (const platform::MessagePrompt& message : world.log.messages) {
        lines.push_back(message.text);
    }
    return lines;
}

void showWindow(AccountsWorld& world) {
    accounts::frmEmailAddress window(world.globals, world.list);
    world.desktop.showModal(window);
    EXPECT_FALSE(world.desktop.unanswered()) << text::toUtf8(world.desktop.unanswered().value_or(L""));
}

TEST(ListWindow, KeepsTheSelectionWhereTheUserIs) {
    AccountsWorld world(
        threeEntries,
        {L"frmEmailAddress=cmdAdd",
         L"frmEmailAddressEdit=txtEmailAddress=  dan@example.org ; cmbAccounts=Home; cmdOK",
         L"frmEmailAddress=lstEmailAddress=ann@example.org (Work); cmdEdit",
         L"frmEmailAddressEdit=txtEmailAddress=zoe@example.org; cmdOK", L"frmEmailAddress=cmdDelete",
         L"Veltro=No", L"frmEmailAddress=cmdDelete", L"Veltro=Yes", L"frmEmailAddress=cmdClose"});
    showWindow(world);
    EXPECT_EQ(selections(world),
              (std::vector<std::wstring>{L"", L"dan@example.org (Home)", L"zoe@example.org (Work)",
                                         L"zoe@example.org (Work)", L"dan@example.org (Home)"}));
    EXPECT_EQ(world.stored(), (Entries{threeEntries[1], threeEntries[2], {L"dan@example.org", L"Home"}}));
    EXPECT_EQ(world.log.messages[0].text, L"Do you wish to delete the chosen email address from the list?");
    EXPECT_EQ(world.log.messages[0].style.icon, platform::Icon::Question);
    EXPECT_EQ(world.log.forms[0].controls[2].caption,
              L"ann@example.org (Work)\nbob@example.org (No Account Selected)\ncy@example.org (Gone)");
}

TEST(ListWindow, WantsASelection) {
    AccountsWorld world(threeEntries, {L"frmEmailAddress=cmdEdit", L"Veltro=OK", L"frmEmailAddress=cmdDelete",
                                       L"Veltro=OK", L"frmEmailAddress=cmdClose"});
    showWindow(world);
    EXPECT_EQ(texts(world), std::vector<std::wstring>(2, L"Please select an item from the list"));
    EXPECT_EQ(world.stored(), threeEntries);
}

/// While a message box is open, a send in another window loads the list, which somebody has changed.
TEST(ListWindow, KeepsToItsEntryWhenTheListIsLoadedMeanwhile) {
    constexpr wchar_t selectBob[] =
        L"frmEmailAddress=lstEmailAddress=bob@example.org (No Account Selected); ";
    const std::pair<std::wstring, std::wstring> added{L"aaa@example.org", L"Home"};
    const struct {
        const char* name;
        std::vector<std::wstring> answers;
        bool deleted;
        Entries stored;
    } cases[] = {{"deleted",
                  {std::wstring(selectBob) + L"cmdDelete", L"Veltro=Yes"},
                  false,
                  {added, threeEntries[0], threeEntries[2]}},
                 {"deleted by the other",
                  {std::wstring(selectBob) + L"cmdDelete", L"Veltro=Yes", L"Veltro=OK"},
                  true,
                  {threeEntries[0], threeEntries[2]}},
                 {"edited",
                  {std::wstring(selectBob) + L"cmdEdit", L"frmEmailAddressEdit=txtEmailAddress=bea; cmdOK",
                   L"Veltro=OK", L"frmEmailAddressEdit=txtEmailAddress=bea@example.org; cmdOK"},
                  false,
                  {added, threeEntries[0], {L"bea@example.org", L"No Account Selected"}, threeEntries[2]}}};
    for (const auto& [name, answers, deleted, stored] : cases) {
        SCOPED_TRACE(name);
        auto all = answers;
        all.push_back(L"frmEmailAddress=cmdClose");
        AccountsWorld world(threeEntries, all);
        world.log.meanwhile = [&world, &added, deleted = deleted, first = true]() mutable {
            if (!std::exchange(first, false)) {
                return;
            }
            accounts::clsSendAcct other(world.globals);
            other.LoadList();
            if (deleted) {
                other.AbsolutePosition(2);
                other.Delete();
            } else {
                other.AddNew();
                other.strEmailAddress = added.first;
                other.strAccount = added.second;
                other.Update();
            }
            world.list.LoadList();
        };
        showWindow(world);
        EXPECT_EQ(world.stored(), stored);
        EXPECT_EQ(texts(world).back() == L"This record has been changed or deleted meanwhile.", deleted);
    }
}

TEST(ListWindow, EditsOnADoubleClick) {
    AccountsWorld world(threeEntries, {L"frmEmailAddressEdit=cmdOK"});
    accounts::frmEmailAddress window(world.globals, world.list);
    auto& box = dynamic_cast<forms::ListBox&>(*window.find(L"lstEmailAddress"));
    box.choose(2);
    box.onDoubleClick();
    ASSERT_EQ(world.log.forms.size(), 1U);
    EXPECT_EQ(world.log.forms[0].caption, L"Edit");
    // The account that is gone stays with its address until another is chosen.
    EXPECT_EQ(world.stored(), threeEntries);
    EXPECT_EQ(box.selected(), 2);
}

TEST(EntryEditor, RefusesWhatCannotBeStored) {
    AccountsWorld world(threeEntries,
                        {L"frmEmailAddress=cmdAdd", L"frmEmailAddressEdit=txtEmailAddress=  ; cmdOK",
                         L"Veltro=OK", L"frmEmailAddressEdit=txtEmailAddress=ann; cmdOK", L"Veltro=OK",
                         L"frmEmailAddressEdit=txtEmailAddress=cy@example.org; cmdOK", L"Veltro=OK",
                         L"frmEmailAddressEdit=cmdCancel", L"frmEmailAddress=cmdClose"});
    showWindow(world);
    EXPECT_EQ(texts(world),
              (std::vector<std::wstring>{
                  L"Please enter the e-mail address name first", L"Please enter a valid email address.",
                  L"There is already an existing e-mail with this address. Please enter "
                  L"another email address"}));
    EXPECT_EQ(world.log.messages[0].style.icon, platform::Icon::Information);
    EXPECT_EQ(world.log.messages[1].style.icon, platform::Icon::Warning);
    EXPECT_EQ(world.log.messages[2].style.icon, platform::Icon::Warning);
    EXPECT_EQ(world.log.forms[1].caption, L"Add Preferred Account");
    EXPECT_EQ(world.stored(), threeEntries);
}

TEST(EntryEditor, StaysOpenWhenTheStoreRefuses) {
    host::Profile profile = profileWith(listText(threeEntries));
    profile.stores[0].readOnly = true;
    AccountsWorld world(
        profile, {L"frmEmailAddress=cmdAdd", L"frmEmailAddressEdit=txtEmailAddress=dan@example.org; cmdOK",
                  L"Veltro=OK", L"Veltro=OK", L"frmEmailAddressEdit=cmdCancel", L"frmEmailAddress=cmdClose"});
    showWindow(world);
    EXPECT_EQ(texts(world).at(1), L"The list could not be saved. It is as it was before.");
    EXPECT_EQ(world.stored(), threeEntries);
}

TEST(ListWindow, FirstEntryOfANewProfileMakesTheFolder) {
    host::Profile profile;
    profile.folders = {};
    AccountsWorld world(profile,
                        {L"frmEmailAddress=cmdAdd",
                         L"frmEmailAddressEdit=txtEmailAddress=dan@example.org; cmbAccounts=Work; cmdOK",
                         L"Veltro=OK", L"frmEmailAddress=cmdClose"});
    showWindow(world);
    EXPECT_EQ(selections(world).back(), L"dan@example.org (Work)");
    EXPECT_EQ(world.stored(), (Entries{{L"dan@example.org", L"Work"}}));
}

}  // namespace
