#include "TambaCore/Base/MailText.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Reminders.h"
#include "TambaCore/Receipts/EmailReceipt.h"
#include "tests/support/Books.h"
#include "tests/support/Refusal.h"

#include <rapidcheck/gtest.h>

namespace tamba {
namespace {

using Reminders::Tone;
using testing::aLibrary;
using testing::anInvoice;

constexpr Day today{2026, 11, 21};

Library aBook() {
    Library library = aLibrary();
    Business& business = library.business;
    business.signatory = "Asha Rao";
    business.upiID = "tamarind@okbank";
    business.bank.accountNumber = "000451200078";
    business.bank.ifsc = "GODS0000451";
    business.bank.swift = "GODSINAA451";
    library.clients.update(0, [](Client& client) {
        client.contact = "Ravi Kale";
        client.email = "ravi@saffron.example";
    });
    Document invoice = anInvoice();
    invoice.clientID = library.clients[0].id;
    invoice.lines = {Line::make("Design", 1000, 10'000'000, 1800)};
    invoice.payments = {Payment::make({2026, 10, 20}, 5'000'000, 500'000, PaymentMethod::bank)};
    invoice.reference = "PO 7";
    library.documents = {invoice};
    return library;
}
const Document& invoiceOf(const Library& library) { return library.documents[0]; }

TEST(Reminders, tellAllThatIsNeededToPay) {
    const Library library = aBook();
    const Reminders::Draft draft = Reminders::reminder(library, invoiceOf(library), today);
    EXPECT_EQ(draft.to, "Ravi Kale <ravi@saffron.example>");
    EXPECT_EQ(draft.subject, "Reminder: invoice INV/26-27/001, ₹63,000.00 due");
    EXPECT_EQ(draft.attachmentName, "INV-26-27-001.pdf");
    EXPECT_EQ(draft.body, R"(Hello Ravi Kale,

I hope you are well. It may have slipped through: invoice INV/26-27/001 of 1 Oct 2026 was due on 16 Oct 2026, 36 days ago, and I have not seen the payment of ₹63,000.00 yet. Could you have a look?

Invoice: INV/26-27/001 of 1 Oct 2026
Your reference: PO 7
Amount: ₹1,18,000.00
Received, thank you: ₹50,000.00
Tax deducted at source: ₹5,000.00
Due: ₹63,000.00, by 16 Oct 2026

By bank transfer:
  Account number: 000451200078
  IFSC: GODS0000451
  Reference: INV/26-27/001

By UPI to tamarind@okbank:
  upi://pay?pa=tamarind@okbank&pn=Studio%20Tamarind&am=63000.00&cu=INR&tn=Invoice%20INV/26-27/001

The invoice is attached. If you have paid in the meantime, please ignore this message, and thank you.

Kind regards

Asha Rao
Studio Tamarind
)");
}

TEST(Reminders, tellClientsAbroadTheSWIFTCodeAndNoUPILink) {
    const Library library = aBook();
    Document invoice = invoiceOf(library);
    invoice.currency = "USD";
    const std::string body = Reminders::reminder(library, invoice, today).body;
    EXPECT_NE(body.find("  SWIFT: GODSINAA451\n"), std::string::npos) << body;
    EXPECT_EQ(body.find("upi:"), std::string::npos) << body;
}

TEST(Reminders, speakMoreFirmlyEachTime) {
    Library library = aBook();
    const UUID id = invoiceOf(library).id;
    const struct {
        Tone tone;
        const char *subject, *phrase;
    } steps[] = {{Tone::friendly, "Reminder: ", "Could you have a look?"},
                 {Tone::firm, "Second reminder: ", "on which day I can expect"},
                 {Tone::final, "Last reminder: ", "within the next seven days"},
                 {Tone::final, "Last reminder: ", "within the next seven days"}};
    int sent = 0;
    for (const auto& [tone, subject, phrase] : steps) {
        EXPECT_EQ(Reminders::tone(invoiceOf(library)), tone);
        const Reminders::Draft draft = Reminders::reminder(library, invoiceOf(library), today);
        EXPECT_TRUE(draft.subject.starts_with(subject)) << draft.subject;
        EXPECT_NE(draft.body.find(phrase), std::string::npos) << draft.body;
        library = Reminders::recordReminder(std::move(library), id, today.addingDays(sent));
        EXPECT_EQ(invoiceOf(library).remindersSent, ++sent);
        EXPECT_EQ(invoiceOf(library).lastReminder, today.addingDays(sent - 1));
        EXPECT_EQ(invoiceOf(Books::markSent(library, id, today.addingDays(9))).sentOn, today) << "the first time";
    }
    const std::pair<Day, const char*> days[] = {{{2026, 10, 10}, "is due on 16 Oct 2026"},
                                                {{2026, 10, 16}, "is due today, 16 Oct 2026"},
                                                {{2026, 10, 17}, "was due on 16 Oct 2026, 1 day ago"}};
    for (const Tone tone : {Tone::friendly, Tone::firm, Tone::final})
        for (const auto& [day, phrase] : days)
            EXPECT_NE(Reminders::reminder(library, invoiceOf(library), day, tone).body.find(phrase), std::string::npos)
                << phrase;
}

TEST(Reminders, sendEachKindOfDocument) {
    Library library = aBook();
    const auto body = [&](const std::function<void(Document&)>& change) {
        Document document = anInvoice("X/1");
        document.lines = {Line::make("Design", 1000, 10'000'000, 0)};
        document.payments = {};
        change(document);
        const Reminders::Draft draft = Reminders::sending(library, document, today);
        EXPECT_EQ(draft.to, document.clientID ? "Ravi Kale <ravi@saffron.example>" : "") << draft.to;
        const std::size_t begin = draft.body.find("Here is");
        return draft.subject + " | " + draft.body.substr(begin, draft.body.find("\n\n", begin) - begin);
    };
    const UUID client = library.clients[0].id, invoice = invoiceOf(library).id;
    EXPECT_EQ(body([&](Document& d) { d.clientID = client; }),
              "Invoice X/1 from Studio Tamarind | Here is invoice X/1 of 1 Oct 2026 for ₹1,00,000.00. It was due on 16 "
              "Oct 2026.");
    EXPECT_EQ(body([](Document& d) {
                  d.payments = {Payment::make(today, 1, 0, PaymentMethod::upi)};
                  d.dueDate = today;
              }),
              "Invoice X/1 from Studio Tamarind | Here is invoice X/1 of 1 Oct 2026 for ₹1,00,000.00. Of this, "
              "₹99,999.99 is open. It is due on 21 Nov 2026.");
    EXPECT_EQ(body([](Document& d) { d.payments = {Payment::make(today, 10'000'000, 0, PaymentMethod::upi)}; }),
              "Invoice X/1 from Studio Tamarind | Here is invoice X/1 of 1 Oct 2026 for ₹1,00,000.00. It is settled, "
              "so there is nothing to pay.");
    EXPECT_EQ(body([](Document& d) { d.kind = DocKind::estimate; }),
              "Estimate X/1 from Studio Tamarind | Here is estimate X/1 of 1 Oct 2026 for ₹1,00,000.00. It holds until "
              "16 Oct 2026. A short reply is enough to accept it.");
    const std::string note =
        "Credit note X/1 from Studio Tamarind | Here is credit note X/1 of 1 Oct 2026 for ₹1,00,000.00";
    const auto credits = [&](std::int64_t price) {
        return body([&](Document& d) {
            d.kind = DocKind::creditNote;
            d.linkedID = invoice;
            Document kept = d;
            kept.lines[0].priceMinor = price;
            library.documents = {invoiceOf(library), kept};
        });
    };
    EXPECT_EQ(body([](Document& d) { d.kind = DocKind::creditNote; }), note + ".");
    const std::string off = note + ". It takes this amount off invoice INV/26-27/001 of 1 Oct 2026";
    EXPECT_EQ(credits(300'000), off + ", on which ₹60,000.00 is now due.");
    EXPECT_EQ(credits(6'300'000), off + ", which is settled with it.");
    EXPECT_EQ(credits(6'400'000), off + ". That leaves ₹1,000.00 in your favour.");
}

TEST(Reminders, areRefusedWhereThereIsNothingToAskFor) {
    using Code = BooksError::Code;
    const Library library = aBook();
    const std::pair<Code, std::function<void(Document&)>> cases[] = {
        {Code::notInvoice, [](Document& d) { d.kind = DocKind::estimate; }},
        {Code::notIssued, [](Document& d) { d.state = DocState::draft; }},
        {Code::notIssued, [](Document& d) { d.state = DocState::void_; }},
        {Code::nothingDue, [](Document& d) { d.payments[0].amount = 11'300'000; }},
        {Code::figures, [](Document& d) { d.lines[0].priceMinor = maximumAmount + 1; }},
    };
    for (const auto& [code, change] : cases) {
        Document document = invoiceOf(library);
        change(document);
        EXPECT_EQ(testing::refusal<BooksError>([&] { return Reminders::reminder(library, document, today); }), code);
    }
}

/// A header as a receiver reads it.
std::string received(const std::string& message, const std::string& name) {
    return EmailReceipt::decodeHeader(EmailReceipt::headers(message)[name]);
}

TEST(RemindersMessage, arrivesAsItWasWritten) {
    Reminders::Draft draft{
        "Rao, Asha (accounts) <asha@saffron.example>, रवि काळे <ravi@saffron.example>; x@y.example",
        "Zahlungserinnerung für Rechnung 7 · ₹63,000.00 – bitte bis zum Monatsende überweisen, danke",
        "Hello,\n\n.\nFrom here = there  \n" + std::string(200, 'x') + " ₹" + "\nend", "बिल \"7\".pdf"};
    const std::string pdf = "%PDF-1.7\n\0\xFF" + std::string(1000, '\x80');
    const std::string from = "Halad & Ink Studio <hello@haladandink.example>";
    const Instant at{std::chrono::seconds(1'795'253'405)};
    const std::string message = Reminders::message(draft, from, pdf, at);
    EXPECT_EQ(message, Reminders::message(draft, from, pdf, at));
    EXPECT_NE(message, Reminders::message(draft, from, pdf, at + std::chrono::seconds(1)));

    const EmailReceipt::Message read = EmailReceipt::parse(message);
    EXPECT_EQ(read.subject, draft.subject);
    EXPECT_EQ(read.from, from);
    EXPECT_EQ(received(message, "date"), "Sat, 21 Nov 2026 09:30:05 +0000");
    EXPECT_EQ(received(message, "to"),
              "\"Rao, Asha (accounts)\" <asha@saffron.example>, रवि काळे <ravi@saffron.example>, "
              "x@y.example");
    EXPECT_EQ(received(message, "x-unsent"), "1");
    EXPECT_EQ(Text::replaceAll(read.bodyText, "\r\n", "\n"), draft.body + "\n");
    ASSERT_EQ(read.attachments.size(), 1U);
    EXPECT_EQ(read.attachments[0].name, draft.attachmentName);
    EXPECT_EQ(read.attachments[0].mime, "application/pdf");
    EXPECT_EQ(read.attachments[0].data, pdf);
    for (const std::string& line : Text::split(message, '\n')) {
        EXPECT_TRUE(line.empty() || line.ends_with('\r')) << line;
        EXPECT_LE(line.size(), 79U) << line;
    }
    draft.to.clear();
    EXPECT_TRUE(Reminders::message(draft, "", pdf, at).starts_with("Subject: ")) << "nobody to name";
}

RC_GTEST_PROP(RemindersMessage, noTextBecomesAHeader, ()) {
    const auto text = rc::gen::map(
        rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
            "a", "é", "हिन्दी", "\r\n", "\n", "\r", "Bcc: x@y", ":", "\"", "\\", "<", ">", ",", "@", " ", "=?UTF-8?Q?",
            "?=", "\xFF", "\t", "\0", "; filename=x", std::string(80, 'w'), "e" + std::string(60, '\xCC') + "\x81")),
        [](const std::vector<std::string>& pieces) { return Text::join(pieces, ""); });
    const Reminders::Draft draft{*text, *text, *text, *text};
    const std::string message = Reminders::message(draft, *text, "%PDF", Instant{});
    std::vector<std::string> names;
    const std::string head = message.substr(0, message.find("\r\n\r\n"));
    for (const std::string& line : Text::splitLines(head))
        if (!line.starts_with(' ')) names.push_back(line.substr(0, line.find(':')));
    for (const char* mayBeMissing : {"From", "To"})
        if (names.front() == mayBeMissing) names.erase(names.begin());
    RC_ASSERT(names ==
              (std::vector<std::string>{"Subject", "Date", "Message-ID", "MIME-Version", "X-Unsent", "Content-Type"}));
    const EmailReceipt::Message read = EmailReceipt::parse(message);
    RC_ASSERT(read.attachments.size() == 1U);
    RC_ASSERT(read.attachments[0].data == "%PDF");
}

}  // namespace
}  // namespace tamba
