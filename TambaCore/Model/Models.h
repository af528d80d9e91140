#pragma once

#include "TambaCore/Base/List.h"
#include "TambaCore/Base/UUID.h"
#include "TambaCore/Model/Day.h"
#include "TambaCore/Model/Money.h"
#include "TambaCore/Model/Tax.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The records of the books. `Library` is the whole book of one business: one value, held whole in memory and saved
/// whole. Records are plain values and refer to each other by id only. Units stand in the names: `Minor` and amounts
/// are minor units of the record's currency, `BP` basis points, `Milli` thousandths, `Micros` millionths. The JSON keys
/// of the file are the field names (`Model/Fields.h` lists them once). The static `make` functions ask the clock and
/// the random source; operations on the books take such values as arguments instead.
namespace tamba {

/// Keys of the file that this version does not know, with their JSON as read. They are written back, so that an older
/// program never drops what a newer one wrote.
class UnknownKeys {
public:
    using Entries = std::vector<std::pair<std::string, std::string>>;  ///< key, JSON text; sorted by key

    UnknownKeys() = default;
    explicit UnknownKeys(Entries entries) : entries_(std::make_shared<const Entries>(std::move(entries))) {}
    [[nodiscard]] const Entries& entries() const;
    friend bool operator==(const UnknownKeys& a, const UnknownKeys& b) {
        return a.entries_ == b.entries_ || a.entries() == b.entries();
    }

private:
    std::shared_ptr<const Entries> entries_;  // null in nearly every record
};

/// The business's own bank account, as printed on invoices.
struct BankDetails {
    std::string accountName, accountNumber, bankName, ifsc, swift, iban;
    UnknownKeys unknown;

    [[nodiscard]] bool isEmpty() const;
    bool operator==(const BankDetails&) const = default;
};

/// How receipts and statements write dates.
enum class DateOrder { dmy, mdy, ymd };

struct Business {
    std::string name;
    std::string address;  ///< several lines
    std::optional<std::string> stateCode;
    std::string country = "IN";  ///< ISO 3166 code
    std::string email, phone, website;
    TaxRegime regime = TaxRegime::gstIndia;
    std::string taxID;  ///< the GSTIN when registered
    std::string taxName = "GST";
    std::string taxIDLabel = "GSTIN";
    std::string pan;
    std::string lutReference;
    std::string homeCurrency = "INR";
    int fyStartMonth = 4;
    int defaultTaxBP = 1800;
    int defaultDueDays = 15;
    BankDetails bank;
    std::string upiID;
    bool showUPIQR = true;
    std::optional<std::string> logoFile;  ///< a file in the library's Assets folder
    std::string signatory = "Authorised signatory";
    std::string terms;
    std::string footer = "Thank you for your business.";
    bool roundTotals = true;
    std::string accentHex = "1E4A66";
    DateOrder receiptDateOrder = DateOrder::dmy;
    std::int64_t mileageRateMinor = 1000;
    std::string distanceUnit = "km";
    UnknownKeys unknown;

    [[nodiscard]] Currency currency() const;
    /// State of the GSTIN when it yields one, else `stateCode`.
    [[nodiscard]] std::optional<std::string> supplierState() const;
    [[nodiscard]] bool isIndia() const;
    /// "GST" under an Indian regime, else `taxName` ("Tax" when that is empty).
    [[nodiscard]] std::string displayTaxName() const;
    bool operator==(const Business&) const = default;
};

struct Client {
    UUID id;
    std::string name;
    std::string contact;  ///< a person's name
    std::string email, phone, address;
    std::optional<std::string> stateCode;
    std::string country = "IN";
    std::string taxID;  ///< GSTIN or foreign tax number
    bool sez = false;   ///< in a special economic zone
    std::string currency = "INR";
    std::optional<int> dueDays;  ///< absent: the business default
    std::string notes;
    bool archived = false;
    UnknownKeys unknown;

    [[nodiscard]] static Client make(std::string name);
    [[nodiscard]] bool isForeign() const;
    [[nodiscard]] bool isRegistered() const;
    bool operator==(const Client&) const = default;
};

/// A party frozen on an issued document, so that later edits do not change it.
struct PartySnapshot {
    std::string name, address, taxID;
    std::optional<std::string> stateCode;
    std::string country, email;
    UnknownKeys unknown;

    [[nodiscard]] static PartySnapshot of(const Client& client);
    [[nodiscard]] static PartySnapshot of(const Business& business);
    bool operator==(const PartySnapshot&) const = default;
};

/// A saved line for quick entry.
struct CatalogItem {
    UUID id;
    std::string name, detail;
    std::string hsn;  ///< HSN or SAC code
    std::string unit;
    std::int64_t priceMinor = 0;
    int taxBP = 0;
    UnknownKeys unknown;

    [[nodiscard]] static CatalogItem make(std::string name);
    bool operator==(const CatalogItem&) const = default;
};

struct Category {
    UUID id;
    std::string name;
    std::string symbol;    ///< name of a glyph, "airplane"
    std::string colorHex;  ///< six hex digits
    bool claimsTax = false;
    UnknownKeys unknown;

