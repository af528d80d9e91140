#pragma once

#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Rows/Listing.h"
#include "TambaCore/Bank/Matcher.h"
#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Model/Models.h"
#include "TambaCore/Model/Period.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the Bank screen shows, as finished texts. Pure: the books and a filter in, rows out.
namespace tamba {

/// Which lines a person looks at, in the order of the tabs.
enum class BankList { open, matched, setAside, all };
inline constexpr BankList allBankLists[] = {BankList::open, BankList::matched, BankList::setAside, BankList::all};
[[nodiscard]] std::string_view title(BankList list);

enum class BankOrder { date, name, amount };

struct BankFilter {
    std::optional<UUID> account = {};  ///< nothing: all accounts
    BankList list = BankList::open;
    std::optional<Period> days = {};  ///< nothing: all time
    std::string search = {};          ///< words that must all occur
    BankOrder order = BankOrder::date;
    bool ascending = false;
    bool operator==(const BankFilter&) const = default;
};

struct BankRow {
    UUID id;
    std::string date;
    std::string name,
        narration;  ///< who it was, as far as the statement tells; `narration` is empty where it is `name`
    std::string amount, balance;  ///< "−₹250.00", "Balance ₹1,23,456.00"
    std::string matched;          ///< "Chai Point · Meals", "INV/26-27/003 · Monsoon Tea", "3 invoices"
    std::string status;
    std::string rest;  ///< "Partly matched · ₹6,000.00 open"; empty where nothing of a matched line is open
    Tone tone = Tone::none;
    bool in = false, open = false;
    bool operator==(const BankRow&) const = default;
};

struct BankTable {
    LazyRows<BankRow> rows;
    std::array<std::size_t, std::size(allBankLists)> counts{};  ///< of each list, with the rest of the filter
    /// "42 lines", "₹1,23,456.00", "−₹12,345.00"; the sums are empty without lines and where those are in several
    /// currencies.
    std::string count, in, out;
};
[[nodiscard]] BankTable bankTable(const Library& library, const BankFilter& filter);

/// The same tables, one after the other: what neither the books nor the filter have changed is not gone through again.
class BankListing {
public:
    BankListing();
    ~BankListing();
    [[nodiscard]] BankTable table(const Library& library, const BankFilter& filter);

private:
    struct State;
    std::unique_ptr<State> state_;
};
/// Lines that are neither matched nor set aside.
[[nodiscard]] std::size_t openLines(const Library& library);

/// One line in full.
struct BankLineFacts {
    std::string name, narration, amount, day, account, status;
    std::string more;  ///< "Reference N123 · Balance ₹1,23,456.00"
    /// "₹11,000.00 of it is still to be matched", where one of several payments was removed; what an exchange of
    /// currencies brought or lost. Else empty.
    std::string rest, exchange;
    Tone tone = Tone::none;
    bool in = false;
};
[[nodiscard]] BankLineFacts factsOf(const Library& library, const BankTransaction& line);

/// What a line is matched to.
struct BankLink {
    MatchSuggestion::Target target;
    std::string text, amount;
    bool operator==(const BankLink&) const = default;
};
[[nodiscard]] std::vector<BankLink> linksOf(const Library& library, const BankTransaction& line);

/// One thing a person can do with a line by one key: a payment typed before the money was seen, a suggestion, or one of
/// the ways to take an invoice that the line does not pay in full.
struct MatchChoice {
    MatchSuggestion::Target target;
    std::optional<UUID> payment = {};  ///< of the invoice: linked, instead of recorded twice
    Bank::Remainder remainder = Bank::Remainder::due;
    std::string title, detail, amount;
    std::string reason;   ///< "Same amount, 1 day apart, mentions chai"
    std::string outcome;  ///< "₹10,000.00 stays due", "₹10,000.00 as TDS (10 %)"; empty where nothing is left
    int score = 0;
    bool operator==(const MatchChoice&) const = default;
};
/// For what no payment takes of the line yet. Best first, at most nine: there is a key for each.
[[nodiscard]] std::vector<MatchChoice> choicesFor(const Library& library, const BankTransaction& line);

/// The expense that would be made of the line; nothing where none can.
[[nodiscard]] std::optional<Expense> proposedExpense(const Library& library, const BankTransaction& line);

/// The rule that would file the next line of this kind as the expense is filed; nothing where the rules do so already.
struct RuleOffer {
    CategoryRule rule;
    std::string text;  ///< "Always file Chai Point under Meals"
};
[[nodiscard]] std::optional<RuleOffer> ruleOffer(const Library& library, const Expense& expense);

/// Invoices that a receipt can be shared among, the oldest first, with what is due on each in the line's currency.
struct OpenInvoice {
    UUID id;
    std::string title, due;
    std::int64_t balance = 0;
};
[[nodiscard]] std::vector<OpenInvoice> openInvoices(const Library& library, const BankTransaction& line);

}  // namespace tamba
