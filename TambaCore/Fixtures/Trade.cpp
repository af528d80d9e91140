#include "TambaCore/Fixtures/Trade.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Rebilling.h"
#include "TambaCore/Documents/Reminders.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Fixtures/Shops.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>

namespace tamba::Fixtures {

namespace {

constexpr auto monsoon = "Monsoon Tea Company LLP", terracotta = "Terracotta Homes Pvt Ltd",
               bluebottle = "Bluebottle Analytics, Inc.", indrayani = "Indrayani Softworks Pvt Ltd",
               sahyadri = "Sahyadri Trails", nordlicht = "Nordlicht Studio GmbH", hirkani = "Hirkani Dairy Farms LLP",
               deepmala = "Deepmala Ceramics Pvt Ltd", rose = "Rose Garden Books", kaveri = "Kaveri Handlooms";
constexpr auto brand = "998391", interface = "998314";
using enum PaymentMethod;
using enum DocKind;

struct Work {
    const char* name;
    std::int64_t quantity;
    const char* unit;
    std::int64_t price;
    const char* hsn = brand;
};
/// One invoice, paid that many days after its date.
struct Sale {
    int daysAgo;
    const char* client;
    Work work;
    int paidAfter;
    int tdsBP = 0;
    PaymentMethod method = bank;
    Receipt::Says says = Receipt::Says::client;
};
constexpr auto named = Receipt::Says::invoice;
constexpr int professional = 1000;  // Income-tax Act 2025, section 393: fees for professional services

constexpr Sale sales[] = {
    {722, monsoon, {"Tea catalogue, sixteen pages", 1, "project", 18500000}, 24, professional},
    {706, nordlicht, {"Icon set for a ticket shop", 48, "icon", 4500, interface}, 28, 0, bank, named},
    {691, sahyadri, {"Trail leaflets", 4, "leaflet", 1600000}, 6, 0, upi},
    {673, indrayani, {"Interface design", 6, "day", 1100000, interface}, 27, 0, bank, named},
    {640, deepmala, {"Catalogue photographs and layout", 32, "page", 240000}, 33, professional},
    {627, rose, {"Cover design", 3, "cover", 1500000}, 2, 0, cash},
    {574, nordlicht, {"Poster series", 3, "poster", 52000}, 31, 0, bank, named},
    {561, terracotta, {"Signs for the sales office", 12, "sign", 950000}, 38, professional},
    {546, indrayani, {"Design audit", 4, "day", 1150000, interface}, 26, 0, bank, named},
    {522, sahyadri, {"Trail boards", 9, "board", 880000}, 8, 0, upi},
    {503, deepmala, {"Showroom wall graphics", 1, "project", 9600000}, 29, professional},
    {471, rose, {"Cover design", 4, "cover", 1550000}, 3, 0, cash},
    {447, terracotta, {"Brochure, Whitefield homes", 1, "project", 14000000}, 35, professional},
    {418, indrayani, {"Interface design", 7, "day", 1150000, interface}, 24, 0, bank, named},
    {392, deepmala, {"Festive mailer", 1, "project", 4800000}, 21, professional, bank, named},
    {361, nordlicht, {"Type licence page", 1, "project", 190000, interface}, 27, 0, bank, named},
    {286, sahyadri, {"Trail map", 3, "map", 1800000}, 6, 0, upi},
    {251, deepmala, {"Tile sample box", 1, "project", 8800000}, 26, professional},
    {205, nordlicht, {"Type specimen for the web", 1, "project", 240000, interface}, 30, 0, bank, named},
    {186, indrayani, {"Interface design", 6, "day", 1200000, interface}, 29, 0, bank, named},
    {163, rose, {"Cover design", 2, "cover", 1600000}, 4, 0, cash},
    {127, deepmala, {"Catalogue supplement", 10, "page", 260000}, 30, professional},
    {31, indrayani, {"Interface design", 5, "day", 1200000, interface}, 9, 0, bank, named},
    {17, kaveri, {"Loom story, photographs and text", 1, "project", 7800000}, 0},
    {12, sahyadri, {"Signs for two trails", 14, "sign", 95000}, 10, 0, upi},
};

/// What is billed again and again on one day of the month, to the clients of a long time.
struct Retainer {
    const char* client;
    int dayOfMonth, monthsApart;
    Work work;
    int paidAfter, tdsBP;
    Receipt::Says says;
};
constexpr Retainer retainers[] = {
    {monsoon, 2, 1, {"Design retainer", 1, "month", 8500000}, 18, professional, Receipt::Says::client},
    {hirkani, 6, 2, {"Carton artwork, two months", 1, "lot", 9000000}, 13, professional, Receipt::Says::client},
    {bluebottle, 10, 2, {"Product design, two months", 7, "day", 42000, interface}, 16, 0, named},
};

class Trade {
public:
    Trade(Library library, Dice& dice, Day start, Day today)
        : library_(std::move(library)), dice_(dice), start_(start), today_(today) {}

