#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

/// Word as the editor of mails, up to Outlook 2003: the macros of the template ask, in Word's process.
namespace {

using automation::Object;
using host::SendState;
using Names = std::vector<std::wstring>;
using Settings = std::map<std::wstring, std::wstring>;

constexpr wchar_t outlook2000[] = L"9.0.0.2711";
constexpr wchar_t outlook2002[] = L"10.0.0.2627";
constexpr wchar_t outlook2003[] = L"11.0.0.5510";

const Entries bobAtHome{{L"bob@example.org", L"Home"}};
const Entries bobGone{{L"bob@example.org", L"Gone"}};

/// Work is the default account.
Given given(const wchar_t* version, host::Editor editor, const Entries& list = {}) {
    Given result{.profile = profileWith(listText(list), corvaneFolder)};
    result.profile.version = version;
    result.profile.editor = editor;
    return result;
}

Given inWord(const wchar_t* version = outlook2003, const Entries& list = {}) {
    return given(version, host::Editor::Word, list);
}

/// The list as it is stored after all.
Entries stored(Bench& bench) {
    return entriesOf(
        accounts::AccountRows(bench.outlook().view(bench.outlook().itemsIn(corvaneFolder).at(0)).body));
}

/// What became of a mail, and what the user met on the way.
struct Outcome {
    SendState state = SendState::Cancelled;
    std::wstring subject;
    std::wstring account;
    std::optional<automation::Date> deferred;
    Entries list;
    std::optional<std::wstring> neverOffered;
    std::optional<std::wstring> neverAsked;
    Names prompts;
    std::vector<std::wstring> texts;
    /// Word runs on, some time after the mail.
    bool wordLeft = false;

