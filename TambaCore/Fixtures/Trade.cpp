#include "TambaCore/Fixtures/Trade.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Rebilling.h"
#include "TambaCore/Documents/Reminders.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Fixtures/Shops.h"

#include <optional>
#include <utility>

namespace tamba::Fixtures {

namespace {

constexpr auto monsoon = "Monsoon Tea Company LLP", terracotta = "Terracotta Homes Pvt Ltd",
               bluebottle = "Bluebottle Analytics, Inc.", indrayani = "Indrayani Softworks Pvt Ltd",
               sahyadri = "Sahyadri Trails", nordlicht = "Nordlicht Studio GmbH";

class Trade {
public:
    Trade(Library library, Dice& dice, Day today) : library_(std::move(library)), dice_(dice), today_(today) {}

    /// Each series' documents are issued in the order of their dates.
    Library make() {
        lastYear();
        thisYear();
        return std::move(library_);
    }

private:
    [[nodiscard]] Day ago(int days) const { return today_.addingDays(-days); }
    [[nodiscard]] UUID client(std::string_view name) const {
        for (const Client& client : library_.clients)
            if (client.name == name) return client.id;
        fatal("a client of the sample books is missing");
    }
    [[nodiscard]] Line line(const char* name, std::int64_t qtyMilli, const char* unit, std::int64_t price,
                            const char* hsn = "998391") {
        Line line;
        line.id = dice_.id();
        line.name = name;
        line.hsn = hsn;
        line.qtyMilli = qtyMilli;
        line.unit = unit;
        line.priceMinor = price;
        line.taxBP = library_.business.defaultTaxBP;
        return line;
    }
    /// The document as it was made on that day, with ids that are the same on every run.
    [[nodiscard]] Document own(Document document, int daysAgo) {
        document.id = dice_.id();
        for (Line& line : document.lines) line.id = dice_.id();
        document.createdAt = std::chrono::sys_days(std::chrono::days(ago(daysAgo).number())) + std::chrono::hours(10);
        document.rateMicros = rateOn(library_, document.currency, ago(daysAgo), today_);
        return document;
    }
    [[nodiscard]] Document draft(DocKind kind, const char* to, int daysAgo, std::vector<Line> lines) {
        Document document = own(Books::newDocument(library_, kind, client(to), ago(daysAgo)), daysAgo);
        document.lines = std::move(lines);
        return document;
    }

    UUID issued(Document document, int daysAgo) {
        const UUID id = document.id;
        if (!library_.document(id)) library_ = Books::addDraft(std::move(library_), std::move(document));
        library_ = Books::issue(std::move(library_), id, ago(daysAgo));
        library_ = Books::markSent(std::move(library_), id, ago(daysAgo));
        return id;
    }
    UUID invoice(const char* to, int daysAgo, std::vector<Line> lines) {
        return issued(draft(DocKind::invoice, to, daysAgo, std::move(lines)), daysAgo);
    }
    UUID estimate(const char* to, int daysAgo, std::vector<Line> lines) {
        return issued(draft(DocKind::estimate, to, daysAgo, std::move(lines)), daysAgo);
    }
    /// Settles all that is due, or a part of it.
    void paid(const UUID& invoice, int daysAgo, int tdsBP = 0, PaymentMethod method = PaymentMethod::bank,
              std::optional<std::int64_t> part = std::nullopt) {
        const Document& document = *library_.document(invoice);
        const std::int64_t settled = part.value_or(Books::balance(library_, document));
        Payment payment;
        payment.id = dice_.id();
        payment.date = ago(daysAgo);
        payment.tds = Books::suggestedTDS(document, settled, tdsBP);
        payment.amount = Checked::sub(settled, payment.tds);
        payment.method = method;
        payment.reference = "N" + std::to_string(100000000 + dice_.below(899999999));
        library_ = Books::recordPayment(std::move(library_), invoice, std::move(payment));
    }

