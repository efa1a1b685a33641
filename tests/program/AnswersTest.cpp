#include "program/Answers.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using platform::Answer;
using platform::FormAnswer;

TEST(Answers, ReadsMessageBoxAnswers) {
    struct Case {
        const wchar_t* text;
        const wchar_t* where;
        Answer answer;
    };
    const Case cases[] = {
        {L"Attachment(s) missing=No", L"Attachment(s) missing", Answer::No},
        {L"Confirm Email Send - Veltro=yes", L"Confirm Email Send - Veltro", Answer::Yes},
        {L"2 + 2 = 4? - Veltro=OK", L"2 + 2 = 4? - Veltro", Answer::Ok},
        {L" spaced = Cancel ", L"spaced", Answer::Cancel},
        {L"frm size=OK", L"frm size", Answer::Ok},
    };
    for (const Case& test : cases) {
        const auto parsed = program::parseAnswer(test.text);
        EXPECT_EQ(parsed.where, test.where);
        ASSERT_TRUE(std::holds_alternative<Answer>(parsed.what));
        EXPECT_EQ(std::get<Answer>(parsed.what), test.answer);
    }
}

TEST(Answers, ReadsFormAnswersAndWritesThemAsTheyWere) {
    struct Case {
        const wchar_t* text;
        std::vector<std::pair<std::wstring, std::wstring>> entries;
        const wchar_t* button;
    };
    const Case cases[] = {
        {L"frmNoSubject=cmdCancel", {}, L"cmdCancel"},
        {L"frmNoSubject=txtSubject=Budget; cmdOK", {{L"txtSubject", L"Budget"}}, L"cmdOK"},
        {L"frmNoSubject=txtSubject=; cmdOK", {{L"txtSubject", L""}}, L"cmdOK"},
        {L"frmNoSubject=txtSubject=a=b; cmdOK", {{L"txtSubject", L"a=b"}}, L"cmdOK"},
        {L"frmX=txtList=a@x.org;b@x.org; chkOn=1; cmdSave",
         {{L"txtList", L"a@x.org;b@x.org"}, {L"chkOn", L"1"}},
         L"cmdSave"},
        {L"frmX=txtText=one;; two; cmdSave", {{L"txtText", L"one; two"}}, L"cmdSave"},
        {L"frmX=txtWords=attach;;; cmdSave", {{L"txtWords", L"attach;"}}, L"cmdSave"},
        {L"frmX=txtLines=one\ntwo; cmdSave", {{L"txtLines", L"one\r\ntwo"}}, L"cmdSave"},
        {L"frmX=cmdAdd; txtText=Yes; cmdSave", {{L"cmdAdd", L""}, {L"txtText", L"Yes"}}, L"cmdSave"},
    };
    for (const Case& test : cases) {
        const auto parsed = program::parseAnswer(test.text);
        ASSERT_TRUE(std::holds_alternative<FormAnswer>(parsed.what));
        const auto& answer = std::get<FormAnswer>(parsed.what);
        std::vector<std::pair<std::wstring, std::wstring>> entries;
        for (const auto& entry : answer.entries) {
            entries.emplace_back(entry.control, entry.value);
        }
        EXPECT_EQ(entries, test.entries);
        EXPECT_EQ(answer.button, test.button);
        const auto again =
            std::get<FormAnswer>(program::parseAnswer(L"frmX=" + program::answerText(answer)).what);
        ASSERT_EQ(again.entries.size(), answer.entries.size());
        for (std::size_t index = 0; index < again.entries.size(); ++index) {
            EXPECT_EQ(again.entries[index].value, answer.entries[index].value);
        }
    }
}

TEST(Answers, ReadsTheFolderToChoose) {
    for (const auto& [text, path] : {std::pair{L"folder=/a=b c", L"/a=b c"},
                                     {L"Folder =C:\\No", L"C:\\No"},
                                     {L"folder=Yes", L"Yes"},
                                     {L"folder=", L""}}) {
        const auto parsed = program::parseAnswer(text);
        ASSERT_TRUE(std::holds_alternative<platform::FolderAnswer>(parsed.what));
        EXPECT_EQ(std::get<platform::FolderAnswer>(parsed.what).path, path);
    }
    EXPECT_TRUE(std::holds_alternative<Answer>(program::parseAnswer(L"folders=Yes").what));
}

TEST(Answers, RefusesWhatIsNoAnswer) {
    for (const wchar_t* text : {L"", L"Yes", L"Attachment(s) missing=Maybe", L"=Yes", L"frmNoSubject=",
                                L"frmNoSubject=txtSubject=Budget", L"frmNoSubject=txtSubject=Budget;cmdOK",
                                L"frmNoSubject==x; cmdOK"}) {
        EXPECT_THROW(program::parseAnswer(text), std::invalid_argument) << testing::PrintToString(text);
    }
}

TEST(Answers, AreNamedAsTheyWereGiven) {
    for (const wchar_t* text :
         {L"Attachment(s) missing=No", L"frmNoSubject=txtSubject=Budget; cmdOK", L"folder=/tmp/x"}) {
        EXPECT_EQ(program::answerText(program::parseAnswer(text)), text);
    }
}

}  // namespace
