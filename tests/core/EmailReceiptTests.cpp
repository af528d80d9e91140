#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Receipts/EmailReceipt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using namespace tamba;
using EmailReceipt::Part;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

namespace {

EmailReceipt::Message mail(const char* name) {
    return EmailReceipt::parse(Files::read(std::string(TEST_DATA) + "/mail/" + name));
}

TEST(EmailReceipt, readsAMessageWithAlternativesAndAPDF) {
    const auto message = mail("html-and-pdf.eml");
    EXPECT_EQ(message.subject, "Your receipt ₹1,180.00 paid");
    EXPECT_EQ(EmailReceipt::senderName(message.from), "Hostwala, Billing \"IN\"");
    EXPECT_EQ(message.date, (Day{2026, 10, 14}));
    // What both alternatives say counts once, what only one says is kept.
    EXPECT_EQ(message.bodyText,
              "Hosting, one year\nCGST 9%: ₹90.00\nSGST 9%: ₹90.00\n"
              "Total paid ₹1,180.00 for the plan you chose, thank you very much indeed\n"
              "HSN  998315\n\n");
    ASSERT_THAT(message.attachments, SizeIs(1));
    EXPECT_EQ(message.attachments[0].name, "बिल 2026.pdf");
    EXPECT_EQ(message.attachments[0].mime, "application/pdf");
    EXPECT_TRUE(message.attachments[0].data.starts_with("%PDF-1.4\n"));
    EXPECT_TRUE(message.attachments[0].data.ends_with("%%EOF\n"));
}

TEST(EmailReceipt, readsAnEmlxWithoutItsPropertyList) {
    const auto message = mail("apple.emlx");
    EXPECT_EQ(message.subject, "Your order");
    EXPECT_EQ(message.bodyText, "Anand Bhavan – Pune\nTotal £ 143.00\n");  // "us-ascii" with high bytes
    EXPECT_EQ(EmailReceipt::senderName(message.from), "Anand Bhavan");
    EXPECT_EQ(message.date, (Day{2026, 10, 14}));
}

TEST(EmailReceipt, readsTheMessageInsideAForwardedOne) {
    const auto message = mail("forwarded.eml");
    EXPECT_EQ(message.subject, "Fwd: bill");
    EXPECT_EQ(message.date, (Day{2026, 10, 6}));
    EXPECT_EQ(message.bodyText, "see below\nGrand Total 472.00\n");
    ASSERT_THAT(message.attachments, SizeIs(2));
    EXPECT_EQ(message.attachments[0].name, "Bill of October.pdf");  // no quotes around the blanks
    EXPECT_EQ(message.attachments[0].data, "%PDF-1.4 bro");         // a broken body as far as it goes
    EXPECT_EQ(message.attachments[1].name, "bill.eml");
}

TEST(EmailReceipt, readsOnWhereABoundaryIsNotClosedOrNotNamed) {
    const auto open = mail("unclosed.eml");
    EXPECT_EQ(open.bodyText, "Café ride\nTotal £12.00 &lt; 20 --abcd is no boundary\n");
    ASSERT_THAT(open.attachments, SizeIs(1));
    EXPECT_EQ(open.attachments[0].name, "..\\../evil name.pdf");
    EXPECT_EQ(open.attachments[0].data, "%PDF-cut off");

    EXPECT_EQ(mail("no-boundary.eml").bodyText, "first\nsecond\n");
    EXPECT_EQ(EmailReceipt::parse("Content-Type: multipart/mixed; boundary=x\n\nno parts, 12.00").bodyText,
              "no parts, 12.00\n");
}

TEST(EmailReceipt, unfoldsHeaders) {
    const auto headers = EmailReceipt::headers(
        "Subject: one\r\n\ttwo\r\n  three\r\nFROM : a\r\nno colon\r\n more\r\nsubject: later\r\n x\r\n\r\nTo: body");
    EXPECT_THAT(headers, ElementsAre(Pair("from", "a"), Pair("subject", "one two three")));
}

TEST(EmailReceipt, decodesHeaderWords) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"plain", "plain"},
        {"=?UTF-8?B?4oK5NTAw?=", "₹500"},
        {"=?utf-8?q?Caf=C3=A9_Nero?=", "Café Nero"},
        {"=?iso-8859-1?Q?Caf=E9?= bill", "Café bill"},
        {"=?utf-8?Q?a?=  =?utf-8?Q?b?= =?iso-8859-1?Q?=E9?= c", "abé c"},
        {"=?utf-8?B?4oI=?= =?utf-8?B?uQ==?=", "₹"},  // one character cut in two
        {"=?utf-8*en?Q?x?=", "x"},
        {"Caf\xe9", "Café"},
        {"=?x-unknown?Q?ok?=", "ok"},
        {"=?utf-8?X?no?= =?broken =?=", "=?utf-8?X?no?= =?broken =?="},
        {"", ""},
    };
    for (const auto& [text, decoded] : cases) EXPECT_EQ(EmailReceipt::decodeHeader(text), decoded) << text;
}

TEST(EmailReceipt, decodesQuotedPrintable) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"a=3Db", "a=b"},         {"soft=\r\nbreak=  \nhere=", "softbreakhere"}, {"a_b", "a_b"}, {"=e2=82=B9", "₹"},
        {"50=% =G1", "50=% =G1"},
    };
    for (const auto& [text, decoded] : cases) EXPECT_EQ(EmailReceipt::quotedPrintable(text), decoded) << text;
}

