#pragma once

#include <cstddef>
#include <filesystem>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace tamba {

/// Comma-separated text, the only reader and writer of it. They are not each other's mirror: the reader takes what
/// banks print (semicolons, tabs, quotes in the middle of a field), the writer makes one strict form that spreadsheet
/// programs open without running formulas.
///
///     CSV::parse("Date;Amount\n1/4/2026;12,50")      // {{"Date", "Amount"}, {"1/4/2026", "12,50"}}
struct CSV {
    using Row = std::vector<std::string>;

    explicit CSV(Row columnTitles) : header(std::move(columnTitles)) {}
    /// Nothing checks that a row is as long as the header.
    void add(Row row) { rows.push_back(std::move(row)); }

    /// Header and rows, each ended by CR LF.
    [[nodiscard]] std::string text() const;
    /// A whole file: a UTF-8 byte-order mark and the text.
    [[nodiscard]] std::string bytes() const;
    /// Writes these bytes, replacing the file as a whole. Throws FileError.
    void write(const std::filesystem::path& file) const;
    /// One field made safe: an apostrophe before what a spreadsheet would run ("=", "+", "@", or "-" that begins no
    /// number), then quotes around a field with a comma, a quote or a line end.
    [[nodiscard]] static std::string escape(std::string_view field);
    /// A copy with the rows in the order of their first fields, compared byte by byte; equal ones keep their order.
    [[nodiscard]] CSV sortedByFirstColumn() const;

    struct Read {
        std::vector<Row> rows;
        std::vector<std::size_t> numbers;  ///< of each row as a spreadsheet counts them: from 1, blank rows too
    };
    /// Rows of fields exactly as printed. The first line alone chooses the delimiter: ";" when it has more of them than
    /// commas, else tab when it has tabs and no comma, else ",". Blank lines give no row; a carriage return outside
    /// quotes that no line feed follows disappears. Never fails.
    [[nodiscard]] static Read read(std::string_view text);
    [[nodiscard]] static std::vector<Row> parse(std::string_view text) { return read(text).rows; }

    /// The same rows as views into `text`, for files of a hundred thousand rows: a string for each field costs more
    /// than all else that is done with them.
    struct Views {
        std::vector<std::string_view> fields;  ///< of one row after the other
        std::vector<std::size_t> ends;         ///< of each row, among the fields
        std::vector<std::size_t> numbers;      ///< of each row
        std::list<std::string> made;           ///< fields that stand in the text in pieces, as “a ""b"" c” does
        bool isOpen = false;                   ///< the text ends inside quotes
    };
    [[nodiscard]] static Views views(std::string_view text);
    /// The delimiter that a text beginning with this line is read with.
    [[nodiscard]] static char delimiter(std::string_view text);

    Row header;
    std::vector<Row> rows;

    bool operator==(const CSV&) const = default;
};

}  // namespace tamba
