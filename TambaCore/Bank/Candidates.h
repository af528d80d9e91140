#pragma once

#include "TambaCore/Bank/Matcher.h"
#include "TambaCore/Model/Models.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

/// Everything bank lines can be matched with, kept so that one line is looked up without a walk through the books:
/// expenses by day and amount, open invoices by balance, total and number. Built once for many lines, told of each
/// link that is made meanwhile. It learns as it is asked (words of a name, values for a currency), so asking is not
/// `const`.
namespace tamba::Matcher {

class Candidates {
public:
    /// `except`: a line whose own link to an expense does not count.
    explicit Candidates(const Library& library, const std::optional<UUID>& except = {});

    [[nodiscard]] std::vector<MatchSuggestion> suggestions(const BankTransaction& line, int dayWindow);

    /// A record by its position in the books.
    struct Found {
        MatchSuggestion::Target::Kind kind;
        std::size_t position;
    };
    /// The one suggestion that is strong and clearly ahead of the next, `obviousDays` around the line.
    [[nodiscard]] std::optional<Found> obvious(const BankTransaction& line);

    /// Due on an invoice that was found, in its own currency.
    [[nodiscard]] std::int64_t balance(std::size_t document) const;
    /// The expense has been matched; it is no candidate any more.
    void take(std::size_t expense);
    /// A payment settled so much of the invoice, in its own currency.
    void settle(std::size_t document, std::int64_t amount);

private:
    using Name = std::size_t;  // of a vendor or client, in `names_`

    /// Expenses of one day with one amount and vendor: every line gives them the same score.
    struct Group {
        std::int64_t value;
        Name vendor;
        std::vector<std::size_t> members;  // positions, in the order of the books
    };
    struct Invoice {
        std::size_t document;         // its position
        std::int64_t balance, total;  // in its own currency
        Day issueDate;
        Name client;
        std::string number;  // upper-cased; empty when there is none
    };
    struct Due {
        std::int64_t balance = 0, total = 0;  // in the home currency; no candidate while the balance is 0
    };
    using Slot = std::size_t;  // in `invoices_`
    /// An open invoice by what it is worth. Those of one client stand together, the first issued first: whether any of
    /// them rivals another invoice is told by one, and many invoices may be of one amount.
    struct Priced {
        std::int64_t amount;
        Name client = 0;
        Day issueDate = {0, 1, 1};
        Slot slot = 0;
        auto operator<=>(const Priced&) const = default;
    };
    /// What the records are worth to lines in one currency, in minor units of the home currency.
    struct View {
        Currency currency;
        std::int64_t rateMicros;
        std::map<std::int64_t, std::vector<Group>> days;  // by day number; groups by value
        std::vector<Due> due;                             // by slot
        std::set<Priced> byBalance, byTotal;
    };
    /// A line as it is compared.
    struct Asked {
        const BankTransaction& line;
        View& view;
        std::int64_t amount;  // in the home currency
        std::set<std::string> words{};
        bool hasWords = false;
    };
    struct InvoiceMatch;

    [[nodiscard]] Name named(const std::string& name);
    [[nodiscard]] const std::string* sharedWord(Asked& asked, Name name);
    [[nodiscard]] std::optional<Asked> ask(const BankTransaction& line);
    [[nodiscard]] View* view(const Currency& currency);

    [[nodiscard]] std::optional<std::int64_t> value(const View& view, const Expense& expense) const;
    [[nodiscard]] std::optional<std::int64_t> value(const View& view, const Document& invoice,
                                                    std::int64_t amount) const;
    void addExpenses(View& view);
    [[nodiscard]] Slot slotOf(std::size_t document) const;
    void addInvoice(View& view, Slot slot);
    void removeInvoice(View& view, Slot slot) const;
    [[nodiscard]] Priced priced(std::int64_t amount, Slot slot) const;

    /// Calls `visit(group, days apart)` for the expenses within amount and window.
    template <class Visit>
    void expensesNear(const Asked& asked, int dayWindow, Visit&& visit);
    [[nodiscard]] std::vector<Slot> mentioned(const std::string& squeezedText) const;
    /// Invoices whose total is the line's amount, or whose balance is up to `above` more than it.
    [[nodiscard]] static std::vector<Slot> priced(const Asked& asked, std::int64_t above);
    /// Whether an invoice of the line's amount, whose client but not whose number the line names, was issued by then.
    [[nodiscard]] bool hasRival(Asked& asked, const std::set<Priced>& open, const std::vector<Slot>& mentioned);
    /// Those of the invoices that fit, in the order of the books.
    [[nodiscard]] std::vector<InvoiceMatch> fitting(Asked& asked, std::vector<Slot> slots,
                                                    const std::vector<Slot>& mentioned);

    const Library library_;  // as it was; records are shared with the books
    const Currency home_;
    std::vector<bool> free_;                                       // by position: no line is matched to the expense
    std::vector<Invoice> invoices_;                                // that were open, in the order of the books
    std::unordered_map<std::string, std::vector<Slot>> byNumber_;  // by number without spaces
    std::set<std::size_t> numberLengths_;
    std::array<bool, 256> numbersBegin_{};              // bytes that numbers begin with
    std::map<std::string, std::optional<View>> views_;  // by currency code; none without a rate

    std::unordered_map<std::string, Name> nameOf_;
    std::vector<std::pair<std::string, std::optional<std::vector<std::string>>>>
        names_;  // with their words, once asked
};

}  // namespace tamba::Matcher
