#include <gtest/gtest.h>

#include "accounts/accountStep.h"
#include "accounts/basSendAcct.h"
#include "accounts/frmEmailAddress.h"
#include "settings/AlertingDesktop.h"
#include "tests/accounts/AccountsWorld.h"

/// While a dialog is open Outlook goes on: another window sends, windows close, another Outlook changes the
/// stored list.
namespace {

struct Sent {
    bool cancelled = false;
    std::wstring account;
    bool operator==(const Sent&) const = default;
};

/// The add-in in the user's Outlook, beside the list that another Outlook has of the same mailbox.
class OverlapWorld : public AccountsWorld, private platform::PromptObserver {
  public:
    OverlapWorld(const host::Profile& profile, const std::vector<std::wstring>& answers)
        : AccountsWorld(profile), screen_(parsed(answers), *this) {
        here.outlook = globals.outlook;
    }
    ~OverlapWorld() override {
        EXPECT_FALSE(screen_.unanswered()) << text::toUtf8(screen_.unanswered().value_or(L""));
    }

    /// What happens once, while the first prompt is open whose form or title this is.
    void whileOpen(const std::wstring& prompt, std::function<void()> action) {
        prompt_ = prompt;
        action_ = std::move(action);
    }

    /// What the send event does with the list; with `asked` a prompt of another step comes in between.
    Sent send(const std::wstring& address, bool asked = false) {
        host::Message message;
        message.to = {{.name = L"To", .address = address}};
        const automation::Object mail = outlook.itemOf(outlook.openNewMail(message));
        Sent sent;
        const auto opened = accounts::basSendAcct::OpenList(here);
        const auto found = opened->CreatePostrouteFolder();
        EXPECT_TRUE(found);
        if (asked) {
            desktop_.messageBox(L"Send it?", {}, L"Confirm");
        }
        mail::OutgoingMail outgoing(here, outlook::Item(mail));
        accounts::accountStep::checkPreferredAccount(here, *opened, outgoing, found.value(), sent.cancelled);
        sent.account = outlook.view(mail).account;
        return sent;
    }

    void showWindow() {
        const auto opened = accounts::basSendAcct::OpenList(here);
        accounts::frmEmailAddress window(here, *opened);
        desktop_.showModal(window);
    }

    std::vector<std::wstring> texts;

  private:
    static platform::AnswerList parsed(const std::vector<std::wstring>& answers) {
        std::vector<platform::PromptAnswer> parsedAnswers;
        for (const std::wstring& answer : answers) {
            parsedAnswers.push_back(program::parseAnswer(answer));
        }
        return platform::AnswerList(std::move(parsedAnswers));
    }
    void shown(const std::wstring& prompt) {
        if (action_ && prompt == prompt_) {
            std::exchange(action_, nullptr)();
        }
    }
    void message(const platform::MessagePrompt& prompt, std::optional<platform::Answer>) override {
        texts.push_back(prompt.text);
        shown(prompt.title);
    }
    void form(const platform::FormPrompt& prompt, const std::optional<platform::FormAnswer>&) override {
        shown(prompt.form);
    }
    void folder(const platform::FolderPrompt&, const std::optional<platform::FolderAnswer>&) override {}
    void beep() override {}

    std::wstring prompt_;
    std::function<void()> action_;
    platform::native::ScriptedDesktop screen_;
    settings::AlertingDesktop desktop_{screen_, here};
    platform::Platform platform_{outlook.automation(), desktop_, settings,     registry,
                                 ports.resources,      clock,    ports.system, ports.web};

