#pragma once

#include "TambaCore/Bank/StatementParts.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What the rows of a statement tell only together: the order of day and month, the decimal mark, how amounts carry
/// their direction, how wide rows are, and which currency is the account's. It reads every cell of a date or an amount
/// once; the rows are judged with that.
namespace tamba::BankImport {

class Survey {
public:
    /// All three outlive the survey.
    Survey(const Rows& rows, const Columns& columns, const Currency& currency, DateOrder order, Cancel cancel);

    struct Amounts {
        AmountCell debit, credit, amount, balance;
    };
    struct Signs {
        std::size_t negative = 0, positive = 0;
    };

    [[nodiscard]] std::size_t begin() const { return begin_; }  ///< the first row below the header
    [[nodiscard]] const DateCell& date(std::size_t row) const { return dates_[row - begin_]; }
    [[nodiscard]] const Amounts& amounts(std::size_t row) const { return amounts_[row - begin_]; }
    /// Any cell as an amount of this file.
    [[nodiscard]] AmountCell amountIn(std::string_view cell) const { return amountCell(cell, currency_, mark_); }
    [[nodiscard]] std::string_view cell(const Rows::Row& row, Role role) const {
        const auto place = columns_[role];
        return place && *place < row.cells.size() ? row.cells[*place] : std::string_view();
    }

    [[nodiscard]] const ChosenOrder& order() const { return order_; }
    /// Money out and money in have columns of their own.
    [[nodiscard]] bool isTwoSided() const;
    [[nodiscard]] const Signs& debits() const { return debits_; }
    [[nodiscard]] const Signs& credits() const { return credits_; }
    /// One column of amounts: whether their signs tell the direction, or else what markers there are.
    [[nodiscard]] bool isSigned() const { return one_.negative > 0 && positiveButOut_ == 0; }
    [[nodiscard]] std::size_t markedIn() const { return markedIn_; }
    [[nodiscard]] std::size_t markedOut() const { return markedOut_; }
    [[nodiscard]] std::size_t unmarked() const { return unmarked_; }
    [[nodiscard]] std::size_t width() const { return width_; }  ///< of most rows
    [[nodiscard]] bool leavesOutBlanks() const { return leavesOutBlanks_; }
    [[nodiscard]] bool hasBalances() const { return hasBalances_; }
    [[nodiscard]] const std::string& onlyCurrency() const { return only_; }  ///< of the account's rows

    /// Finished sentences about what may have been meant otherwise.
    [[nodiscard]] std::vector<std::string> doubts(const std::vector<BankTransaction>& lines) const;

private:
    void readDates(DateOrder order);
    void measure();
    void readAmounts();
    void count(const Rows::Row& row, const Amounts& cells);
    void chooseCurrency();
    void doubtSigns(const std::vector<BankTransaction>& lines, std::vector<std::string>& notes) const;
    void doubtColumns(std::vector<std::string>& notes) const;
    void doubtMarkers(std::vector<std::string>& notes) const;
    [[nodiscard]] Direction direction(const Rows::Row& row, const AmountCell& amount) const;
    [[nodiscard]] std::size_t negativeButIn() const;
    [[nodiscard]] bool isDated(std::size_t row) const { return date(row).kind != DateCell::Kind::none; }

    const Rows& rows_;
    const Columns& columns_;
    const Currency& currency_;
    Cancel cancel_;
    std::size_t begin_;
    std::vector<DateCell> dates_;   // of the rows from begin_ on
    std::vector<Amounts> amounts_;  // of the same
    ChosenOrder order_;
    char mark_ = 0;
    std::size_t width_ = 0;
    bool leavesOutBlanks_ = false, hasBalances_ = false;
    Signs debits_, credits_, one_;
    std::size_t positiveButOut_ = 0, markedIn_ = 0, markedOut_ = 0, unmarked_ = 0;
    std::string only_;
};

}  // namespace tamba::BankImport
