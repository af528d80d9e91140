#include "TambaCore/Model/LibraryCheck.h"

#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"

#include <array>
#include <functional>
#include <unordered_map>
#include <unordered_set>

namespace tamba::LibraryCheck {
namespace {

__extension__ using Wide = __int128;

constexpr std::int64_t wholeBP = 10'000;  // 100 %
constexpr std::int64_t million = 1'000'000;

std::string name(const char* kind, const std::string& text) {
    return std::string("the ") + kind + (text.empty() ? " without a name" : " “" + text + "”");
}
std::string name(const Client& client) { return name("client", client.name); }
std::string name(const CatalogItem& item) { return name("item", item.name); }
std::string name(const Category& category) { return name("category", category.name); }
std::string name(const Project& project) { return name("project", project.name); }
std::string name(const Expense& expense) { return name("expense", expense.vendor) + " of " + expense.date.iso(); }
std::string name(const RecurringExpense& recurring) { return name("recurring expense", recurring.template_.vendor); }
std::string name(const NumberSeries& series) { return name("number series", series.name); }
std::string name(const BankAccount& account) { return name("bank account", account.name); }
std::string name(const BankTransaction& line) { return name("bank line", line.text) + " of " + line.date.iso(); }
std::string name(const CategoryRule& rule) { return name("rule", rule.contains); }
const char* word(DocKind kind) {
    static constexpr std::array words{"invoice", "estimate", "credit note"};
    return words[static_cast<std::size_t>(kind)];
}
std::string name(const Document& document) {
    const char* kind = word(document.kind);
    return document.number ? name(kind, *document.number)
                           : std::string("the ") + kind + " draft of " + document.issueDate.iso();
}

/// Of products of believable figures, which only 128 bits hold.
bool isBelievableProduct(Wide value) { return value <= maximumAmount && value >= -maximumAmount; }

class Checker {
public:
    Checker(const Library& library, const LibraryStore& store) : library_(library), store_(store) {}

    Report run() {
        collectIDs();
        business();
        for (const Client& client : library_.clients) {
            at("clients", client);
            if (client.dueDays) range("number of days to pay", *client.dueDays, 0, million);
        }
        for (const CatalogItem& item : library_.items) {
            at("items", item);
            believable("price", item.priceMinor);
            range("tax rate", item.taxBP, 0, wholeBP);
        }
        for (const Project& project : library_.projects) {
            at("projects", project);
            reference("a client", project.clientID, clients_);
        }
        for (const Expense& expense : library_.expenses) {
            at("expenses", expense);
            this->expense(expense);
        }
        for (const RecurringExpense& recurring : library_.recurring) {
            at("recurring", recurring);
            expense(recurring.template_);
            range("day of the month", recurring.anchorDay, 1, 31);
        }
        for (const Document& document : library_.documents) {
            at("documents", document);
            this->document(document);
        }
        for (const NumberSeries& series : library_.series) {
            at("series", series);
            for (const auto& [period, next] : series.next) range("next number", next, 1, maximumAmount);
        }
        for (const BankTransaction& line : library_.transactions) {
            at("transactions", line);
            transaction(line);
        }
        for (const CategoryRule& rule : library_.rules) {
            at("rules", rule);
            reference("a category", rule.categoryID, categories_);
        }
        rates();
        return std::move(report_);
    }

private:
    using IDs = std::unordered_set<UUID>;

    template <class Record>
    IDs idsOf(const char* list, const List<Record>& records) {
        report_.counts.emplace_back(list, records.size());
        IDs ids;
        ids.reserve(records.size());
        for (const Record& record : records) {
            if (ids.insert(record.id).second) continue;
            at(list, record);
            problem(Kind::duplicateID, "Another record has the same ID as " + name_() + ".");
        }
        return ids;
    }
    void collectIDs() {
        clients_ = idsOf("clients", library_.clients);
        (void)idsOf("items", library_.items);
        categories_ = idsOf("categories", library_.categories);
        projects_ = idsOf("projects", library_.projects);
        expenses_ = idsOf("expenses", library_.expenses);
        (void)idsOf("recurring", library_.recurring);
        (void)idsOf("documents", library_.documents);
        series_ = idsOf("series", library_.series);
        accounts_ = idsOf("accounts", library_.accounts);
        transactions_ = idsOf("transactions", library_.transactions);
        (void)idsOf("rules", library_.rules);
        report_.counts.emplace_back("rates", library_.rates.size());
        for (const Document& document : library_.documents) {
            documents_.emplace(document.id, document.kind);
            for (const Payment& payment : document.payments) {
                if (payments_.emplace(payment.id, document.id).second) continue;
                at("documents", document);
                problem(Kind::duplicateID, "Another payment has the same ID as one of " + name_() + ".");
            }
        }
    }

