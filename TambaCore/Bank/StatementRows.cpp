#include "TambaCore/Bank/StatementFrame.h"
#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Bank/StatementSurvey.h"
#include "TambaCore/Base/Check.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tamba::BankImport {
namespace {

constexpr std::array amountRoles{Role::debit, Role::credit, Role::amount};
/// Cells of a skipped row that are kept to be shown.
constexpr std::size_t mostShown = 1000;

std::string quoted(std::string_view cell) { return "“" + std::string(Text::prefix(cell, 40)) + "”"; }

/// The first cell of a row that is words, not a date or a figure.
std::string_view firstText(Cells cells) {
    for (const std::string_view cell : cells) {
        if (cell.empty() || dateCell(cell, DateOrder::dmy).kind != DateCell::Kind::none) continue;
        if (amountCell(cell, Currency::inr(), 0).state == AmountCell::State::unreadable) return cell;
    }
    return {};
}

/// New identifiers by the thousand: asking the system for each costs more than reading its line. SplitMix64 (Steele,
/// Lea and Flood, 2014) from a random beginning.
class FreshIDs {
public:
    FreshIDs() { std::memcpy(state_.data(), UUID::random().bytes.data(), sizeof state_); }

    UUID next() {
        UUID id;
        std::array<std::uint64_t, 2> halves{};
        for (std::size_t i = 0; i < halves.size(); ++i) {
            std::uint64_t z = state_[i] += 0x9E3779B97F4A7C15;
            z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
            z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
            halves[i] = z ^ (z >> 31);
        }
        std::memcpy(id.bytes.data(), halves.data(), sizeof halves);
        id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0F) | 0x40);
        id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3F) | 0x80);
        return id;
    }

private:
    std::array<std::uint64_t, 2> state_{};
};

/// Reads the rows below the header. The columns are fixed by then; how amounts carry their direction is a matter of the
/// whole file.
class RowReader {
public:
    RowReader(const Rows& rows, const Columns& columns, DateOrder order, const Currency& currency, Cancel cancel)
        : rows_(rows), columns_(columns), cancel_(cancel), survey_(rows, columns, currency, order, cancel) {
        parsed_.format = rows.format;
        parsed_.notes = rows.notes;
        parsed_.columns = columns;
        parsed_.order = survey_.order().order;
        parsed_.orderReason = survey_.order().reason;
        if (survey_.order().doubt) parsed_.notes.push_back(*survey_.order().doubt);
        if (const std::string& only = survey_.onlyCurrency(); !only.empty() && only != currency.code)
            parsed_.notes.push_back("The amounts in this file are in " + only + ", and were read as " + currency.code +
                                    ".");
        if (columns.header) {
            const Rows::Row header = rows[*columns.header];
            parsed_.headerRow = header.number;
            parsed_.columnTitles.assign(header.cells.begin(), header.cells.end());
            titles_ = titles(header.cells);
        }
    }

    Parsed read() {
        parsed_.transactions.reserve(rows_.size() - survey_.begin());
        parsed_.rows.reserve(rows_.size() - survey_.begin());
        for (std::size_t r = survey_.begin(); r < rows_.size(); ++r) row(r);
        for (std::string& note : survey_.doubts(parsed_.transactions)) parsed_.notes.push_back(std::move(note));
        checkBalances(parsed_, opening_);
        return finished(std::move(parsed_));
    }

private:
    using State = AmountCell::State;

    /// A row and what the survey read in it.
    struct Row : Rows::Row {
        const Survey::Amounts& amounts;
    };
    [[nodiscard]] std::string_view cell(const Row& row, Role role) const { return survey_.cell(row, role); }

    void skip(const Row& row, std::string reason) {
        ++parsed_.skipped;
        const Cells shown = row.cells.first(std::min(row.cells.size(), mostShown));
        parsed_.skippedRows.push_back({row.number, {shown.begin(), shown.end()}, std::move(reason)});
    }

    void row(std::size_t r) {
        stopIf(cancel_);
        const Row row{rows_[r], survey_.amounts(r)};
        const auto filled =
            std::count_if(row.cells.begin(), row.cells.end(), [](std::string_view cell) { return !cell.empty(); });
        if (filled == 0) return;
        const DateCell& printed = survey_.date(r);
        if (printed.kind == DateCell::Kind::none) {
            withoutDate(row, filled == 1);
            return;
        }
        if (otherHeader_ != 0) {
            skip(row, "The columns change in row " + std::to_string(otherHeader_) + " of the file.");
            return;
        }
        if (std::any_of(row.cells.begin(), row.cells.end(), swallowsLines)) {
            skip(row, "A quotation mark in this row is not closed and has drawn other rows into it.");
            return;
        }
        const auto day = printed.in(parsed_.order);
        if (!day) {
            skip(row,
                 quoted(cell(row, Role::date)) + " is no day when read as " + std::string(words(parsed_.order)) + ".");
            return;
        }
        if (isTooWide(row)) {
            skip(row, "This row has more cells than the others: one of them holds the mark that separates cells.");
            return;
        }
        if (isTooNarrow(row)) {
            skip(row, "This row has fewer cells than the others: one of them is missing.");
            return;
        }
        if (const auto state = cell(row, Role::state); isUnfinished(state)) {
            skip(row, "The bank marks this row as " + quoted(state) + ".");
            return;
        }
        if (const auto code = cell(row, Role::currency); !code.empty() && Text::upper(code) != survey_.onlyCurrency()) {
            skip(row, "This row is in " + Text::upper(code) + ", the others are in " + survey_.onlyCurrency() + ".");
            return;
        }
        add(row, *day);
    }