    void lastYear() {
        const UUID offer =
            estimate(monsoon, 345, {line("Brand identity for the tea range", 1000, "project", 15000000)});
        const Document identity = own(Books::invoiceFrom(library_, offer, ago(330)), 330);
        library_ = Books::convertEstimate(std::move(library_), offer, identity);
        paid(issued(identity, 330), 318, 1000);

        paid(invoice(sahyadri, 286, {line("Trail map", 3000, "map", 1800000)}), 280, 0, PaymentMethod::upi);
        paid(invoice(bluebottle, 236, {line("Dashboard design, first phase", 12000, "day", 40000, "998314")}), 215);
        paid(invoice(nordlicht, 205, {line("Type specimen for the web", 1000, "project", 240000, "998314")}), 175);

        const UUID mistaken = invoice(terracotta, 142, {line("Website design", 1000, "project", 22000000, "998314")});
        library_ = Books::voidDocument(std::move(library_), mistaken, "The illustrations were left out");
        Document website = draft(
            DocKind::invoice, terracotta, 140,
            {line("Website design", 1000, "project", 22000000, "998314"), line("Illustration", 6000, "piece", 450000)});
        website.reference = "TH/PO/118";
        std::vector<UUID> travel;
        for (const Expense* cost : Rebilling::candidates(library_, website))
            if (cost->vendor == Shops::airline.name || cost->vendor == Shops::hotel.name) travel.push_back(cost->id);
        paid(issued(Rebilling::withExpenses(library_, website, travel), 140), 114, 1000);
        estimate(nordlicht, 120, {line("Specimen book", 1000, "project", 380000, "998314")});
    }

    void thisYear() {
        // Half is paid, a day of it was credited, the rest is late.
        const UUID photographs = invoice(
            monsoon, 96, {line("Photo direction", 6000, "day", 1100000), line("Retouching", 40000, "photo", 45000)});
        paid(photographs, 80, 1000, PaymentMethod::bank, 4956000);
        Document credit = own(Books::creditNoteFor(library_, photographs, ago(70)), 70);
        credit.lines.resize(1);
        credit.lines[0].qtyMilli = 1000;
        credit.reason = "One of the six days was cancelled";
        issued(std::move(credit), 70);

        const UUID declined = estimate(indrayani, 64, {line("Design system", 20000, "day", 1200000, "998314")});
        library_ = Books::declineEstimate(std::move(library_), declined);
        const UUID late = invoice(terracotta, 58, {line("Website, second phase", 8000, "day", 1200000, "998314")});
        for (const int day : {36, 21}) library_ = Reminders::recordReminder(std::move(library_), late, ago(day));
        paid(invoice(indrayani, 31, {line("Interface design", 5000, "day", 1200000, "998314")}), 22);
        const UUID accepted = estimate(terracotta, 27, {line("Website, third phase", 6000, "day", 1250000, "998314")});
        library_ = Books::acceptEstimate(std::move(library_), accepted);

        const UUID festive = invoice(monsoon, 12, {line("Packaging, festive edition", 1000, "project", 6500000)});
        paid(festive, 5, 1000, PaymentMethod::bank, 3835000);
        estimate(sahyadri, 11, {line("Trail maps, second edition", 4000, "map", 1800000)});
        invoice(sahyadri, 4, {line("Signs for two trails", 14000, "sign", 95000)});

        Document dashboard = draft(DocKind::invoice, bluebottle, 0,
                                   {line("Dashboard design, second phase", 10000, "day", 42000, "998314")});
        library_ = Books::addDraft(std::move(library_), std::move(dashboard));
    }

    Library library_;
    Dice& dice_;
    Day today_;
};

}  // namespace

Library withTrade(Library library, Dice& dice, Day today) { return Trade(std::move(library), dice, today).make(); }

std::int64_t rateOn(const Library& library, std::string_view currency, Day date, Day today) {
    const std::int64_t kept = library.rate(currency).value_or(0);
    if (kept == 0 || currency == library.business.homeCurrency) return kept;
    return kept - 3'700 * date.daysUntil(today);
}

}  // namespace tamba::Fixtures
