#pragma once

#include "TambaCore/Model/Models.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// How the command line prints: JSON for programs, aligned columns for people.
namespace tamba::cli {

/// One JSON object or array on one line, members in the order they are added. Bytes that are no UTF-8 (a file name may
/// hold any) are written as U+FFFD, so that what comes out is always JSON.
class JSON {
public:
    [[nodiscard]] static JSON object() { return JSON('{', '}'); }
    [[nodiscard]] static JSON array() { return JSON('[', ']'); }
    [[nodiscard]] static std::string quoted(std::string_view text);

    JSON& add(std::string_view key, std::string_view text) { return raw(key, quoted(text)); }
    JSON& add(std::string_view key, const char* text) { return add(key, std::string_view(text)); }
    JSON& add(std::string_view key, std::int64_t number) { return raw(key, std::to_string(number)); }
    JSON& add(std::string_view key, bool truth) { return raw(key, truth ? "true" : "false"); }
    JSON& add(std::string_view key, const JSON& value) { return raw(key, value.text()); }
    /// An absent value adds nothing, as in the books.
    template <class T>
    JSON& add(std::string_view key, const std::optional<T>& value) {
        return value ? add(key, *value) : *this;
    }
    JSON& add(std::string_view key, const Day& day) { return add(key, day.iso()); }

    JSON& append(const JSON& value) { return item(value.text()); }
    JSON& append(std::string_view text) { return item(quoted(text)); }
    /// A value that is JSON text already.
    JSON& raw(std::string_view key, std::string_view json) { return item(quoted(key) + ":" + std::string(json)); }
    JSON& item(std::string_view json);

    [[nodiscard]] std::string text() const { return text_ + close_; }

private:
    JSON(char open, char close) : text_(1, open), close_(close) {}
    std::string text_;
    char close_;
};

/// Rows of texts under headings, each column as wide as its widest cell. The last column is not padded.
class Table {
public:
    enum class Align { left, right };
    struct Column {
        std::string heading;
        Align align = Align::left;
    };

    explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}
    void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
    [[nodiscard]] std::string text() const;

private:
    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_;
};

/// On one line, so that no vendor or file name with a line break or a control character can disturb a terminal.
[[nodiscard]] std::string oneLine(std::string_view text);
/// "Vendor    Chai Point": lines of name and value below each other, indented; a line without a value is left out.
[[nodiscard]] std::string details(const std::vector<std::pair<std::string, std::string>>& lines);
/// "1 expense", "2 expenses", "0 categories".
[[nodiscard]] std::string counted(std::size_t count, std::string_view one, std::string_view many);

}  // namespace tamba::cli
