#include "TambaCore/Bank/BankImport.h"

#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/CSV.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>

namespace tamba::BankImport {
namespace {

std::string sentence(ImportError::Code code, std::string_view column) {
    using Code = ImportError::Code;
    switch (code) {
        case Code::columns:
            return "Tamba couldn’t find the " + std::string(column) + " column. Check the file has a header row.";
        case Code::unknownFormat:
            return "Tamba doesn’t recognise that file. Export a CSV, OFX or QIF statement from your bank.";
        case Code::noRows:
            return "No transactions were found in that file.";
        case Code::workbook:
            return "That workbook is of an old kind or has a password. Open it in a spreadsheet program, save it as "
                   ".xlsx or CSV, and import that file.";
        case Code::pdf:
            return "That is a PDF, which has no rows to read. Download the statement from your bank as CSV, .xlsx or "
                   "OFX.";
        case Code::webPage:
            return "That is a web page without a table of transactions. Download the statement itself from your bank, "
                   "as CSV, .xlsx or OFX.";
        case Code::tooLarge:
            return "That file is too large to be a bank statement.";
    }
    return {};
}

enum class Kind { ofx, qif, json, html, text, workbook };

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string extensionOf(std::string_view fileName) {
    const std::size_t dot = fileName.rfind('.');
    return dot == fileName.npos ? std::string() : Text::lower(fileName.substr(dot + 1));
}

/// The text without what may stand before its first word: byte-order mark, blank lines, remarks.
std::string_view firstWords(std::string_view text) {
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    text = Text::trim(text);
    while (text.starts_with('#')) text = Text::trim(text.substr(std::min(text.find('\n'), text.size())));
    return text;
}

bool beginsIgnoringCase(std::string_view text, std::string_view lowerCase) {
    return containsIgnoringCase(text.substr(0, lowerCase.size()), lowerCase);
}

/// Told by content where that is certain, else by the name's extension. Throws for what is no statement.
Kind kindOf(std::string_view bytes) {
    using Code = ImportError::Code;
    if (bytes.size() > maximumBytes) throw ImportError(Code::tooLarge);
    if (bytes.starts_with("PK\x03\x04")) return Kind::workbook;
    if (bytes.starts_with("\xD0\xCF\x11\xE0")) throw ImportError(Code::workbook);
    if (bytes.substr(0, 1024).find("%PDF") != std::string_view::npos) throw ImportError(Code::pdf);
    return Kind::text;
}

Kind kindOf(std::string_view text, const std::string& extension) {
    using Code = ImportError::Code;
    if (extension == "ofx" || extension == "qfx" || containsIgnoringCase(text, "<ofx") ||
        containsIgnoringCase(text, "<stmttrn>"))
        return Kind::ofx;
    const std::string_view begin = firstWords(text);
    for (const std::string_view word : {"!type", "!account", "!option", "!clear"})
        if (beginsIgnoringCase(begin, word)) return Kind::qif;
    if (extension == "qif") return Kind::qif;
    if (extension == "json") return Kind::json;
    if (begin.starts_with('<') &&
        (containsIgnoringCase(text, "<table") || containsIgnoringCase(begin.substr(0, 2000), "<html")))
        return Kind::html;
    if (text.substr(0, 4096).find('\0') != text.npos) throw ImportError(Code::unknownFormat);
    const bool named = extension == "csv" || extension == "txt" || extension == "tsv";
    if (!named && text.find_first_of(",\t") == text.npos) throw ImportError(Code::unknownFormat);
    return Kind::text;
}

/// Neither white space at its ends nor "=", as most cells.
bool isTight(std::string_view cell) {
    const auto isPlain = [](char c) { return c > ' ' && c < '\x7F'; };
    return cell.empty() || (isPlain(cell.front()) && isPlain(cell.back()) && cell.front() != '=');
}

bool isReadable(const Rows& rows) {
    try {
        (void)recognise(rows);
        return true;
    } catch (const ImportError&) {
        return false;
    }
}

/// Lines that could be the header: where the delimiter is judged when the file's first line misleads.
std::vector<std::size_t> headerLines(std::string_view text) {
    constexpr std::size_t most = 20;
    std::vector<std::size_t> starts;
    for (std::size_t at = 0; at < text.size() && starts.size() < most;) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string_view line = text.substr(at, std::min<std::size_t>(end - at, 4096));
        if (containsIgnoringCase(line, "date"))
            for (const std::string_view word :
                 {"amount", "debit", "credit", "withdr", "deposit", "paid", "dr", "cr", "amt", "money"})
                if (containsIgnoringCase(line, word)) {
                    starts.push_back(at);
                    break;
                }
        at = end + 1;
    }
    return starts;
}

}  // namespace