    bool operator==(const Outcome&) const = default;
};

Outcome outcomeOf(Given setup, const std::wstring& subject) {
    Bench bench(std::move(setup));
    host::Message message = plainMail(subject);
    message.to[0].address = L"bob@example.org";
    const host::SendOutcome sent = bench.send(message);
    Outcome outcome{.state = sent.state,
                    .subject = sent.mail.subject,
                    .account = sent.mail.account,
                    .deferred = sent.mail.deferred,
                    .list = stored(bench),
                    .neverOffered = bench.world().setting(L"MsgAddAddress"),
                    .neverAsked = bench.world().setting(L"DoNotShowSelect"),
                    .prompts = bench.promptNames(),
                    .texts = {}};
    for (const PromptLog::Prompt& prompt : bench.prompts()) {
        outcome.texts.push_back(prompt.text);
        for (const platform::ControlState& control : prompt.controls) {
            outcome.texts.push_back(control.name + L"=" + control.caption + L"|" + control.value);
        }
    }
    bench.outlook().closeInspector(bench.outlook().openNewMail(plainMail()));
    bench.world().fireTimer();
    outcome.wordLeft = bench.outlook().wordRuns();
    return outcome;
}

struct Case {
    const char* name;
    Names answers;
    Settings settings{};
    Entries list{};
    std::wstring subject = L"Budget";
};

class AskedInWord : public testing::TestWithParam<Case> {};

/// The same answers come to the same as over Outlook's own editor, with the same dialogs.
TEST_P(AskedInWord, ComesToTheSameAsInOutlook) {
    const Case& test = GetParam();
    for (const wchar_t* version : {outlook2002, outlook2003}) {
        Outcome outcomes[2];
        for (const host::Editor editor : {host::Editor::Html, host::Editor::Word}) {
            Given setup = given(version, editor, test.list);
            setup.settings = test.settings;
            // The account of a mail is looked at from Outlook 2003 on.
            setup.answers = version == outlook2003 || test.list.empty() ? test.answers : Names();
            outcomes[editor == host::Editor::Word ? 1 : 0] = outcomeOf(setup, test.subject);
        }
        EXPECT_EQ(outcomes[0].prompts.size(), outcomes[1].prompts.size());
        outcomes[1].wordLeft = false;  // With the mail that is still open.
        EXPECT_TRUE(outcomes[0] == outcomes[1]) << version;
        EXPECT_EQ(outcomes[1].prompts.empty(), version == outlook2002 && !test.list.empty());
    }
}

const Settings delayed{{L"DelayEmails", L"True"},
                       {L"AutoDelayAll", L"1"},
                       {L"DelayTime", L"90"},
                       {L"NotifyBeforeDelaying", L"True"}};
const Settings offered{{L"MsgAddAddress", L"0"}};
const Entries ann{{L"ann@example.org", L"Home"}};

INSTANTIATE_TEST_SUITE_P(
    Questions, AskedInWord,
    testing::Values(
        Case{"SubjectEntered", {L"frmNoSubject=txtSubject=Plan; cmdOK"}, {}, {}, L""},
        Case{"SubjectCancelled", {L"frmNoSubject=cmdCancel"}, {}, {}, L""},
        Case{"Delayed", {L"frmNotifyB4Delay=cmdYes"}, delayed},
        Case{"NotDelayed", {L"frmNotifyB4Delay=cmdNo"}, delayed},
        Case{"Added",
             {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK"},
             offered,
             ann},
        Case{"NotAdded", {L"frmAddEmailToList=Command1"}, offered, ann},
        Case{"NeverAdded", {L"frmAddEmailToList=cmdNo"}, offered, ann},
        Case{"NeverOfferedAgain",
             {L"frmAddEmailToList=chkDontShowMessAgain=1; Command1", L"Veltro=Yes"},
             offered,
             ann},
        Case{"GoneReplaced", {L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK"}, {}, bobGone},
        Case{"GoneCancelled", {L"frmEmailAddressEdit=cmdCancel"}, {}, bobGone},
        Case{"Preferred", {L"frmSelectSendAcct=cmdOK"}, {}, bobAtHome},
        Case{"AnotherForGood", {L"frmSelectSendAcct=cmbAccts=Work; chkSetDefault=1; cmdOK"}, {}, bobAtHome},
        Case{"PreferredUnasked", {L"frmSelectSendAcct=chkDoNotShow=1; cmdOK"}, {}, bobAtHome},
        Case{"GoesBack", {L"frmSelectSendAcct=optCancel=1; cmdOK"}, {}, bobAtHome}),
    [](const auto& test) { return test.param.name; });

/// Word 2000 is not asked to run macros.
TEST(Word, AsksNothingInOutlook2000) {
    Given setup = inWord(outlook2000, bobAtHome);
    setup.settings = delayed;
    const Outcome outcome = outcomeOf(setup, L"");
    EXPECT_EQ(outcome.state, SendState::Sent);
    EXPECT_TRUE(outcome.prompts.empty());
}

/// Whatever keeps Word from asking: the mail leaves as it is.
TEST(Word, LeavesAMailAloneWhereItCannotAsk) {
    const struct {
        const char* name;
        std::function<void(Given&)> change;
    } cases[] = {
        {"no template", [](Given& setup) { setup.wordTemplate = ""; }},
        {"a damaged template", [](Given& setup) { setup.wordTemplate = "no template"; }},
        {"no Buttons", [](Given& setup) { setup.buttonsRegistered = false; }},
        {"no macros allowed", [](Given& setup) { setup.profile.macrosAllowed = false; }},
        {"no Word", [](Given& setup) { setup.profile.wordRegistered = false; }},
    };
    for (const auto& [name, change] : cases) {
        Given setup = inWord(outlook2003, bobAtHome);
        setup.settings = delayed;
        change(setup);
        const Outcome outcome = outcomeOf(setup, L"");
        EXPECT_FALSE(outcome.wordLeft) << name;
        EXPECT_EQ(outcome.state, SendState::Sent) << name;
        EXPECT_EQ(outcome.account, L"Work") << name;
        EXPECT_TRUE(outcome.prompts.empty()) << name;
    }
}

/// Word dies with a question open: nobody has denied the mail.
TEST(Word, LetsTheMailLeaveWhenItDies) {
    for (const bool reopened : {false, true}) {
        Given setup = inWord(outlook2003, bobAtHome);
        setup.answers = {L"frmSelectSendAcct=optCancel=1; cmdOK"};
        if (reopened) {
            setup.answers.push_back(L"frmSelectSendAcct=optCancel=1; cmdOK");
        }
        Bench bench(setup);
        bench.meanwhile([&] { bench.world().killWord(); });
        host::Message message = plainMail();
        message.to[0].address = L"bob@example.org";
        const host::SendOutcome first = bench.send(message);
        EXPECT_EQ(bench.prompts().size(), 1U);
        EXPECT_EQ(first.state, SendState::Sent);
        EXPECT_EQ(first.mail.account, L"Work");
        if (reopened) {
            bench.meanwhile(nullptr);
            EXPECT_EQ(bench.send(message).state, SendState::Cancelled) << "the next Word asks again";
        }
    }
}

/// Word's answers lead nowhere when the add-in is gone: then it does not ask at all.
TEST(Word, AsksNothingOfAnAddInThatIsNotConnected) {
    Bench bench(inWord());
    const Object window = bench.outlook().openNewMail(plainMail(L""));
    const Object word = window.get(L"WordEditor").toObject().get(L"Application").toObject();
    bench.disconnect(1);
    automation::Value item = window.get(L"CurrentItem").toObject();
    automation::Value cancel = false;
    EXPECT_FALSE(word.call(L"Run", L"vtEmptySubjectCheckWord", automation::Value::reference(item),
                           automation::Value::reference(cancel))
                     .toBool());
    EXPECT_TRUE(bench.prompts().empty());
}

TEST(Word, LoadsTheTemplateOnceAndNeverAsksToSaveIt) {
    Bench bench(inWord());
    const Object first = bench.outlook().openNewMail(plainMail());
    const Object second = bench.outlook().openNewMail(plainMail());
    bench.outlook().activate(first);
    const Object word = second.get(L"WordEditor").toObject().get(L"Application").toObject();
    EXPECT_EQ(word.get(L"AddIns").toObject().get(L"Count").toInteger(), 1);
    EXPECT_FALSE(bench.outlook().wordAsksToSaveTemplates());
}

TEST(Word, IsNotTouchedWhereItIsNoEditor) {
    for (const wchar_t* version : {outlook2003, L"14.0.0.4760"}) {
        Bench bench(given(version, host::Editor::Html));
        bench.outlook().openWordDocument(L"Letter");
        bench.outlook().openNewMail(plainMail());
        bench.send(plainMail());
        EXPECT_FALSE(bench.world().fireTimer());
        bench.outlook().quit();
        EXPECT_TRUE(bench.outlook().wordRuns()) << version;
    }
}

/// Some time after the last mail in Word is closed, or when Outlook ends.
TEST(Word, EndsWhenNoMailIsInItAndNothingElse) {
    Bench bench(inWord());
    const Object first = bench.outlook().openNewMail(plainMail());
    const Object second = bench.outlook().openNewMail(plainMail());
    bench.outlook().closeInspector(first);
    EXPECT_TRUE(bench.world().fireTimer());
    EXPECT_TRUE(bench.outlook().wordRuns()) << "another mail is being written";

    bench.outlook().closeInspector(second);
    EXPECT_TRUE(bench.outlook().wordRuns()) << "the next mail may come soon";
    EXPECT_TRUE(bench.world().fireTimer());
    EXPECT_FALSE(bench.outlook().wordRuns());
    EXPECT_FALSE(bench.world().fireTimer());
}

TEST(Word, StaysWhileTheUserHasADocumentOpenInIt) {
    Bench bench(inWord());
    const Object letter = bench.outlook().openWordDocument(L"Letter");
    bench.send(plainMail());
    EXPECT_TRUE(bench.world().fireTimer());
    EXPECT_TRUE(bench.outlook().wordRuns());
    bench.outlook().quit();
    EXPECT_TRUE(bench.outlook().wordRuns());
    EXPECT_EQ(letter.get(L"Name").toText(), L"Letter");
}

TEST(Word, EndsWithOutlook) {
    Bench bench(inWord());
    bench.send(plainMail());
    EXPECT_TRUE(bench.outlook().wordRuns());
    bench.outlook().quit();
    EXPECT_FALSE(bench.outlook().wordRuns());
}

/// Outlook that ends has asked what is to be saved, whatever windows there still are.
TEST(Word, EndsWithOutlookWhateverMailIsInFront) {
    for (const bool other : {false, true}) {
        Bench bench(inWord());
        const Object letter = other ? bench.outlook().openWordDocument(L"Letter") : Object();
        const Object document = bench.outlook().openNewMail(plainMail()).get(L"WordEditor").toObject();
        bench.outlook().announceQuit();
        EXPECT_THROW(document.get(L"Name"), automation::Error);
        EXPECT_EQ(bench.outlook().wordRuns(), other);
        if (other) {
            EXPECT_EQ(letter.get(L"Name").toText(), L"Letter");
        }
    }
}

/// An Outlook that was started to write a mail has no other window.
TEST(Word, EndsWithTheLastWindowAndNotBefore) {
    Given setup = inWord();
    setup.profile.explorers = 0;
    Bench bench(setup);
    const Object first = bench.outlook().openNewMail(plainMail());
    const Object second = bench.outlook().openNewMail(plainMail(L"Plan"));
    const Object document = first.get(L"WordEditor").toObject();
    bench.outlook().closeInspector(second);
    EXPECT_EQ(document.get(L"Name").toText(), L"Budget");
    bench.outlook().closeInspector(first);
    EXPECT_FALSE(bench.outlook().wordRuns());
}

TEST(Word, StaysWhereTheUserHasStartedIt) {
    Bench bench(inWord());
    bench.send(plainMail());
    bench.outlook().startWord();
    EXPECT_TRUE(bench.world().fireTimer());
    bench.outlook().quit();
    EXPECT_TRUE(bench.outlook().wordRuns());
}

/// A user who takes the add-in off goes on writing.
TEST(Word, KeepsAMailThatIsBeingWrittenWhenTheAddInGoes) {
    Bench bench(inWord());
    bench.outlook().closeInspector(bench.outlook().openNewMail(plainMail(L"Plan")));
    const Object window = bench.outlook().openNewMail(plainMail());
    const Object document = window.get(L"WordEditor").toObject();
    bench.disconnect(1);
    EXPECT_EQ(document.get(L"Name").toText(), L"Budget");
    EXPECT_FALSE(bench.world().fireTimer());
}

/// The window of a mail from before the add-in was connected.
TEST(Word, AsksInAWindowThatWasThereBefore) {
    Given setup = inWord(outlook2003, bobAtHome);
    setup.connected = false;
    setup.answers = {L"frmSelectSendAcct=cmdOK"};
    Bench bench(setup);
    host::Message message = plainMail();
    message.to[0].address = L"bob@example.org";
    const Object window = bench.outlook().openNewMail(message);
    bench.connect();
    EXPECT_EQ(bench.outlook().send(window).mail.account, L"Home");
}

/// A program's mail has a window of Word's that is never in front.
TEST(Word, AsksAboutAProgramsMail) {
    Given setup = inWord();
    setup.answers = {L"frmNoSubject=cmdCancel"};
    Bench bench(setup);
    const Object mail = bench.outlook().application().call(L"CreateItem", 0).toObject();
    mail.get(L"Recipients").toObject().call(L"Add", L"bob@example.com").toObject().call(L"Resolve");
    const Object window = mail.call(L"GetInspector").toObject();
    EXPECT_THROW(mail.call(L"Send"), automation::Error);
    EXPECT_EQ(bench.promptNames(), Names{L"frmNoSubject"});
    EXPECT_FALSE(bench.outlook().wordAsksToSaveTemplates());
}

/// The user has unticked the template in Word's list of add-ins.
TEST(Word, InstallsItsTemplateAgain) {
    Bench bench(inWord());
    const Object window = bench.outlook().openNewMail(plainMail());
    const Object word = window.get(L"WordEditor").toObject().get(L"Application").toObject();
    const Object file = word.get(L"AddIns").toObject().call(L"Item", L"Veltro.dot").toObject();
    file.put(L"Installed", false);
    bench.outlook().activate(bench.outlook().explorers().front());
    bench.outlook().activate(window);
    EXPECT_TRUE(file.get(L"Installed").toBool());
}

}  // namespace
