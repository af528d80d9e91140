#include "Tamba/Rows/DocumentRows.h"

#include "Tamba/Rows/RowText.h"
#include "Tamba/Rows/SearchedWord.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Reports/Reports.h"

#include <algorithm>
#include <unordered_map>

namespace tamba {
namespace {

constexpr std::string_view dayPattern = "d MMM yyyy";

std::string days(std::int64_t count) {
    return RowText::counted(static_cast<std::size_t>(count), RowText::marked("Rows", "1 day"),
                            RowText::marked("Rows", "%1 days"));
}

/// One document with what it is compared and searched by.
struct Entry {
    const Document* document;
    const Books::Standing* standing;  ///< none: figures beyond belief
    DocStatus status;
    std::string_view client;
    std::int64_t home;  ///< total in the home currency, for ordering by size
};

std::string totalText(const Entry& entry) {
    if (!entry.standing) return RowText::translate("Rows", "Cannot be right");
    return MoneyFormat::string(entry.standing->totals.total, Currency::of(entry.document->currency));
}

std::string dueText(const Library& library, const Entry& entry) {
    const Document& document = *entry.document;
    const std::string day = document.dueDate.formatted(dayPattern);
    switch (document.kind) {
        case DocKind::invoice:
            if (entry.standing && entry.standing->daysLate > 0)
                return RowText::filled(RowText::translate("Rows", "%1 late"), {days(entry.standing->daysLate)});
            return entry.status == DocStatus::paid || entry.status == DocStatus::void_
                       ? std::string()
                       : RowText::filled(RowText::translate("Rows", "Due %1"), {day});
        case DocKind::estimate:
            return entry.status == DocStatus::sent || entry.status == DocStatus::draft
                       ? RowText::filled(RowText::translate("Rows", "Valid until %1"), {day})
                       : std::string();
        case DocKind::creditNote:
            if (const Document* of = document.linkedID ? library.document(*document.linkedID) : nullptr)
                return RowText::filled(RowText::translate("Rows", "For %1"), {of->displayNumber()});
            return "";
    }
    return "";
}

std::string balanceText(const Entry& entry) {
    if (!entry.standing || entry.standing->balance == 0) return "";
    const Currency currency = Currency::of(entry.document->currency);
    const std::int64_t balance = entry.standing->balance;
    if (balance < 0)
        return RowText::filled(RowText::translate("Rows", "%1 to refund"),
                               {MoneyFormat::string(Checked::neg(balance), currency)});
    // A wholly unpaid invoice need not say its total twice.
    if (balance == entry.standing->totals.total) return "";
    return RowText::filled(RowText::translate("Rows", "%1 due"), {MoneyFormat::string(balance, currency)});
}

std::string glyphOf(DocStatus status) {
    switch (status) {
        case DocStatus::draft:
            return "file";
        case DocStatus::sent:
            return "mail";
        case DocStatus::partial:
            return "history";
        case DocStatus::overdue:
        case DocStatus::expired:
            return "alert";
        case DocStatus::void_:
        case DocStatus::declined:
            return "close";
        case DocStatus::paid:
        case DocStatus::accepted:
        case DocStatus::converted:
        case DocStatus::applied:
            break;
    }
    return "done";
}

DocumentRow rowOf(const Library& library, const Entry& entry) {
    const Document& document = *entry.document;
    DocumentRow row;
    row.id = document.id;
    row.number = RowText::number(document);
    row.date = document.issueDate.formatted(dayPattern);
    row.client = entry.client;
    row.due = dueText(library, entry);
    row.total = totalText(entry);
    row.balance = balanceText(entry);
    row.status = RowText::translate("Rows", Books::title(entry.status));
    row.tone = toneOf(entry.status);
    row.glyph = glyphOf(entry.status);
    row.late = entry.status == DocStatus::overdue;
    return row;
}

bool holds(const Entry& entry, SearchedWord& word) {
    const Document& document = *entry.document;
    if (word.in(document.displayNumber()) || word.in(entry.client) || word.in(document.reference) ||
        word.in(document.issueDate) || word.in(RowText::translate("Rows", Books::title(entry.status))) ||
        word.in(document.notes))
        return true;
    if (entry.standing ? word.in(entry.standing->totals.total, document.currency) : word.in(totalText(entry)))
        return true;
    return std::any_of(
               document.lines.begin(), document.lines.end(),
               [&word](const Line& line) { return word.in(line.name) || word.in(line.detail) || word.in(line.hsn); }) ||
           std::any_of(document.payments.begin(), document.payments.end(),
                       [&word](const Payment& payment) { return word.in(payment.reference); });
}

int compare(const Entry& a, const Entry& b, DocumentOrder order) {
    const auto sign = [](auto x, auto y) { return x < y ? -1 : y < x ? 1 : 0; };
    switch (order) {
        case DocumentOrder::client:
            return Text::compareForPeople(a.client, b.client);
        case DocumentOrder::total:
            return sign(a.home, b.home);
        case DocumentOrder::status:
            return sign(a.status, b.status);
        case DocumentOrder::date:
            break;
    }
    return 0;
}

void sort(std::vector<Entry>& entries, const DocumentFilter& filter) {
    std::sort(entries.begin(), entries.end(), [&filter](const Entry& a, const Entry& b) {
        if (const int order = compare(a, b, filter.order); order != 0) return filter.ascending ? order < 0 : order > 0;
        // Within equals the latest comes first; of one day the highest number.
        const bool up = filter.order == DocumentOrder::date && filter.ascending;
        const Document &first = up ? *a.document : *b.document, &second = up ? *b.document : *a.document;
        const auto number = [](const Document& d) { return d.number ? std::string_view(*d.number) : "\xff"; };
        if (first.issueDate != second.issueDate) return first.issueDate < second.issueDate;
        if (const int order = number(first).compare(number(second)); order != 0) return order < 0;
        return std::tie(first.createdAt, first.id) < std::tie(second.createdAt, second.id);
    });
}

/// Sums what was issued in the home currency, each amount converted on its own.
void sum(const Library& library, const std::vector<Entry>& entries, DocumentTable& table) {
    std::int64_t total = 0, due = 0;
    std::size_t leftOut = 0;
    for (const Entry& entry : entries) {
        // Only estimates count as accepted or declined: an invoice in such a state is owed by nobody.
        const bool isInvoice = entry.document->kind == DocKind::invoice;
        if (isInvoice ? entry.document->state != DocState::issued : !entry.document->isIssued()) continue;
        const auto home = entry.standing ? Books::inHomeCurrency(library, *entry.document, entry.standing->totals.total)
                                         : std::nullopt;
        const auto owed =
            entry.standing ? Books::inHomeCurrency(library, *entry.document, entry.standing->balance) : std::nullopt;
        const auto newTotal = home ? Checked::tryAdd(total, *home) : std::nullopt;
        const auto newDue = owed ? Checked::tryAdd(due, *owed) : std::nullopt;
        if (!newTotal || !newDue) {
            ++leftOut;
            continue;
        }
        total = *newTotal;
        due = *newDue;
    }
    table.total = MoneyFormat::string(total, library.home());
    table.due = MoneyFormat::string(due, library.home());
    if (leftOut > 0)
        table.leftOut = RowText::filled(RowText::translate("Rows", "%1 left out: no rate"), {std::to_string(leftOut)});
}

std::string countText(std::size_t count, DocKind kind) {
    switch (kind) {
        case DocKind::invoice:
            return RowText::counted(count, RowText::marked("Rows", "1 invoice"),
                                    RowText::marked("Rows", "%1 invoices"));
        case DocKind::estimate:
            return RowText::counted(count, RowText::marked("Rows", "1 estimate"),
                                    RowText::marked("Rows", "%1 estimates"));
        case DocKind::creditNote:
            break;
    }
    return RowText::counted(count, RowText::marked("Rows", "1 credit note"),
                            RowText::marked("Rows", "%1 credit notes"));
}

/// "CGST 9%": the rate stands in the title where all that is taxed has the same.
std::string taxTitle(std::string_view name, const DocTotals& totals, int share) {
    std::vector<int> rates;
    for (const RateGroup& group : totals.byRate)
        if (group.tax.total() != 0) rates.push_back(group.rateBP);
    std::string title(name);
    if (rates.size() == 1 && rates.front() % share == 0) title += ' ' + MoneyFormat::rate(rates.front() / share);
    return title;
}

DocumentFact linkTo(const Document& other) {
    std::string text = RowText::translate("Rows", Books::title(other.kind)) + ' ' + RowText::number(other);
    std::string amount;
    if (DocMath::isBelievable(other))
        amount = MoneyFormat::string(DocMath::totals(other).total, Currency::of(other.currency));
    return {DocumentFact::Kind::link, std::move(text), std::move(amount), other.id};
}

std::string paymentText(const Payment& payment, const Currency& currency) {
    std::string text = payment.date.formatted(dayPattern) + " · " + RowText::translate("Rows", title(payment.method));
    if (!payment.reference.empty()) text += " · " + payment.reference;
    if (payment.tds != 0) text += " · TDS " + MoneyFormat::string(payment.tds, currency);
    return text;
}

}  // namespace

const std::vector<StatusChoice>& statusChoices(DocKind kind) {
    using enum DocStatus;
    static const std::vector<StatusChoice> invoices{{RowText::translate("Rows", "All"), {}},
                                                    {RowText::translate("Rows", "Drafts"), {draft}},
                                                    {RowText::translate("Rows", "Unpaid"), {sent, partial, overdue}},
                                                    {RowText::translate("Rows", "Overdue"), {overdue}},
                                                    {RowText::translate("Rows", "Paid"), {paid}},
                                                    {RowText::translate("Rows", "Void"), {void_}}};
    static const std::vector<StatusChoice> estimates{
        {RowText::translate("Rows", "All"), {}},
        {RowText::translate("Rows", "Drafts"), {draft}},
        {RowText::translate("Rows", "Open"), {sent}},
        {RowText::translate("Rows", "Accepted"), {accepted, converted}},
        {RowText::translate("Rows", "Declined or expired"), {declined, expired}},
        {RowText::translate("Rows", "Void"), {void_}}};
    static const std::vector<StatusChoice> creditNotes{{RowText::translate("Rows", "All"), {}},
                                                       {RowText::translate("Rows", "Drafts"), {draft}},
                                                       {RowText::translate("Rows", "Applied"), {applied}},
                                                       {RowText::translate("Rows", "Void"), {void_}}};
    switch (kind) {
        case DocKind::invoice:
            return invoices;
        case DocKind::estimate:
            return estimates;
        case DocKind::creditNote:
            break;
    }
    return creditNotes;
}

DocumentTable documentTable(const Library& library, const DocumentFilter& filter, Day today) {
    return DocumentListing().table(library, filter, today);
}

DocumentTable DocumentListing::table(const Library& library, const DocumentFilter& filter, Day today) {
    return kept_.get(library, filter, today, [&] { return made(library, filter, today); });
}

DocumentTable DocumentListing::made(const Library& library, const DocumentFilter& filter, Day today) {
    const auto& standings = standings_.update(library, today);
    std::unordered_map<UUID, std::string_view> clients;
    for (const Client& client : library.clients) clients.emplace(client.id, client.name);
    std::vector<SearchedWord> words = searchedWords(filter.search);
    std::vector<Entry> entries;
    for (std::size_t at = 0; at < library.documents.size(); ++at) {
        const Document& document = library.documents[at];
        if (document.kind != filter.kind) continue;
        if (filter.days && !filter.days->contains(document.issueDate)) continue;
        const auto& standing = standings[at];
        Entry entry{&document, standing ? &*standing : nullptr, DocStatus::draft, {}, 0};
        entry.status = standing ? standing->status : Books::status(library, document, today);
        const auto client = document.clientID ? clients.find(*document.clientID) : clients.end();
        entry.client = document.billTo ? document.billTo->name : client != clients.end() ? client->second : "";
        if (!filter.statuses.empty() &&
            std::find(filter.statuses.begin(), filter.statuses.end(), entry.status) == filter.statuses.end())
            continue;
        if (entry.standing)
            entry.home = Books::inHomeCurrency(library, document, entry.standing->totals.total).value_or(0);
        if (std::all_of(words.begin(), words.end(), [&](SearchedWord& word) { return holds(entry, word); }))
            entries.push_back(entry);
    }
    sort(entries, filter);

    DocumentTable table;
    std::vector<LazyRows<DocumentRow>::Key> keys;
    keys.reserve(entries.size());
    for (const Entry& entry : entries) keys.push_back({entry.document->id, entry.document});
    table.count = countText(entries.size(), filter.kind);
    sum(library, entries, table);
    // A row also names its client and the document it hangs together with, and tells how late it is.
    auto books = std::make_shared<Books::Standings>(library, today);
    table.rows = {std::move(keys), books, [library, books, today](const void* record) {
                      const auto& document = *static_cast<const Document*>(record);
                      const auto standing = books->of(document);
                      const std::string client = clientName(library, document);
                      return rowOf(library,
                                   {&document, standing ? &*standing : nullptr,
                                    standing ? standing->status : Books::status(library, document, today), client, 0});
                  }};
    return table;
}

std::size_t countOf(const Library& library, DocKind kind) {
    return static_cast<std::size_t>(std::count_if(library.documents.begin(), library.documents.end(),
                                                  [kind](const Document& d) { return d.kind == kind; }));
}

std::string_view pluralTitle(DocKind kind) {
    switch (kind) {
        case DocKind::invoice:
            return RowText::marked("Rows", "Invoices");
        case DocKind::estimate:
            return RowText::marked("Rows", "Estimates");
        case DocKind::creditNote:
            break;
    }
    return RowText::marked("Rows", "Credit notes");
}

Tone toneOf(DocStatus status) {
    switch (status) {
        case DocStatus::overdue:
            return Tone::danger;
        case DocStatus::partial:
        case DocStatus::expired:
            return Tone::warning;
        case DocStatus::paid:
        case DocStatus::accepted:
        case DocStatus::converted:
        case DocStatus::applied:
            return Tone::good;
        case DocStatus::draft:
        case DocStatus::sent:
        case DocStatus::void_:
        case DocStatus::declined:
            break;
    }
    return Tone::neutral;
}

std::string clientName(const Library& library, const Document& document) {
    if (document.billTo) return document.billTo->name;
    const Client* client = document.clientID ? library.client(*document.clientID) : nullptr;
    return client ? client->name : "";
}

std::string clientTitle(const Library& library, const Document& document) {
    const std::string name = clientNameOf(library, document);
    return name == "No client" ? RowText::translate("Rows", "No client") : name;
}

std::vector<TotalLine> totalLines(const Library& library, const Document& document) {
    if (!DocMath::isBelievable(document)) return {};
    const DocTotals totals = DocMath::totals(document);
    const Currency currency = Currency::of(document.currency);
    std::vector<TotalLine> lines;
    const auto add = [&](std::string title, std::int64_t amount) {
        lines.push_back({std::move(title), MoneyFormat::string(amount, currency)});
    };
    const auto addTax = [&](std::string_view name, std::int64_t amount, int share) {
        if (amount != 0) add(taxTitle(name, totals, share), amount);
    };
    const bool plain = totals.discount == 0 && totals.tax.total() == 0 && totals.roundOff == 0;
    if (!plain) add(RowText::translate("Rows", "Subtotal"), totals.subtotal);
    if (totals.discount != 0) {
        add(RowText::translate("Rows", "Discount"), Checked::neg(totals.discount));
        if (totals.tax.total() != 0) add(RowText::translate("Rows", "Taxable value"), totals.taxable);
    }
    const auto place = IndianState::of(document.placeOfSupply);
    addTax("CGST", totals.tax.cgst, 2);
    addTax(place && place->utgst ? "UTGST" : "SGST", totals.tax.sgst, 2);
    addTax("IGST", totals.tax.igst, 1);
    addTax(library.business.displayTaxName(), totals.tax.other, 1);
    if (totals.roundOff != 0) add(RowText::translate("Rows", "Round-off"), totals.roundOff);
    add(RowText::translate("Rows", "Total"), totals.total);
    lines.back().strong = true;
    if (document.currency != library.business.homeCurrency)
        if (const auto home = Books::inHomeCurrency(library, document, totals.total))
            lines.push_back({RowText::filled(RowText::translate("Rows", "In %1"), {library.business.homeCurrency}),
                             MoneyFormat::string(*home, library.home())});
    return lines;
}

std::vector<DocumentFact> documentFacts(const Library& library, const Document& document) {
    using Kind = DocumentFact::Kind;
    const Currency currency = Currency::of(document.currency);
    std::vector<DocumentFact> facts;
    for (const Payment& payment : document.payments)
        facts.push_back(
            {Kind::payment, paymentText(payment, currency), MoneyFormat::string(payment.amount, currency), payment.id});
    if (const Document* other = document.linkedID ? library.document(*document.linkedID) : nullptr)
        facts.push_back(linkTo(*other));
    for (const Document& other : library.documents)
        if (other.linkedID == document.id) facts.push_back(linkTo(other));
    const auto note = [&facts](std::string text) { facts.push_back({Kind::note, std::move(text), {}}); };
    if (document.sentOn)
        note(RowText::filled(RowText::translate("Rows", "Sent on %1"), {document.sentOn->formatted(dayPattern)}));
    if (document.remindersSent > 0) {
        const auto count = static_cast<std::size_t>(document.remindersSent);
        note(document.lastReminder ? RowText::counted(count, RowText::marked("Rows", "One reminder, on %2"),
                                                      RowText::marked("Rows", "%1 reminders, the last on %2"),
                                                      document.lastReminder->formatted(dayPattern))
                                   : RowText::counted(count, RowText::marked("Rows", "One reminder"),
                                                      RowText::marked("Rows", "%1 reminders")));
    }
    if (!document.reason.empty())
        note(RowText::filled(document.state == DocState::void_ ? RowText::translate("Rows", "Void: %1")
                                                               : RowText::translate("Rows", "Reason: %1"),
                             {document.reason}));
    return facts;
}

std::string standingText(const Library& library, const Document& document, Day today) {
    const DocStatus status = Books::status(library, document, today);
    const std::string day = document.dueDate.formatted(dayPattern);
    if (status == DocStatus::void_) return RowText::translate("Rows", "Void: it keeps its number and counts no more.");
    switch (document.kind) {
        case DocKind::invoice: {
            if (!DocMath::isBelievable(document)) return "";
            const Currency currency = Currency::of(document.currency);
            const std::int64_t balance = Books::balance(library, document);
            if (balance < 0)
                return RowText::filled(RowText::translate("Rows", "%1 to refund"),
                                       {MoneyFormat::string(Checked::neg(balance), currency)});
            if (balance < 1)
                return Books::credits(library, document.id) > 0 ? RowText::translate("Rows", "Settled")
                                                                : RowText::translate("Rows", "Paid in full");
            const std::string due = MoneyFormat::string(balance, currency);
            const std::int64_t late = document.dueDate.daysUntil(today);
            return late > 0
                       ? RowText::filled(RowText::translate("Rows", "%1 due since %2, %3 ago"), {due, day, days(late)})
                       : RowText::filled(RowText::translate("Rows", "%1 due by %2"), {due, day});
        }
        case DocKind::estimate:
            if (status == DocStatus::converted) return RowText::translate("Rows", "Became an invoice");
            if (status == DocStatus::expired)
                return RowText::filled(RowText::translate("Rows", "Was valid until %1"), {day});
            return status == DocStatus::sent ? RowText::filled(RowText::translate("Rows", "Valid until %1"), {day})
                                             : RowText::translate("Rows", Books::title(status));
        case DocKind::creditNote:
            break;
    }
    const Document* invoice = document.linkedID ? library.document(*document.linkedID) : nullptr;
    return invoice ? RowText::filled(RowText::translate("Rows", "Credits invoice %1"), {invoice->displayNumber()})
                   : std::string();
}

}  // namespace tamba
