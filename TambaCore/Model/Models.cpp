#include "TambaCore/Model/Models.h"

#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>

namespace tamba {

const UnknownKeys::Entries& UnknownKeys::entries() const {
    static const Entries none;
    return entries_ ? *entries_ : none;
}

bool BankDetails::isEmpty() const {
    return accountName.empty() && accountNumber.empty() && bankName.empty() && ifsc.empty() && swift.empty() &&
           iban.empty();
}

Currency Business::currency() const { return Currency::of(homeCurrency); }

std::optional<std::string> Business::supplierState() const {
    if (auto state = GSTIN::stateCode(taxID)) return state;
    return stateCode;
}

bool Business::isIndia() const { return tamba::isIndia(regime); }

std::string Business::displayTaxName() const {
    if (isIndia()) return "GST";
    return taxName.empty() ? "Tax" : taxName;
}

Client Client::make(std::string name) {
    Client client;
    client.id = UUID::random();
    client.name = std::move(name);
    return client;
}

bool Client::isForeign() const {
    return !country.empty() && Text::upper(country) != "IN" && Text::lower(country) != "india";
}

bool Client::isRegistered() const { return GSTIN::isValid(taxID); }

PartySnapshot PartySnapshot::of(const Client& client) {
    return {client.name, client.address, client.taxID, client.stateCode, client.country, client.email, {}};
}

PartySnapshot PartySnapshot::of(const Business& business) {
    return {business.name,
            business.address,
            business.taxID,
            business.supplierState(),
            business.country,
            business.email,
            {}};
}

CatalogItem CatalogItem::make(std::string name) {
    CatalogItem item;
    item.id = UUID::random();
    item.name = std::move(name);
    return item;
}

List<Category> Category::defaults() {
    struct Row {
        const char *name, *symbol, *colorHex;
        bool claimsTax;
    };
    // Meals and mileage claim nothing: there is no input credit on food (CGST Act 2017, section 17(5)) and no tax in
    // mileage.
    constexpr Row rows[] = {
        {"Software & subscriptions", "app.badge", "3B6EA8", true},
        {"Equipment", "desktopcomputer", "5A6B7B", true},
        {"Travel", "airplane", "C0703A", true},
        {"Local transport", "car", "B5893A", true},
        {"Meals", "fork.knife", "A64B3C", false},
        {"Office & supplies", "paperclip", "6E7F3E", true},
        {"Rent & utilities", "house", "7A5C8E", true},
        {"Internet & phone", "wifi", "2F7F86", true},
        {"Professional fees", "briefcase", "4D5A99", true},
        {"Marketing", "megaphone", "B2577A", true},
        {"Bank & payment fees", "building.columns", "6B6B6B", true},
        {"Mileage", "road.lanes", "8C6D3F", false},
        {"Other", "tray", "7D7466", true},
    };
    List<Category> categories;
    for (const Row& row : rows)
        categories.append({UUID::random(), row.name, row.symbol, row.colorHex, row.claimsTax, {}});
    return categories;
}

Project Project::make(std::string name, std::optional<UUID> clientID) {
    return {UUID::random(), std::move(name), clientID, false, {}};
}

Attachment Attachment::make(std::string path, std::string originalName) {
    return {UUID::random(), std::move(path), std::move(originalName), now(), {}};
}

bool Attachment::isPDF() const { return Text::lower(path).ends_with(".pdf"); }

Expense Expense::make(Day date) {
    Expense expense;
    expense.id = UUID::random();
    expense.date = date;
    expense.createdAt = now();
    return expense;
}

std::int64_t Expense::cost() const { return claimTax ? net() : amount; }
std::int64_t Expense::net() const { return Checked::sub(amount, tax); }

Day next(Frequency frequency, Day day) {
    switch (frequency) {
        case Frequency::weekly:
            return day.addingDays(7);
        case Frequency::monthly:
            return day.addingMonths(1);
        case Frequency::quarterly:
            return day.addingMonths(3);
        case Frequency::yearly:
            return day.addingMonths(12);
    }
    fatal("unknown frequency");
}

RecurringExpense RecurringExpense::make(Expense expense, Frequency frequency, Day start) {
    return {UUID::random(), std::move(expense), frequency, start.d, start, std::nullopt, false, {}};
}

Line Line::make(std::string name, std::int64_t qtyMilli, std::int64_t priceMinor, int taxBP) {
    Line line;
    line.id = UUID::random();
    line.name = std::move(name);
    line.qtyMilli = qtyMilli;
    line.priceMinor = priceMinor;
    line.taxBP = taxBP;
    return line;
}

Payment Payment::make(Day date, std::int64_t amount, std::int64_t tds, PaymentMethod method) {
    return {UUID::random(), date, amount, tds, method, {}, std::nullopt, {}};
}

std::int64_t Payment::settles() const { return Checked::add(amount, tds); }

Document Document::make(DocKind kind, Day issueDate, Day dueDate) {
    Document document;
    document.id = UUID::random();
    document.kind = kind;
    document.issueDate = issueDate;
    document.dueDate = dueDate;
    document.createdAt = now();
    return document;
}

bool Document::isIssued() const { return state != DocState::draft && state != DocState::void_; }
std::string Document::displayNumber() const { return number.value_or("Draft"); }

List<NumberSeries> NumberSeries::defaults() {
    List<NumberSeries> series;
    series.append({UUID::random(), DocKind::invoice, "Invoices", "INV/{FY}/{###}", {}, {}});
    series.append({UUID::random(), DocKind::estimate, "Estimates", "EST/{FY}/{###}", {}, {}});
    series.append({UUID::random(), DocKind::creditNote, "Credit notes", "CN/{FY}/{###}", {}, {}});
    return series;
}

BankAccount BankAccount::make(std::string name, std::string currency) {
    return {UUID::random(), std::move(name), std::move(currency), {}};
}

BankTransaction BankTransaction::make(Day date, std::string text, std::int64_t amount) {
    BankTransaction line;
    line.id = UUID::random();
    line.date = date;
    line.text = std::move(text);
    line.amount = amount;
    return line;
}

namespace {

constexpr std::size_t mostKept = 40;

/// The first 40 letters and digits of a narration in lower case. Importing asks for those of every line of the books,
/// and most narrations are ASCII: they fit in a buffer.
class KeptNarration {
public:
    explicit KeptNarration(std::string_view text) {
        std::size_t count = 0;
        for (auto at = text.begin(); at != text.end() && count <= mostKept; ++at) {
            const auto c = static_cast<unsigned char>(*at);
            if (c >= 0x80) {
                other_ = Text::prefix(Text::lettersAndDigits(Text::lower(text)), mostKept);
                kept_ = other_;
                return;
            }
            ascii_[count] = keeps[c];
            count += keeps[c] != 0;
        }
        kept_ = {ascii_.data(), std::min(count, mostKept)};
    }
    KeptNarration(const KeptNarration&) = delete;
    KeptNarration& operator=(const KeptNarration&) = delete;
    ~KeptNarration() = default;

