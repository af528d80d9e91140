#include "TambaCore/Documents/Reminders.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/MailText.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/BooksParts.h"
#include "TambaCore/Documents/UPI.h"

#include <algorithm>
#include <array>

namespace tamba::Reminders {
namespace {

using Code = BooksError::Code;

std::string dayText(Day day) { return day.formatted("d MMM yyyy"); }

std::string days(std::int64_t count) { return std::to_string(count) + (count == 1 ? " day" : " days"); }

/// What the texts say about one document.
struct Subject {
    const Library& library;
    const Document& document;
    std::string number, date, seller;
    DocTotals totals;
    std::int64_t balance = 0;

    Subject(const Library& books, const Document& of) : library(books), document(of) {
        Books::needIssued(of);
        if (!DocMath::isBelievable(of))
            throw BooksError(Code::figures, "A figure of this document is too large to be right. Check its lines.");
        number = of.displayNumber();
        date = dayText(of.issueDate);
        seller = of.seller ? of.seller->name : books.business.name;
        totals = DocMath::totals(of);
        if (of.kind == DocKind::invoice) balance = Books::balance(books, of);
    }

    [[nodiscard]] std::string amount(std::int64_t minor) const {
        return MoneyFormat::string(minor, Currency::of(document.currency));
    }
};

/// "Asha Rao <asha@saffron.example>"; what would end the name or the address early is left out.
std::string recipient(const Subject& subject) {
    const Client* client = subject.document.clientID ? subject.library.client(*subject.document.clientID) : nullptr;
    const PartySnapshot billTo = subject.document.billTo.value_or(PartySnapshot{});
    const std::string email(Text::trim(client ? client->email : billTo.email));
    if (email.empty() || Text::contains(email, ",") || Text::contains(email, "<")) return email;
    std::string name = !client ? billTo.name : client->contact.empty() ? client->name : client->contact;
    std::erase_if(name, [](char c) { return c == '<' || c == '>' || c == '"'; });
    name = Text::trim(name);
    return name.empty() ? email : name + " <" + email + ">";
}

std::string greeting(const Subject& subject) {
    const Client* client = subject.document.clientID ? subject.library.client(*subject.document.clientID) : nullptr;
    const std::string_view name = client ? Text::trim(client->contact) : "";
    return name.empty() ? "Hello,\n\n" : "Hello " + std::string(name) + ",\n\n";
}

std::string closing(const Subject& subject) {
    const Business& business = subject.library.business;
    std::string text = "Kind regards\n\n";
    // The setting's own default is a title, not a person.
    if (!business.signatory.empty() && business.signatory != Business().signatory) text += business.signatory + "\n";
    text += subject.seller + "\n";
    if (!business.phone.empty()) text += business.phone + "\n";
    return text;
}

/// The account, and the UPI link where one pays what is due; empty when the business has neither.
std::string waysToPay(const Subject& subject) {
    const BankDetails& bank = subject.library.business.bank;
    std::string text;
    if (!bank.isEmpty()) {
        text += "By bank transfer:\n";
        // A client who pays in rupees has no use for the code of transfers from abroad.
        const bool fromAbroad = subject.document.currency != Currency::inr().code;
        const std::pair<const char*, std::string> rows[] = {{"Account name", bank.accountName},
                                                            {"Account number", bank.accountNumber},
                                                            {"Bank", bank.bankName},
                                                            {"IFSC", bank.ifsc},
                                                            {"SWIFT", fromAbroad ? bank.swift : ""},
                                                            {"IBAN", bank.iban}};
        for (const auto& [label, value] : rows)
            if (!value.empty()) text += std::string("  ") + label + ": " + value + "\n";
        text += "  Reference: " + subject.number + "\n\n";
    }
    if (const auto link = UPI::linkFor(subject.library, subject.document))
        text += "By UPI to " + std::string(Text::trim(subject.library.business.upiID)) + ":\n  " + *link + "\n\n";
    return text;
}

/// How the amount due comes about, once something has been settled.
std::string account(const Subject& subject) {
    std::int64_t received = 0, deducted = 0;
    for (const Payment& payment : subject.document.payments) {
        received = Checked::add(received, payment.amount);
        deducted = Checked::add(deducted, payment.tds);
    }
    std::string text = "Invoice: " + subject.number + " of " + subject.date + "\n";
    if (!subject.document.reference.empty()) text += "Your reference: " + subject.document.reference + "\n";
    text += "Amount: " + subject.amount(subject.totals.total) + "\n";
    const std::pair<const char*, std::int64_t> rows[] = {
        {"Received, thank you", received},
        {"Tax deducted at source", deducted},
        {"Credited", Books::credits(subject.library, subject.document.id)}};
    for (const auto& [label, amount] : rows)
        if (amount > 0) text += std::string(label) + ": " + subject.amount(amount) + "\n";
    return text + "Due: " + subject.amount(subject.balance) + ", by " + dayText(subject.document.dueDate) + "\n\n";
}

std::string reminderText(const Subject& subject, Day today, Tone tone) {
    const Document& invoice = subject.document;
    const std::string due = dayText(invoice.dueDate), amount = subject.amount(subject.balance);
    const std::string name = "invoice " + subject.number + " of " + subject.date;
    const std::int64_t late = invoice.dueDate.daysUntil(today);
    const std::string when = late > 0    ? "was due on " + due + ", " + days(late) + " ago"
                             : late == 0 ? "is due today, " + due
                                         : "is due on " + due;
    switch (tone) {
        case Tone::friendly:
            if (late <= 0)
                return "I hope you are well. This is a short note that " + name + " " + when + ". The amount open is " +
                       amount + ".\n\n";
            return "I hope you are well. It may have slipped through: " + name + " " + when +
                   ", and I have not seen the payment of " + amount + " yet. Could you have a look?\n\n";
        case Tone::firm:
            return "I am writing again about " + name + ". It " + when + ", and " + amount +
                   " is still open. Please let me know on which day I can expect the payment. If something about the "
                   "invoice holds it up, tell me and I will see to it.\n\n";
        case Tone::final:
            return "I have written to you several times about " + name + ". It " + when + ", and " + amount +
                   " is still open. Please pay it within the next seven days, or call me so that we can agree on a "
                   "day. I would like us to settle this between ourselves.\n\n";
    }
    return {};
}

std::string sendingText(const Subject& subject, Day today) {
    const Document& document = subject.document;
    const std::string of = " " + subject.number + " of " + subject.date, total = subject.amount(subject.totals.total);
    switch (document.kind) {
        case DocKind::invoice: {
            std::string text = "Here is invoice" + of + " for " + total + ". ";
            if (subject.balance < 1) return text + "It is settled, so there is nothing to pay.\n\n";
            if (subject.balance < subject.totals.total)
                text += "Of this, " + subject.amount(subject.balance) + " is open. ";
            return text + (document.dueDate < today ? "It was due on " : "It is due on ") + dayText(document.dueDate) +
                   ".\n\n" + waysToPay(subject);
        }
        case DocKind::estimate:
            return "Here is estimate" + of + " for " + total + ". It holds until " + dayText(document.dueDate) +
                   ". A short reply is enough to accept it.\n\n";
        case DocKind::creditNote:
            break;
    }
    std::string text = "Here is credit note" + of + " for " + total;
    const Document* invoice = document.linkedID ? subject.library.document(*document.linkedID) : nullptr;
    if (!invoice || !invoice->number || !DocMath::isBelievable(*invoice)) return text + ".\n\n";
    text += ". It takes this amount off invoice " + *invoice->number + " of " + dayText(invoice->issueDate);
    const std::int64_t open = Books::balance(subject.library, *invoice);
    if (open > 0) return text + ", on which " + subject.amount(open) + " is now due.\n\n";
    if (open == 0) return text + ", which is settled with it.\n\n";
    return text + ". That leaves " + subject.amount(Checked::neg(open)) + " in your favour.\n\n";
}

std::string dateText(Instant instant) {
    constexpr std::array weekdays{"Thu", "Fri", "Sat", "Sun", "Mon", "Tue", "Wed"};  // 1 January 1970 was a Thursday
    constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::string iso = instantText(instant);  // 2026-11-21T09:30:00Z
    const Day day = Day::iso(iso).value_or(Day{});
    const auto weekday = static_cast<std::size_t>((day.number() % 7 + 7) % 7);
    return std::string(weekdays[weekday]) + ", " + std::to_string(day.d) + " " +
           months[static_cast<std::size_t>(day.m - 1)] + " " + iso.substr(0, 4) + " " + iso.substr(11, 8) + " +0000";
}

}  // namespace

Tone tone(const Document& invoice) {
    return invoice.remindersSent < 1 ? Tone::friendly : invoice.remindersSent == 1 ? Tone::firm : Tone::final;
}

std::string_view title(Tone tone) {
    return tone == Tone::friendly ? "Friendly" : tone == Tone::firm ? "Firm" : "Final";
}

Draft sending(const Library& library, const Document& document, Day today) {
    const Subject subject(library, document);
    return {recipient(subject),
            std::string(Books::title(document.kind)) + " " + subject.number + " from " + subject.seller,
            greeting(subject) + sendingText(subject, today) +
                "If anything is unclear, just reply to this message.\n\n" + closing(subject),
            Books::fileName(library, document)};
}

Draft reminder(const Library& library, const Document& invoice, Day today) {
    return reminder(library, invoice, today, tone(invoice));
}

Draft reminder(const Library& library, const Document& invoice, Day today, Tone tone) {
    Books::refuseIf(invoice.kind != DocKind::invoice, Code::notInvoice);
    const Subject subject(library, invoice);
    Books::refuseIf(subject.balance < 1, Code::nothingDue);
    const std::string title = tone == Tone::friendly ? "Reminder"
                              : tone == Tone::firm   ? "Second reminder"
                                                     : "Last reminder";
    return {recipient(subject), title + ": invoice " + subject.number + ", " + subject.amount(subject.balance) + " due",
            greeting(subject) + reminderText(subject, today, tone) + account(subject) + waysToPay(subject) +
                "The invoice is attached. If you have paid in the meantime, please ignore this message, and thank "
                "you.\n\n" +
                closing(subject),
            Books::fileName(library, invoice)};
}

std::string message(const Draft& draft, std::string_view from, std::string_view pdf, Instant date) {
    const UUID id = UUID::derived(UUID{}, Text::join({draft.to, draft.subject, draft.body, draft.attachmentName,
                                                      std::string(from), instantText(date)},
                                                     "\n"));
    // "=_" occurs in neither encoding, so no body can hold the boundary.
    const std::string boundary = "=_" + id.text();
    return MailText::addressHeader("From", from) + MailText::addressHeader("To", draft.to) +
           MailText::header("Subject", draft.subject) + "Date: " + dateText(date) + "\r\nMessage-ID: <" + id.text() +
           "@tamba.invalid>\r\nMIME-Version: 1.0\r\nX-Unsent: 1\r\nContent-Type: multipart/mixed" +
           MailText::parameter("boundary", boundary) + "\r\n\r\n--" + boundary +
           "\r\nContent-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: quoted-printable\r\n\r\n" +
           MailText::quotedPrintable(draft.body) + "--" + boundary + "\r\nContent-Type: application/pdf" +
           MailText::parameter("name", draft.attachmentName) + "\r\nContent-Disposition: attachment" +
           MailText::parameter("filename", draft.attachmentName) + "\r\nContent-Transfer-Encoding: base64\r\n\r\n" +
           MailText::base64(pdf) + "--" + boundary + "--\r\n";
}

Library recordReminder(Library library, const UUID& invoice, Day on) {
    const Document* document = library.document(invoice);
    if (!document) return library;
    Books::refuseIf(document->kind != DocKind::invoice, Code::notInvoice);
    Books::needIssued(*document);
    return Books::changed(std::move(library), invoice, [on](Document& reminded) {
        reminded.remindersSent = std::clamp(reminded.remindersSent, 0, 1'000'000) + 1;
        reminded.lastReminder = on;
        if (!reminded.sentOn) reminded.sentOn = on;
    });
}

}  // namespace tamba::Reminders
