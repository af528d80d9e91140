#include "TambaCore/Bank/StatementSurvey.h"

#include "TambaCore/Bank/StatementFrame.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <map>

namespace tamba::BankImport {

Survey::Survey(const Rows& rows, const Columns& columns, const Currency& currency, DateOrder order, Cancel cancel)
    : rows_(rows),
      columns_(columns),
      currency_(currency),
      cancel_(cancel),
      begin_(columns.header ? *columns.header + 1 : 0) {
    readDates(order);
    measure();
    readAmounts();
    chooseCurrency();
}

bool Survey::isTwoSided() const {
    if (!columns_[Role::debit] && !columns_[Role::credit]) return false;
    return (columns_[Role::debit] && columns_[Role::credit]) || !columns_[Role::amount];
}

void Survey::readDates(DateOrder order) {
    dates_.reserve(rows_.size() - begin_);
    std::string_view last;
    for (std::size_t r = begin_; r < rows_.size(); ++r) {
        stopIf(cancel_);
        const std::string_view printed = cell(rows_[r], Role::date);
        // Lines of one day stand together.
        dates_.push_back(!last.empty() && printed == last ? dates_.back() : dateCell(printed, order));
        last = printed;
    }
    order_ = chooseOrder(dates_, order);
}

/// Decimal marks, and how wide rows are.
void Survey::measure() {
    Figures figures;
    std::map<std::size_t, std::size_t> widths;
    for (std::size_t r = begin_; r < rows_.size(); ++r) {
        if (!isDated(r)) continue;
        const Rows::Row row = rows_[r];
        ++widths[row.cells.size()];
        for (const Role role : {Role::debit, Role::credit, Role::amount, Role::balance}) figures.see(cell(row, role));
    }
    mark_ = figures.decimalMark();
    std::size_t most = 0, all = 0, narrow = 0;
    for (const auto& [width, count] : widths) {
        all += count;
        if (count >= most) most = count, width_ = width;
    }
    for (const auto& [width, count] : widths)
        if (width < width_) narrow += count;
    leavesOutBlanks_ = narrow * 3 > all;
}

void Survey::readAmounts() {
    amounts_.resize(dates_.size());
    for (std::size_t r = begin_; r < rows_.size(); ++r) {
        stopIf(cancel_);
        if (!isDated(r)) continue;
        const Rows::Row row = rows_[r];
        Amounts& cells = amounts_[r - begin_];
        for (const auto& [amount, role] : {std::pair{&cells.debit, Role::debit},
                                           {&cells.credit, Role::credit},
                                           {&cells.amount, Role::amount},
                                           {&cells.balance, Role::balance}})
            if (const std::string_view printed = cell(row, role); !printed.empty()) *amount = amountIn(printed);
        count(row, cells);
        hasBalances_ = hasBalances_ || cells.balance.state == AmountCell::State::amount;
    }
}

Direction Survey::direction(const Rows::Row& row, const AmountCell& amount) const {
    return amount.marked != Direction::unsaid ? amount.marked : BankImport::direction(cell(row, Role::type));
}

void Survey::count(const Rows::Row& row, const Amounts& cells) {
    const auto add = [](Signs& signs, const AmountCell& amount) {
        if (amount.isFilled()) ++(amount.negative ? signs.negative : signs.positive);
    };
    if (isTwoSided()) {
        add(debits_, cells.debit);
        add(credits_, cells.credit);
        return;
    }
    const AmountCell& amount = cells.amount;
    if (!amount.isFilled()) return;
    add(one_, amount);
    const Direction said = direction(row, amount);
    if (!amount.negative && said == Direction::out) ++positiveButOut_;
    if (said == Direction::in) ++markedIn_;
    if (said == Direction::out) ++markedOut_;
    if (said == Direction::unsaid && cell(row, Role::type).empty()) ++unmarked_;
}

/// A file may hold lines of several currencies; only those of one can be this account's.
void Survey::chooseCurrency() {
    if (!columns_[Role::currency]) return;
    std::map<std::string, std::size_t> counts;
    for (std::size_t r = begin_; r < rows_.size(); ++r)
        if (isDated(r))
            if (const auto code = cell(rows_[r], Role::currency); !code.empty() && counts.size() < 100)
                ++counts[Text::upper(code)];
    if (counts.empty()) return;
    const auto most = std::max_element(counts.begin(), counts.end(),
                                       [](const auto& a, const auto& b) { return a.second < b.second; });
    only_ = counts.contains(currency_.code) ? currency_.code : most->first;
}

std::vector<std::string> Survey::doubts(const std::vector<BankTransaction>& lines) const {
    std::vector<std::string> notes;
    doubtSigns(lines, notes);
    doubtColumns(notes);
    doubtMarkers(notes);
    return notes;
}

void Survey::doubtSigns(const std::vector<BankTransaction>& lines, std::vector<std::string>& notes) const {
    if (isTwoSided() || lines.empty()) return;
    if (one_.negative == 0 && markedIn_ + markedOut_ == 0)
        notes.emplace_back("Nothing in this file says which way the money went: all amounts were read as money in.");
    const auto repayments = std::count_if(lines.begin(), lines.end(), [](const BankTransaction& line) {
        return line.amount < 0 && isRepayment(line.text);
    });
    if (isSigned() && columns_.signs == Columns::Signs::asPrinted && one_.positive > one_.negative &&
        2 * static_cast<std::size_t>(repayments) >= one_.negative)
        notes.emplace_back(
            "This looks like a card whose charges are printed as positive amounts: the signs may have to be turned.");
    if (isSigned() && markedIn_ + markedOut_ > 0 && negativeButIn() > 0)
        notes.emplace_back("Some amounts are negative but marked as money in; the sign was taken, not the mark.");
}

/// Where several columns of amounts are filled, another may be the one that was meant.
void Survey::doubtColumns(std::vector<std::string>& notes) const {
    if (!columns_.header) return;
    const Rows::Row header = rows_[*columns_.header];
    const auto titles = BankImport::titles(header.cells);
    const auto& places = columns_.places;
    const auto chosen = columns_[Role::amount];
    if (chosen && *chosen < titles.size() && titles[*chosen] == "amount") return;
    for (std::size_t place = 0; place < titles.size(); ++place) {
        const auto titled = [&](std::string_view word) { return titles[place].find(word) != std::string::npos; };
        if (std::find(places.begin(), places.end(), place) != places.end()) continue;
        if (!titled("amount") && !titled("amt") && !titled("debit") && !titled("credit")) continue;
        if (titled("intl") || titled("foreign") || titled("original") || titled("local")) continue;
        for (std::size_t r = begin_; r < rows_.size(); ++r) {
            if (!isDated(r) || place >= rows_[r].cells.size()) continue;
            const AmountCell other = amountIn(rows_[r].cells[place]);
            const Amounts& used = amounts(r);
            if (!other.isFilled() || other.minor == used.amount.minor || other.minor == used.debit.minor ||
                other.minor == used.credit.minor)
                continue;
            notes.push_back("The column “" + std::string(header.cells[place]) +
                            "” holds amounts too, which were not read.");
            return;
        }
    }
}

/// Two columns of "Dr" and "Cr": one is the balance's, and only their places tell which.
void Survey::doubtMarkers(std::vector<std::string>& notes) const {
    const auto chosen = columns_[Role::type], place = columns_[Role::amount];
    if (!columns_.header || isTwoSided() || !chosen || !place || *chosen == *place + 1 || markedIn_ + markedOut_ == 0)
        return;
    const Cells header = rows_[*columns_.header].cells;
    for (std::size_t other = 0; other < header.size(); ++other) {
        if (other == *chosen || other == *place) continue;
        for (std::size_t r = begin_; r < rows_.size(); ++r) {
            const Rows::Row row = rows_[r];
            if (other >= row.cells.size()) continue;
            const Direction said = BankImport::direction(row.cells[other]);
            if (said == Direction::unsaid || said == BankImport::direction(cell(row, Role::type))) continue;
            notes.push_back("Two columns could say which way the money went; “" +
                            std::string(*chosen < header.size() ? header[*chosen] : std::string_view()) + "”, column " +
                            std::to_string(*chosen + 1) + ", was taken.");
            return;
        }
    }
}

std::size_t Survey::negativeButIn() const {
    std::size_t count = 0;
    for (std::size_t r = begin_; r < rows_.size(); ++r) {
        const AmountCell& amount = amounts(r).amount;
        count += amount.isFilled() && amount.negative && direction(rows_[r], amount) == Direction::in;
    }
    return count;
}

}  // namespace tamba::BankImport
