#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Fixtures/Blank.h"
#include "TambaCore/Fixtures/Logo.h"
#include "TambaCore/Fixtures/Spending.h"
#include "TambaCore/Fixtures/Trade.h"
#include "TambaCore/Receipts/ReceiptParser.h"

#include <algorithm>
#include <functional>

namespace tamba::Fixtures {

namespace {

using Receipts::Bill;
using enum PaymentMethod;

constexpr auto logoFile = "logo.png";

class Maker {
public:
    /// Files a receipt's bytes under a name and gives the path in the books.
    using Filing = std::function<std::string(const std::function<std::string()>& bytes, const std::string& name, Day)>;

    Maker(Day today, Filing filing) : today_(today), filing_(std::move(filing)) {}

    Library make() {
        begin();
        parties();
        for (const Spend& spend : spending()) purchase(spend, today_.addingDays(-spend.daysAgo));
        subscriptions();
        for (const Trip& trip : trips()) mileage(trip);
        attention();
        library_.expenses.sort([](const Expense& a, const Expense& b) { return a.date < b.date; });
        pausedCampaign();
        library_ = withTrade(std::move(library_), dice_, today_);
        statement();
        return std::move(library_);
    }

private:
    static Instant timeOn(Day day, int hour) {
        return std::chrono::sys_days(std::chrono::days(day.number())) + std::chrono::hours(hour);
    }
    [[nodiscard]] UUID category(std::string_view name) const {
        for (const Category& category : library_.categories)
            if (category.name == name) return category.id;
        fatal("a category of the sample books is missing");
    }
    [[nodiscard]] const Project* project(const char* name) const {
        for (const Project& project : library_.projects)
            if (name && project.name == name) return &project;
        return nullptr;
    }

    void begin() {
        library_ = blank(dice_);
        library_.onboarded = true;
        Business& business = library_.business;
        business.name = "Halad & Ink Studio";
        business.address = "12 Bhandarkar Road\nPune 411004\nMaharashtra";
        business.stateCode = "27";
        business.email = "hello@haladandink.example";
        business.phone = "020 5550 0102";
        business.website = "haladandink.example";
        business.pan = "BKXPD7312L";
        business.taxID = GSTIN::make("27", business.pan, "1");
        business.lutReference = "AD270326000417X";
        business.bank = {.accountName = "Halad & Ink Studio",
                         .accountNumber = "000451200078",
                         .bankName = Shops::godavari.name,
                         .ifsc = "GODS0000451",
                         .swift = "GODSINAA451",
                         .iban = "",
                         .unknown = {}};
        business.upiID = "haladandink@godavari";
        business.logoFile = logoFile;
        business.signatory = "Mrunal Deshpande";
        business.terms = "Payment within 15 days of the invoice date.";
        library_.rates = {{"USD", 86'400'000, today_.addingDays(-4), {}},
                          {"EUR", 93'750'000, today_.addingDays(-30), {}}};
    }

    const Client& client(const char* name, const char* contact, const char* address, const char* state, const char* pan,
                         const char* country = "IN", const char* currency = "INR") {
        Client client;
        client.id = dice_.id();
        client.name = name;
        client.contact = contact;
        client.email = "accounts@" + LibraryStore::slug(name) + ".example";
        client.address = address;
        if (*state) client.stateCode = state;
        if (*pan) client.taxID = GSTIN::make(state, pan, "1");
        client.country = country;
        client.currency = currency;
        library_.clients.append(client);
        return library_.clients.back();
    }
    void parties() {
        const UUID monsoon =
            client("Monsoon Tea Company LLP", "Ritika Apte", "Fergusson College Road\nPune 411004", "27", "ABBFM4410Q")
                .id;
        const UUID terracotta = client("Terracotta Homes Pvt Ltd", "Harish Gowda",
                                       "80 Feet Road, Indiranagar\nBengaluru 560038", "29", "AAFCT7718D")
                                    .id;
        const UUID bluebottle =
            client("Bluebottle Analytics, Inc.", "Dana Whitfield", "Austin, TX 78701", "", "", "US", "USD").id;
        client("Indrayani Softworks Pvt Ltd", "Sameer Kale", "Hinjawadi SEZ, Phase 2\nPune 411057", "27", "AAECI2093B");
        library_.clients.update(3, [](Client& client) { client.sez = true; });
        client("Sahyadri Trails", "Pooja Naik", "Mahabaleshwar 412806", "27", "");
        client("Nordlicht Studio GmbH", "Jonas Weber", "Große Elbstraße 9\n22767 Hamburg", "", "", "DE", "EUR");
        library_.clients.update(5, [](Client& client) { client.dueDays = 30; });
        const auto project = [&](const char* name, std::optional<UUID> client, bool archived) {
            library_.projects.append({dice_.id(), name, client, archived, {}});
        };
        project("Monsoon Tea packaging", monsoon, false);
        project("Terracotta website", terracotta, false);
        project("Bluebottle dashboard", bluebottle, false);
        project("Studio portfolio", std::nullopt, false);
        project("Trail maps", library_.clients[4].id, true);
        const auto rule = [&](const char* contains, const char* name, const char* vendor) {
            library_.rules.append({dice_.id(), contains, category(name), vendor, {}});
        };
        rule("pixelgrove", "Software & subscriptions", Shops::pixelgrove.name);
        rule("chakra", "Internet & phone", Shops::mobile.name);
        rule("vahini", "Internet & phone", Shops::broadband.name);
        rule("shaniwar", "Rent & utilities", Shops::landlord.name);
        rule("rickshaw", "Local transport", Shops::cabs.name);
        rule("coffee", "Meals", "");
        library_.items = {
            {dice_.id(), "Brand identity", "Logo, colours, type", "998391", "project", 15000000, 1800, {}},
            {dice_.id(), "Interface design", "", "998314", "day", 1200000, 1800, {}},
            {dice_.id(), "Illustration", "", "998391", "piece", 450000, 1800, {}},
            {dice_.id(), "Website design", "Up to eight templates", "998314", "project", 22000000, 1800, {}},
            {dice_.id(), "Retouching", "Colour and background", "998391", "photo", 45000, 1800, {}},
            {dice_.id(), "Printed proofs", "A3, on the final paper", "4911", "set", 49950, 500, {}}};
    }