    /// Each series' documents are issued in the order of their dates.
    Traded make() {
        for (const Sale& sale : sales)
            at(sale.daysAgo, [this, &sale] {
                pays(invoice(sale.client, {sale.work}), sale.paidAfter, sale.tdsBP, sale.method, sale.says);
            });
        for (const Retainer& retainer : retainers) everyMonth(retainer);
        offers();
        corrections();
        travelBilledOn();
        waiting();
        std::stable_sort(deeds_.begin(), deeds_.end(), [](const Deed& a, const Deed& b) { return a.date < b.date; });
        for (const Deed& deed : deeds_) {
            if (deed.date < start_ || deed.date > today_) continue;
            now_ = deed.date;
            deed.done();
        }
        std::stable_sort(receipts_.begin(), receipts_.end(),
                         [](const Receipt& a, const Receipt& b) { return a.date < b.date; });
        return {std::move(library_), std::move(receipts_)};
    }

private:
    struct Deed {
        Day date;
        std::function<void()> done;
    };
    void at(int daysAgo, std::function<void()> done) {
        deeds_.push_back({today_.addingDays(-daysAgo), std::move(done)});
    }

    [[nodiscard]] UUID client(std::string_view name) const {
        for (const Client& client : library_.clients)
            if (client.name == name) return client.id;
        fatal("a client of the sample books is missing");
    }
    /// A document made earlier, unless it was before the first day of the books.
    [[nodiscard]] const UUID* made(const char* name) const {
        const auto found = made_.find(name);
        return found == made_.end() ? nullptr : &found->second;
    }

    [[nodiscard]] Line line(const Work& work) {
        Line line;
        line.id = dice_.id();
        line.name = work.name;
        line.hsn = work.hsn;
        line.qtyMilli = Checked::mul(work.quantity, 1000);
        line.unit = work.unit;
        line.priceMinor = work.price;
        line.taxBP = library_.business.defaultTaxBP;
        return line;
    }
    /// The document as it was made on that day, with ids that are the same on every run.
    [[nodiscard]] Document own(Document document) {
        document.id = dice_.id();
        for (Line& line : document.lines) line.id = dice_.id();
        document.createdAt = std::chrono::sys_days(std::chrono::days(now_.number())) + std::chrono::hours(10);
        document.rateMicros = rateOn(library_, document.currency, now_, today_);
        return document;
    }
    [[nodiscard]] Document draft(DocKind kind, const char* to, std::initializer_list<Work> work) {
        Document document = own(Books::newDocument(library_, kind, client(to), now_));
        for (const Work& each : work) document.lines.push_back(line(each));
        return document;
    }
    UUID issued(Document document) {
        const UUID id = document.id;
        if (!library_.document(id)) library_ = Books::addDraft(std::move(library_), std::move(document));
        library_ = Books::issue(std::move(library_), id, now_);
        library_ = Books::markSent(std::move(library_), id, now_);
        return id;
    }
    UUID invoice(const char* to, std::initializer_list<Work> work) { return issued(draft(DocKind::invoice, to, work)); }
    UUID estimate(const char* to, std::initializer_list<Work> work) {
        return issued(draft(DocKind::estimate, to, work));
    }