    /// The thirteen of a new book, each with a fresh id.
    [[nodiscard]] static List<Category> defaults();
    bool operator==(const Category&) const = default;
};

struct Project {
    UUID id;
    std::string name;
    std::optional<UUID> clientID;
    bool archived = false;
    UnknownKeys unknown;

    [[nodiscard]] static Project make(std::string name, std::optional<UUID> clientID);
    bool operator==(const Project&) const = default;
};

enum class PaymentMethod { upi, card, bank, cash, pettyCash, cheque, wallet, other };

/// A file kept in the library folder.
struct Attachment {
    UUID id;
    std::string path;          ///< relative to the library folder, "/"-separated
    std::string originalName;  ///< its name when it was added
    Instant addedAt{};
    UnknownKeys unknown;

    [[nodiscard]] static Attachment make(std::string path, std::string originalName);
    [[nodiscard]] bool isPDF() const;
    bool operator==(const Attachment&) const = default;
};

enum class ExpenseKind { regular, mileage };

struct Expense {
    UUID id;
    ExpenseKind kind = ExpenseKind::regular;
    Day date;
    std::string vendor;
    std::string vendorTaxID;  ///< the vendor's GSTIN when known
    std::int64_t amount = 0;  ///< total paid, tax included, minor units of `currency`
    std::string currency = "INR";
    std::int64_t rateMicros = 1'000'000;  ///< to the home currency; 0 while the user has not given one
    std::int64_t tax = 0;                 ///< included in `amount`
    TaxSplit taxSplit;
    bool claimTax = false;  ///< the input tax is claimed back
    std::optional<UUID> categoryID, projectID, clientID;
    PaymentMethod method = PaymentMethod::upi;
    bool billable = false;
    std::optional<UUID> rebilledInvoiceID;
    std::string notes;
    std::vector<Attachment> attachments;
    std::int64_t distanceMilli = 0;     ///< mileage: thousandths of `Business::distanceUnit`
    std::int64_t mileageRateMinor = 0;  ///< mileage: per unit, frozen when entered
    std::optional<UUID> recurringID, bankTxnID;
    std::optional<std::string> ocrText;
    Instant createdAt{};
    /// Why a person should look at what was read from the receipt ("No date was found."); absent once they have.
    std::optional<std::string> check;
    UnknownKeys unknown;

    /// A blank regular expense in rupees on that day.
    [[nodiscard]] static Expense make(Day date);
    /// Cost to the business in minor units of `currency`: `amount`, less the tax where it is claimed back.
    [[nodiscard]] std::int64_t cost() const;
    /// `amount` without its tax, claimed or not.
    [[nodiscard]] std::int64_t net() const;
    bool operator==(const Expense&) const = default;
};

enum class Frequency { weekly, monthly, quarterly, yearly };
/// The date one step after `day`; months keep the day of the month where it exists.
[[nodiscard]] Day next(Frequency frequency, Day day);

struct RecurringExpense {
    UUID id;
    Expense template_;  ///< copied each time; "template" in the file
    Frequency frequency = Frequency::monthly;
    int anchorDay = 1;  ///< day of the month to aim at
    Day nextDate;
    std::optional<Day> endDate;
    bool paused = false;
    UnknownKeys unknown;

    [[nodiscard]] static RecurringExpense make(Expense expense, Frequency frequency, Day start);
    bool operator==(const RecurringExpense&) const = default;
};

enum class DocKind { invoice, estimate, creditNote };
enum class DocState { draft, issued, void_, accepted, declined };
/// Derived for display, never stored.
enum class DocStatus { draft, sent, partial, paid, overdue, void_, accepted, declined, converted, expired, applied };

struct Line {
    UUID id;
    std::string name, detail, hsn;
    std::int64_t qtyMilli = 1000;
    std::string unit;
    std::int64_t priceMinor = 0;  ///< per unit, before discount and tax
    int discountBP = 0;
    int taxBP = 0;
    std::optional<UUID> expenseID;  ///< the billable expense this line bills on
    UnknownKeys unknown;

    [[nodiscard]] static Line make(std::string name, std::int64_t qtyMilli, std::int64_t priceMinor, int taxBP);
    bool operator==(const Line&) const = default;
};

/// Money received against an invoice.
struct Payment {
    UUID id;
    Day date;
    std::int64_t amount = 0;  ///< received
    std::int64_t tds = 0;     ///< tax deducted at source by the client
    PaymentMethod method = PaymentMethod::bank;
    std::string reference;
    std::optional<UUID> bankTxnID;
    UnknownKeys unknown;

