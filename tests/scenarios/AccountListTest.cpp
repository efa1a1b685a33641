#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "accounts/Rowset.h"
#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

/// The list of preferred accounts as the user looks after it: in its window, and when a send asks.
namespace {

using Answers = std::vector<std::wstring>;
using Lines = std::vector<std::wstring>;
using platform::Icon;
/// Of a message box.
using Message = std::pair<std::wstring, Icon>;
using Messages = std::vector<Message>;

constexpr wchar_t none[] = L"No Account Selected";
constexpr wchar_t ok[] = L"Veltro=OK";
constexpr wchar_t yes[] = L"Veltro=Yes";
constexpr wchar_t no[] = L"Veltro=No";
constexpr wchar_t add[] = L"frmEmailAddress=cmdAdd";
constexpr wchar_t toHome[] = L"frmEmailAddressEdit=cmbAccounts=Home; cmdOK";
constexpr wchar_t closeList[] = L"frmEmailAddress=cmdClose";
constexpr wchar_t cancelEntry[] = L"frmEmailAddressEdit=cmdCancel";
const Message notValid{L"Please enter a valid email address.", Icon::Warning};
const Message tooLong{
    L"Email Address cannot be saved because it or its account is longer than 255 characters.", Icon::Warning};
const Message pick{L"Please select an item from the list", Icon::Information};
const Message ask{L"Do you wish to delete the chosen email address from the list?", Icon::Question};

/// The list of most tests.
const Entries three{{L"ann@x.org", L"Work"}, {L"bob@x.org", none}, {L"cy@x.org", L"Gone"}};
const auto& ann = three[0];
const auto& bob = three[1];
const auto& cy = three[2];
constexpr wchar_t annLine[] = L"ann@x.org (Work)";
constexpr wchar_t bobLine[] = L"bob@x.org (No Account Selected)";
constexpr wchar_t cyLine[] = L"cy@x.org (Gone)";

Given given(const std::wstring& body, Answers answers, bool offers = false) {
    Given setup{.profile = profileWith(body, corvaneFolder),
                .settings = {{L"MsgAddAddress", offers ? L"0" : L"1"}, {L"DoNotShowSelect", L"1"}}};
    setup.profile.accounts.push_back({.name = L" Abroad ", .address = L"me@example.com"});
    setup.answers = std::move(answers);
    return setup;
}

void openList(Bench& bench) {
    bench.outlook().choose(bench.outlook().explorers().back(),
                           {L"Tarnwell", L"Veltro", L"Send Account (Preferred) List"});
    EXPECT_TRUE(bench.outlook().errors().empty());
}

/// Where the user opens the list.
struct ListBench : Bench {
    explicit ListBench(const Given& setup) : Bench(setup) { openList(*this); }
};

std::wstring chosen(const std::wstring& line, const std::wstring& button) {
    return L"frmEmailAddress=lstEmailAddress=" + line + L"; " + button;
}

std::wstring typed(const std::wstring& address, const std::wstring& rest = L"cmdOK") {
    return L"frmEmailAddressEdit=txtEmailAddress=" + address + L"; " + rest;
}

std::wstring body(Bench& bench) {
    return bench.outlook().view(bench.outlook().itemsIn(corvaneFolder).at(0)).body;
}

/// The body with these rows, their values escaped, as the data-access components write it.
std::wstring written(const Entries& entries) {
    std::wstring rows = L"<rs:data>\r\n";
    for (const auto& [address, account] : entries) {
        rows += L"\t<z:row strEmailAddress='" + address + (address.size() > 80 ? L"'\r\n\t\t" : L"'");
        rows += L" strAccount='" + account + L"'/>\r\n";
    }
    return text::replaceAll(
        accounts::rowset::writeRowset(accounts::AccountRows(accounts::emptyList).rowset()), L"<rs:data>\r\n",
        rows);
}

/// What a control held each time its form asked.
Lines values(Bench& bench, const std::wstring& form, const std::wstring& control) {
    Lines lines;
    for (const auto& prompt : bench.prompts()) {
        if (prompt.where == form) {
            lines.push_back(prompt.control(control).value);
        }
    }
    return lines;
}

Lines selections(Bench& bench) {
    return values(bench, L"frmEmailAddress", L"lstEmailAddress");
}

Messages messages(Bench& bench) {
    Messages told;
    for (const auto& prompt : bench.prompts()) {
        if (prompt.controls.empty()) {
            EXPECT_EQ(prompt.where, L"Veltro");
            told.emplace_back(prompt.text, prompt.style.icon);
        }
    }
    return told;
}

std::wstring shownList(Bench& bench) {
    const auto& prompts = bench.prompts();
    const auto last =
        std::ranges::find(prompts.rbegin(), prompts.rend(), L"frmEmailAddress", &PromptLog::Prompt::where);
    return last->control(L"lstEmailAddress").caption;
}

void shows(const std::wstring& stored, const wchar_t* lines) {
    SCOPED_TRACE(text::toUtf8(lines));
    ListBench bench(given(stored, {closeList}));
    EXPECT_EQ(shownList(bench), lines);
    EXPECT_EQ(body(bench), stored) << "looking changes nothing";
}

TEST(AccountListWindow, ShowsWhateverIsStoredInOrder) {
    shows(listText({{L"cy@x.org", L"A"}, {L"Bob@x.org", L"B"}, {L"ann@x.org", L"C"}, {L"BOB@x.org", L"D"}}),
          L"ann@x.org (C)\nBob@x.org (B)\nBOB@x.org (D)\ncy@x.org (A)");
    shows(listText(L"<z:row strEmailAddress='ann@x.org'/><z:row strAccount='Work'/><z:row/><z:row "
                   L"strEmailAddress='' strAccount='Home'/>"),
          L" (Work)\n ()\n (Home)\nann@x.org ()");
    shows(listText({{L"o&#x27;brien@x.org", L"R&amp;D"}, {L"a&lt;b@x.org", L"&quot;Own&quot;"}}),
          L"a<b@x.org (\"Own\")\no'brien@x.org (R&D)");
}

/// A visit to the list of three. `selected`: the line each time that the window asks again; `rows`: what is
/// stored then, none when the body is untouched.
void visit(const char* name, const Answers& answers, Lines selected, const std::optional<Entries>& rows = {},
           const Messages& told = {}) {
    SCOPED_TRACE(name);
    ListBench bench(given(listText(three), answers));
    EXPECT_EQ(bench.prompts().size(), answers.size());
    selected.insert(selected.begin(), L"");
    EXPECT_EQ(selections(bench), selected);
    EXPECT_EQ(body(bench), rows ? written(*rows) : listText(three));
    EXPECT_EQ(messages(bench), told);
}

constexpr wchar_t drop[] = L"frmEmailAddress=cmdDelete";

TEST(AccountListWindow, ObeysTheKeyboard) {
    visit("Enter, no line", {L"frmEmailAddress={Enter}", ok, L"frmEmailAddress={Escape}"}, {L""}, {}, {pick});
    visit("Delete, no line", {L"frmEmailAddress={Alt+d}", ok, L"frmEmailAddress={Alt+c}"}, {L""}, {}, {pick});
    visit("Enter", {chosen(bobLine, L"{Enter}"), typed(L"bea@x.org", L"{Enter}"), closeList},
          {L"bea@x.org (No Account Selected)"}, Entries{ann, {L"bea@x.org", none}, cy});
    visit("Edit", {chosen(annLine, L"{Alt+e}"), L"frmEmailAddressEdit=cmbAccounts=Home; {Enter}", closeList},
          {L"ann@x.org (Home)"}, Entries{{L"ann@x.org", L"Home"}, bob, cy});
    visit("Add", {L"frmEmailAddress={Alt+a}", typed(L"abe@x.org", L"cmbAccounts=Work; {Enter}"), closeList},
          {L"abe@x.org (Work)"}, Entries{ann, bob, cy, {L"abe@x.org", L"Work"}});
    visit("Escape", {chosen(cyLine, L"{Alt+a}"), typed(L"abe@x.org", L"{Escape}"), closeList}, {cyLine});
    visit("Cancel", {chosen(annLine, L"cmdEdit"), typed(L"a@b.org", L"cmbAccounts=Home; {Alt+c}"), closeList},
          {annLine});
    visit("Delete", {chosen(annLine, L"{Alt+d}"), yes, closeList}, {bobLine}, Entries{bob, cy}, {ask});
}

TEST(AccountListWindow, ChangesWhatTheUserWants) {
    visit("keeps", {chosen(bobLine, L"cmdDelete"), no, closeList}, {bobLine}, {}, {ask});
    visit("deletes the last", {chosen(cyLine, L"cmdDelete"), yes, closeList}, {bobLine}, Entries{ann, bob},
          {ask});
    visit("deletes all", {chosen(bobLine, L"cmdDelete"), yes, drop, yes, drop, yes, drop, ok, closeList},
          {cyLine, annLine, L"", L""}, Entries{}, {ask, ask, ask, pick});
    visit("follows the entry", {chosen(annLine, L"cmdEdit"), typed(L"zoe@x.org"), drop, no, closeList},
          {L"zoe@x.org (Work)", L"zoe@x.org (Work)"}, Entries{{L"zoe@x.org", L"Work"}, bob, cy}, {ask});
    visit("account that is gone", {chosen(cyLine, L"cmdEdit"), typed(L"cyd@x.org"), closeList},
          {L"cyd@x.org (Gone)"}, Entries{ann, bob, {L"cyd@x.org", L"Gone"}});
    visit("other letters", {add, typed(L" ANN@x.org ", L"cmbAccounts=Home; cmdOK"), closeList},
          {L"ANN@x.org (Home)"}, Entries{ann, bob, cy, {L"ANN@x.org", L"Home"}});
}

/// Of the two of an address that the list holds, the chosen one is changed.
TEST(AccountListWindow, ChangesTheRightOneOfTwo) {
    ListBench bench(
        given(listText({{L"bob@x.org", L"Work"}, {L"bob@x.org", L"Home"}, {L"Bob@x.org", L"Home"}}),
              {chosen(L"bob@x.org (Home)", L"cmdEdit"), typed(L"bob@y.org"),
               chosen(L"Bob@x.org (Home)", L"cmdDelete"), yes, closeList}));
    EXPECT_EQ(body(bench), written({{L"bob@x.org", L"Work"}, {L"bob@y.org", L"Home"}}));
}

TEST(AccountEntry, StaysOpenWithWhatWasTypedWhenItIsRefused) {
    const Message empty{L"Please enter the e-mail address name first", Icon::Information};
    const Message listed{
        L"There is already an existing e-mail with this address. Please enter another email address",
        Icon::Warning};
    const std::wstring tooMuch = std::wstring(250, L'x') + L"@x.org";
    const Lines addresses{
        L"",          L"  ",          L"ann",           L"ann@x", L"a nn@x.org", L"o'brien@x.org",
        L"r&d@x.org", L"<ann@x.org>", L"\"ann\"@x.org", tooMuch,  L" ann@x.org "};
    Messages expected{empty, empty};
    expected.resize(9, notValid);
    expected.insert(expected.end(), {tooLong, listed});
    Answers answers{add};
    for (const std::wstring& address : addresses) {
        answers.insert(answers.end(), {typed(address, L"cmbAccounts=Home; cmdOK"), ok});
    }
    answers.insert(answers.end(), {cancelEntry, closeList});
    ListBench bench(given(listText(three), answers));
    EXPECT_EQ(messages(bench), expected);
    Lines shown = values(bench, L"frmEmailAddressEdit", L"txtEmailAddress");
    shown.erase(shown.begin());
    EXPECT_EQ(shown, addresses);
    EXPECT_EQ(values(bench, L"frmEmailAddressEdit", L"cmbAccounts").back(), L"Home");
    EXPECT_EQ(body(bench), listText(three));
}

/// `account`: of the entry that is edited; none when one is added.
void offersAccounts(const std::optional<std::wstring>& account, const wchar_t* preselected,
                    const std::wstring& more = {}) {
    SCOPED_TRACE(text::toUtf8(account.value_or(L"adding")));
    ListBench bench(given(
        listText({{L"ann@x.org", account.value_or(L"Work")}}),
        {account ? chosen(L"ann@x.org (" + *account + L")", L"cmdEdit") : add, cancelEntry, closeList}));
    const auto& editor = bench.prompts().at(1);
    EXPECT_EQ(editor.text, account ? L"Edit" : L"Add Preferred Account");
    EXPECT_EQ(editor.control(L"cmbAccounts").caption, L"No Account Selected\nWork\nHome\n Abroad " + more);
    EXPECT_EQ(editor.control(L"cmbAccounts").value, preselected);
    EXPECT_EQ(editor.control(L"txtEmailAddress").value, account ? L"ann@x.org" : L"");
    EXPECT_FALSE(editor.control(L"lblMsg").visible);
}

TEST(AccountEntry, OffersTheAccountsOfTheProfile) {
    offersAccounts({}, none);
    offersAccounts(none, none);
    offersAccounts(L"", none);
    offersAccounts(L" hOME", L"Home");
    offersAccounts(L"Abroad", L" Abroad ");
    offersAccounts(L"Gone", L"Gone", L"\nGone");
}

TEST(AccountEntry, IsStoredAsTheComponentsWriteIt) {
    const std::wstring longest = std::wstring(249, L'x') + L"@x.org";
    const std::wstring own = L"R&D;; <Ann's> \"own\"";
    Given setup =
        given(accounts::emptyList,
              {add, typed(L"rd@x.org", L"cmbAccounts=" + own + L"; cmdOK"), add, typed(longest),
               chosen(L"rd@x.org (" + own + L")", L"cmdEdit"), typed(L"j\xFCrgen@x.org"), closeList});
    setup.profile.accounts.push_back({.name = L"R&D; <Ann's> \"own\"", .address = L"me@example.com"});
    ListBench bench(setup);
    EXPECT_EQ(bench.prompts().size(), 7U);
    EXPECT_EQ(body(bench), written({{L"j\xFCrgen@x.org", L"R&#x26;D; &#x3c;Ann&#x27;s&#x3e; &#x22;own&#x22;"},
                                    {longest, none}}));
}

/// The list may hold what the editor does not accept: it can be put right, and deleted.
TEST(AccountEntry, ThatIsNoAddressCanBePutRight) {
    ListBench bench(given(
        listText(L"<z:row strEmailAddress='o&#x27;brien@x.org' strAccount='Work'/><z:row "
                 L"strAccount='Work'/><z:row strEmailAddress='r&#x26;d@x.org'/>"),
        {chosen(L" (Work)", L"cmdEdit"), typed(L"ann@x.org"), chosen(L"o'brien@x.org (Work)", L"cmdEdit"),
         toHome, ok, typed(L"obrien@x.org"), chosen(L"r&d@x.org ()", L"cmdDelete"), yes, closeList}));
    EXPECT_EQ(messages(bench), (Messages{notValid, ask}));
    EXPECT_EQ(body(bench), written({{L"ann@x.org", L"Work"}, {L"obrien@x.org", L"Home"}}));
}

TEST(AccountListWindow, KeepsTheListInAMailboxThatTakesNoChange) {
    Given setup = given(listText(three), {add, typed(L"dan@x.org"), ok, ok, cancelEntry,
                                          chosen(annLine, L"cmdEdit"), typed(L"zoe@x.org"), ok, ok,
                                          cancelEntry, chosen(cyLine, L"cmdDelete"), yes, ok, ok, closeList});
    setup.profile.stores[0].readOnly = true;
    ListBench bench(setup);
    const Message error = messages(bench).at(0);
    EXPECT_TRUE(error.first.starts_with(L"Error:EmailAddressMailSave - "));
    EXPECT_EQ(error.second, Icon::Critical);
    const Message notSaved{L"The list could not be saved. It is as it was before.", Icon::Warning};
    EXPECT_EQ(messages(bench), (Messages{error, notSaved, error, notSaved, ask, error, notSaved}));
    EXPECT_EQ(selections(bench), (Lines{L"", L"", annLine, cyLine}));
    EXPECT_EQ(shownList(bench), std::wstring(annLine) + L"\n" + bobLine + L"\n" + cyLine);
    EXPECT_EQ(body(bench), listText(three));
}

TEST(AccountListWindow, LeavesACorruptedListToTheUser) {
    const std::wstring corrupted =
        L"The list of your Email Addresses appears to be corrupted. \r\n\r\nThis data is saved in an e-mail "
        L"labeled 'Email Addresses' in the folder \\\\Personal Folders\\Corvane Settings\\Veltro. This error "
        L"can only occur if someone has changed the e-mail by hand.\r\n\r\nYou can correct this by:\r\n1. "
        L"Deleting/renaming your old data email so that Veltro can automatically make a new email to save "
        L"its data OR\r\n2. Manually fixing the error in the data email";
    const Message told{corrupted, Icon::Information};
    for (const std::wstring& stored :
         {std::wstring(), listText(three).substr(0, 900), listText(three) + L"x"}) {
        Bench bench(given(stored, {ok, ok, add, typed(L"dan@x.org"), ok, cancelEntry, ok, closeList}));
        EXPECT_EQ(bench.promptNames(), Lines{L"Veltro"}) << "as soon as Outlook starts";
        openList(bench);
        EXPECT_EQ(messages(bench), (Messages{told, told, {corrupted, Icon::Warning}, told}));
        EXPECT_EQ(bench.promptNames().at(2), L"frmEmailAddress");
        EXPECT_EQ(shownList(bench), L"");
        EXPECT_EQ(body(bench), stored);
        EXPECT_EQ(bench.outlook().itemsIn(corvaneFolder).size(), 1U);
    }
}

TEST(AccountListWindow, ShowsWhatTheUserHasDoneToTheItem) {
    Bench bench(given(listText(three), {closeList, closeList, add, typed(L"dan@x.org"), closeList}));
    const automation::Object item = bench.outlook().itemsIn(corvaneFolder).at(0);
    const automation::Object window = bench.outlook().openItem(item);
    bench.outlook().typeBody(item, listText({bob}));
    bench.outlook().closeInspector(window, true);
    openList(bench);
    EXPECT_EQ(shownList(bench), bobLine);

    bench.outlook().deleteItem(item);
    openList(bench);
    EXPECT_EQ(shownList(bench), L"");
    ASSERT_EQ(bench.outlook().itemsIn(corvaneFolder).size(), 1U);
    const host::ItemView made = bench.outlook().view(bench.outlook().itemsIn(corvaneFolder)[0]);
    EXPECT_EQ(made.subject, L"Email Address");
    EXPECT_EQ(made.body, accounts::emptyList);
    EXPECT_FALSE(made.unread);
    openList(bench);
    EXPECT_EQ(body(bench), written({{L"dan@x.org", none}}));
}

TEST(AccountListWindow, TakesEntriesInOneVisitAfterTheOther) {
    ListBench bench(
        given(accounts::emptyList, {add, typed(L"cy@x.org"), add, typed(L"bob@x.org"), closeList, add,
                                    typed(L"dan@x.org"), add, typed(L"ann@x.org"), closeList}));
    EXPECT_EQ(shownList(bench), L"bob@x.org (No Account Selected)\ncy@x.org (No Account Selected)");
    bench.outlook().openExplorer();
    openList(bench);
    EXPECT_EQ(body(bench), written({bob, {L"cy@x.org", none}, {L"dan@x.org", none}, {L"ann@x.org", none}}));
}

/// Outlook delivers a send of another window inside of one of the calls, which loads the list.
TEST(AccountListWindow, ChangesTheChosenEntryWhateverIsSentMeanwhile) {
    const struct {
        Answers answers;
        Entries stored;
    } cases[] = {{{chosen(bobLine, L"cmdDelete"), yes, closeList}, {ann, cy}},
                 {{chosen(bobLine, L"cmdEdit"), toHome, closeList}, {ann, {L"bob@x.org", L"Home"}, cy}}};
    for (const auto& [answers, stored] : cases) {
        bool sent = true;
        for (std::size_t call = 1; sent; call += 3) {
            Bench bench(given(listText(three), answers));
            sent = false;
            bench.outlook().duringCall(call, [&] {
                EXPECT_EQ(bench.send(plainMail()).state, host::SendState::Sent);
                sent = true;
            });
            openList(bench);
            bench.outlook().duringCall(0, nullptr);
            EXPECT_EQ(body(bench), written(stored)) << "call " << call;
        }
    }
}

TEST(AccountListWindow, HoldsHundreds) {
    Entries many;
    for (int number = 1; number <= 300; ++number) {
        many.emplace_back(L"user" + std::to_wstring(1000 + number) + L"@x.org", L"Work");
    }
    ListBench bench(given(listText(many), {chosen(L"user1200@x.org (Work)", L"cmdEdit"), toHome, closeList}));
    many[199].second = L"Home";
    EXPECT_EQ(body(bench), written(many));
    EXPECT_EQ(selections(bench).back(), L"user1200@x.org (Home)");
    EXPECT_EQ(std::ranges::count(shownList(bench), L'\n'), 299);
}

TEST(AccountListWindow, DecidesTheNextSend) {
    Bench bench(given(listText({{L"bob@example.org", none}}),
                      {chosen(L"bob@example.org (No Account Selected)", L"cmdEdit"), toHome, closeList}));
    EXPECT_EQ(bench.send(plainMail()).mail.account, L"Work");
    openList(bench);
    EXPECT_EQ(bench.send(plainMail()).mail.account, L"Home");
}

/// A mail that is sent twice.
void offers(const char* name, const Answers& answers, const std::wstring& address, const Entries& rows = {},
            const Messages& told = {}, const wchar_t* silenced = L"0") {
    SCOPED_TRACE(name);
    Bench bench(given(accounts::emptyList, answers, true));
    host::Message message = plainMail();
    message.to[0].address = address;
    EXPECT_EQ(bench.send(message).state, host::SendState::Sent);
    EXPECT_EQ(bench.send(message).state, host::SendState::Sent);
    EXPECT_EQ(bench.prompts().size(), answers.size());
    EXPECT_EQ(messages(bench), told);
    EXPECT_EQ(entriesOf(accounts::AccountRows(body(bench))), rows);
    EXPECT_EQ(bench.world().setting(L"MsgAddAddress"), silenced);
}

const Messages warned{
    {L"If you tick this box, this message will not appear for any e-mail address.\r\n\r\nWe recommend that "
     L"you leave this unticked as the message will only appear once for each e-mail address.\r\n\r\nThis is "
     L"the easist way to add e-mail addresses to the Veltro List.\r\n\r\nDo you still wish to stop "
     L"displaying this message?",
     Icon::Question}};
constexpr wchar_t never[] = L"frmAddEmailToList=cmdNo";
constexpr wchar_t notNow[] = L"frmAddEmailToList=Command1";
const std::wstring tick = L"frmAddEmailToList=chkDontShowMessAgain=1; ";

TEST(AccountOffer, IsMadeUntilTheUserHasDecided) {
    const Entries obrien{{L"o'brien@x.org", none}};
    offers("Never", {never}, L"bob@x.org", {bob});
    offers("Never, apostrophe", {never}, obrien[0].first, obrien);
    offers("Never, ampersand", {never}, L"r&d@x.org", {{L"r&d@x.org", none}});
    offers("Never, too long", {never, ok, notNow}, std::wstring(250, L'x') + L"@x.org", {}, {tooLong});
    offers("Not Now", {notNow, notNow}, L"bob@x.org");
    offers("Escape", {L"frmAddEmailToList={Escape}", notNow}, L"bob@x.org");
    offers("Enter", {L"frmAddEmailToList={Enter}", L"frmEmailAddressEdit={Enter}"}, L"bob@x.org",
           {{L"bob@x.org", L"Work"}});
    offers("Yes, then Escape", {L"frmAddEmailToList={Alt+y}", L"frmEmailAddressEdit={Escape}", notNow},
           L"bob@x.org");
    offers("Yes, apostrophe",
           {L"frmAddEmailToList=cmdYes", L"frmEmailAddressEdit=cmdOK", ok, cancelEntry, never},
           obrien[0].first, obrien, {notValid});
}

TEST(AccountOffer, IsSilencedByATickOnly) {
    offers("Not Now", {tick + L"Command1", yes}, L"bob@x.org", {}, warned, L"1");
    offers("Never", {tick + L"cmdNo", yes}, L"bob@x.org", {bob}, warned, L"1");
    offers("Yes", {tick + L"cmdYes", yes, cancelEntry}, L"bob@x.org", {}, warned, L"1");
    offers("Escape", {tick + L"{Escape}", yes}, L"bob@x.org", {}, warned, L"1");
    offers("thought better of", {tick + L"Command1", no, notNow}, L"bob@x.org", {}, warned);
    offers("taken back", {tick + L"chkDontShowMessAgain=0; Command1", yes, notNow}, L"bob@x.org", {}, warned);
}

}  // namespace
