#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

/// Tables of web pages, which many banks give out under a workbook's name. Only rows and cells are looked at.
namespace tamba::BankImport {
namespace {

void appendUTF8(std::string& text, std::uint32_t code) {
    const auto byte = [&](std::uint32_t value) { text += static_cast<char>(static_cast<unsigned char>(value)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | code >> 6);
        byte(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        byte(0xE0 | code >> 12);
        byte(0x80 | (code >> 6 & 0x3F));
        byte(0x80 | (code & 0x3F));
    } else {
        byte(0xF0 | code >> 18);
        byte(0x80 | (code >> 12 & 0x3F));
        byte(0x80 | (code >> 6 & 0x3F));
        byte(0x80 | (code & 0x3F));
    }
}

/// The code point an entity's name stands for, 0 for an unknown one.
std::uint32_t entity(std::string_view name) {
    static constexpr std::array<std::pair<std::string_view, std::uint32_t>, 14> names{{{"amp", '&'},
                                                                                       {"lt", '<'},
                                                                                       {"gt", '>'},
                                                                                       {"quot", '"'},
                                                                                       {"apos", '\''},
                                                                                       {"nbsp", ' '},
                                                                                       {"pound", 0xA3},
                                                                                       {"euro", 0x20AC},
                                                                                       {"yen", 0xA5},
                                                                                       {"rsquo", 0x2019},
                                                                                       {"lsquo", 0x2018},
                                                                                       {"ndash", 0x2013},
                                                                                       {"mdash", 0x2014},
                                                                                       {"minus", 0x2212}}};
    if (!name.starts_with('#')) {
        for (const auto& [known, code] : names)
            if (known == name) return code;
        return 0;
    }
    name.remove_prefix(1);
    const bool hex = name.starts_with('x') || name.starts_with('X');
    if (hex) name.remove_prefix(1);
    std::uint32_t code = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), code, hex ? 16 : 10);
    if (error != std::errc{} || end != name.data() + name.size() || code > 0x10FFFF) return 0;
    return code >= 0xD800 && code < 0xE000 ? 0 : code;
}

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
    constexpr std::size_t longest = 10;
    std::string result;
    for (std::size_t at = text.find('&'); at != text.npos; at = text.find('&')) {
        result += text.substr(0, at);
        text.remove_prefix(at);
        const std::size_t end = text.substr(0, longest).find(';');
        const std::uint32_t code = end == text.npos ? 0 : entity(text.substr(1, end - 1));
        if (code == 0)
            result += '&';
        else
            appendUTF8(result, code);
        text.remove_prefix(code == 0 ? 1 : end + 1);
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