    void withoutDate(const Row& row, bool isAlone) {
        if (columns_.header && std::ranges::equal(row.cells, rows_[*columns_.header].cells)) {
            otherHeader_ = 0;
            return;
        }
        const auto rowTitles = titles(row.cells);
        if (!titles_.empty() && rowTitles == titles_) {  // once more on every page
            otherHeader_ = 0;
            return;
        }
        if (isAlone) {
            const std::string_view only = *std::find_if_not(row.cells.begin(), row.cells.end(),
                                                            [](std::string_view cell) { return cell.empty(); });
            if (footer(only) == Footer::end) ended_ = true;
            // An amount that stands alone has lost its row.
            if (survey_.amountIn(only).isFilled() && !ended_) skip(row, "There is no date in this row.");
            return;
        }
        const Footer kind = footer(firstText(row.cells));
        if (kind == Footer::opening && !opening_) takeOpening(row);
        if (kind == Footer::end) ended_ = true;
        if (kind != Footer::none) return;
        // Behind the end stand legends, addresses and figures; what has text and an amount may be a line all the same.
        if (ended_ && (firstText(row.cells).empty() || !hasAmount(row))) return;
        if (columns_.header && looksLikeHeader(rowTitles)) {
            otherHeader_ = row.number;
            return;
        }
        const auto date = cell(row, Role::date);
        skip(row, date.empty() ? "There is no date in this row." : quoted(date) + " is not a date.");
    }

    [[nodiscard]] bool hasAmount(const Row& row) const {
        return std::any_of(amountRoles.begin(), amountRoles.end(),
                           [&](Role role) { return survey_.amountIn(cell(row, role)).isFilled(); });
    }

    void takeOpening(const Row& row) {
        const AmountCell balance = survey_.amountIn(cell(row, Role::balance));
        if (balance.isFilled() && parsed_.transactions.empty()) opening_ = balanceOf(row, balance);
    }

    /// A delimiter inside a cell that is not quoted pushes all later cells one place on, amounts into other columns.
    [[nodiscard]] bool isTooWide(const Row& row) const {
        if (row.cells.size() <= survey_.width()) return false;
        std::size_t used = row.cells.size();
        while (used > 0 && row.cells[used - 1].empty()) --used;
        std::size_t title = titles_.size();
        while (title > 0 && titles_[title - 1].empty()) --title;
        if (used > std::max(title, titles_.empty() ? survey_.width() : std::size_t{0})) return true;
        return row.amounts.balance.state != State::amount;
    }

    /// A lost delimiter pulls all later cells one place back, a balance into the amount's. Some banks leave out blanks
    /// at the end of rows; then many rows are short, but a balance is never blank.
    [[nodiscard]] bool isTooNarrow(const Row& row) const {
        if (row.cells.size() >= survey_.width()) return false;
        if (survey_.hasBalances()) return row.amounts.balance.state != State::amount;
        return !survey_.leavesOutBlanks() &&
               std::any_of(columns_.places.begin(), columns_.places.end(), [&](const auto& place) {
                   return place && *place >= row.cells.size() && *place < survey_.width();
               });
    }

    /// The signed amount, or the reason why there is none.
    struct Reading {
        std::optional<std::int64_t> minor;
        std::string reason;
    };

    [[nodiscard]] static Reading because(std::string reason) { return {std::nullopt, std::move(reason)}; }
    static constexpr const char* noAmount = "There is no amount in this row.";

    [[nodiscard]] Reading sides(const Row& row) const {
        const AmountCell &out = row.amounts.debit, &in = row.amounts.credit;
        for (const auto& [one, role] : {std::pair{&out, Role::debit}, {&in, Role::credit}})
            if (one->state != State::blank && one->state != State::amount)
                return because(whyNoAmount(*one, cell(row, role)));
        if (out.isFilled() && in.isFilled()) return because("Both money out and money in are filled in.");
        if (!out.isFilled() && !in.isFilled()) return because(noAmount);
        const AmountCell& one = out.isFilled() ? out : in;
        const Survey::Signs& signs = out.isFilled() ? survey_.debits() : survey_.credits();
        const Direction column = out.isFilled() ? Direction::out : Direction::in;
        if (one.marked != Direction::unsaid && one.marked != column)
            return because("The mark beside the amount contradicts its column.");
        // Some banks print a minus before all money out, one before all money in; on single amounts it may mean a
        // correction or nothing.
        if (one.negative && signs.positive > 0) return because("A minus in this column can mean two things.");
        return {column == Direction::out ? -one.minor : one.minor, {}};
    }