    [[nodiscard]] static Payment make(Day date, std::int64_t amount, std::int64_t tds, PaymentMethod method);
    /// The part of the invoice that the payment clears.
    [[nodiscard]] std::int64_t settles() const;
    bool operator==(const Payment&) const = default;
};

/// An invoice, estimate or credit note.
struct Document {
    UUID id;
    DocKind kind = DocKind::invoice;
    DocState state = DocState::draft;
    std::optional<std::string> number;  ///< absent until issued
    std::optional<UUID> seriesID;
    Day issueDate, dueDate;
    std::optional<UUID> clientID;
    std::optional<PartySnapshot> billTo, seller;  ///< frozen at issue
    std::optional<std::string> placeOfSupply;
    bool lut = false;
    SupplyType supply = SupplyType::intraState;
    std::string currency = "INR";
    std::int64_t rateMicros = 1'000'000;
    std::vector<Line> lines;
    std::string notes, terms;
    std::string reference;  ///< the client's order number
    std::vector<Payment> payments;
    bool roundOff = false;
    std::optional<UUID> linkedID;  ///< the invoice of a credit note, or the invoice made from an estimate
    std::string reason;            ///< of a credit note or of voiding
    std::optional<Day> sentOn;
    int remindersSent = 0;
    std::optional<Day> lastReminder;
    Instant createdAt{};
    UnknownKeys unknown;

    [[nodiscard]] static Document make(DocKind kind, Day issueDate, Day dueDate);
    /// Neither draft nor void.
    [[nodiscard]] bool isIssued() const;
    [[nodiscard]] std::string displayNumber() const;  ///< the number, or "Draft"
    bool operator==(const Document&) const = default;
};

struct NumberSeries {
    UUID id;
    DocKind kind = DocKind::invoice;
    std::string name;
    std::string pattern;
    std::map<std::string, std::int64_t> next;  ///< next counter per counting period
    UnknownKeys unknown;

    /// The three of a new book, each with a fresh id.
    [[nodiscard]] static List<NumberSeries> defaults();
    bool operator==(const NumberSeries&) const = default;
};

struct BankAccount {
    UUID id;
    std::string name;
    std::string currency = "INR";
    UnknownKeys unknown;

    [[nodiscard]] static BankAccount make(std::string name, std::string currency);
    bool operator==(const BankAccount&) const = default;
};

/// An imported statement line.
struct BankTransaction {
    UUID id;
    std::optional<UUID> accountID;
    Day date;
    std::string text;         ///< narration
    std::int64_t amount = 0;  ///< money in positive, money out negative
    std::optional<std::int64_t> balance;
    std::string reference;
    std::string source;  ///< the format it came from
    std::optional<UUID> expenseID, invoiceID, paymentID;
    bool ignored = false;
    std::optional<std::string> categoryHint, counterparty;
    UnknownKeys unknown;

    [[nodiscard]] static BankTransaction make(Day date, std::string text, std::int64_t amount);
    /// What tells a line from others when a statement is imported again: day, amount, the first 40 letters and digits
    /// of the narration in lower case, reference. Neither account nor balance.
    [[nodiscard]] std::string fingerprint() const;
    /// The same for lines of the same fingerprint, without making its text.
    [[nodiscard]] std::size_t fingerprintHash() const;
    [[nodiscard]] bool isMatched() const;  ///< linked to an expense or to a payment of an invoice
    [[nodiscard]] bool isOpen() const;     ///< neither matched nor set aside
    bool operator==(const BankTransaction&) const = default;
};

struct CategoryRule {
    UUID id;
    std::string contains;  ///< found in a vendor or narration, case ignored
    UUID categoryID;
    std::string vendor;  ///< vendor name to set, unless empty
    UnknownKeys unknown;

    [[nodiscard]] static CategoryRule make(std::string contains, UUID categoryID, std::string vendor);
    bool operator==(const CategoryRule&) const = default;
};

/// A rate the user typed; nothing fetches them. Identity is `currency`.
struct FXRate {
    std::string currency;
    std::int64_t rateMicros = 0;
    Day updated;
    UnknownKeys unknown;

    bool operator==(const FXRate&) const = default;
};

struct Library {
    std::int64_t version = 1;
    Business business;
    List<Client> clients;
    List<CatalogItem> items;
    List<Category> categories;
    List<Project> projects;
    List<Expense> expenses;
    List<RecurringExpense> recurring;
    List<Document> documents;
    List<NumberSeries> series;
    List<BankAccount> accounts;
    List<BankTransaction> transactions;
    List<CategoryRule> rules;
    List<FXRate> rates;
    bool onboarded = false;
    UnknownKeys unknown;

    /// A new book: thirteen categories, three number series, one bank account.
    [[nodiscard]] static Library make();

    [[nodiscard]] Currency home() const;
    [[nodiscard]] int fyStart() const { return business.fyStartMonth; }
    [[nodiscard]] FinancialYear fy(Day day) const;
    /// Millionths of the home currency: 1,000,000 for the home currency itself, the typed rate, or nothing.
    [[nodiscard]] std::optional<std::int64_t> rate(std::string_view currency) const;

    // Each gives the first match, or null. Pointers are valid as long as this value.
    [[nodiscard]] const Client* client(const UUID& id) const;
    [[nodiscard]] const Document* document(const UUID& id) const;
    [[nodiscard]] const Category* category(const UUID& id) const;
    [[nodiscard]] const Project* project(const UUID& id) const;
    [[nodiscard]] const Expense* expense(const UUID& id) const;
    [[nodiscard]] const NumberSeries* defaultSeries(DocKind kind) const;

    bool operator==(const Library&) const = default;
};

}  // namespace tamba
