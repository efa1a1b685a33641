#include <gtest/gtest.h>

#include <algorithm>

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

/// To a program that sends, no window is active: which editor the mail has is
/// known from its own.
TEST(ProgramsSend, IsCheckedByItsOwnEditor) {
    for (const wchar_t* version : {L"9.0.0.2711", L"11.0.0.5510", L"14.0.0.4760"}) {
        Given setup{.answers = {L"frmNoSubject=cmdOK", L"Attachment(s) missing=No"}};
        setup.profile.version = version;
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
