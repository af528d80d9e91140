#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Text.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <memory>
#include <set>

#include <pugixml.hpp>

/// Workbooks of ISO/IEC 29500: a zip of XML parts. Only what stands in the cells is read; formulas are taken as last
/// computed.
namespace tamba::BankImport {
namespace {

constexpr std::size_t maximumPart = 64'000'000, maximumUnpacked = 160'000'000;
constexpr int maximumEntries = 4000;
constexpr std::size_t maximumRows = 1'048'576, maximumColumns = 1000;
/// All texts together: a cell may repeat a long shared one a million times.
constexpr std::size_t maximumText = 256'000'000;

[[noreturn]] void refuse(ImportError::Code code) { throw ImportError(code); }

using Parts = std::map<std::string, std::string>;

bool isWanted(const std::string& name) {
    return name == "xl/workbook.xml" || name == "xl/_rels/workbook.xml.rels" || name == "xl/sharedStrings.xml" ||
           name == "xl/styles.xml" || (name.starts_with("xl/worksheets/") && name.ends_with(".xml"));
}

Parts unpacked(std::string_view bytes, Cancel cancel) {
    const std::unique_ptr<archive, decltype(&archive_read_free)> reader(archive_read_new(), &archive_read_free);
    archive_read_support_format_zip(reader.get());
    if (archive_read_open_memory(reader.get(), bytes.data(), bytes.size()) != ARCHIVE_OK)
        refuse(ImportError::Code::unknownFormat);
    Parts parts;
    std::size_t total = 0;
    archive_entry* entry = nullptr;
    for (int count = 0;; ++count) {
        const int state = archive_read_next_header(reader.get(), &entry);
        if (state == ARCHIVE_EOF) break;
        if (state < ARCHIVE_WARN) refuse(ImportError::Code::unknownFormat);
        if (count > maximumEntries) refuse(ImportError::Code::tooLarge);
        const char* path = archive_entry_pathname(entry);
        std::string name = path ? path : "";
        if (name.starts_with('/')) name.erase(0, 1);
        if (!isWanted(name) || parts.contains(name)) continue;
        if (archive_entry_is_encrypted(entry)) refuse(ImportError::Code::workbook);
        std::string& part = parts[name];
        char block[65'536];
        while (true) {
            stopIf(cancel);
            const la_ssize_t read = archive_read_data(reader.get(), block, sizeof block);
            if (read == 0) break;
            if (read < 0) refuse(ImportError::Code::unknownFormat);
            total += static_cast<std::size_t>(read);
            if (part.size() + static_cast<std::size_t>(read) > maximumPart || total > maximumUnpacked)
                refuse(ImportError::Code::tooLarge);
            part.append(block, static_cast<std::size_t>(read));
        }
    }
    if (!parts.contains("xl/workbook.xml")) refuse(ImportError::Code::unknownFormat);
    return parts;
}

/// Element names without their namespace prefix: some writers print <x:row>.
std::string_view localName(const pugi::xml_node& node) {
    const std::string_view name = node.name();
    const std::size_t colon = name.find(':');
    return colon == name.npos ? name : name.substr(colon + 1);
}

pugi::xml_node child(const pugi::xml_node& node, std::string_view name) {
    for (const pugi::xml_node one : node.children())
        if (localName(one) == name) return one;
    return {};
}

/// `text` stays alive as long as the document.
void load(pugi::xml_document& document, std::string& text) {
    if (!document.load_buffer_inplace(text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata))
        refuse(ImportError::Code::unknownFormat);
}

/// The text of a string item: its own or that of its runs; readings of Japanese names are left out.
std::string stringItem(const pugi::xml_node& item) {
    std::string text;
    for (const pugi::xml_node part : item.children()) {
        if (localName(part) == "t") text += part.text().get();
        if (localName(part) == "r") text += child(part, "t").text().get();
    }
    return text;
}

std::vector<std::string> sharedStrings(Parts& parts) {
    std::vector<std::string> strings;
    const auto part = parts.find("xl/sharedStrings.xml");
    if (part == parts.end()) return strings;
    pugi::xml_document document;
    load(document, part->second);
    for (const pugi::xml_node item : document.document_element().children())
        if (localName(item) == "si") strings.push_back(stringItem(item));
    return strings;
}

/// Whether a number format shows a day: "dd/mm/yyyy", not "0.00" or "[Red]h:mm".
bool showsDay(std::string_view code) {
    bool quoted = false, bracket = false, day = false, year = false;
    for (std::size_t i = 0; i < code.size(); ++i) {
        const char c = code[i];
        if (c == '\\') {
            ++i;
        } else if (c == '"') {
            quoted = !quoted;
        } else if (c == '[' || c == ']') {
            bracket = c == '[';
        } else if (!quoted && !bracket) {
            day = day || c == 'd' || c == 'D';
            year = year || c == 'y' || c == 'Y';
        }
    }
    return day || year;
}

/// For each cell style whether its numbers are dates.
std::vector<bool> dateStyles(Parts& parts) {
    std::vector<bool> styles;
    const auto part = parts.find("xl/styles.xml");
    if (part == parts.end()) return styles;
    pugi::xml_document document;
    load(document, part->second);
    const pugi::xml_node root = document.document_element();
    std::map<int, bool> own;
    for (const pugi::xml_node format : child(root, "numFmts").children())
        own[format.attribute("numFmtId").as_int()] = showsDay(format.attribute("formatCode").value());
    for (const pugi::xml_node style : child(root, "cellXfs").children()) {
        const int id = style.attribute("numFmtId").as_int();
        const auto found = own.find(id);
        const bool builtIn = (id >= 14 && id <= 17) || id == 22 || (id >= 27 && id <= 31) || id == 36 ||
                             (id >= 50 && id <= 54) || id == 57 || id == 58;
        styles.push_back(found != own.end() ? found->second : builtIn);
    }
    return styles;
}

/// 1.2345600000000001E3 as a person sees it: plain, to fifteen figures. Exact: no binary fractions in between. A third
/// and last decimal gets a zero behind it, so that "1.234" is not taken for thousands.
std::string plainNumber(std::string_view text) {
    const std::size_t e = std::min(text.find_first_of("eE"), text.size());
    std::string_view mantissa = text.substr(0, e);
    int exponent = 0;
    if (e < text.size()) {
        std::string_view power = text.substr(e + 1);
        if (power.starts_with('+')) power.remove_prefix(1);
        const auto [end, error] = std::from_chars(power.data(), power.data() + power.size(), exponent);
        if (error != std::errc{} || end != power.data() + power.size() || exponent > 30 || exponent < -30)
            return std::string(text);
    }
    const bool negative = mantissa.starts_with('-');
    if (negative) mantissa.remove_prefix(1);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    std::string digits(mantissa.substr(0, point));
    if (point < mantissa.size()) digits += mantissa.substr(point + 1);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) return std::string(text);
    int whole = static_cast<int>(point) + exponent;  // digits before the decimal point

    constexpr std::size_t figures = 15;
    const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size());
    if (digits.size() - first > figures && whole < static_cast<int>(digits.size())) {
        const std::size_t cut = std::max(first + figures, static_cast<std::size_t>(std::max(whole, 0)));
        if (cut < digits.size()) {
            const bool up = digits[cut] >= '5';
            digits.resize(cut);
            std::size_t i = cut;
            bool carry = up;
            while (carry && i > 0) {
                --i;
                carry = digits[i] == '9';
                digits[i] = carry ? '0' : static_cast<char>(digits[i] + 1);
            }
            if (carry) {
                digits.insert(0, 1, '1');
                ++whole;
            }
        }
    }
    if (whole < 0) {
        digits.insert(0, static_cast<std::size_t>(-whole), '0');
        whole = 0;
    }
    const auto before = static_cast<std::size_t>(whole);
    if (digits.size() < before) digits.append(before - digits.size(), '0');
    std::string head = digits.substr(0, before), tail = digits.substr(before);
    tail.erase(tail.find_last_not_of('0') + 1);
    head.erase(0, std::min(head.find_first_not_of('0'), head.size()));
    if (head.empty()) head = "0";
    if (tail.size() == 3) tail += '0';
    return (negative ? "-" : "") + head + (tail.empty() ? "" : "." + tail);
}

/// Days since 1899-12-30 as yyyy-mm-dd; the time is dropped. Nothing before March 1900, where the count has a day too
/// many.
std::optional<std::string> dayOfSerial(std::string_view text, bool from1904) {
    std::int64_t serial = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), serial);
    if (error != std::errc{} || (end != text.data() + text.size() && *end != '.')) return std::nullopt;
    constexpr std::int64_t first = 61, last = 2'958'465, epoch = 25'569, between = 1462;
    if (from1904) serial += between;
    if (serial < first || serial > last) return std::nullopt;
    return Day::fromNumber(serial - epoch).iso();
}

