#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <set>

namespace tamba::BankImport {
namespace {

using Words = std::vector<std::string_view>;
using Titles = std::vector<std::string>;

bool contains(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }
bool containsAny(std::string_view text, const Words& words) {
    return std::any_of(words.begin(), words.end(), [&](auto word) { return contains(text, word); });
}

bool isLetter(char c) { return c >= 'a' && c <= 'z'; }

/// "dr" and "cr" stand at the beginning or end of a word ("Amt Dr", "DrAmt"), or in a misspelt "Withdrawl"; in
/// "description", "address", "MICR" and "drawee" they mean nothing.
bool holdsShortWord(std::string_view title, std::string_view word) {
    if (word == "dr" && contains(title, "withdr")) return true;
    for (std::size_t at = title.find(word); at != title.npos; at = title.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        std::size_t begin = at, stop = end;
        while (begin > 0 && isLetter(title[begin - 1])) --begin;
        while (stop < title.size() && isLetter(title[stop])) ++stop;
        const std::string_view whole = title.substr(begin, stop - begin);
        if (whole == word) return true;
        if (containsAny(whole, {"micr", "draw", "draft", "driv", "cred", "creat", "cross"})) continue;
        if (begin == at || stop == end) return true;
    }
    return false;
}

bool holds(std::string_view title, std::string_view name) {
    return name == "dr" || name == "cr" ? holdsShortWord(title, name) : contains(title, name);
}

/// One kind of column as banks call it: names in the order of their weight.
struct Search {
    Words names;
    Words exclusions;         ///< for titles that only hold a name
    Words furtherNames = {};  ///< titles that other banks use, tried after all others
};

const Search date{{"date", "transaction date", "txn date", "posting date"}, {"value date", "updat"}};
const Search valueDate{{"value date"}, {}};
const Search anyDate{{"date"}, {"updat"}};
const Search description{
    {"description", "narration", "details", "particulars", "remarks", "payee", "memo", "transaction details", "name"},
    {"branch name", "bank name", "account name", "payee name", "cheque details"},
    {"counter party", "activity", "transactions", "note", "label"}};
const Search balance{{"balance", "closing balance", "running balance"}, {"opening", "type"}, {"bal", "closing bal"}};
const Search reference{{"reference", "ref no", "chq/ref", "cheque", "ref", "utr"},
                       {"refund", "prefer"},
                       {"chq", "instrument id", "txn id", "tran id", "transaction id", "txn no"}};
const Search marker{{"type", "dr/cr", "cr/dr", "debit/credit", "credit/debit", "d/c", "c/d", "amountsign"}, {}};
/// What a column of amounts is never called, although it holds such a word.
const Words neverAmount{"count",  "number", "date",   "currency", "code",   "account", "a/c",        "limit", "bank",
                        "branch", "name",   "status", "remark",   "narrat", "partic",  "instrument", "card n"};

Search money(Words names, Words exclusions) {
    exclusions.insert(exclusions.end(), neverAmount.begin(), neverAmount.end());
    return {std::move(names), std::move(exclusions)};
}
const Search debit = money({"debit", "withdrawal", "paid out", "dr", "withdrawal amt", "money out"}, {"credit"});
const Search credit = money({"credit", "deposit", "paid in", "cr", "deposit amt", "money in"}, {"debit"});
const Search amount = money({"amount", "transaction amount", "amount (inr)", "amt"}, {"balance"});
/// Amounts in the money of the shop, not of the account.
const Words foreignAmount{"intl", "foreign", "original", "fcy", "local", "source"};

/// Titles that a search finds: equal ones by the weight of their name, then those that hold one.
std::vector<std::size_t> candidates(const Titles& titles, const Search& search) {
    std::vector<std::size_t> found;
    const auto add = [&](std::size_t i) {
        if (std::find(found.begin(), found.end(), i) == found.end()) found.push_back(i);
    };
    for (const auto name : search.names)
        for (std::size_t i = 0; i < titles.size(); ++i)
            if (titles[i] == name) add(i);
    for (const auto* names : {&search.names, &search.furtherNames})
        for (const auto name : *names)
            for (std::size_t i = 0; i < titles.size(); ++i)
                if (holds(titles[i], name) && !containsAny(titles[i], search.exclusions)) add(i);
    return found;
}

std::optional<std::size_t> exactly(const Titles& titles, const Words& names) {
    for (const auto name : names)
        for (std::size_t i = 0; i < titles.size(); ++i)
            if (titles[i] == name) return i;
    return std::nullopt;
}

/// What stands in a column, in the rows that begin with a date.
struct Evidence {
    std::size_t filled = 0, amounts = 0, nonZero = 0, directions = 0, letters = 0;
    /// A column may be empty (no money came in this month), but not full of something else.
    [[nodiscard]] bool canBeAmounts() const { return amounts * 2 >= filled; }
};

constexpr std::size_t sampledRows = 400;
/// Rows without a date are looked through so far for one that has it: each row that looks like a header asks.
constexpr std::size_t mostRowsAsked = 20'000;

std::vector<Evidence> evidence(const Rows& rows, std::size_t below, std::size_t dateColumn, std::size_t columns) {
    std::vector<Evidence> result(columns);
    std::size_t sampled = 0;
    const std::size_t end = std::min(rows.size(), below + mostRowsAsked);
    for (std::size_t r = below; r < end && sampled < sampledRows; ++r) {
        const Cells cells = rows[r].cells;
        if (dateColumn >= cells.size() || dateCell(cells[dateColumn], DateOrder::dmy).kind == DateCell::Kind::none)
            continue;
        ++sampled;
        for (std::size_t c = 0; c < std::min(columns, cells.size()); ++c) {
            Evidence& column = result[c];
            const AmountCell cell = amountCell(cells[c], Currency::inr(), 0);
            if (cell.state == AmountCell::State::blank) continue;
            ++column.filled;
            column.amounts += cell.state != AmountCell::State::unreadable;
            column.nonZero += cell.isFilled() || cell.state == AmountCell::State::ambiguous;
            column.directions += direction(cells[c]) != Direction::unsaid;
            column.letters += static_cast<std::size_t>(std::count_if(cells[c].begin(), cells[c].end(), [](char ch) {
                return isLetter(ch) || ch < 0 || (ch >= 'A' && ch <= 'Z');
            }));
        }
    }
    return result;
}

/// Hands out the columns of one header, each once.
class Assignment {
public:
    Assignment(const Rows& rows, std::size_t headerRow)
        : rows_(rows), header_(headerRow), titles_(titles(rows[headerRow].cells)), taken_(titles_.size()) {
        columns_.header = headerRow;
    }