TEST(EmailReceipt, readsTheDayAsWritten) {
    const std::vector<std::pair<const char*, std::optional<Day>>> cases{
        {"Wed, 14 Oct 2026 10:11:12 +0530", Day{2026, 10, 14}},
        {"14 Oct 2026 23:59:59 -0800", Day{2026, 10, 14}},
        {"Wed, 1 Oct 2026 10:11 GMT", Day{2026, 10, 1}},
        {"Wed, 14 Oct 2026 10:11:12 +0530 (IST (India))", Day{2026, 10, 14}},
        {"Sun, 30 Feb 2026 10:11:12 +0530", {}},
        {"14 Foo 2026 10:11:12 +0530", {}},
        {"yesterday", {}},
        {"", {}},
    };
    for (const auto& [text, day] : cases) EXPECT_EQ(EmailReceipt::parseRFCDate(text), day) << text;
}

TEST(EmailReceipt, turnsHTMLIntoLines) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"<p>Hello <b>World</b></p><p>Two</p>", "Hello World\nTwo\n"},
        {"a<BR>b<br/>c<br />d", "a\nb\nc\nd"},
        {"<STYLE>p{}</style >x<script type=a>if (1 < 2) '<p>'</script>y", "xy"},
        {"<script>never closed<style>p{}</style>", "never closed"},
        {"<!-- <p>hidden</p> -->shown", "shown"},
        {"<tr>\n <td>Total</td>\n <td>&#8377;&nbsp;500</td>\n</tr>", "Total  ₹ 500\n"},
        {"Total<div>500</div>", "Total\n500\n"},
        {"<h2>A</h2><li>B</li>", "A\nB\n"},
        {"&lt;b&gt; &amp;nbsp; &#x20b9; &unknown; &#xD800; &", "<b> &nbsp; ₹ &unknown; \xEF\xBF\xBD &"},
        {"2 < 3 <", "2 < 3 <"},
        {"<pre>a\nb</pre>", "a\nb\n"},
        {"pre&#847;&zwnj;&#8203;view", "preview"},
        {"cut <a href=\"x", "cut "},
    };
    for (const auto& [html, text] : cases) EXPECT_EQ(EmailReceipt::stripHTML(html), text) << html;
}

TEST(EmailReceipt, namesTheSender) {
    const std::vector<std::pair<const char*, const char*>> cases{
        {"Chai Point <bills@chai.example>", "Chai Point"},
        {"\"Rao, Asha\" <a@b.example>", "Rao, Asha"},
        {"=?UTF-8?Q?Caf=C3=A9?= <a@b.example>", "Café"},
        {"\"a <b>\" <c@d.example>", "a <b"},
        {"<c@d.example>", "c@d.example"},
        {"\"\" <c@d.example>", "c@d.example"},
        {"c@d.example", "c@d.example"},
        {"c@d.example (Chai Point)", "Chai Point"},
        {"", ""},
    };
    for (const auto& [from, name] : cases) EXPECT_EQ(EmailReceipt::senderName(from), name) << from;
}

TEST(EmailReceipt, keepsTextThatIsNamedUnlessItIsAttached) {
    const std::string head = "Content-Type: text/plain; name=bill.txt\nContent-Disposition: ";
    const auto shown = EmailReceipt::parse(head + "inline\n\nTotal 5");
    EXPECT_EQ(shown.bodyText, "Total 5\n");
    EXPECT_THAT(shown.attachments, ElementsAre(Part{"bill.txt", "Total 5", "text/plain"}));
    const auto attached = EmailReceipt::parse(head + "attachment\n\nTotal 5");
    EXPECT_EQ(attached.bodyText, "");
    EXPECT_THAT(attached.attachments, SizeIs(1));
}

TEST(EmailReceipt, staysBoundedOnHostileMessages) {
    std::string nested = "Subject: deep\n";
    for (int i = 0; i < 1'000; ++i) {
        const std::string boundary = "b" + std::to_string(i);
        nested += "Content-Type: multipart/mixed; boundary=" + boundary + "\n\n--" + boundary + "\n";
        nested += "Content-Type: text/plain\n\nlevel\n--" + boundary + "\n";
    }
    EXPECT_THAT(EmailReceipt::parse(nested).bodyText, HasSubstr("level\nlevel\n"));

    std::string forwarded = "Subject: deep\n";
    for (int i = 0; i < 1'000; ++i) forwarded += "Content-Type: message/rfc822; name=a.eml\n\n";
    EXPECT_LT(EmailReceipt::parse(forwarded).attachments.size(), 100u);

    std::string wide = "Content-Type: multipart/mixed; boundary=b\n\n";
    for (int i = 0; i < 100'000; ++i) wide += "--b\nContent-Type: application/pdf\n\nx\n";
    const auto message = EmailReceipt::parse(wide);
    EXPECT_EQ(message.attachments.front().name, "attachment.pdf");
    EXPECT_LT(message.attachments.size(), 1'000u);

    std::string fields;
    for (int i = 0; i < 200'000; ++i) fields += "X-" + std::to_string(i) + ": =?utf-8?q?\n";
    EXPECT_LT(EmailReceipt::headers(fields).size(), 10'000u);

    for (const char* piece : {"=?", "<", "&", "<script></", "=", "a;b=\"", "<!--", "\xff"}) {
        std::string text;
        while (text.size() < 300'000) text += piece;
        const std::string body = "Content-Type: text/html; " + text + "\nSubject: " + text + "\n\n" + text;
        EXPECT_TRUE(Text::isUTF8(EmailReceipt::parse(body).bodyText)) << piece;
    }
    for (const char* tiny :
         {"", "\n", "12", "12\n", "\xEF\xBB\xBF", "Content-Type: multipart/mixed; boundary=\n\n--\n--\n"})
        EXPECT_THAT(EmailReceipt::parse(tiny).attachments, IsEmpty());
}

}  // namespace