    /// Sets the record that the problems found from here on belong to.
    template <class Record>
    void at(const char* list, const Record& record) {
        list_ = list;
        id_ = &record.id;
        name_ = [&record] { return name(record); };
    }
    void problem(Kind kind, std::string sentence) {
        report_.problems.push_back({kind, list_, id_ ? id_->text() : key_, std::move(sentence)});
    }

    void wrong(std::string_view figure, std::int64_t value) {
        problem(Kind::outOfRange,
                "The " + std::string(figure) + " of " + name_() + " can’t be right: " + std::to_string(value) + ".");
    }
    void range(std::string_view figure, std::int64_t value, std::int64_t least, std::int64_t most) {
        if (value < least || value > most) wrong(figure, value);
    }
    void believable(std::string_view figure, std::int64_t value) {
        range(figure, value, -maximumAmount, maximumAmount);
    }
    void notNegative(std::string_view figure, std::int64_t value) { range(figure, value, 0, maximumAmount); }

    void dangling(std::string_view what) {
        std::string subject = name_();
        subject[0] = 'T';
        problem(Kind::danglingReference, subject + " refers to " + std::string(what) + " that isn’t in the books.");
    }
    void reference(std::string_view what, const std::optional<UUID>& id, const IDs& ids) {
        if (id && !ids.contains(*id)) dangling(what);
    }
    void invoice(const std::optional<UUID>& id) {
        if (!id) return;
        const auto found = documents_.find(*id);
        if (found == documents_.end() || found->second != DocKind::invoice) dangling("an invoice");
    }

    void business() {
        const Business& business = library_.business;
        list_ = "business";
        id_ = nullptr;
        key_.clear();
        name_ = [] { return std::string("the business settings"); };
        range("first month of the financial year", business.fyStartMonth, 1, 12);
        range("default tax rate", business.defaultTaxBP, 0, wholeBP);
        range("default number of days to pay", business.defaultDueDays, 0, million);
        notNegative("mileage rate", business.mileageRateMinor);
        if (business.logoFile)
            file("logo", *business.logoFile, Files::inside(store_.assetsFolder(), *business.logoFile));
    }

    void file(const char* what, const std::string& path, const std::optional<Files::Path>& place) {
        if (!place)
            problem(Kind::fileOutside,
                    std::string("The ") + what + " “" + path + "” of " + name_() + " lies outside the books’ folder.");
        else if (!Files::size(*place))
            problem(Kind::missingFile, std::string("The ") + what + " “" + path + "” of " + name_() + " is missing.");
    }

    void expense(const Expense& expense) {
        reference("a project", expense.projectID, projects_);
        reference("a client", expense.clientID, clients_);
        invoice(expense.rebilledInvoiceID);
        reference("a bank line", expense.bankTxnID, transactions_);
        for (const Attachment& attachment : expense.attachments) file("file", attachment.path, store_.url(attachment));

        const std::size_t before = report_.problems.size();
        believable("amount", expense.amount);
        believable("tax", expense.tax);
        for (const std::int64_t part :
             {expense.taxSplit.cgst, expense.taxSplit.sgst, expense.taxSplit.igst, expense.taxSplit.other})
            believable("part of the tax", part);
        notNegative("exchange rate", expense.rateMicros);
        notNegative("distance", expense.distanceMilli);
        notNegative("mileage rate", expense.mileageRateMinor);
        if (report_.problems.size() > before) return;
        conversion(expense.amount, expense.currency, expense.rateMicros);
        const auto mileage = static_cast<Wide>(expense.distanceMilli) * expense.mileageRateMinor / 1000;
        if (!isBelievableProduct(mileage)) wrong("distance", expense.distanceMilli);
    }

    /// Believable figures whose product is none: the factors are at most 10^15, 10^15 and 1,000, which 128 bits hold.
    void conversion(std::int64_t amount, const std::string& currency, std::int64_t rateMicros) {
        if (currency == library_.business.homeCurrency) return;
        const auto scaled = static_cast<Wide>(amount) * rateMicros * home_.scale();
        const Wide value = scaled / million / Currency::of(currency).scale();
        if (!isBelievableProduct(value)) wrong("exchange rate", rateMicros);
    }

