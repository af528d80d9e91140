#pragma once

#include "TambaCore/Bank/BankImport.h"
#include "TambaCore/Base/CSV.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What the statement readers share.
namespace tamba::BankImport {

/// Bytes as UTF-8: by their byte-order mark, as UTF-8, else as Windows-1252, which has a character for every byte.
[[nodiscard]] std::string decoded(std::string_view bytes);
[[nodiscard]] bool containsIgnoringCase(std::string_view text, std::string_view lowerCasePart);
/// `text` with runs of white space as one blank each, none at the ends.
[[nodiscard]] std::string collapsed(std::string_view text);
/// "&amp;", "&#8377;" and the like as the characters they stand for; what is none stays. Nothing expands further.
[[nodiscard]] std::string withoutEntities(std::string_view text);

/// No statement has more; what has is refused before it fills the memory.
inline constexpr std::size_t maximumBytes = 64'000'000, maximumCells = 30'000'000, maximumLines = 1'048'576;

using Cancel = const std::atomic<bool>*;
inline void stopIf(Cancel cancel) {
    if (cancel && *cancel) throw Cancelled();
}

using Cells = std::span<const std::string_view>;

/// The rows of a table as views, into the text of a file or the cells of a `Table`, either of which outlives it.
class Rows {
public:
    struct Row {
        std::size_t number = 0;  ///< as a spreadsheet counts them, from 1
        Cells cells;
    };

    explicit Rows(const Table& table);
    /// What is around a cell is taken off. `firstLine` counts the lines of the file above the text.
    Rows(std::string_view csv, std::size_t firstLine, Cancel cancel);
    Rows(const Rows&) = delete;
    Rows(Rows&&) = default;
    Rows& operator=(const Rows&) = delete;
    Rows& operator=(Rows&&) = default;
    ~Rows() = default;

    [[nodiscard]] std::size_t size() const { return views_.ends.size(); }
    [[nodiscard]] Row operator[](std::size_t index) const {
        const std::size_t begin = index > 0 ? views_.ends[index - 1] : 0;
        return {views_.numbers[index], {views_.fields.data() + begin, views_.ends[index] - begin}};
    }
    [[nodiscard]] bool isOpen() const { return views_.isOpen; }  ///< the text ends inside quotes
    void append(Rows&& others);
    [[nodiscard]] Table table() const;

    std::string format;
    std::vector<std::string> notes;

private:
    CSV::Views views_;
};

[[nodiscard]] Columns recognise(const Rows& rows);
[[nodiscard]] Parsed interpret(const Rows& rows, const Columns& columns, DateOrder order, const Currency& currency,
                               Cancel cancel);

/// The files of very old machines end lines with CR alone, which the reader of CSV drops.
[[nodiscard]] bool endsLinesWithCR(std::string_view text);
/// `text` stays alive as long as the rows.
[[nodiscard]] Rows textRows(std::string_view text, Cancel cancel);

// Tables out of bytes; each throws ImportError when the bytes hold none.
[[nodiscard]] Table htmlTable(std::string_view html, Cancel cancel);
[[nodiscard]] Table jsonTable(std::string_view json, Cancel cancel);
[[nodiscard]] Table workbookTable(std::string_view bytes, Cancel cancel);

/// Cells of one spelling: lower case, one blank between words, none around "/".
[[nodiscard]] std::vector<std::string> titles(Cells cells);
/// A row that could be a header: a cell with “date”, another with an amount word, and no figure or date among them.
[[nodiscard]] bool looksLikeHeader(const std::vector<std::string>& titles);

/// A date cell before the order of day and month is decided.
struct DateCell {
    enum class Kind : std::uint8_t { none, fixed, numeric } kind = Kind::none;
    std::uint8_t yearDigits = 0;
    Day day;  ///< fixed; numeric: the three figures as printed, in y, m, d
    [[nodiscard]] std::optional<Day> in(DateOrder order) const;
};
[[nodiscard]] DateCell dateCell(std::string_view text, DateOrder order);

/// Which order the numeric dates are read with, and the sentence that says why.
struct ChosenOrder {
    DateOrder order = DateOrder::dmy;
    std::string reason;
    std::optional<std::string> doubt;
};
[[nodiscard]] ChosenOrder chooseOrder(const std::vector<DateCell>& dates, DateOrder setting);
/// "day, month, year"
[[nodiscard]] std::string_view words(DateOrder order);

enum class Direction : std::uint8_t { unsaid, in, out };
/// What a word of a type column says: "DR", "Withdrawal", "cr."; most words say nothing.
[[nodiscard]] Direction direction(std::string_view word);

/// Which of "." and "," is the decimal mark of a file's figures.
class Figures {
public:
    /// `plain`: the format knows no thousands separators, as OFX.
    enum class Style { grouped, plain };
    explicit Figures(Style style = Style::grouped) : style_(style) {}
    void see(std::string_view cell);
    [[nodiscard]] char decimalMark() const;  ///< 0 when no figure tells
    [[nodiscard]] Style style() const { return style_; }

private:
    Style style_;
    std::size_t points_ = 0, commas_ = 0;
};

/// An amount cell: the whole cell is one amount, or it is none.
struct AmountCell {
    enum class State : std::uint8_t { blank, amount, unreadable, ambiguous, tooLarge } state = State::blank;
    bool negative = false;
    Direction marked = Direction::unsaid;  ///< by "Dr" or "(Cr)" in the cell
    std::int64_t minor = 0;                ///< without sign

    [[nodiscard]] bool isFilled() const { return state == State::amount && minor != 0; }
    /// With its sign; "Dr" is a minus.
    [[nodiscard]] std::int64_t value() const { return negative || marked == Direction::out ? -minor : minor; }
};
[[nodiscard]] AmountCell amountCell(std::string_view cell, const Currency& currency, char decimalMark,
                                    Figures::Style style = Figures::Style::grouped);
/// Why a cell that is filled is no amount: a finished sentence.
[[nodiscard]] std::string whyNoAmount(const AmountCell& amount, std::string_view cell);

/// `cleanVendor` for the lines of one file, which name the same payees again and again.
class Payees {
public:
    [[nodiscard]] std::string of(std::string_view narration);

    /// A field of a narration: what kind it is, and the name in it.
    struct Field {
        std::string text;
        int kind = 0;
        std::string name;
    };

private:
    std::vector<Field> known_;  // by hash of the text; a later one takes the place of another
};

/// Fills `balanceBreaks` and `balanceProof` from the lines' balances, whichever end of the file is the newer.
void checkBalances(Parsed& parsed, std::optional<std::int64_t> opening);

/// "Name" and "Memo" as one narration: the longer one when it holds the other, else both.
[[nodiscard]] std::string joinedNarration(std::string_view name, std::string_view memo);
/// Throws `noRows` when there are no lines.
[[nodiscard]] Parsed finished(Parsed parsed);

}  // namespace tamba::BankImport