/// The column of "AB12", from 0.
std::optional<std::size_t> columnOf(std::string_view reference) {
    std::size_t column = 0;
    for (const char c : reference) {
        if (c < 'A' || c > 'Z') break;
        column = column * 26 + static_cast<std::size_t>(c - 'A' + 1);
        if (column > maximumColumns) refuse(ImportError::Code::tooLarge);
    }
    return column > 0 ? std::optional(column - 1) : std::nullopt;
}

class SheetReader {
public:
    SheetReader(Parts& parts, bool from1904, Cancel cancel)
        : strings_(sharedStrings(parts)), dates_(dateStyles(parts)), from1904_(from1904), cancel_(cancel) {}

    Table read(std::string& xml) {
        pugi::xml_document document;
        load(document, xml);
        Table table{"XLSX", {}, {}};
        std::size_t number = 0;
        for (const pugi::xml_node row : child(document.document_element(), "sheetData").children()) {
            stopIf(cancel_);
            if (localName(row) != "row") continue;
            number = row.attribute("r") ? row.attribute("r").as_uint() : number + 1;
            if (table.rows.size() >= maximumRows) refuse(ImportError::Code::tooLarge);
            Table::Row cells{number, {}};
            for (const pugi::xml_node cell : row.children()) {
                if (localName(cell) != "c") continue;
                const std::size_t place = columnOf(cell.attribute("r").value()).value_or(cells.cells.size());
                if (place >= maximumColumns) refuse(ImportError::Code::tooLarge);
                if (cells.cells.size() <= place) cells.cells.resize(place + 1);
                cells.cells[place] = value(cell);
            }
            if (!cells.cells.empty()) table.rows.push_back(std::move(cells));
        }
        // Blank cells at the end of a row are not in the file.
        std::size_t widest = 0;
        for (const Table::Row& row : table.rows) widest = std::max(widest, row.cells.size());
        if (widest * table.rows.size() > maximumCells) refuse(ImportError::Code::tooLarge);
        for (Table::Row& row : table.rows) row.cells.resize(widest);
        return table;
    }

private:
    std::string value(const pugi::xml_node& cell) {
        std::string text = printed(cell);
        text_ += text.size();
        if (text_ > maximumText) refuse(ImportError::Code::tooLarge);
        const std::string_view trimmed = Text::trim(text);
        return trimmed.size() == text.size() ? text : std::string(trimmed);
    }

