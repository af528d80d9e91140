#include "TambaCLI/Output.h"

#include "TambaCore/Base/Text.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace tamba::cli {
namespace {

/// Columns a text takes in a terminal: none for marks above and below, two for the wide letters of East Asia.
std::size_t displayWidth(std::string_view text) {
    std::size_t width = 0;
    const auto length = static_cast<std::int32_t>(text.size());
    for (std::int32_t i = 0; i < length;) {
        UChar32 c = 0;
        U8_NEXT_OR_FFFD(text.data(), i, length, c);
        if ((U_GET_GC_MASK(c) & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0) continue;
        const int eastAsian = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
        width += eastAsian == U_EA_WIDE || eastAsian == U_EA_FULLWIDTH ? 2 : 1;
    }
    return width;
}

std::string padding(std::size_t width, std::string_view text) {
    const std::size_t length = displayWidth(text);
    return std::string(width > length ? width - length : 0, ' ');
}

}  // namespace

std::string JSON::quoted(std::string_view text) { return ModelsJSON::quoted(Text::repairedUTF8(text)); }

JSON& JSON::item(std::string_view json) {
    if (text_.size() > 1) text_ += ',';
    text_ += json;
    return *this;
}

std::string oneLine(std::string_view text) {
    std::string line = Text::repairedUTF8(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return line;
}

std::string Table::text() const {
    std::vector<std::vector<std::string>> all(1);
    for (const Column& column : columns_) all[0].push_back(column.heading);
    for (const auto& row : rows_) {
        auto& cells = all.emplace_back();
        for (const std::string& cell : row) cells.push_back(oneLine(cell));
    }
    std::vector<std::size_t> widths(columns_.size());
    for (const auto& row : all)
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], displayWidth(row[i]));
    std::string text;
    for (const auto& row : all) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) line += "  ";
            const std::string space = padding(widths[i], row[i]);
            line += columns_[i].align == Align::right ? space + row[i] : row[i] + space;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

std::string details(const std::vector<std::pair<std::string, std::string>>& lines) {
    std::size_t width = 0;
    for (const auto& [name, value] : lines)
        if (!value.empty()) width = std::max(width, displayWidth(name));
    std::string text;
    for (const auto& [name, value] : lines)
        if (!value.empty()) text += "  " + oneLine(name) + padding(width + 2, name) + oneLine(value) + "\n";
    return text;
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

}  // namespace tamba::cli
