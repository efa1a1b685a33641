#include <gtest/gtest.h>

#include "tests/scenarios/Bench.h"

namespace {

using host::SendState;

constexpr wchar_t promise[] = L"See the attached report.";

const host::Attachment report{.fileName = L"report.pdf"};
const host::Attachment picture{.fileName = L"logo.png", .contentId = L"logo@veltro"};
const host::Attachment otherPicture{.fileName = L"map.png", .contentId = L"map@veltro"};
const host::Attachment card{.fileName = L"me.vcf"};

struct Case {
    const char* name;
    std::wstring subject = L"Budget";
    std::wstring body = promise;
    std::wstring html = {};
    std::vector<host::Attachment> attachments = {};
    std::map<std::wstring, std::wstring> settings = {};
    bool asked = true;
};

class MissingAttachment : public testing::TestWithParam<Case> {};

TEST_P(MissingAttachment, AsksOnlyWhenAPromiseIsBroken) {
    const Case& given = GetParam();
    Bench bench({.settings = given.settings, .answers = {L"Attachment(s) missing=No"}});
    host::Message message = plainMail(given.subject, given.body);
    message.html = given.html;
    message.attachments = given.attachments;

    const auto outcome = bench.send(message);

    EXPECT_EQ(outcome.state, given.asked ? SendState::Cancelled : SendState::Sent);
    EXPECT_EQ(bench.prompts().size(), given.asked ? 1U : 0U);
}

const std::wstring quoted =
    L"Thanks.\r\n\r\nFrom: Ann\r\nSent: Monday\r\nTo: Bob\r\nSubject: x\r\n\r\nSee the attached report.";

INSTANTIATE_TEST_SUITE_P(
    Mails, MissingAttachment,
    testing::Values(
        Case{.name = "Promised"}, Case{.name = "NothingPromised", .body = L"Hello", .asked = false},
        Case{.name = "FileIsThere", .attachments = {report}, .asked = false},
        Case{.name = "SubjectAlone", .subject = L"ENCLOSED: figures", .body = L"Hello"},
        Case{.name = "InsideAnotherWord", .body = L"Please reattach it"},
        Case{.name = "OnlyInTheQuotedMail", .body = quoted, .asked = false},
        Case{.name = "QuotedHeaderIncomplete", .body = L"From: Ann\r\nTo: Bob\r\nattached"},
        Case{.name = "QuotedHeaderInOtherCase", .body = L"FROM: Ann\r\nSENT: x\r\nTO: y\r\nattached"},
        Case{.name = "PromisedAboveTheQuotedMail", .body = L"Attached. " + quoted},
        Case{.name = "SwitchedOff", .settings = {{L"CheckAttachMissing", L"False"}}, .asked = false},
        Case{
            .name = "OwnKeywords", .body = L"Anbei der Bericht", .settings = {{L"AttachKeyWords", L"anbei"}}},
        Case{.name = "NoKeywords", .settings = {{L"AttachKeyWords", L""}}, .asked = false},
        Case{.name = "EmptyKeywordMatchesAll", .body = L"Hello", .settings = {{L"AttachKeyWords", L"zzz;"}}},
        Case{.name = "InlinePictureIsNoFile",
             .html = L"<p>See the attached report.<img src='cid:LOGO@veltro'></p>",
             .attachments = {picture}},
        Case{.name = "UnusedPictureIsAFile",
             .html = L"<p>attached</p>",
             .attachments = {picture},
             .asked = false},
        Case{.name = "FileBesideInlinePicture",
             .html = L"<img src='cid:logo@veltro'>",
             .attachments = {picture, report},
             .asked = false},
        Case{.name = "UnusedPictureBesideUsedOnes",
             .html = L"<img src='cid:logo@veltro'><img src='cid:map@veltro'>",
             .attachments = {picture, otherPicture, host::Attachment{L"x.png", L"other@veltro"}},
             .asked = false},
        Case{.name = "SeveralInlinePictures",
             .html = L"<img src='cid:logo@veltro'><img src='cid:map@veltro'>",
             .attachments = {picture, otherPicture}},
        Case{.name = "ListedPictureIsNoFileThoughUnused",
             .html = L"<img src='cid:logo@veltro'>",
             .attachments = {picture, otherPicture},
             .settings = {{L"IgnoreAttach", L"True"}, {L"IgnoreAttachValue", L"map.png"}}},
        Case{.name = "ListedCardIsNoFile",
             .attachments = {card},
             .settings = {{L"IgnoreAttach", L"True"}, {L"IgnoreAttachValue", L"a.vcf; ME.VCF "}}},
        Case{.name = "ListIsSwitchedOff",
             .attachments = {card},
             .settings = {{L"IgnoreAttach", L"true"}, {L"IgnoreAttachValue", L"me.vcf"}},
             .asked = false},
        Case{.name = "UnlistedFileBesideCard",
             .attachments = {card, report},
             .settings = {{L"IgnoreAttach", L"True"}, {L"IgnoreAttachValue", L"me.vcf"}},
             .asked = false},
        Case{.name = "FileWithoutNameIsNotListed",
             .attachments = {host::Attachment{}},
             .settings = {{L"IgnoreAttach", L"True"}, {L"IgnoreAttachValue", L"me.vcf;"}},
             .asked = false},
        Case{.name = "SignatureIsIgnored",
             .body = L"Hello\r\nAnn\u00A0Lee\r\nAttached files may be checked",
             .settings = {{L"IgnoreText", L"True"},
                          {L"IgnoreTextValue", L" ann lee\r\nattached files may be checked "}},
             .asked = false},
        Case{.name = "SignatureListedButSwitchedOff",
             .settings = {{L"IgnoreTextValue", L"See the attached report."}}},
        Case{.name = "WordRemainsBesideSignature",
             .body = L"attached\r\nAnn, attached to her work",
             .settings = {{L"IgnoreText", L"True"}, {L"IgnoreTextValue", L"Ann, attached to her work"}}},
        Case{.name = "IgnoredTextLongerThanTheMail",
             .settings = {{L"IgnoreText", L"True"}, {L"IgnoreTextValue", std::wstring(5000, L'x')}}},
        Case{.name = "OddCharacters",
             .subject = std::wstring(L"\xD800\x0001\u202E attached \xDC00"),
             .body = std::wstring(L"\xDC00 nothing")}),
    [](const auto& test) { return test.param.name; });

TEST(MissingAttachmentPrompt, SaysWhatItFoundAndYesSends) {
    Bench bench({.settings = {{L"PlaySound", L"True"}}, .answers = {L"Attachment(s) missing=Yes"}});

    EXPECT_EQ(bench.send(plainMail(L"Budget", promise)).state, SendState::Sent);

    ASSERT_EQ(bench.prompts().size(), 1U);
    const auto& prompt = bench.prompts()[0];
    EXPECT_EQ(prompt.where, attachmentPrompt);
    EXPECT_EQ(
        prompt.text,
        L"The text of this email indicates that you may have intended to send it with attachments.\r\n\r\n"
        L"However no files were attached.\r\n\r\nDo you want to send this e-mail without attachments?");
    EXPECT_EQ(prompt.style.buttons, platform::Buttons::YesNo);
    EXPECT_EQ(prompt.style.icon, platform::Icon::Question);
}

TEST(MissingAttachmentPrompt, NoLeavesTheMailOpen) {
    Bench bench({.answers = {L"Attachment(s) missing=No", L"Attachment(s) missing=Yes"}});
    const auto inspector = bench.outlook().openNewMail(plainMail(L"Budget", promise));

    EXPECT_EQ(bench.outlook().send(inspector).state, SendState::Cancelled);
    EXPECT_EQ(bench.outlook().inspectors().size(), 1U);
    EXPECT_EQ(bench.outlook().send(inspector).state, SendState::Sent);
    EXPECT_EQ(bench.prompts().size(), 2U);
}

}  // namespace