    void document(const Document& document) {
        const bool frozen = document.state != DocState::draft;
        if (!frozen || !document.billTo) reference("a client", document.clientID, clients_);
        if (!frozen) reference("a number series", document.seriesID, series_);
        invoice(document.linkedID);
        for (const Line& line : document.lines)
            if (!frozen) reference("an expense", line.expenseID, expenses_);
        for (const Payment& payment : document.payments) reference("a bank line", payment.bankTxnID, transactions_);
        if (frozen) number(document);

        const std::size_t before = report_.problems.size();
        notNegative("exchange rate", document.rateMicros);
        notNegative("number of reminders", document.remindersSent);
        for (const Line& line : document.lines) {
            notNegative("quantity of a line", line.qtyMilli);
            notNegative("price of a line", line.priceMinor);
            range("discount of a line", line.discountBP, 0, wholeBP);
            range("tax rate of a line", line.taxBP, 0, wholeBP);
        }
        for (const Payment& payment : document.payments) {
            notNegative("amount of a payment", payment.amount);
            notNegative("TDS of a payment", payment.tds);
        }
        if (report_.problems.size() == before) sums(document);
    }

    /// Believable figures whose sums are none. A line comes to at most 2 × 10^27, so that no number of lines that fits
    /// a machine passes 128 bits.
    void sums(const Document& document) {
        Wide quantity = 0, gross = 0, total = 0, settled = 0;
        for (const Line& line : document.lines) {
            const Wide amount = static_cast<Wide>(line.qtyMilli) * line.priceMinor / 1000;
            quantity += line.qtyMilli;
            gross += amount;
            // In two steps, each of which 128 bits hold.
            total += amount * (wholeBP - line.discountBP) / wholeBP * (wholeBP + line.taxBP) / wholeBP;
        }
        for (const Payment& payment : document.payments) settled += Wide{payment.amount} + payment.tds;
        const auto tooLarge = [this](const char* what) {
            problem(Kind::outOfRange, "The " + std::string(what) + " of " + name_() + " is too large to be right.");
        };
        if (!isBelievableProduct(quantity)) tooLarge("sum of quantities");
        if (!isBelievableProduct(gross) || !isBelievableProduct(total)) tooLarge("total");
        if (!isBelievableProduct(settled)) tooLarge("sum of payments");
    }

    /// GST asks for numbers that are unique, and its portal ignores case. Two machines that issued before they met can
    /// give one number twice.
    void number(const Document& document) {
        const std::string kind = word(document.kind);
        if (!document.number)
            problem(Kind::missingNumber,
                    "The " + kind + " of " + document.issueDate.iso() + " is no draft, but has no number.");
        else if (document.state != DocState::void_ &&  // a void one keeps its number: the matter is mended
                 !numbers_.insert(kind + " " + Text::lower(*document.number)).second)
            problem(Kind::duplicateNumber, "More than one " + kind + " has the number “" + *document.number +
                                               "”. Void one of them and issue it again.");
    }

    void transaction(const BankTransaction& line) {
        reference("a bank account", line.accountID, accounts_);
        reference("an expense", line.expenseID, expenses_);
        invoice(line.invoiceID);
        if (line.paymentID) {
            const auto payment = payments_.find(*line.paymentID);
            if (payment == payments_.end() || (line.invoiceID && payment->second != *line.invoiceID))
                dangling("a payment");
        }
        believable("amount", line.amount);
        if (line.balance) believable("balance", *line.balance);
    }

    void rates() {
        list_ = "rates";
        id_ = nullptr;
        std::unordered_set<std::string> currencies;
        for (const FXRate& rate : library_.rates) {
            key_ = rate.currency;
            name_ = [&rate] { return "the exchange rate for " + rate.currency; };
            if (!currencies.insert(rate.currency).second)
                problem(Kind::duplicateID, "There is more than one exchange rate for " + rate.currency + ".");
            notNegative("value", rate.rateMicros);
        }
    }

    const Library& library_;
    const LibraryStore& store_;
    const Currency home_ = library_.home();
    Report report_;
    IDs clients_, categories_, projects_, expenses_, series_, accounts_, transactions_;
    std::unordered_map<UUID, DocKind> documents_;
    std::unordered_map<UUID, UUID> payments_;  // and the document each belongs to
    std::unordered_set<std::string> numbers_;  // each with its kind

    const char* list_ = "";
    const UUID* id_ = nullptr;
    std::string key_;  // identity of what has no UUID
    std::function<std::string()> name_;
};

}  // namespace

std::string_view word(Kind kind) {
    static constexpr std::array<std::string_view, 10> words{
        "duplicateID",     "danglingReference", "missingFile", "fileOutside", "outOfRange",
        "duplicateNumber", "missingNumber",     "voidSettled", "overSettled", "billedTwice"};
    return words[static_cast<std::size_t>(kind)];
}

Report check(const Library& library, const LibraryStore& store) { return Checker(library, store).run(); }

}  // namespace tamba::LibraryCheck