    [[nodiscard]] Bill bill(const Spend& spend, Day date) {
        const Shop& shop = *spend.shop;
        Bill bill{.vendor = shop.name, .address = shop.address, .contact = shop.contact, .date = date};
        if (shop.pan) bill.gstin = GSTIN::make(shop.state, shop.pan, "1");
        bill.number = spend.paper == Paper::till ? std::to_string(1000 + dice_.below(9000))
                                                 : LibraryStore::slug(shop.name).substr(0, 3) + "-" + date.monthKey() +
                                                       "-" + std::to_string(100 + dice_.below(900));
        std::transform(bill.number.begin(), bill.number.end(), bill.number.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
        bill.time = std::to_string(10 + dice_.below(10));
        bill.time += ":" + std::to_string(10 + dice_.below(50));
        bill.items = spend.items;
        bill.currency = shop.currency;
        bill.method = spend.method;
        const Business& business = library_.business;
        bill.customer = business.name + "\n" + business.address + "\n" + business.taxIDLabel + ": " + business.taxID;
        bill.accentHex = shop.accent;
        if (bill.currency != "INR") return bill;
        // A hotel's service is supplied where it stands (IGST Act 2017, section 12(3)).
        const bool here = !shop.state || library_.business.stateCode == shop.state || spend.shop == &Shops::hotel;
        return Receipts::taxed(bill, spend.taxBP, here ? SupplyType::intraState : SupplyType::interState);
    }

    void purchase(const Spend& spend, Day date, std::optional<UUID> recurring = std::nullopt) {
        const Bill paid = bill(spend, date);
        Expense expense;
        expense.id = dice_.id();
        expense.date = date;
        expense.vendor = paid.vendor;
        expense.vendorTaxID = paid.gstin;
        expense.amount = paid.total();
        expense.currency = paid.currency;
        expense.rateMicros = rateOn(library_, paid.currency, date, today_);
        expense.taxSplit = paid.tax;
        expense.tax = paid.tax.total();
        if (spend.category) {
            expense.categoryID = category(spend.category);
            expense.claimTax = library_.category(*expense.categoryID)->claimsTax && spend.shop != &Shops::hotel;
        }
        if (const Project* of = project(spend.project)) {
            expense.projectID = of->id;
            expense.clientID = of->clientID;
        }
        expense.method = spend.method;
        expense.billable = spend.billable;
        expense.notes = spend.notes;
        expense.recurringID = recurring;
        expense.createdAt = timeOn(date, 12);
        attach(expense, paid, spend.paper);
        library_.expenses.append(std::move(expense));
    }
    void attach(Expense& expense, const Bill& bill, Paper paper) {
        if (paper == Paper::none) return;
        expense.ocrText = Receipts::text(bill);
        const auto file = [&](std::string (*render)(const Bill&), const char* ending, std::string originalName) {
            std::string path = filing_([&] { return render(bill); }, bill.vendor + ending, bill.date);
            expense.attachments.push_back(
                {dice_.id(), std::move(path), std::move(originalName), expense.createdAt, {}});
        };
        const std::string day = Text::replaceAll(bill.date.iso(), "-", ""), number = LibraryStore::slug(bill.number);
        switch (paper) {
            case Paper::till:
                return file(Receipts::tillBillJPEG, ".jpg", "IMG_" + day + "_" + bill.time.substr(0, 2) + "4207.jpg");
            case Paper::invoice:
                return file(Receipts::invoicePDF, ".pdf", number + ".pdf");
            case Paper::scan:
                return file(Receipts::scannedPDF, ".pdf", "Scan " + bill.date.iso() + ".pdf");
            case Paper::htmlMail:
                return file(Receipts::htmlEmail, ".eml", "Your receipt.eml");
            case Paper::mailWithPDF:
                file(Receipts::emailWithPDF, ".eml", "Your invoice.eml");
                return file(Receipts::invoicePDF, ".pdf", number + ".pdf");
            case Paper::none:
                break;
        }
    }

    /// The latest day of that number in a month that is not after today.
    [[nodiscard]] Day latest(int dayOfMonth) const {
        const Day day = today_.firstOfMonth().addingDays(dayOfMonth - 1);
        return day <= today_ ? day : day.addingMonths(-1);
    }
    struct Subscription {
        Spend spend;  ///< its `daysAgo` is not used
        int dayOfMonth, monthsApart, times, receipts;
        bool planned;  ///< kept as a recurring expense
    };
    void subscriptions() {
        using namespace Shops;
        const Subscription all[] = {
            {{0,
              &landlord,
              "Rent & utilities",
              {{"Desk and meeting room, one month", 1, 1400000, "997212"}},
              1800,
              PaymentMethod::bank,
              Paper::invoice},
             1,
             1,
             14,
             1,
             true},
            {{0,
              &domains,
              "Software & subscriptions",
              {{"Web hosting, one month", 1, 59900, "998315"}},
              1800,
              card,
              Paper::none},
             5,
             1,
             8,
             0,
             true},
            {{0,
              &pixelgrove,
              "Software & subscriptions",
              {{"Pixelgrove Pro, monthly plan", 1, 2400}},
              0,
              card,
              Paper::invoice},
             9,
             1,
             9,
             2,
             true},
            {{0, &mobile, "Internet & phone", {{"Postpaid plan 499", 1, 49900, "998413"}}, 1800, card, Paper::invoice},
             14,
             3,
             4,
             2,
             false},
            {{0,
              &broadband,
              "Internet & phone",
              {{"Fibre 200 Mbit/s, one quarter", 1, 299700, "998422"}},
              1800,
              upi,
              Paper::invoice},
             20,
             3,
             4,
             1,
             false}};
        for (const Subscription& plan : all) {
            const Day last = latest(plan.dayOfMonth);
            std::optional<UUID> id;
            if (plan.planned) id = dice_.id();
            for (int n = plan.times - 1; n >= 0; --n) {
                Spend spend = plan.spend;
                if (n >= plan.receipts) spend.paper = Paper::none;
                purchase(spend, last.addingMonths(-std::int64_t{n} * plan.monthsApart), id);
            }
            if (!plan.planned) continue;
            RecurringExpense recurring;
            recurring.id = *id;
            recurring.template_ = library_.expenses.back();
            recurring.template_.id = dice_.id();
            recurring.template_.attachments.clear();
            recurring.template_.ocrText.reset();
            recurring.template_.recurringID.reset();
            recurring.anchorDay = plan.dayOfMonth;
            recurring.nextDate = last.addingMonths(plan.monthsApart);
            library_.recurring.append(std::move(recurring));
        }
    }

    /// Advertising that came every month and is on hold.
    void pausedCampaign() {
        const Expense* campaign = Expenses::latest(library_, Shops::adverts.name);
        if (!campaign) fatal("a campaign of the sample books is missing");
        library_ = Recurring::repeat(library_, campaign->id, Frequency::monthly);
        library_ = Recurring::setPaused(library_, library_.recurring.back().id, true, today_);
    }

    void mileage(const Trip& trip) {
        Expense expense;
        expense.id = dice_.id();
        expense.kind = ExpenseKind::mileage;
        expense.date = today_.addingDays(-trip.daysAgo);
        expense.vendor = trip.route;
        expense.distanceMilli = trip.distanceMilli;
        expense.mileageRateMinor = library_.business.mileageRateMinor;
        expense.amount = MoneyMath::mulDiv(trip.distanceMilli, expense.mileageRateMinor, 1000);
        expense.categoryID = category("Mileage");
        if (const Project* of = project(trip.project)) {
            expense.projectID = of->id;
            expense.clientID = of->clientID;
            expense.billable = true;
        }
        expense.method = other;
        expense.createdAt = timeOn(expense.date, 14);
        library_.expenses.append(std::move(expense));
    }

    /// A receipt that was read badly waits for its owner.
    void attention() {
        for (std::size_t i = 0; i < library_.expenses.size(); ++i)
            if (!library_.expenses[i].categoryID && !library_.expenses[i].attachments.empty())
                library_.expenses.update(
                    i, [](Expense& expense) { expense.check = sentence(Doubt::totalWithoutKeyword); });
    }

    /// Half a year of the current account: what was paid through it, some of it matched, some waiting.
    void statement() {
        const Day from = today_.addingMonths(-6);
        std::vector<BankTransaction> lines;
        const auto add = [&](Day date, std::string text, std::int64_t amount) -> BankTransaction& {
            BankTransaction line;
            line.id = dice_.id();
            line.accountID = library_.accounts.front().id;
            line.date = date;
            line.text = std::move(text);
            line.amount = amount;
            line.source = "statement-" + date.monthKey() + ".csv";
            lines.push_back(std::move(line));
            return lines.back();
        };
        const auto reference = [&] { return std::to_string(400000000000 + dice_.below(99999999999)); };
        int passed = 0;
        for (std::size_t i = 0; i < library_.expenses.size(); ++i) {
            const Expense& expense = library_.expenses[i];
            const bool transfer = expense.method == bank;
            if (expense.date < from || expense.currency != "INR" || !(transfer || expense.method == upi)) continue;
            const std::string who = Text::upper(expense.vendor);
            BankTransaction& line = add(expense.date, (transfer ? "NEFT DR-" : "UPI/DR/") + reference() + "/" + who,
                                        Checked::neg(expense.amount));
            if (++passed % 4 == 0) continue;  // left for the user to match
            line.expenseID = expense.id;
            const UUID id = line.id;
            library_.expenses.update(i, [&](Expense& paid) { paid.bankTxnID = id; });
        }
        for (std::size_t i = 0; i < library_.documents.size(); ++i) {
            const Document invoice = library_.documents[i];
            for (std::size_t n = 0; n < invoice.payments.size(); ++n) {
                const Payment& payment = invoice.payments[n];
                if (payment.date < from) continue;
                const auto received = Books::inHomeCurrency(library_, invoice, payment.amount);
                const char* way = payment.method == upi ? "UPI/CR/" : "NEFT CR-";
                BankTransaction& line =
                    add(payment.date, way + payment.reference + "-" + Text::upper(invoice.billTo->name),
                        received.value_or(0));
                line.invoiceID = invoice.id;
                line.paymentID = payment.id;
                line.reference = payment.reference;
                const UUID id = line.id;
                library_.documents.update(i, [&](Document& paid) { paid.payments[n].bankTxnID = id; });
            }
        }
        // A payment that came in and waits to be matched.
        for (const Document& invoice : library_.documents)
            if (invoice.kind == DocKind::invoice && Books::status(library_, invoice, today_) == DocStatus::sent)
                add(today_.addingDays(-1), "UPI/CR/" + reference() + "/" + Text::upper(invoice.billTo->name),
                    Books::balance(library_, invoice));
        add(today_.addingDays(-33), "ATM WDL CASH DECCAN PUNE", -500000).ignored = true;
        add(today_.addingDays(-21), "INT.PD HALF YEARLY", 41200);
        add(today_.addingDays(-3), "UPI/DR/" + reference() + "/GULLAK TEA", -6000);
        std::stable_sort(lines.begin(), lines.end(),
                         [](const BankTransaction& a, const BankTransaction& b) { return a.date < b.date; });
        std::int64_t balance = 18'500'000;
        for (BankTransaction& line : lines) {
            balance = Checked::add(balance, line.amount);
            line.balance = balance;
            library_.transactions.append(std::move(line));
        }
    }

    Day today_;
    Filing filing_;
    Dice dice_{std::string_view("Halad & Ink Studio")};
    Library library_;
};

}  // namespace

Library library(Day today) {
    return Maker(today,
                 [](const auto&, const std::string& name, Day date) {
                     const std::filesystem::path file(name);
                     return "Receipts/" + date.monthKey() + "/" + date.iso() + "-" +
                            LibraryStore::slug(file.stem().string()) + file.extension().string();
                 })
        .make();
}

void write(const LibraryStore& store, Day today) {
    store.prepare();
    try {
        ImageFile::writePNG(logo(), store.assetsFolder() / logoFile);
    } catch (const FileError& error) {
        throw StoreError(StoreError::Code::unwritable, error.what());
    }
    store.save(Maker(today, [&store](const auto& bytes, const std::string& name, Day date) {
                   return store.writeAttachment(bytes(), name, date);
               }).make());
}

}  // namespace tamba::Fixtures