    Columns columns() {
        findDate();
        if (!columns_[Role::date]) return columns_;
        evidence_ = evidence(rows_, header_ + 1, *columns_[Role::date], titles_.size());
        for (const auto& [role, names] : {std::pair{Role::category, Words{"category"}},
                                          {Role::counterparty, Words{"counterparty", "payee name"}},
                                          {Role::currency, Words{"currency", "ccy", "transaction currency"}},
                                          {Role::state, Words{"state", "status", "transaction status"}}})
            if (const auto place = exactly(titles_, names)) take(role, *place);
        takeFirst(Role::description, description);
        takeFirst(Role::balance, balance);
        takeFirst(Role::reference, reference);
        findMarkers();
        findAmounts();
        placeMarkers();
        findDescriptions();
        return columns_;
    }

private:
    void take(Role role, std::size_t place) {
        columns_[role] = place;
        taken_[place] = true;
    }

    bool takeFirst(Role role, const Search& search) {
        for (const std::size_t place : candidates(titles_, search)) {
            if (taken_[place]) continue;
            take(role, place);
            return true;
        }
        return false;
    }

    void findDate() {
        // A value date is the day interest counts from, and comes last.
        if (takeFirst(Role::date, date) || takeFirst(Role::date, valueDate)) return;
        (void)takeFirst(Role::date, anyDate);
    }

    /// "Withdrawal (Dr)/Deposit (Cr)" is one column for both sides, with the marker in its cells.
    [[nodiscard]] bool isForBothSides(const std::string& title) const {
        return containsAny(title, {"withdr", "debit", "paid out", "(dr"}) &&
               containsAny(title, {"deposit", "credit", "paid in", "(cr"});
    }

