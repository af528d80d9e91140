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
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// Everything bank lines can be matched with, kept so that one line is looked up without a walk through the books:
/// expenses by day and amount, open invoices by balance, total and number, payments that no line is linked to by amount
/// and day. Built once for many lines, told of each link that is made meanwhile. It learns as it is asked (words of a
/// name, values for a currency), so asking is not `const`.
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
        std::optional<std::size_t> payment = {};  ///< of the invoice: it was typed before, the line is that money
    };
    /// The one suggestion that is strong and clearly ahead of the next, `obviousDays` around the line. A payment that
    /// was typed is one of them, and stands before the invoice it is on: that money would be counted twice.
    [[nodiscard]] std::optional<Found> obvious(const BankTransaction& line);

    /// Due on an invoice that was found, in its own currency.
    [[nodiscard]] std::int64_t balance(std::size_t document) const;
    /// The expense has been matched; it is no candidate any more.
    void take(std::size_t expense);
    /// A payment settled so much of the invoice, in its own currency.
    void settle(std::size_t document, std::int64_t amount);
    /// A line is linked to the payment, given by its position on the invoice.
    void claim(std::size_t document, std::size_t payment);

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
        std::string number;                     // upper-cased; empty when there is none
        std::vector<std::size_t> typed;         // positions of its payments that no line is linked to
        std::optional<std::size_t> alike = {};  // the slot of another of the same number
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
        [[nodiscard]] Priced next() const { return {amount, client, issueDate, slot + 1}; }
    };
    /// Open invoices in the order of `Priced`. Nearly all leave as they were, and few come back at another balance:
    /// what was sorted once stays in place, and what left is stepped over, however much of it there is.
    class Prices {
    public:
        Prices() = default;
        Prices(std::vector<Priced> all, std::size_t slots);
        /// The first at or after `least` that is still there.
        [[nodiscard]] const Priced* first(const Priced& least);
        void remove(const Priced& one);
        void insert(const Priced& one) { moved_.insert(one); }

    private:
        std::vector<Priced> sorted_;
        std::vector<std::size_t> next_;     // by position: itself while it is there, else a later one
        std::vector<std::size_t> placeOf_;  // by slot: its position, past the end when it is not there
        std::set<Priced> moved_;
    };
    /// Typed payments of one amount, day and client: every line that names no number gives them the same score.
    struct Paid {
        std::int64_t amount, day;
        Name client = 0;
        auto operator<=>(const Paid&) const = default;
    };
    struct Typed {
        Slot slot;
        std::size_t payment;  // its position on the invoice
        bool operator==(const Typed&) const = default;
    };
    /// What the records are worth to lines in one currency, in minor units of the home currency.
    struct View {
        Currency currency;
        std::int64_t rateMicros;
        std::map<std::int64_t, std::vector<Group>> days;  // by day number; groups by value
        std::vector<Due> due;                             // by slot
        Prices byBalance, byTotal;
        std::map<Paid, std::vector<Typed>> typed;  // on invoices in this currency, in its own minor units
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
    struct Best;  // what was offered so far

    [[nodiscard]] Name named(const std::string& name);
    [[nodiscard]] const std::string* sharedWord(Asked& asked, Name name);
    [[nodiscard]] std::optional<Asked> ask(const BankTransaction& line);
    [[nodiscard]] View* view(const Currency& currency);

    [[nodiscard]] std::optional<std::int64_t> value(const View& view, const Expense& expense) const;
    [[nodiscard]] std::optional<std::int64_t> value(const View& view, const Document& invoice,
                                                    std::int64_t amount) const;
    void addExpenses(View& view);
    [[nodiscard]] Slot slotOf(std::size_t document) const;
    /// Its balance and total in the home currency, both 0 where it is no candidate.
    [[nodiscard]] Due due(const View& view, Slot slot) const;
    void addInvoices(View& view);
    void addInvoice(View& view, Slot slot);
    void removeInvoice(View& view, Slot slot) const;
    [[nodiscard]] Priced priced(std::int64_t amount, Slot slot) const;

    /// Calls `visit(group, days apart)` for the expenses within amount and window.
    template <class Visit>
    void expensesNear(const Asked& asked, int dayWindow, Visit&& visit);
    [[nodiscard]] std::vector<Slot> mentioned(const std::string& squeezedText);
    /// Invoices whose total is the line's amount, or whose balance is up to `above` more than it.
    [[nodiscard]] static std::vector<Slot> priced(Asked& asked, std::int64_t above);
    /// Whether an invoice of the line's amount, whose client but not whose number the line names, was issued by then.
    [[nodiscard]] bool hasRival(Asked& asked, Prices& open, const std::vector<Slot>& mentioned);
    /// Those of the invoices that fit, in the order of the books.
    [[nodiscard]] std::vector<InvoiceMatch> fitting(Asked& asked, std::vector<Slot> slots,
                                                    const std::vector<Slot>& mentioned);
    /// Payments of the line's amount on invoices whose number it does not name.
    void offerTyped(Asked& asked, Best& best);
    void offerInvoices(Asked& asked, Best& best);

    /// A number without spaces, by its hash; the number itself is the invoice's.
    struct Numbered {
        std::size_t hash;
        Slot slot;
    };
    /// Where the number is, or would be.
    [[nodiscard]] std::optional<Numbered>& numbered(std::size_t hash, std::string_view number);

    const Library library_;  // as it was; records are shared with the books
    const Currency home_;
    std::vector<bool> free_;         // by position: no line is matched to the expense
    std::vector<Invoice> invoices_;  // that were open or hold typed payments, in the order of the books
    std::vector<std::optional<Numbered>> numbered_;
    std::set<std::size_t> numberLengths_;
    std::array<bool, 256> numbersBegin_{};              // bytes that numbers begin with
    std::map<std::string, std::optional<View>> views_;  // by currency code; none without a rate

    std::unordered_map<std::string, Name> nameOf_;
    std::vector<std::pair<std::string, std::optional<std::vector<std::string>>>>
        names_;  // with their words, once asked
};

}  // namespace tamba::Matcher