ImportError::ImportError(Code code, std::string_view column) : code_(code), text_(sentence(code, column)) {}

bool containsIgnoringCase(std::string_view text, std::string_view part) {
    const auto same = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? static_cast<char>(a + 32) : a) == b; };
    return std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

std::string collapsed(std::string_view text) {
    std::string result;
    text = Text::trim(text);
    bool blank = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const char32_t c = Text::codePoint(text, at);
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == 0xA0) {
            blank = true;
            continue;
        }
        if (blank) result += ' ';
        blank = false;
        result.append(text.substr(begin, at - begin));
    }
    return result;
}

std::string decoded(std::string_view bytes) {
    const auto as = [&](const char* charset, std::size_t mark) {
        return Text::decode(bytes.substr(mark), charset).value_or("");
    };
    if (bytes.starts_with("\xFF\xFE")) return as("UTF-16LE", 2);
    if (bytes.starts_with("\xFE\xFF")) return as("UTF-16BE", 2);
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    return Text::isUTF8(bytes) ? std::string(bytes) : as("windows-1252", 0);
}

Rows::Rows(const Table& table) : format(table.format), notes(table.notes) {
    std::size_t cells = 0;
    for (const Table::Row& row : table.rows) cells += row.cells.size();
    views_.fields.reserve(cells);
    for (const Table::Row& row : table.rows) {
        views_.fields.insert(views_.fields.end(), row.cells.begin(), row.cells.end());
        views_.ends.push_back(views_.fields.size());
        views_.numbers.push_back(row.number);
    }
}

Rows::Rows(std::string_view csv, std::size_t firstLine, Cancel cancel) : format("CSV") {
    stopIf(cancel);
    views_ = CSV::views(csv);
    stopIf(cancel);
    for (std::size_t& number : views_.numbers) number += firstLine;
    for (std::string_view& cell : views_.fields) {
        if (isTight(cell)) continue;
        cell = Text::trim(cell);
        // ="000501" keeps a spreadsheet from dropping the zeros.
        if (cell.starts_with('=')) cell = Text::trim(cell.substr(1));
    }
}

void Rows::append(Rows&& others) {
    const std::size_t before = views_.fields.size();
    views_.fields.insert(views_.fields.end(), others.views_.fields.begin(), others.views_.fields.end());
    for (const std::size_t end : others.views_.ends) views_.ends.push_back(before + end);
    views_.numbers.insert(views_.numbers.end(), others.views_.numbers.begin(), others.views_.numbers.end());
    views_.made.splice(views_.made.end(), others.views_.made);
}

Table Rows::table() const {
    Table table{format, {}, notes};
    table.rows.reserve(size());
    for (std::size_t i = 0; i < size(); ++i)
        table.rows.push_back({(*this)[i].number, {(*this)[i].cells.begin(), (*this)[i].cells.end()}});
    return table;
}

bool endsLinesWithCR(std::string_view text) { return text.find('\n') == text.npos && text.find('\r') != text.npos; }

