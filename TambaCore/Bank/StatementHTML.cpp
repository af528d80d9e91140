#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Entities.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <charconv>

/// Tables of web pages, which many banks give out under a workbook's name. Only rows and cells are looked at.
namespace tamba::BankImport {
namespace {

/// The value of an attribute that is a small number, else 1.
std::size_t numberIn(std::string_view tag, std::string_view attribute) {
    const std::string lower = Text::lower(tag);
    const std::size_t at = lower.find(attribute);
    if (at == std::string::npos) return 1;
    const std::size_t digit = lower.find_first_of("0123456789", at);
    std::size_t value = 1;
    if (digit == std::string::npos || digit > at + attribute.size() + 3) return 1;
    std::from_chars(lower.data() + digit, lower.data() + lower.size(), value);
    return std::clamp<std::size_t>(value, 1, 200);
}

class TableReader {
public:
    Table read(std::string_view html, Cancel cancel) {
        std::size_t at = 0;
        while (at < html.size()) {
            stopIf(cancel);
            const std::size_t open = std::min(html.find('<', at), html.size());
            if (inCell_) text_ += html.substr(at, open - at);
            if (open == html.size()) break;
            if (html.substr(open).starts_with("<!--")) {
                at = std::min(html.find("-->", open), html.size());
                at = std::min(at + 3, html.size());
                continue;
            }
            const std::size_t close = std::min(html.find('>', open), html.size());
            tag(html.substr(open + 1, close - open - 1));
            at = std::min(close + 1, html.size());
            if (skipUntil_.empty()) continue;
            // Scripts and style sheets are no text.
            while (at < html.size() && !containsIgnoringCase(html.substr(at, skipUntil_.size()), skipUntil_))
                at = std::min(html.find('<', at + 1), html.size());
            skipUntil_.clear();
        }
        endRow();
        return std::move(table_);
    }

private:
    void tag(std::string_view tag) {
        const std::string name =
            Text::lower(tag.substr(0, std::min(tag.find_first_of(" \t\r\n/", 1), std::size_t{16})));
        if (name == "script" || name == "style") skipUntil_ = "</" + name;
        if (name == "tr" || name == "/tr" || name == "/table") endRow();
        if (name == "td" || name == "th") {
            endCell();
            inCell_ = true;
            span_ = numberIn(tag, "colspan");
        }
        if (name == "/td" || name == "/th") endCell();
        if (name == "br" || name == "p" || name == "div") text_ += ' ';
    }

    void endCell() {
        if (!inCell_) return;
        cells_.push_back(collapsed(withoutEntities(text_)));
        for (std::size_t i = 1; i < span_; ++i) cells_.emplace_back();
        count_ += span_;
        if (count_ > maximumCells) throw ImportError(ImportError::Code::tooLarge);
        text_.clear();
        inCell_ = false;
    }

    void endRow() {
        endCell();
        text_.clear();
        if (cells_.empty()) return;
        table_.rows.push_back({table_.rows.size() + 1, std::move(cells_)});
        cells_ = {};
    }

    Table table_{"HTML", {}, {}};
    std::vector<std::string> cells_;
    std::string text_, skipUntil_;
    std::size_t span_ = 1, count_ = 0;
    bool inCell_ = false;
};

}  // namespace

std::string withoutEntities(std::string_view text) {
    std::string result;
    for (std::size_t at = text.find('&'); at != text.npos; at = text.find('&')) {
        result += text.substr(0, at);
        text.remove_prefix(at);
        const auto entity = Entities::at(text);
        Entities::appendUTF8(result, !entity ? U'&' : entity->code == U'\u00A0' ? U' ' : entity->code);
        text.remove_prefix(entity ? entity->length : 1);
    }
    return result += text;
}

Table htmlTable(std::string_view html, Cancel cancel) {
    Table table = TableReader().read(html, cancel);
    try {
        (void)recognise(table);
    } catch (const ImportError&) {
        throw ImportError(ImportError::Code::webPage);
    }
    return table;
}

}  // namespace tamba::BankImport
