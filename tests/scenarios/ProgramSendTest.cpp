#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "tests/scenarios/Bench.h"

namespace {

using automation::Object;
using host::SendState;
using Names = std::vector<std::wstring>;

/// A mail whose window the program has asked for, but does not show.
Object newMailOfProgram(Bench& bench, const std::wstring& subject, const std::wstring& body) {
    const Object mail = bench.outlook().application().call(L"CreateItem", 0).toObject();
    mail.put(L"To", L"bob@example.org");
    mail.put(L"Subject", subject);
    mail.put(L"Body", body);
    mail.get(L"GetInspector");
    return mail;
}

/// A window that was never shown tells of no closing.
TEST(HiddenWindows, AreLetGoOnceTheirMailIsSent) {
    for (const bool sentItemsStay : {false, true}) {
        Given setup;
        setup.profile.sentItemsStay = sentItemsStay;
        Bench bench(setup);
        constexpr std::size_t sends = 100;
        const auto sendAll = [&] {
            for (std::size_t count = 0; count < sends; ++count) {
                newMailOfProgram(bench, L"Budget", L"Hello").call(L"Send");
            }
        };
        sendAll();
        const std::size_t before = bench.outlook().liveObjects();
        sendAll();
        EXPECT_EQ(bench.outlook().liveObjects(), before + sends) << "more than the sent items";
        EXPECT_EQ(bench.outlook().itemsIn(L"Sent Items").size(), 2 * sends);
    }
}

TEST(HiddenWindows, AreLetGoHoweverLateTheirMailIsSent) {
    Bench bench;
    const auto sendAtOnce = [&](std::size_t count) {
        for (std::size_t mail = 0; mail < count; ++mail) {
            newMailOfProgram(bench, L"Budget", L"Hello").call(L"Send");
        }
    };
    sendAtOnce(1);
    const std::size_t before = bench.outlook().liveObjects();
    std::vector<Object> waiting;
    for (std::size_t mail = 0; mail < 20; ++mail) {
        waiting.push_back(newMailOfProgram(bench, L"Budget", L"Hello"));
    }
    for (const Object& mail : std::exchange(waiting, {})) {
        mail.call(L"Send");
    }
    sendAtOnce(40);
    EXPECT_EQ(bench.outlook().liveObjects(), before + 60) << "more than the sent items";
}

TEST(HiddenWindows, AreGuardedHoweverManyThereAre) {
    constexpr std::size_t mails = 30;
    Bench bench({.answers = std::vector<std::wstring>(mails + 1, L"Attachment(s) missing=No")});
    const Object shown = bench.outlook().openNewMail(plainMail(L"Budget", L"See attached."));
    bench.outlook().cancelClosing(shown);
    std::vector<Object> hidden;
    for (std::size_t count = 0; count < mails; ++count) {
        hidden.push_back(newMailOfProgram(bench, L"Budget", L"See attached."));
    }
    for (const Object& mail : hidden) {
        EXPECT_THROW(mail.call(L"Send"), automation::Error);
    }
    EXPECT_EQ(bench.outlook().send(shown).state, SendState::Cancelled);
    EXPECT_EQ(bench.prompts().size(), mails + 1);
}

/// To a program that sends, no window is active: which editor the mail has is known from its own.
TEST(ProgramsSend, IsCheckedByItsOwnEditor) {
    for (const wchar_t* version : {L"9.0.0.2711", L"11.0.0.5510", L"14.0.0.4760"}) {
        Given setup{.answers = {L"frmNoSubject=cmdOK", L"Attachment(s) missing=No"}};
        setup.profile.version = version;
        setup.profile.guard = host::GuardMode::Off;  // The user lets the program send.
        Bench bench(setup);
        const Object mail = newMailOfProgram(bench, L"", L"See attached.");
        EXPECT_THROW(mail.call(L"Send"), automation::Error);
        EXPECT_EQ(bench.promptNames(), (Names{L"frmNoSubject", std::wstring(attachmentPrompt)})) << version;
    }
}

TEST(ProgramsSend, AsksInWordWhileAnotherKindOfWindowIsInFront) {
    Given setup;
    setup.profile.version = L"11.0.0.5510";
    setup.profile.editor = host::Editor::Word;
    Bench bench(setup);
    Names macros;
    bench.outlook().onWordMacro([&](const std::wstring& name, std::span<const automation::Value> arguments) {
        macros.push_back(name);
        arguments[1].variable() = true;
        return automation::Value();
    });
    host::Message contact;
    contact.itemClass = host::itemClass::contact;
    bench.outlook().openNewMail(contact);
    EXPECT_THROW(newMailOfProgram(bench, L"", L"Hello").call(L"Send"), automation::Error);
    EXPECT_EQ(macros, Names{L"vtEmptySubjectCheckWord"});
}

/// From Outlook 2007 on every editor is Word's, inside of Outlook's own window.
TEST(ProgramsSend, AsksInWordUpToOutlook2003) {
    for (const auto& [version, inWord] : {std::pair{L"11.0.0.5510", true}, {L"12.0.0.4518", false}}) {
        Given setup;
        if (!inWord) {
            setup.answers = {L"frmNoSubject=cmdCancel"};
        }
        setup.profile.version = version;
        setup.profile.editor = host::Editor::Word;
        Bench bench(setup);
        bool macro = false;
        bench.outlook().onWordMacro([&](const std::wstring&, std::span<const automation::Value>) {
            macro = true;
            return automation::Value();
        });
        bench.send(plainMail(L""));
        EXPECT_EQ(macro, inWord) << version;
        EXPECT_EQ(bench.prompts().size(), inWord ? 0U : 1U);
    }
}

/// A window whose editor cannot be told is taken for one of Outlook's own.
TEST(ProgramsSend, IsCheckedWhenItsEditorCannotBeTold) {
    Given setup{.answers = {L"frmNoSubject=cmdCancel", L"frmNoSubject=cmdCancel"}};
    setup.profile.version = L"11.0.0.5510";
    Bench bench(setup);
    const Object window = bench.outlook().openNewMail(plainMail(L""));
    bench.outlook().meter()->record(true);
    bench.outlook().send(window);
    const Names calls = bench.outlook().meter()->log();
    const auto asked = std::ranges::find(calls, L"Inspector.EditorType");
    ASSERT_NE(asked, calls.end());
    bench.outlook().failCall(static_cast<std::size_t>(asked - calls.begin()) + 1);
    EXPECT_EQ(bench.outlook().send(window).state, SendState::Cancelled);
    EXPECT_EQ(bench.promptNames(), (Names{L"frmNoSubject", L"frmNoSubject"}));
}

}  // namespace