    [[nodiscard]] std::string printed(const pugi::xml_node& cell) const {
        const std::string_view type = cell.attribute("t").value();
        if (type == "inlineStr") return stringItem(child(cell, "is"));
        const std::string_view raw = child(cell, "v").text().get();
        if (type == "s") {
            std::size_t index = 0;
            const auto [end, error] = std::from_chars(raw.data(), raw.data() + raw.size(), index);
            return error == std::errc{} && index < strings_.size() ? strings_[index] : std::string();
        }
        if (type == "d") return std::string(raw.substr(0, 10));
        if (!type.empty() && type != "n") return std::string(raw);
        const std::size_t style = cell.attribute("s").as_uint();
        if (style < dates_.size() && dates_[style])
            if (auto day = dayOfSerial(raw, from1904_)) return *day;
        return plainNumber(raw);
    }

    std::vector<std::string> strings_;
    std::vector<bool> dates_;
    bool from1904_;
    Cancel cancel_;
    std::size_t text_ = 0;
};

/// The worksheets' parts in the order of their tabs.
std::vector<std::string> sheetParts(Parts& parts, const pugi::xml_node& workbook) {
    std::map<std::string, std::string> targets;
    if (const auto part = parts.find("xl/_rels/workbook.xml.rels"); part != parts.end()) {
        pugi::xml_document document;
        load(document, part->second);
        for (const pugi::xml_node relation : document.document_element().children()) {
            std::string target = relation.attribute("Target").value();
            target = target.starts_with('/') ? target.substr(1) : "xl/" + target;
            targets[relation.attribute("Id").value()] = target;
        }
    }
    std::vector<std::string> names;
    const auto add = [&](const std::string& name) {
        if (parts.contains(name) && std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    };
    for (const pugi::xml_node sheet : child(workbook, "sheets").children())
        for (const pugi::xml_attribute attribute : sheet.attributes())
            if (std::string_view(attribute.name()).ends_with(":id")) add(targets[attribute.value()]);
    for (const auto& [name, text] : parts)
        if (name.starts_with("xl/worksheets/")) add(name);
    return names;
}

bool isStatement(const Table& table) {
    try {
        (void)recognise(table);
        return true;
    } catch (const ImportError&) {
        return false;
    }
}

}  // namespace

Table workbookTable(std::string_view bytes, Cancel cancel) {
    Parts parts = unpacked(bytes, cancel);
    pugi::xml_document document;
    load(document, parts["xl/workbook.xml"]);
    const pugi::xml_node workbook = document.document_element();
    const bool from1904 = child(workbook, "workbookPr").attribute("date1904").as_bool();
    SheetReader reader(parts, from1904, cancel);
    std::optional<Table> first, statement;
    int others = 0;
    for (const std::string& name : sheetParts(parts, workbook)) {
        Table table = reader.read(parts[name]);
        if (isStatement(table)) {
            if (statement)
                ++others;
            else
                statement = std::move(table);
        } else if (!first) {
            first = std::move(table);
        }
    }
    if (statement && others > 0)
        statement->notes.emplace_back(
            "Only the first sheet of the workbook was read; other sheets hold transactions too.");
    if (statement) return std::move(*statement);
    if (first) return std::move(*first);
    refuse(ImportError::Code::noRows);
}

}  // namespace tamba::BankImport