Rows textRows(std::string_view text, Cancel cancel) {
    constexpr std::size_t enoughForHeader = 1'000'000;
    const auto isMark = [](char c) { return c == ',' || c == ';' || c == '\t' || c == '\n'; };
    if (text.size() > maximumCells &&
        static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isMark)) > maximumCells)
        throw ImportError(ImportError::Code::tooLarge);
    Rows rows(text, 0, cancel);
    if (rows.isOpen())
        rows.notes.emplace_back(
            "A quotation mark in this file has no partner: rows behind it may be missing or misread.");
    if (isReadable(rows)) return rows;
    for (const std::size_t start : headerLines(text)) {
        const std::string_view rest = text.substr(start);
        if (CSV::delimiter(rest) == CSV::delimiter(text) && start > 0 && rest.find('"') == rest.npos) continue;
        const auto lines = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(start), '\n');
        if (!isReadable(Rows(rest.substr(0, enoughForHeader), 0, cancel))) continue;
        Rows all(text.substr(0, start), 0, cancel);
        all.append(Rows(rest, static_cast<std::size_t>(lines), cancel));
        all.notes = std::move(rows.notes);
        return all;
    }
    return rows;
}

std::string joinedNarration(std::string_view name, std::string_view memo) {
    if (name.find(memo) != name.npos) return std::string(name);
    if (memo.find(name) != memo.npos) return std::string(memo);
    return std::string(name) + " " + std::string(memo);
}

Parsed finished(Parsed parsed) {
    if (parsed.transactions.empty()) throw ImportError(ImportError::Code::noRows);
    return parsed;
}

namespace {

/// A file, and whichever of text and cells its rows are views into.
struct Opened {
    Kind kind;
    std::string text;
    std::optional<Table> table;

    [[nodiscard]] bool holdsTable() const { return kind != Kind::ofx && kind != Kind::qif; }
};

Opened opened(std::string_view bytes, std::string_view fileName, Cancel cancel) {
    Opened file{kindOf(bytes), {}, {}};
    stopIf(cancel);
    if (file.kind == Kind::workbook) {
        file.table = workbookTable(bytes, cancel);
        return file;
    }
    file.text = decoded(bytes);
    file.kind = kindOf(file.text, extensionOf(fileName));
    if (file.kind == Kind::html) file.table = htmlTable(file.text, cancel);
    if (file.kind == Kind::json) file.table = jsonTable(file.text, cancel);
    if (file.kind == Kind::text && endsLinesWithCR(file.text))
        std::replace(file.text.begin(), file.text.end(), '\r', '\n');
    return file;
}

Parsed interpreted(const Rows& rows, DateOrder order, const Currency& currency, Cancel cancel) {
    return interpret(rows, recognise(rows), order, currency, cancel);
}

}  // namespace

std::optional<Table> table(std::string_view bytes, std::string_view fileName, Cancel cancel) {
    Opened file = opened(bytes, fileName, cancel);
    if (!file.holdsTable()) return std::nullopt;
    return file.table ? std::move(file.table) : textRows(file.text, cancel).table();
}

Parsed parse(std::string_view bytes, std::string_view fileName, DateOrder order, const Currency& currency,
             Cancel cancel) {
    const Opened file = opened(bytes, fileName, cancel);
    if (file.kind == Kind::ofx) return ofx(file.text, currency, cancel);
    if (file.kind == Kind::qif) return qif(file.text, order, currency, cancel);
    return interpreted(file.table ? Rows(*file.table) : textRows(file.text, cancel), order, currency, cancel);
}

Parsed read(const std::filesystem::path& file, DateOrder order, const Currency& currency, Cancel cancel) {
    if (Files::size(file).value_or(0) > maximumBytes) throw ImportError(ImportError::Code::tooLarge);
    return parse(Files::read(file), file.filename().string(), order, currency, cancel);
}

Parsed csv(std::string_view text, DateOrder order, const Currency& currency) {
    std::string inLines;
    if (endsLinesWithCR(text)) {
        inLines = text;
        std::replace(inLines.begin(), inLines.end(), '\r', '\n');
        text = inLines;
    }
    return interpreted(textRows(text, nullptr), order, currency, nullptr);
}

Parsed gridoJSON(std::string_view json, DateOrder order, const Currency& currency) {
    return interpreted(Rows(jsonTable(json, nullptr)), order, currency, nullptr);
}

}  // namespace tamba::BankImport
