#include "TambaCore/Base/CSV.h"

#include "TambaCore/Base/Files.h"

#include <algorithm>

namespace tamba {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// A plain decimal number: "-250.00", "-.5".
bool isNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    const auto digits = std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    const auto points = std::count(text.begin(), text.end(), '.');
    return digits > 0 && points <= 1 && digits + points == static_cast<std::ptrdiff_t>(text.size());
}

bool wouldRun(std::string_view field) {
    if (field.empty()) return false;
    return field[0] == '=' || field[0] == '+' || field[0] == '@' || (field[0] == '-' && !isNumber(field));
}

void addRow(std::string& text, const CSV::Row& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i > 0) text += ',';
        text += CSV::escape(row[i]);
    }
    text += "\r\n";
}

/// Reads one text. Stretches of ordinary characters are taken at once.
class Reader {
public:
    explicit Reader(std::string_view text) : text_(text), delimiter_(CSV::delimiter(text)) {}

    CSV::Read read() {
        while (at_ < text_.size()) {
            const std::size_t begin = at_;
            while (at_ < text_.size() && !isSpecial(text_[at_])) ++at_;
            field_.append(text_, begin, at_ - begin);
            if (at_ < text_.size()) special(text_[at_]);
        }
        if (!field_.empty() || !row_.empty()) endRow();
        return std::move(result_);
    }

private:
    [[nodiscard]] bool isSpecial(char c) const { return c == delimiter_ || c == '"' || c == '\n' || c == '\r'; }

    void special(char c) {
        ++at_;
        if (c == delimiter_) {
            endField();
        } else if (c == '"') {
            quoted();
        } else if (c == '\n') {
            endRow();
        } else if (at_ < text_.size() && text_[at_] == '\n') {
            ++at_;
            endRow();
        }
    }

    void quoted() {
        while (true) {
            const std::size_t quote = text_.find('"', at_);
            field_.append(text_, at_, quote - at_);
            if (quote == std::string_view::npos) {
                at_ = text_.size();
                return;
            }
            at_ = quote + 1;
            if (at_ >= text_.size() || text_[at_] != '"') return;
            field_ += '"';
            ++at_;
        }
    }

    void endField() {
        row_.push_back(std::move(field_));
        field_.clear();
    }

    void endRow() {
        ++number_;
        endField();
        if (row_.size() > 1 || !row_.front().empty()) {
            columns_ = row_.size();
            result_.rows.push_back(std::move(row_));
            result_.numbers.push_back(number_);
            row_ = {};
            row_.reserve(columns_);
        }
        row_.clear();
    }

    std::string_view text_;
    char delimiter_;
    std::size_t at_ = 0;
    std::size_t number_ = 0;
    std::size_t columns_ = 0;
    std::string field_;
    CSV::Row row_;
    CSV::Read result_;
};

}  // namespace

std::string CSV::escape(std::string_view field) {
    std::string safe = wouldRun(field) ? "'" : "";
    safe += field;
    if (safe.find_first_of(",\"\n\r") == std::string::npos) return safe;
    std::string quoted = "\"";
    for (const char c : safe) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

std::string CSV::text() const {
    std::string result;
    addRow(result, header);
    for (const Row& row : rows) addRow(result, row);
    return result;
}

void CSV::write(const std::filesystem::path& file) const {
    Files::writeAtomically(file, std::string(byteOrderMark) + text());
}

CSV CSV::sortedByFirstColumn() const {
    CSV sorted = *this;
    const auto first = [](const Row& row) { return row.empty() ? std::string_view() : std::string_view(row.front()); };
    std::stable_sort(sorted.rows.begin(), sorted.rows.end(),
                     [&](const Row& a, const Row& b) { return first(a) < first(b); });
    return sorted;
}

char CSV::delimiter(std::string_view text) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    const auto commas = std::count(line.begin(), line.end(), ',');
    if (std::count(line.begin(), line.end(), ';') > commas) return ';';
    return commas == 0 && line.find('\t') != std::string_view::npos ? '\t' : ',';
}

CSV::Read CSV::read(std::string_view text) {
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    return Reader(text).read();
}

}  // namespace tamba
