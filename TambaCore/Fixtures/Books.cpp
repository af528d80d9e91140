#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Fixtures/Blank.h"
#include "TambaCore/Fixtures/Logo.h"
#include "TambaCore/Fixtures/Spending.h"
#include "TambaCore/Fixtures/Statements.h"
#include "TambaCore/Fixtures/Trade.h"
#include "TambaCore/Receipts/ReceiptParser.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace tamba::Fixtures {

namespace {

using Receipts::Bill;
using enum PaymentMethod;

constexpr auto logoFile = "logo.png";

class Maker {
public:
    /// Files a receipt's bytes under a name and gives the path in the books.
    using Filing = std::function<std::string(const std::function<std::string()>& bytes, const std::string& name, Day)>;

    Maker(Day today, Filing filing)
        : today_(today), start_(today.financialYear(4).previous().start()), filing_(std::move(filing)) {}

    Library make() {
        begin();
        parties();
        for (const Spend& spend : spending())
            if (const Day date = today_.addingDays(-spend.daysAgo); date >= start_) purchase(spend, date);
        for (const Subscription& subscription : subscriptions()) repeated(subscription);
        for (const Trip& trip : trips())
            if (today_.addingDays(-trip.daysAgo) >= start_) mileage(trip);
        attention();
        library_.expenses.sort([](const Expense& a, const Expense& b) { return a.date < b.date; });
        pausedCampaign();
        Traded traded = withTrade(std::move(library_), dice_, start_, today_);
        return withStatements(std::move(traded.library), traded.receipts, dice_, start_, today_);
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
        library_.categories.append({dice_.id(), "Salaries", "person.2", "3F6E5A", false, {}});
        library_.accounts.append({dice_.id(), "Dollar account (EEFC)", "USD", {}});
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
        const UUID hirkani =
            client("Hirkani Dairy Farms LLP", "Vasudha Shinde", "MIDC, Baramati 413133", "27", "AAJFH8826P").id;
        client("Deepmala Ceramics Pvt Ltd", "Chirag Mehta", "Lati Plot, Morbi 363641", "24", "AAHCD3304N");
        client("Rose Garden Books", "Farah Irani", "Camp, Pune 411001", "27", "");
        library_.clients.update(8, [](Client& client) { client.archived = true; });
        // One digit of their GSTIN was mistyped, which only its last character gives away.
        client("Kaveri Handlooms", "Meena Iyer", "Gandhi Road, Kanchipuram 631501", "33", "AARFK6159B");
        library_.clients.update(9, [](Client& client) { std::swap(client.taxID[7], client.taxID[8]); });
        for (const std::size_t slow : {0U, 2U, 5U, 6U})
            library_.clients.update(slow, [](Client& client) { client.dueDays = 30; });
        const auto project = [&](const char* name, std::optional<UUID> client, bool archived) {
            library_.projects.append({dice_.id(), name, client, archived, {}});
        };
        project("Monsoon Tea packaging", monsoon, false);
        project("Terracotta website", terracotta, false);
        project("Bluebottle dashboard", bluebottle, false);
        project("Hirkani cartons", hirkani, false);
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
        const int taxBP = spend.taxBP == 1200 && date >= Day{2025, 9, 22} ? 500 : spend.taxBP;
        return Receipts::taxed(bill, taxBP, here ? SupplyType::intraState : SupplyType::interState);
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

    [[nodiscard]] static Day inMonth(Day month, int dayOfMonth) {
        return Recurring::nextDate(Frequency::monthly, month.addingMonths(-1), dayOfMonth);
    }
    void repeated(const Subscription& subscription) {
        std::vector<Day> days;
        for (Day month = start_; month <= today_; month = month.addingMonths(subscription.monthsApart))
            if (const Day day = inMonth(month, subscription.dayOfMonth); day <= today_) days.push_back(day);
        std::optional<UUID> id;
        if (subscription.planned) id = dice_.id();
        for (std::size_t i = 0; i < days.size(); ++i) {
            Spend spend = subscription.spend;
            if (i + static_cast<std::size_t>(subscription.receipts) < days.size()) spend.paper = Paper::none;
            purchase(spend, days[i], id);
        }
        if (!id) return;
        RecurringExpense recurring;
        recurring.id = *id;
        recurring.template_ = library_.expenses.back();
        recurring.template_.id = dice_.id();
        recurring.template_.attachments.clear();
        recurring.template_.ocrText.reset();
        recurring.template_.recurringID.reset();
        recurring.anchorDay = subscription.dayOfMonth;
        recurring.nextDate = Recurring::nextDate(Frequency::monthly, days.back(), subscription.dayOfMonth);
        library_.recurring.append(std::move(recurring));
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

    Day today_, start_;
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