    [[nodiscard]] Reading single(const Row& row) const {
        const auto& [out, in, one, balance] = row.amounts;
        if ((out.isFilled() || in.isFilled()) && !one.isFilled())
            return because("The amount stands in another column than those of the other rows.");
        const std::string_view printed = cell(row, Role::amount);
        if (one.state == State::blank) return because(noAmount);
        if (one.state != State::amount) return because(whyNoAmount(one, printed));
        if (one.minor == 0) return because("The amount is zero.");
        const std::string_view type = cell(row, Role::type);
        const Direction said = direction(type);
        if (one.marked != Direction::unsaid && said != Direction::unsaid && one.marked != said)
            return because("The mark beside the amount contradicts the column that says which way the money went.");
        const Direction mark = one.marked != Direction::unsaid ? one.marked : said;
        if (survey_.isSigned()) return {one.negative ? -one.minor : one.minor, {}};
        const std::size_t markedIn = survey_.markedIn(), markedOut = survey_.markedOut();
        if (markedIn + markedOut == 0) return {one.negative ? -one.minor : one.minor, {}};
        if (mark == Direction::out) return {-one.minor, {}};
        if (mark == Direction::in) {
            if (one.negative) return because("The amount is negative, but marked as money in.");
            return {one.minor, {}};
        }
        if (one.negative) return {-one.minor, {}};
        if (!type.empty()) return because(quoted(type) + " does not say which way the money went.");
        // Card statements mark one direction only; a single blank is rather a cell that is missing.
        if (survey_.unmarked() < 2 && survey_.unmarked() < markedIn + markedOut)
            return because("Nothing says which way the money went.");
        if (markedOut == 0) return {-one.minor, {}};
        if (markedIn == 0) return {one.minor, {}};
        return because("Nothing says which way the money went.");
    }

    [[nodiscard]] std::int64_t balanceOf(const Row& row, const AmountCell& balance) const {
        const bool owed = direction(cell(row, Role::balanceType)) == Direction::out;
        return owed && !balance.negative && balance.marked == Direction::unsaid ? -balance.minor : balance.value();
    }

    [[nodiscard]] std::string_view narration(const Row& row) const {
        if (const auto text = cell(row, Role::description); !text.empty()) return text;
        for (const std::size_t place : columns_.furtherDescriptions)
            if (place < row.cells.size() && !row.cells[place].empty()) return row.cells[place];
        return {};
    }

    void add(const Row& row, Day day) {
        Reading reading = survey_.isTwoSided() ? sides(row) : single(row);
        const std::string_view text = narration(row);
        const Footer frame = footer(text);
        if (!reading.minor) {
            if (reading.reason == noAmount && footer(firstText(row.cells)) != Footer::none) {
                if (!opening_) takeOpening(row);
                return;
            }
            skip(row, std::move(reading.reason));
            return;
        }
        if ((frame == Footer::opening || frame == Footer::row) && !text.empty()) {
            skip(row, "This row is a balance or a total, not a transaction.");
            return;
        }
        if (columns_.signs == Columns::Signs::turned) reading.minor = -*reading.minor;
        BankTransaction& line = parsed_.transactions.emplace_back();
        line.id = ids_.next();
        line.date = day;
        line.text = text;
        line.amount = *reading.minor;
        line.source = parsed_.format;
        if (const auto reference = cell(row, Role::reference); reference.find_first_not_of('-') != reference.npos)
            line.reference = reference;
        if (const AmountCell& balance = row.amounts.balance; balance.state == State::amount)
            line.balance = balanceOf(row, balance);
        if (const auto category = cell(row, Role::category); !category.empty()) line.categoryHint = category;
        if (const auto payee = cell(row, Role::counterparty); !payee.empty())
            line.counterparty = payee;
        else if (std::string name = payees_.of(text); !name.empty())
            line.counterparty = std::move(name);
        parsed_.rows.push_back(row.number);
    }

    const Rows& rows_;
    const Columns& columns_;
    Cancel cancel_;
    Survey survey_;
    std::vector<std::string> titles_;
    FreshIDs ids_;
    Payees payees_;
    std::size_t otherHeader_ = 0;
    bool ended_ = false;
    std::optional<std::int64_t> opening_;
    Parsed parsed_;
};

}  // namespace

Parsed interpret(const Table& table, const Columns& columns, DateOrder order, const Currency& currency, Cancel cancel) {
    return interpret(Rows(table), columns, order, currency, cancel);
}

Parsed interpret(const Rows& rows, const Columns& columns, DateOrder order, const Currency& currency, Cancel cancel) {
    if (!columns[Role::date]) throw ImportError(ImportError::Code::columns, "date");
    if (std::none_of(amountRoles.begin(), amountRoles.end(), [&](Role role) { return columns[role].has_value(); }))
        throw ImportError(ImportError::Code::columns, "amount");
    if (columns.header && *columns.header >= rows.size()) fatal("the header is no row of the table");
    return RowReader(rows, columns, order, currency, cancel).read();
}

}  // namespace tamba::BankImport
