#include <gtest/gtest.h>

#include "tests/scenarios/Bench.h"

namespace {

using host::SendState;

struct Case {
    const char* name;
    std::wstring subject;
    std::vector<std::wstring> answers;
    SendState state;
    std::wstring sentSubject;
    std::map<std::wstring, std::wstring> settings = {};
};

class EmptySubject : public testing::TestWithParam<Case> {};

TEST_P(EmptySubject, IsAskedForAndTheAnswerDecides) {
    const Case& given = GetParam();
    Bench bench({.settings = given.settings, .answers = given.answers});

    const auto outcome = bench.send(plainMail(given.subject));

    EXPECT_EQ(outcome.state, given.state);
    EXPECT_EQ(outcome.mail.subject, given.sentSubject);
    EXPECT_EQ(bench.prompts().size(), given.answers.size());
}

INSTANTIATE_TEST_SUITE_P(
    Subjects, EmptySubject,
    testing::Values(
        Case{"Given", L"Budget", {}, SendState::Sent, L"Budget"},
        Case{"Entered", L"", {L"frmNoSubject=txtSubject=Budget; cmdOK"}, SendState::Sent, L"Budget"},
        Case{"OnlyBlanks", L"   ", {L"frmNoSubject=txtSubject= x ; cmdOK"}, SendState::Sent, L" x "},
        Case{"StaysEmpty", L"", {L"frmNoSubject=cmdOK"}, SendState::Sent, L""},
        Case{"Cancelled", L"", {L"frmNoSubject=txtSubject=lost; cmdCancel"}, SendState::Cancelled, L""},
        Case{"SwitchedOff", L"", {}, SendState::Sent, L"", {{L"CheckEmptySubject", L"False"}}}),
    [](const auto& test) { return test.param.name; });

TEST(EmptySubjectDialog, ExplainsItself) {
    Bench bench({.answers = {L"frmNoSubject=cmdCancel"}});

    bench.send(plainMail(L""));

    ASSERT_EQ(bench.prompts().size(), 1U);
    const auto& prompt = bench.prompts()[0];
    EXPECT_EQ(prompt.text, L"Empty Subject - Veltro");
    EXPECT_EQ(prompt.control(L"lblLine1").caption, L"We recommend that you enter a Subject for the email.");
    EXPECT_EQ(prompt.control(L"txtSubject").value, L"");
    EXPECT_EQ(prompt.control(L"cmdCancel").caption, L"&Cancel");
}

TEST(OrderOfQuestions, SubjectComesBeforeAttachments) {
    Bench bench({.answers = {L"frmNoSubject=txtSubject=attached; cmdOK", L"Attachment(s) missing=No"}});
    EXPECT_EQ(bench.send(plainMail(L"", L"Hello")).state, SendState::Cancelled);
    EXPECT_EQ(bench.promptNames(),
              (std::vector<std::wstring>{L"frmNoSubject", std::wstring(attachmentPrompt)}));
}

TEST(OrderOfQuestions, CancelEndsTheSend) {
    Bench bench({.answers = {L"frmNoSubject=cmdCancel"}});
    EXPECT_EQ(bench.send(plainMail(L"", L"attached")).state, SendState::Cancelled);
    EXPECT_EQ(bench.prompts().size(), 1U);
}

}  // namespace
