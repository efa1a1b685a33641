#include "program/native/ImportMessage.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "host/LocalTime.h"
#include "platform/text.h"
#include "program/native/HtmlText.h"

namespace {

host::Message import(const std::string& header, const std::string& body) {
    return program::importMessage("From: a@example.org\n" + header + "\n" + body);
}

std::vector<std::wstring> fileNames(const host::Message& message) {
    std::vector<std::wstring> names;
    for (const auto& attachment : message.attachments) {
        names.push_back(attachment.fileName);
    }
    return names;
}

TEST(ImportMessage, DecodesBodies) {
    struct Case {
        const char* header;
        const char* body;
        const wchar_t* text;
    };
    const Case cases[] = {
        {"", "one\ntwo\r\nthree", L"one\r\ntwo\r\nthree"},
        {"Content-Type: text/plain; charset=utf-8\n", "\xE2\x82\xAC", L"\u20AC"},
        {"Content-Type: text/plain; charset=iso-8859-1\n", "caf\xE9 \x96", L"caf\u00E9 \u2013"},
        {"Content-Type: text/plain; charset=koi8-r\n", "\xC4\xC1", L"\u0434\u0430"},
        {"Content-Type: text/plain; charset=no-such-set\n", "\xE2\x82\xAC", L"\u20AC"},
        {"Content-Type: text/plain; charset=utf-8\n", "caf\xE9", L"caf\u00E9"},
        {"Content-Type: text/plain\nContent-Transfer-Encoding: base64\n", "YXR0YWNoZWQ=", L"attached"},
        {"Content-Type: text/plain\nContent-Transfer-Encoding: quoted-printable\n", "soft=\n break=3D",
         L"soft break="},
        {"Content-Type: text/html\n", "<meta charset=\"windows-1251\"><p>\xE4\xE0", L"\u0434\u0430"},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(import(test.header, test.body).body, test.text) << test.header << test.body;
    }
}

TEST(ImportMessage, DecodesNamesAndTimes) {
    const auto message = program::importMessage(
        "From: =?iso-8859-1?Q?J=FCrgen_M=FCller?= <j@example.org>\r\nTo: undisclosed-recipients:;\r\nCc: "
        "team: a@example.org, \"C, D\" <cd@example.org>;\r\nSubject: =?utf-8?B?w4TDtsO8?= "
        "=?utf-8?B?IHRlc3Q=?=\r\n folded\r\nDate: Sun, 30 Mar 2025 01:30:00 -0800\r\nDeferred-Delivery: Mon, "
        "31 Mar 2025 08:00:00 +0000\r\n\r\nbody");
    EXPECT_EQ(message.from->name, L"J\u00FCrgen M\u00FCller");
    EXPECT_TRUE(message.to.empty());
    ASSERT_EQ(message.cc.size(), 2U);
    EXPECT_EQ(message.cc[1].name, L"C, D");
    EXPECT_EQ(message.subject, L"\u00C4\u00F6\u00FC test folded");
    ASSERT_TRUE(message.deliveryTime && message.deferredDeliveryTime);
    // 09:30 UTC and 08:00 UTC of the next day, wherever the tests run (summer time lies between at most).
    const double hours = (message.deferredDeliveryTime->days - message.deliveryTime->days) * 24;
    EXPECT_NEAR(hours, 22.5, 1.01);
    EXPECT_FALSE(import("Date: the day before yesterday\n", "x").deliveryTime);
}

TEST(ImportMessage, TakesSemicolonsBetweenAddresses) {
    const struct {
        const char* to;
        std::vector<std::wstring> names;
    } cases[] = {
        {"a@x.org; Bob <b@x.org>;c@x.org", {L"a@x.org", L"Bob", L"c@x.org"}},
        {"\"A; \\\"B\" <a@x.org>;\r\n b@x.org;", {L"A; \"B", L"b@x.org"}},
        {"team: a@x.org, b@x.org;, c@x.org; d@x.org", {L"a@x.org", L"b@x.org", L"c@x.org", L"d@x.org"}},
    };
    for (const auto& [to, expected] : cases) {
        std::vector<std::wstring> names;
        for (const auto& recipient : import(std::string("To: ") + to + "\n", "x").to) {
            names.push_back(recipient.name);
        }
        EXPECT_EQ(names, expected) << to;
    }
}

constexpr char parts[] = R"(--b
Content-Type: multipart/alternative; boundary=a

--a
Content-Type: text/plain

plain
--a
Content-Type: text/html

<p>rich</p>
--a--
--b
Content-Type: application/pdf
Content-Disposition: attachment; filename*0*=utf-8''%e2%82%ac%20; filename*1*=report.pdf

x
--b
Content-Type: application/zip; name="=?utf-8?Q?=C3=A4.zip?="

x
--b
Content-Type: image/png
Content-ID: <logo@example.org>

x
--b
Content-Disposition: attachment; filename="..\..\evil/../../plan.txt"

x
--b
Content-Type: message/rfc822

From: q@example.org
Subject: inner

inner body
--b
Content-Type: text/plain

mailing list footer
--b
Content-Type: application/pkcs7-signature; name=smime.p7s

x
--b--
)";

