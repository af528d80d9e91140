#include "TambaCore/Base/CSV.h"

#include "TambaCore/Base/Files.h"

#include <algorithm>
#include <array>

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

/// Reads one text. Stretches of ordinary characters are taken at once; a field in several stretches is put together.
/// `Rows` takes the fields and is told where a row ends.
template <class Rows>
class Reader {
public:
    Reader(std::string_view text, Rows& rows) : text_(text), delimiter_(CSV::delimiter(text)), rows_(rows) {
        for (const char c : {delimiter_, '"', '\n', '\r'}) special_[static_cast<unsigned char>(c)] = true;
    }

    /// Whether the text ends inside quotes.
    bool read() {
        while (at_ < text_.size()) {
            const std::size_t begin = at_;
            while (at_ < text_.size() && !special_[static_cast<unsigned char>(text_[at_])]) ++at_;
            take(begin, at_);
            if (at_ < text_.size()) special(text_[at_]);
        }
        if (!field().empty() || inRow_) endRow();
        return open_;
    }

private:
    void take(std::size_t begin, std::size_t end) {
        if (begin == end) return;
        if (isMade_) {
            made_.append(text_, begin, end - begin);
        } else if (begin_ == end_) {
            begin_ = begin;
            end_ = end;
        } else if (begin == end_) {
            end_ = end;
        } else {
            isMade_ = true;
            made_.assign(text_, begin_, end_ - begin_).append(text_, begin, end - begin);
        }
    }

    [[nodiscard]] std::string_view field() const {
        return isMade_ ? std::string_view(made_) : text_.substr(begin_, end_ - begin_);
    }

    void special(char c) {
        ++at_;
        if (c == delimiter_) {
            endField();
            inRow_ = true;
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
            const std::size_t quote = std::min(text_.find('"', at_), text_.size());
            const bool ends = quote + 1 >= text_.size() || text_[quote + 1] != '"';
            take(at_, ends ? quote : quote + 1);
            at_ = std::min(ends ? quote + 1 : quote + 2, text_.size());
            open_ = quote == text_.size();
            if (ends) return;
        }
    }

    void endField() {
        if (isMade_)
            rows_.take(std::move(made_));
        else
            rows_.take(field());
        begin_ = end_ = 0;
        isMade_ = false;
    }

    void endRow() {
        ++number_;
        const bool isBlank = !inRow_ && field().empty();
        if (!isBlank) {
            endField();
            rows_.end(number_);
        }
        begin_ = end_ = 0;
        isMade_ = inRow_ = false;
    }

    std::string_view text_;
    char delimiter_;
    Rows& rows_;
    std::array<bool, 256> special_{};
    std::size_t at_ = 0, number_ = 0;
    std::size_t begin_ = 0, end_ = 0;  // of the field, as long as it is in one stretch
    std::string made_;
    bool isMade_ = false, inRow_ = false, open_ = false;
};

struct StringRows {
    void take(std::string_view field) { row.emplace_back(field); }
    void take(std::string&& field) { row.push_back(std::move(field)); }
    void end(std::size_t number) {
        const std::size_t columns = row.size();
        result.rows.push_back(std::move(row));
        result.numbers.push_back(number);
        row = {};
        row.reserve(columns);
    }

    CSV::Read result;
    CSV::Row row;
};

struct ViewRows {
    void take(std::string_view field) { result.fields.push_back(field); }
    void take(std::string&& field) { result.fields.emplace_back(result.made.emplace_back(std::move(field))); }
    void end(std::size_t number) {
        result.ends.push_back(result.fields.size());
        result.numbers.push_back(number);
    }

    CSV::Views result;
};

std::string_view withoutMark(std::string_view text) {
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    return text;
}

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

std::string CSV::bytes() const { return std::string(byteOrderMark) + text(); }

void CSV::write(const std::filesystem::path& file) const { Files::writeAtomically(file, bytes()); }

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
    StringRows rows;
    (void)Reader(withoutMark(text), rows).read();
    return std::move(rows.result);
}

CSV::Views CSV::views(std::string_view text) {
    ViewRows rows;
    rows.result.isOpen = Reader(withoutMark(text), rows).read();
    return std::move(rows.result);
}

}  // namespace tamba