    [[nodiscard]] bool isMarker(std::size_t place) const {
        const std::string& title = titles_[place];
        const Evidence& column = evidence_[place];
        const bool namesAmount = containsAny(title, {"amount", "amt", "withdr", "deposit", "balance"});
        // "Amount (Dr/Cr)" is an amount, "BillingAmountSign" holds "CR".
        if (namesAmount) return column.directions > 0 && column.amounts == 0;
        return column.amounts == 0 || column.directions > 0;
    }

    void findMarkers() {
        for (const std::size_t place : candidates(titles_, marker))
            if (!taken_[place] && isMarker(place)) {
                markers_.push_back(place);
                taken_[place] = true;
            }
    }

    [[nodiscard]] std::vector<std::size_t> amountPlaces(const Search& search) const {
        std::vector<std::size_t> found = candidates(titles_, search);
        std::erase_if(found, [&](std::size_t place) { return taken_[place] || !evidence_[place].canBeAmounts(); });
        return found;
    }

    void findAmounts() {
        for (const auto& [role, search] : {std::pair{Role::debit, &debit}, {Role::credit, &credit}}) {
            for (const std::size_t place : amountPlaces(*search)) {
                if (isForBothSides(titles_[place])) continue;
                take(role, place);
                break;
            }
        }
        std::vector<std::size_t> found = amountPlaces(amount);
        for (std::size_t place = 0; place < titles_.size(); ++place)
            if (!taken_[place] && isForBothSides(titles_[place]) && evidence_[place].canBeAmounts())
                found.push_back(place);
        // A card's "Intl.Amount" stands before "Amount(in Rs)"; a column of zeros tells nothing.
        std::stable_sort(found.begin(), found.end(), [&](std::size_t a, std::size_t b) {
            const auto weight = [&](std::size_t place) {
                return (evidence_[place].nonZero > 0 ? 0 : 2) + (containsAny(titles_[place], foreignAmount) ? 1 : 0);
            };
            return weight(a) < weight(b);
        });
        if (!found.empty()) take(Role::amount, found.front());
    }

    /// The first marker behind the amount is the amount's, one right behind the balance the balance's.
    void placeMarkers() {
        const bool twoSided = columns_[Role::debit] && columns_[Role::credit];
        const auto isBalances = [&](std::size_t place) {
            return columns_[Role::balance] && place == *columns_[Role::balance] + 1;
        };
        std::stable_sort(markers_.begin(), markers_.end());
        const auto choose = [&](auto&& test) {
            const auto found = std::find_if(markers_.begin(), markers_.end(), test);
            if (columns_[Role::type] || found == markers_.end()) return;
            columns_[Role::type] = *found;
        };
        const auto speaks = [&](std::size_t place) { return evidence_[place].directions > 0; };
        if (const auto place = columns_[Role::amount])
            choose([&](std::size_t m) { return m > *place && speaks(m) && !isBalances(m); });
        choose([&](std::size_t m) { return speaks(m) && !isBalances(m); });
        if (!twoSided) choose(speaks);
        choose([&](std::size_t m) { return !isBalances(m); });
        for (const std::size_t place : markers_)
            if (isBalances(place) && columns_[Role::type] != place) columns_[Role::balanceType] = place;
    }

    void findDescriptions() {
        for (const std::size_t place : candidates(titles_, description))
            if (!taken_[place]) columns_.furtherDescriptions.push_back(place);
        if (columns_[Role::description]) return;
        if (columns_[Role::counterparty]) {
            columns_[Role::description] = columns_[Role::counterparty];
            return;
        }
        std::optional<std::size_t> widest;
        for (std::size_t place = 0; place < titles_.size(); ++place)
            if (!taken_[place] && evidence_[place].letters > (widest ? evidence_[*widest].letters : 0)) widest = place;
        if (widest) take(Role::description, *widest);
    }