TEST(ImportMessage, SharesPartsOutAsOutlookDoes) {
    const auto message = import("Content-Type: multipart/mixed; boundary=b\n", parts);
    EXPECT_EQ(message.body, L"plain");
    EXPECT_EQ(message.html, L"<p>rich</p>");
    EXPECT_EQ(fileNames(message),
              (std::vector<std::wstring>{L"\u20AC report.pdf", L"\u00E4.zip", L"ATT00001.png", L"plan.txt",
                                         L"inner.msg", L"ATT00002.txt"}));
    EXPECT_EQ(message.attachments.at(2).contentId, L"logo@example.org");
}

TEST(ImportMessage, ReadsDamagedMailAsFarAsItGoes) {
    std::string whole("From: a@example.org\nSubject: cut\nContent-Type: multipart/mixed; boundary=b\n\n");
    whole += parts;
    for (std::size_t length = 1; length < whole.size(); ++length) {
        try {
            program::importMessage(whole.substr(0, length));
        } catch (const std::runtime_error&) {
            EXPECT_LT(length, std::string("From: a").size());
        }
    }
    EXPECT_EQ(program::importMessage("\xEF\xBB\xBFSubject: mark\r\n\r\nx").subject, L"mark");
    EXPECT_EQ(program::importMessage("From a@b Thu Jan  1 00:00:00 2024\nSubject: mbox\n\nx").subject,
              L"mbox");
    std::string nested = "From: a@example.org\n";
    for (int depth = 0; depth < 5000; ++depth) {
        const auto boundary = std::to_string(depth);
        nested += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + "\n";
    }
    EXPECT_EQ(program::importMessage(nested + "\ntext").body, L"");
}

TEST(ImportMessage, RefusesGroupsInGroupsWithoutEnd) {
    std::string nested;
    for (int depth = 0; depth < 37500; ++depth) {
        nested += "g:";
    }
    std::string folded;
    for (int line = 0; line < 5000; ++line) {
        folded += "\r\n g:";
    }
    for (const std::string& mail :
         {"To: " + nested + "\n\nbody", "CC:" + nested + "\n\nbody", "From:" + folded + "\r\n\r\nbody",
          "Reply-To : " + nested + "\n\nbody",
          "Subject: x\nContent-Type: message/rfc822\n\nBcc: " + nested + "\n\nbody"}) {
        EXPECT_THROW(program::importMessage(mail), std::runtime_error) << mail.substr(0, 60);
    }
    std::string many = "a: b@example.org;";
    for (int count = 0; count < 1500; ++count) {
        many += ", a@example.org";
    }
    EXPECT_EQ(import("To: " + many + "\n", nested).to.size(), 1501U);
}

TEST(ImportMessage, KeepsControlsOutOfNamesAndSubjects) {
    const auto message = import(
        "Subject: =?utf-8?Q?a=1B=C2=9B=7Fb?=\nContent-Type: application/pdf; "
        "name=\"=?utf-8?Q?a=1B=C2=9B=7Fb=2Epdf?=\"\n",
        "x");
    EXPECT_EQ(message.subject, L"a   b");
    EXPECT_EQ(fileNames(message), (std::vector<std::wstring>{L"ab.pdf"}));
}

TEST(ImportMessage, RefusesWhatIsNoMail) {
    using namespace std::string_literals;
    for (const std::string& text :
         {""s, "\r\n\r\n"s, "Hello there.\nNo header here.\n"s, "\x7F\x45LF\2\1\1\0\0\0: \n\n\0\1"s,
          "\0\0\0\0"s, "Note: this is a text.\n"s}) {
        EXPECT_THROW(program::importMessage(text), std::runtime_error) << text;
    }
}

TEST(HtmlText, BreaksLinesAsOutlookDoes) {
    struct Case {
        const char* html;
        const char* text;
    };
    const Case cases[] = {
        {"<p>one</p><p>two</p>", "one\r\n\r\ntwo"},
        {"<p>one<br>two</p>", "one\r\ntwo"},
        {"<div>one</div><div>two</div>", "one\r\ntwo"},
        {"one<br><br>two", "one\r\n\r\ntwo"},
        {"<p>a  \n b <b>c</b>d</p>", "a b cd"},
        {"a&nbsp;&lt;b&gt; &eacute;", "a\xC2\xA0<b> \xC3\xA9"},
        {"<p class=MsoNormal><b>From:</b> Ann<br><b>Sent:</b> Monday<br><b>To:</b> Me</p>",
         "From: Ann\r\nSent: Monday\r\nTo: Me"},
        {"<table><tr><td>a<td>b<tr><td>c<td>d</table>", "a\tb\r\nc\td"},
        {"<ul><li>one<li>two</ul><ol><li>x<li>y</ol>", "*\tone\r\n*\ttwo\r\n1.\tx\r\n2.\ty"},
        {"<pre>a\n  b</pre>", "a\r\n  b"},
        {"see <a href='https://example.org/?a=1&amp;b'>here</a>.", "see here <https://example.org/?a=1&b> ."},
        {"<head><title>attached</title><style>attached</style></head><script>attached</script><!-- attached "
         "-->text",
         "text"},
        {"<p>never closed <b>and <i>cut", "never closed and cut"},
        {"", ""},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(program::htmlToText(test.html), test.text) << test.html;
    }
    std::string deep;
    for (int depth = 0; depth < 20000; ++depth) {
        deep += "<div>";
    }
    EXPECT_EQ(program::htmlToText(deep + "still there"), "still there");
}

}  // namespace
