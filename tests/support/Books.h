#pragma once

#include "TambaCore/Documents/Books.h"
#include "TambaCore/Model/Models.h"

#include <string>
#include <utility>
#include <vector>

namespace tamba::testing {

/// An expense with something in every kind of field.
inline Expense anExpense(std::string vendor = "Chai Point", Day date = {2026, 10, 14}) {
    Expense e = Expense::make(date);
    e.vendor = std::move(vendor);
    e.amount = 11800;
    e.tax = 1800;
    e.taxSplit = {900, 900, 0, 0};
    e.claimTax = true;
    e.notes = "two lines\nand a \"quote\"";
    e.attachments.push_back(Attachment::make("Receipts/2026-10/2026-10-14-chai-point.jpg", "IMG_1.jpg"));
    e.ocrText = "Grand Total ₹118.00";
    return e;
}

/// An expense of an amount, and nothing else.
inline Expense spent(std::string vendor, std::int64_t amount, Day date = {2026, 10, 14}) {
    Expense e = Expense::make(date);
    e.vendor = std::move(vendor);
    e.amount = amount;
    return e;
}

inline Document anInvoice(std::string number = "INV/26-27/001") {
    Document d = Document::make(DocKind::invoice, {2026, 10, 1}, {2026, 10, 16});
    d.state = DocState::issued;
    d.number = std::move(number);
    d.billTo = PartySnapshot{"Saffron Labs", "Pune", "", "27", "IN", "", {}};
    d.lines.push_back(Line::make("Design", 1500, 333, 1800));
    d.payments.push_back(Payment::make({2026, 10, 20}, 400, 32, PaymentMethod::upi));
    return d;
}

/// A book with at least one record in every list.
inline Library aLibrary() {
    Library l = Library::make();
    l.business.name = "Studio Tamarind";
    l.business.stateCode = "27";
    l.clients.append(Client::make("Saffron Labs"));
    l.items.append(CatalogItem::make("Logo"));
    l.projects.append(Project::make("Rebrand", l.clients[0].id));
    l.expenses.append(anExpense());
    l.recurring.append(RecurringExpense::make(anExpense("Rent"), Frequency::monthly, {2026, 11, 1}));
    l.documents.append(anInvoice());
    l.transactions.append(BankTransaction::make({2026, 10, 14}, "UPI/DR/1/CHAI POINT", -11800));
    l.rules.append(CategoryRule::make("chai", l.categories[4].id, ""));
    l.rates.append({"USD", 83'250'000, {2026, 10, 1}, {}});
    l.series.update(0, [](NumberSeries& s) { s.next["26-27"] = 2; });
    return l;
}

/// The books of a studio in Maharashtra that is registered for GST, with one client there, also registered.
inline Library aBook() {
    Library l = Library::make();
    l.business.name = "Studio Tamarind";
    l.business.taxID = GSTIN::make("27", "AAPFU0939F", "1");
    l.business.roundTotals = false;
    Client saffron = Client::make("Saffron Labs");
    saffron.stateCode = "27";
    saffron.taxID = GSTIN::make("27", "AABCM1234K", "1");
    l.clients.append(saffron);
    return l;
}

/// A draft for a client (the first one) with these lines, not yet in the books.
inline Document aDraft(const Library& l, DocKind kind, std::vector<Line> lines, std::size_t client = 0) {
    Document d = Books::newDocument(l, kind, l.clients[client].id, {2026, 10, 14});
    d.lines = std::move(lines);
    return d;
}

/// Puts the draft into the books and issues it on its own date; gives its id.
inline UUID issued(Library& l, Document draft) {
    const UUID id = draft.id;
    const Day date = draft.issueDate;
    l = Books::issue(Books::addDraft(l, std::move(draft)), id, date);
    return id;
}

/// Issues an invoice of one line to the first client; gives its id.
inline UUID billed(Library& l, std::int64_t price, Day date, int taxBP = 0) {
    Document draft = Books::newDocument(l, DocKind::invoice, l.clients[0].id, date);
    draft.lines = {Line::make("Design", 1000, price, taxBP)};
    return issued(l, std::move(draft));
}

}  // namespace tamba::testing
