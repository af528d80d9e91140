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

Table cleaned(std::string_view text, std::size_t numberOffset, Cancel cancel) {
    stopIf(cancel);
    CSV::Read read = CSV::read(text);
    Table table{"CSV", {}, {}};
    table.rows.reserve(read.rows.size());
    for (std::size_t i = 0; i < read.rows.size(); ++i) {
        stopIf(cancel);
        for (std::string& cell : read.rows[i]) {
            // ="000501" keeps a spreadsheet from dropping the zeros.
            if (isTight(cell)) continue;
            std::string_view trimmed = Text::trim(cell);
            if (trimmed.starts_with('=')) trimmed = Text::trim(trimmed.substr(1));
            if (trimmed.size() != cell.size()) cell = std::string(trimmed);
        }
        table.rows.push_back({read.numbers[i] + numberOffset, std::move(read.rows[i])});
    }
    return table;
}

bool isReadable(const Table& table) {
    try {
        (void)recognise(table);
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

Table textTable(std::string text, Cancel cancel) {
    // The files of very old machines end lines with CR alone, which the reader of CSV drops.
    if (text.find('\n') == std::string::npos) std::replace(text.begin(), text.end(), '\r', '\n');
    const auto marks =
        std::count_if(text.begin(), text.end(), [](char c) { return c == ',' || c == ';' || c == '\t' || c == '\n'; });
    if (text.size() > maximumCells && static_cast<std::size_t>(marks) > maximumCells)
        throw ImportError(ImportError::Code::tooLarge);
    std::vector<std::string> notes;
    if (std::count(text.begin(), text.end(), '"') % 2 != 0)
        notes.emplace_back("A quotation mark in this file has no partner: rows behind it may be missing or misread.");
    Table table = cleaned(text, 0, cancel);
    table.notes = notes;
    if (isReadable(table)) return table;
    for (const std::size_t start : headerLines(text)) {
        const std::string_view rest = std::string_view(text).substr(start);
        if (CSV::delimiter(rest) == CSV::delimiter(text) && start > 0 && rest.find('"') == rest.npos) continue;
        Table above = cleaned(std::string_view(text).substr(0, start), 0, cancel);
        const auto lines = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(start), '\n');
        Table below = cleaned(rest, static_cast<std::size_t>(lines), cancel);
        if (!isReadable(below)) continue;
        std::move(below.rows.begin(), below.rows.end(), std::back_inserter(above.rows));
        above.notes = notes;
        return above;
    }
    return table;
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

std::optional<Table> table(std::string_view bytes, std::string_view fileName, Cancel cancel) {
    if (kindOf(bytes) == Kind::workbook) return workbookTable(bytes, cancel);
    std::string text = decoded(bytes);
    switch (kindOf(text, extensionOf(fileName))) {
        case Kind::html:
            return htmlTable(text, cancel);
        case Kind::json:
            return jsonTable(text, cancel);
        case Kind::text:
            return textTable(std::move(text), cancel);
        default:
            return std::nullopt;
    }
}

Parsed parse(std::string_view bytes, std::string_view fileName, DateOrder order, const Currency& currency,
             Cancel cancel) {
    if (const auto rows = table(bytes, fileName, cancel))
        return interpret(*rows, recognise(*rows), order, currency, cancel);
    const std::string text = decoded(bytes);
    return kindOf(text, extensionOf(fileName)) == Kind::ofx ? ofx(text, currency, cancel)
                                                            : qif(text, order, currency, cancel);
}

Parsed read(const std::filesystem::path& file, DateOrder order, const Currency& currency, Cancel cancel) {
    if (Files::size(file).value_or(0) > maximumBytes) throw ImportError(ImportError::Code::tooLarge);
    return parse(Files::read(file), file.filename().string(), order, currency, cancel);
}

Parsed csv(std::string_view text, DateOrder order, const Currency& currency) {
    const Table table = textTable(std::string(text), nullptr);
    return interpret(table, recognise(table), order, currency);
}

Parsed gridoJSON(std::string_view json, DateOrder order, const Currency& currency) {
    const Table table = jsonTable(json, nullptr);
    return interpret(table, recognise(table), order, currency);
}

}  // namespace tamba::BankImport