    [[nodiscard]] std::string_view text() const { return kept_; }

private:
    static constexpr auto keeps = [] {
        std::array<char, 0x80> table{};
        for (char c = '0'; c <= '9'; ++c) table[static_cast<std::size_t>(c)] = c;
        for (char c = 'a'; c <= 'z'; ++c)
            table[static_cast<std::size_t>(c)] = table[static_cast<std::size_t>(c - ('a' - 'A'))] = c;
        return table;
    }();

    std::array<char, mostKept + 2> ascii_;
    std::string other_;
    std::string_view kept_;
};

}  // namespace

std::string BankTransaction::fingerprint() const {
    std::string result = date.iso();
    result.reserve(80 + reference.size());
    result.append("|").append(std::to_string(amount)).append("|").append(KeptNarration(text).text());
    return result.append("|").append(reference);
}

std::size_t BankTransaction::fingerprintHash() const {
    const std::hash<std::string_view> hash;
    constexpr std::size_t spread = 0x9E3779B97F4A7C15;
    std::size_t result = hash(KeptNarration(text).text());
    for (const std::size_t part : {hash(reference), static_cast<std::size_t>(amount),
                                   static_cast<std::size_t>((date.y * 12 + date.m) * 31 + date.d)}) {
        result = (result ^ part) * spread;
        result ^= result >> 29;
    }
    return result;
}

bool BankTransaction::isMatched() const { return expenseID || invoiceID || paymentID; }
bool BankTransaction::isOpen() const { return !isMatched() && !ignored; }

CategoryRule CategoryRule::make(std::string contains, UUID categoryID, std::string vendor) {
    return {UUID::random(), std::move(contains), categoryID, std::move(vendor), {}};
}

Library Library::make() {
    Library library;
    library.categories = Category::defaults();
    library.series = NumberSeries::defaults();
    library.accounts.append(BankAccount::make("Current account", "INR"));
    return library;
}

Currency Library::home() const { return business.currency(); }

FinancialYear Library::fy(Day day) const { return day.financialYear(fyStart()); }

std::optional<std::int64_t> Library::rate(std::string_view currency) const {
    if (currency == business.homeCurrency) return 1'000'000;
    for (const FXRate& rate : rates)
        if (rate.currency == currency) return rate.rateMicros;
    return std::nullopt;
}

const Client* Library::client(const UUID& id) const { return find(clients, id); }
const Document* Library::document(const UUID& id) const { return find(documents, id); }
const Category* Library::category(const UUID& id) const { return find(categories, id); }
const Project* Library::project(const UUID& id) const { return find(projects, id); }
const Expense* Library::expense(const UUID& id) const { return find(expenses, id); }

const NumberSeries* Library::defaultSeries(DocKind kind) const {
    for (const NumberSeries& one : series)
        if (one.kind == kind) return &one;
    return nullptr;
}

}  // namespace tamba