    /// All that is due, or a part of it, comes `after` days from now; 0: not yet. What is paid in cash is in the books
    /// at once.
    void pays(const UUID& invoice, int after, int tdsBP = 0, PaymentMethod method = bank,
              Receipt::Says says = Receipt::Says::client, std::int64_t part = 0) {
        const Day date = now_.addingDays(after);
        if (after == 0 || date > today_) return;
        if (method != cash) return receipts_.push_back({date, {invoice}, tdsBP, part, method, says});
        Payment payment;
        payment.id = dice_.id();
        payment.date = date;
        payment.amount = part != 0 ? part : Books::balance(library_, *library_.document(invoice));
        payment.method = method;
        library_ = Books::recordPayment(std::move(library_), invoice, std::move(payment));
    }

    void everyMonth(const Retainer& retainer) {
        const Day first = start_.addingDays(retainer.dayOfMonth - 1);
        for (int months = 0; first.addingMonths(months) <= today_; months += retainer.monthsApart)
            deeds_.push_back({first.addingMonths(months), [this, &retainer] {
                                  pays(invoice(retainer.client, {retainer.work}), retainer.paidAfter, retainer.tdsBP,
                                       bank, retainer.says);
                              }});
    }

    void offers() {
        at(590,
           [this] { made_["homes"] = estimate(terracotta, {{"Identity for a quarter", 1, "project", 16500000}}); });
        at(577, [this] {
            if (const UUID* offer = made("homes")) pays(convert(*offer), 30, professional);
        });
        at(530, [this] {
            const UUID declined = estimate(rose, {{"Series design, ten titles", 10, "title", 1400000}});
            library_ = Books::declineEstimate(std::move(library_), declined);
        });
        at(345, [this] {
            made_["identity"] = estimate(monsoon, {{"Brand identity for the tea range", 1, "project", 15000000}});
        });
        at(330, [this] {
            if (const UUID* offer = made("identity")) pays(convert(*offer), 12, professional);
        });
        at(120, [this] { estimate(nordlicht, {{"Specimen book", 1, "project", 380000, interface}}); });
        at(64, [this] {
            const UUID declined = estimate(indrayani, {{"Design system", 20, "day", 1200000, interface}});
            library_ = Books::declineEstimate(std::move(library_), declined);
        });
        at(27, [this] {
            const UUID accepted = estimate(terracotta, {{"Website, third phase", 6, "day", 1250000, interface}});
            library_ = Books::acceptEstimate(std::move(library_), accepted);
        });
        at(11, [this] { estimate(sahyadri, {{"Trail maps, second edition", 4, "map", 1800000}}); });
    }
    UUID convert(const UUID& offer) {
        const Document invoice = own(Books::invoiceFrom(library_, offer, now_));
        library_ = Books::convertEstimate(std::move(library_), offer, invoice);
        return issued(invoice);
    }

    void corrections() {
        at(537, [this] {
            made_["cartons"] = invoice(hirkani, {{"Carton range, six flavours", 6, "flavour", 4500000}});
            pays(made_["cartons"], 27, professional);
        });
        at(525, [this] { credit("cartons", 1, "One of the six flavours was dropped"); });
        at(552, [this] {
            voidInvoice(deepmala, {"Showroom wall graphics", 1, "project", 9000000},
                        "Billed before the work was agreed");
        });
        at(142, [this] {
            voidInvoice(terracotta, {"Website design", 1, "project", 22000000, interface},
                        "The illustrations were left out");
        });
        // Half is paid, a day of it was credited, the rest is late.
        at(96, [this] {
            made_["photographs"] =
                invoice(monsoon, {{"Photo direction", 6, "day", 1100000}, {"Retouching", 40, "photo", 45000}});
            pays(made_["photographs"], 16, 0, bank, named, 5000000);
        });
        at(70, [this] { credit("photographs", 1, "One of the six days was cancelled"); });
    }
    void credit(const char* name, std::int64_t quantity, const char* reason) {
        const UUID* of = made(name);
        if (!of) return;
        Document note = own(Books::creditNoteFor(library_, *of, now_));
        note.lines.resize(1);
        note.lines[0].qtyMilli = Checked::mul(quantity, 1000);
        note.reason = reason;
        issued(std::move(note));
    }
    void voidInvoice(const char* to, const Work& work, const char* reason) {
        library_ = Books::voidDocument(std::move(library_), invoice(to, {work}), reason);
    }