    const Rows& rows_;
    std::size_t header_;
    Titles titles_;
    std::vector<bool> taken_;
    std::vector<Evidence> evidence_;
    std::vector<std::size_t> markers_;
    Columns columns_;
};

bool hasAmount(const Columns& columns) {
    return columns[Role::debit] || columns[Role::credit] || columns[Role::amount];
}

bool anyLine(const Rows& rows, const Columns& columns) {
    const std::size_t from = *columns.header + 1;
    for (std::size_t r = from; r < std::min(rows.size(), from + sampledRows); ++r) {
        const Cells cells = rows[r].cells;
        const auto cell = [&](Role role) {
            const auto place = columns[role];
            return place && *place < cells.size() ? cells[*place] : std::string_view();
        };
        if (dateCell(cell(Role::date), DateOrder::dmy).kind == DateCell::Kind::none) continue;
        for (const Role role : {Role::debit, Role::credit, Role::amount})
            if (const auto amount = amountCell(cell(role), Currency::inr(), 0);
                amount.isFilled() || amount.state == AmountCell::State::ambiguous)
                return true;
    }
    return false;
}

const Words amountWords{"amount",  "debit", "credit", "withdrawal", "deposit",  "paid out",
                        "paid in", "dr",    "cr",     "amt",        "money in", "money out"};

/// Longer than any real title; sentences hold "date" and "amount" too.
constexpr std::size_t longestTitle = 80;

}  // namespace

std::vector<std::string> titles(Cells cells) {
    constexpr std::size_t most = 1000;  // no table is wider
    std::vector<std::string> result;
    for (const std::string_view cell : cells.first(std::min(cells.size(), most))) {
        std::string title = collapsed(Text::lower(cell.size() > 400 ? std::string_view() : cell));
        std::replace(title.begin(), title.end(), '_', ' ');
        title = Text::replaceAll(Text::replaceAll(std::move(title), " /", "/"), "/ ", "/");
        result.push_back(std::move(title));
    }
    return result;
}

bool looksLikeHeader(const std::vector<std::string>& titles) {
    // The bare letters are asked here: "des-cr-iption" counts, and what it leads to is judged by the columns.
    const auto isAmountTitle = [](std::string_view title) { return containsAny(title, amountWords); };
    const auto isDateTitle = [](std::string_view title) { return contains(title, "date"); };
    bool dateAndAmount = false;
    for (std::size_t i = 0; i < titles.size(); ++i) {
        const std::string& title = titles[i];
        if (title.empty()) continue;
        if (dateCell(title, DateOrder::dmy).kind != DateCell::Kind::none) return false;
        if (title.find_first_of("0123456789") != std::string::npos &&
            amountCell(title, Currency::inr(), 0).state != AmountCell::State::unreadable)
            return false;
        if (!isDateTitle(title) || title.size() > longestTitle) continue;
        for (std::size_t k = 0; k < titles.size(); ++k)
            dateAndAmount = dateAndAmount || (k != i && titles[k].size() <= longestTitle && isAmountTitle(titles[k]));
    }
    return dateAndAmount;
}

Columns recognise(const Table& table) { return recognise(Rows(table)); }

Columns recognise(const Rows& rows) {
    constexpr std::size_t mostCandidates = 40;  // each looks at the rows below it
    std::optional<Columns> without;
    const char* missing = "date and amount";
    std::size_t tried = 0;
    for (std::size_t r = 0; r < rows.size() && tried < mostCandidates; ++r) {
        const Cells cells = rows[r].cells;
        const bool date =
            std::any_of(cells.begin(), cells.end(), [](std::string_view c) { return containsIgnoringCase(c, "date"); });
        if (cells.size() < 2 || !date || !looksLikeHeader(titles(cells))) continue;
        ++tried;
        const Columns columns = Assignment(rows, r).columns();
        if (columns[Role::date] && hasAmount(columns)) {
            if (anyLine(rows, columns)) return columns;
            if (!without) without = columns;
        } else if (tried == 1) {
            missing = columns[Role::date] ? "amount" : "date";
        }
    }
    if (without) return *without;
    throw ImportError(ImportError::Code::columns, missing);
}

std::string layoutKey(const Table& table, const Columns& columns) {
    if (columns.header && *columns.header < table.rows.size()) {
        const std::vector<std::string>& header = table.rows[*columns.header].cells;
        return Text::join(titles(std::vector<std::string_view>(header.begin(), header.end())), "|");
    }
    std::size_t widest = 0;
    for (const Table::Row& row : table.rows) widest = std::max(widest, row.cells.size());
    return "no titles, " + std::to_string(widest) + " columns";
}

std::string_view name(Role role) {
    static constexpr std::array<std::string_view, roleCount> names{
        "date",   "description", "balance",      "reference",   "type",     "debit", "credit",
        "amount", "category",    "counterparty", "balanceType", "currency", "state"};
    return names[static_cast<std::size_t>(role)];
}

}  // namespace tamba::BankImport