  public:
    mail::Globals here{platform_};
};

using Answers = std::vector<std::wstring>;

const std::pair<std::wstring, std::wstring> bobAtHome{L"bob@x.org", L"Home"};
const std::pair<std::wstring, std::wstring> bobAbroad{L"bob@x.org", L"Abroad"};
const std::pair<std::wstring, std::wstring> cyAtHome{L"cy@x.org", L"Home"};
const std::pair<std::wstring, std::wstring> cyAbroad{L"cy@x.org", L"Abroad"};
const std::pair<std::wstring, std::wstring> danGone{L"dan@x.org", L"Gone"};
const std::pair<std::wstring, std::wstring> danAtHome{L"dan@x.org", L"Home"};
const Entries listed{bobAtHome, cyAtHome, danGone};

constexpr wchar_t bob[] = L"bob@x.org";
constexpr wchar_t cy[] = L"cy@x.org";
constexpr wchar_t dan[] = L"dan@x.org";
constexpr wchar_t eve[] = L"eve@x.org";
constexpr wchar_t flo[] = L"flo@x.org";
constexpr wchar_t selectForm[] = L"frmSelectSendAcct";
constexpr wchar_t editForm[] = L"frmEmailAddressEdit";
constexpr wchar_t offerForm[] = L"frmAddEmailToList";
constexpr wchar_t takePreferred[] = L"frmSelectSendAcct=cmdOK";
constexpr wchar_t goBack[] = L"frmSelectSendAcct=optCancel=1; cmdOK";
constexpr wchar_t preferAbroad[] = L"frmSelectSendAcct=cmbAccts=Abroad; chkSetDefault=1; cmdOK";
constexpr wchar_t editToHome[] = L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK";
constexpr wchar_t cancelEdit[] = L"frmEmailAddressEdit=cmdCancel";
constexpr wchar_t offerYes[] = L"frmAddEmailToList=cmdYes";
constexpr wchar_t offerNever[] = L"frmAddEmailToList=cmdNo";
constexpr wchar_t ok[] = L"Veltro=OK";

const Sent fromWork{false, L"Work"};
const Sent fromHome{false, L"Home"};
const Sent fromAbroad{false, L"Abroad"};
const Sent held{true, L"Work"};

host::Profile profileOf(const Entries& entries) {
    host::Profile profile = profileWith(listText(entries));
    profile.accounts.push_back({.name = L"Abroad", .address = L"me@example.com"});
    return profile;
}

/// The answers to the first mail's prompts up to the one at which the second is sent come first, then those
/// to the second, then the others.
TEST(Overlap, GivesEachMailItsOwnAnswer) {
    const std::pair<std::wstring, std::wstring> eveAnywhere{eve, L"No Account Selected"};
    const std::pair<std::wstring, std::wstring> eveAtHome{eve, L"Home"};
    const std::pair<std::wstring, std::wstring> floAtHome{flo, L"Home"};
    const Entries eveAdded{bobAtHome, cyAtHome, danGone, eveAnywhere};
    const Entries bothAdded{bobAtHome, cyAtHome, danGone, eveAtHome, floAtHome};
    const Entries bobAndDanChanged{bobAbroad, cyAtHome, danAtHome};
    const Entries cyAndDanChanged{bobAtHome, cyAbroad, danAtHome};
    const Entries bobChanged{bobAbroad, cyAtHome, danGone};
    const Answers askedWhetherToAsk{L"frmAddEmailToList=chkDontShowMessAgain=1; cmdNo", L"Veltro=No", goBack};
    const struct {
        std::wstring first;
        std::wstring meanwhile;
        std::wstring second;
        Answers answers;
        Sent ofFirst;
        Sent ofSecond;
        Entries stored;
    } cases[] = {
        {bob, selectForm, cy, {takePreferred, goBack}, fromHome, held, listed},
        {bob, selectForm, cy, {goBack, takePreferred}, held, fromHome, listed},
        {bob, selectForm, bob, {goBack, preferAbroad}, held, fromAbroad, bobChanged},
        {bob, selectForm, dan, {preferAbroad, editToHome}, fromAbroad, fromHome, bobAndDanChanged},
        {dan, editForm, cy, {editToHome, preferAbroad}, fromHome, fromAbroad, cyAndDanChanged},
        {dan, editForm, cy, {cancelEdit, takePreferred}, held, fromHome, listed},
        {eve, offerForm, cy, {offerNever, goBack}, fromWork, held, eveAdded},
        {eve, L"Veltro", cy, askedWhetherToAsk, fromWork, held, eveAdded},
        {eve, editForm, dan, {offerYes, cancelEdit, cancelEdit}, fromWork, held, listed},
        {eve, editForm, flo, {offerYes, editToHome, offerYes, editToHome}, fromHome, fromHome, bothAdded},
    };
    for (const auto& given : cases) {
        SCOPED_TRACE(text::toUtf8(given.first + L" " + given.meanwhile + L" " + given.second));
        OverlapWorld world(profileOf(listed), given.answers);
        Sent second;
        world.whileOpen(given.meanwhile, [&] { second = world.send(given.second); });
        EXPECT_EQ(world.send(given.first), given.ofFirst);
        EXPECT_EQ(second, given.ofSecond);
        EXPECT_EQ(world.stored(), given.stored);
    }
}

TEST(Overlap, FolderMessageOfOneMailLeavesTheOtherItsEntry) {
    host::Profile profile = profileOf({});
    profile.messages.clear();
    OverlapWorld world(profile, {ok, offerYes, editToHome, offerNever});
    Sent second;
    world.whileOpen(L"Veltro", [&] { second = world.send(bob); });
    EXPECT_EQ(world.send(eve), fromWork);
    EXPECT_EQ(second, fromHome);
    EXPECT_EQ(world.stored(), (Entries{bobAtHome, {eve, L"No Account Selected"}}));
    EXPECT_EQ(world.texts.size(), 1U);
}

/// The list window, with one of its own prompts open.
TEST(Overlap, SendBesideTheListWindowKeepsBothChanges) {
    const struct {
        std::wstring meanwhile;
        Answers answers;
        Entries stored;
    } cases[] = {
        {L"frmEmailAddress",
         {L"frmEmailAddress=lstEmailAddress=dan@x.org (Gone); cmdDelete", preferAbroad, L"Veltro=Yes"},
         {bobAbroad, cyAtHome}},
        {editForm,
         {L"frmEmailAddress=lstEmailAddress=cy@x.org (Home); cmdEdit",
          L"frmEmailAddressEdit=cmbAccounts=Abroad; cmdOK", preferAbroad},
         {bobAbroad, cyAbroad, danGone}},
        {L"Veltro",
         {L"frmEmailAddress=lstEmailAddress=cy@x.org (Home); cmdDelete", L"Veltro=Yes", preferAbroad},
         {bobAbroad, danGone}},
        {editForm,
         {L"frmEmailAddress=lstEmailAddress=bob@x.org (Home); cmdEdit", L"frmEmailAddressEdit=cmdOK",
          preferAbroad, ok, cancelEdit},
         {bobAbroad, cyAtHome, danGone}}};
    for (const auto& given : cases) {
        Answers answers = given.answers;
        answers.push_back(L"frmEmailAddress=cmdClose");
        OverlapWorld world(profileOf(listed), answers);
        Sent sent;
        world.whileOpen(given.meanwhile, [&] { sent = world.send(bob); });
        world.showWindow();
        EXPECT_EQ(sent, fromAbroad);
        EXPECT_EQ(world.stored(), given.stored);
    }
}

/// The last window closes, or the user takes the add-in off.
TEST(Overlap, OutlookReleasedMeanwhileEndsTheStepAndStoresNothing) {
    const struct {
        std::wstring address;
        std::wstring meanwhile;
        Answers answers;
        Sent sent;
    } cases[] = {
        {bob, selectForm, {takePreferred}, fromWork},
        {bob, selectForm, {goBack}, held},
        {bob, selectForm, {preferAbroad, ok}, fromWork},
        {dan, editForm, {editToHome, ok, cancelEdit}, held},
        {eve, offerForm, {offerNever, ok}, fromWork},
        {eve, offerForm, {offerYes, L"frmEmailAddressEdit=cmdOK", ok, cancelEdit}, fromWork},
        {eve, editForm, {offerYes, editToHome, ok, cancelEdit}, fromWork},
        {{},
         L"frmEmailAddress",
         {L"frmEmailAddress=lstEmailAddress=bob@x.org (Home); cmdDelete", L"Veltro=Yes", ok, ok,
          L"frmEmailAddress=cmdClose"},
         {}},
    };
    for (const auto& given : cases) {
        SCOPED_TRACE(text::toUtf8(given.address + L" " + given.answers[0]));
        Answers answers = given.answers;
        answers.push_back(takePreferred);
        OverlapWorld world(profileOf(listed), answers);
        std::weak_ptr<accounts::clsSendAcct> released;
        world.whileOpen(given.meanwhile, [&] {
            released = world.here.sendAccounts;
            world.here.sendAccounts.reset();
            world.here.outlook = {};
        });
        if (given.address.empty()) {
            world.showWindow();
        } else {
            EXPECT_EQ(world.send(given.address), given.sent);
        }
        EXPECT_TRUE(released.expired());
        EXPECT_EQ(world.stored(), listed);
        world.here.outlook = world.globals.outlook;
        EXPECT_EQ(world.send(cy), fromHome);
    }
}

/// Nobody is offered to be added again because another send, inside of a call, could not read the list.
TEST(Overlap, AListThatCannotBeReadInsideOfACallOffersNobody) {
    bool happened = true;
    for (std::size_t call = 1; happened; ++call) {
        OverlapWorld world(profileOf(listed), {ok});
        world.settings.write(L"DoNotShowSelect", L"1");
        happened = false;
        world.outlook.duringCall(call, [&] {
            happened = true;
            if (const auto opened = world.here.sendAccounts) {
                world.outlook.failCall(1);
                opened->LoadList();
                world.outlook.failCall(0);
            }
        });
        const Sent sent = world.send(bob);
        EXPECT_TRUE(sent == fromHome || sent == fromWork) << "call " << call;
        world.outlook.duringCall(0, nullptr);
    }
}

TEST(Overlap, ChangesOfAnotherOutlookCountAtTheNextSend) {
    OverlapWorld world(profileOf(listed), {});
    world.settings.write(L"DoNotShowSelect", L"1");
    world.settings.write(L"MsgAddAddress", L"1");
    EXPECT_EQ(world.send(bob), fromHome);
    ASSERT_TRUE(world.change(1, L"bob@x.org", L"Abroad"));
    EXPECT_EQ(world.send(bob), fromAbroad);
    ASSERT_TRUE(world.remove(1));
    EXPECT_EQ(world.send(bob), fromWork);
    EXPECT_EQ(world.send(cy), fromHome);

    // The other Outlook moves the folder, as its start-up does, and goes on with it.
    world.outlook.deleteItem(world.outlook.itemsIn(tarnwellFolder).at(0));
    world.outlook.store(corvaneFolder, storedList(listText(Entries{cyAbroad})).message);
    EXPECT_EQ(world.send(cy), fromAbroad);
    EXPECT_TRUE(world.outlook.itemsIn(tarnwellFolder).empty());
    EXPECT_TRUE(world.texts.empty());
}

TEST(Overlap, ChangesOfAnotherOutlookDuringAPromptOfTheSendCount) {
    OverlapWorld world(profileOf({cyAtHome}), {L"Confirm=OK"});
    world.settings.write(L"DoNotShowSelect", L"1");
    world.settings.write(L"MsgAddAddress", L"1");
    world.whileOpen(L"Confirm", [&] {
        world.outlook.store(tarnwellFolder, storedList(listText(Entries{bobAbroad})).message);
    });
    EXPECT_EQ(world.send(bob, true), fromAbroad);
}

/// A choice for this mail stands even when the entry that it was to be stored in is gone.
TEST(Overlap, EntryDeletedByAnotherOutlookIsNotWrittenAgain) {
    OverlapWorld world(profileOf(listed), {preferAbroad, ok, editToHome, ok, cancelEdit});
    world.whileOpen(selectForm, [&] { world.remove(1); });
    EXPECT_EQ(world.send(bob), fromAbroad);
    EXPECT_EQ(world.stored(), (Entries{cyAtHome, danGone}));
    world.list.LoadList();
    world.whileOpen(editForm, [&] { world.remove(2); });
    EXPECT_EQ(world.send(dan), held);
    EXPECT_EQ(world.stored(), Entries{cyAtHome});
    EXPECT_EQ(world.texts,
              std::vector<std::wstring>(2, L"This record has been changed or deleted meanwhile."));
}

/// Rows above it have come and gone in the store since the list was loaded.
TEST(Overlap, EntryThatStandsElsewhereNowIsTheOneChanged) {
    OverlapWorld world(profileOf(listed), {preferAbroad, editToHome});
    world.whileOpen(selectForm, [&] { world.remove(1); });
    EXPECT_EQ(world.send(cy), fromAbroad);
    EXPECT_EQ(world.stored(), (Entries{cyAbroad, danGone}));
    world.list.LoadList();
    world.whileOpen(editForm, [&] { world.add(bob, L"Home"); });
    EXPECT_EQ(world.send(dan), fromHome);
    EXPECT_EQ(world.stored(), (Entries{bobAtHome, cyAbroad, danAtHome}));
}

}  // namespace