    /// A flight and a hotel that were paid for a client.
    void travelBilledOn() {
        const auto withTravel = [this](Document document, Day since) {
            std::vector<UUID> travel;
            for (const Expense* cost : Rebilling::candidates(library_, document))
                if (cost->date >= since && cost->date <= now_ &&
                    (cost->vendor == Shops::airline.name || cost->vendor == Shops::hotel.name))
                    travel.push_back(cost->id);
            return Rebilling::withExpenses(library_, std::move(document), travel);
        };
        at(484, [this, withTravel] {
            const Document days = draft(DocKind::invoice, terracotta, {{"Workshops in Bengaluru", 3, "day", 1500000}});
            pays(issued(withTravel(days, now_.addingDays(-30))), 28, professional);
        });
        at(140, [this, withTravel] {
            Document website =
                draft(DocKind::invoice, terracotta,
                      {{"Website design", 1, "project", 22000000, interface}, {"Illustration", 6, "piece", 450000}});
            website.reference = "TH/PO/118";
            pays(issued(withTravel(std::move(website), now_.addingDays(-200))), 26, professional);
        });
    }

    /// What stands open now.
    void waiting() {
        at(58, [this] {
            const UUID late = invoice(terracotta, {{"Website, second phase", 8, "day", 1200000, interface}});
            for (const int day : {36, 21})
                library_ = Reminders::recordReminder(std::move(library_), late, today_.addingDays(-day));
        });
        // One sum for two invoices.
        at(24, [this] { made_["proofs"] = invoice(hirkani, {{"Colour proofs, carton board", 12, "set", 180000}}); });
        at(16, [this] {
            const UUID cards = invoice(hirkani, {{"Recipe cards", 8, "card", 275000}});
            receipts_.push_back({today_.addingDays(-6), {*made("proofs"), cards}, professional});
        });
        at(22, [this] {
            const UUID festive = invoice(monsoon, {{"Packaging, festive edition", 1, "project", 6500000}});
            pays(festive, 15, 0, bank, named, 3835000);
        });
        at(4, [this] {
            const UUID leaflet = invoice(sahyadri, {{"Safety leaflet", 1, "leaflet", 1600000}});
            pays(leaflet, 2, 0, cash, Receipt::Says::client, 1000000);
        });
        at(0, [this] {
            Document dashboard =
                draft(DocKind::invoice, bluebottle, {{"Dashboard design, second phase", 10, "day", 42000, interface}});
            library_ = Books::addDraft(std::move(library_), std::move(dashboard));
        });
    }

    Library library_;
    Dice& dice_;
    Day start_, today_;
    Day now_;
    std::vector<Deed> deeds_;
    std::map<std::string, UUID, std::less<>> made_;
    std::vector<Receipt> receipts_;
};

}  // namespace

Traded withTrade(Library library, Dice& dice, Day start, Day today) {
    return Trade(std::move(library), dice, start, today).make();
}

std::int64_t rateOn(const Library& library, std::string_view currency, Day date, Day today) {
    const std::int64_t kept = library.rate(currency).value_or(0);
    if (kept == 0 || currency == library.business.homeCurrency) return kept;
    return kept - 3'700 * date.daysUntil(today);
}

}  // namespace tamba::Fixtures
