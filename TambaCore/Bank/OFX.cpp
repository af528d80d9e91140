#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>

/// Open Financial Exchange, as SGML (1.x, end tags left out) and as XML (2.x). Both are read by the names of their tags
/// alone: banks break the nesting more often than the names.
namespace tamba::BankImport {
namespace {

/// Remarks are taken out; one that never ends hides nothing but its own mark.
std::string withoutRemarks(std::string_view text) {
    std::string result;
    for (std::size_t at = text.find("<!--"); at != text.npos; at = text.find("<!--")) {
        result += text.substr(0, at);
        const std::size_t end = text.find("-->", at + 4);
        text.remove_prefix(end == text.npos ? at + 4 : end + 3);
        if (end == text.npos) break;
    }
    return result += text;
}

/// "</" and "<" before a letter open a tag; "a < b" does not.
std::size_t nextTag(std::string_view text, std::size_t from) {
    for (std::size_t at = text.find('<', from); at != text.npos; at = text.find('<', at + 1)) {
        if (at + 1 >= text.size()) return text.npos;
        const char c = text[at + 1];
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '/' || c == '!' || c == '?') return at;
    }
    return text.npos;
}

struct Element {
    std::string tag;  ///< lower case, "/stmttrn" for an end
    std::string_view value;
};

/// Calls `visit` for each tag with the text behind it.
template <class Visit>
void forEachElement(std::string_view text, Cancel cancel, Visit&& visit) {
    constexpr std::string_view data = "<![CDATA[";
    constexpr std::size_t longestTag = 80;
    Element element;
    for (std::size_t at = nextTag(text, 0); at != text.npos;) {
        stopIf(cancel);
        const std::size_t close = text.find('>', at);
        if (close == text.npos) return;
        std::string_view inside = text.substr(at + 1, close - at - 1);
        inside = inside.substr(0, std::min(inside.find_first_of(" \t\r\n"), longestTag));
        element.tag = Text::lower(inside);
        std::string_view rest = text.substr(close + 1);
        const std::size_t blanks = std::min(rest.find_first_not_of(" \t\r\n"), rest.size());
        if (rest.substr(blanks).starts_with(data)) {
            const std::size_t begin = close + 1 + blanks + data.size();
            const std::size_t end = std::min(text.find("]]>", begin), text.size());
            element.value = text.substr(begin, end - begin);
            at = nextTag(text, std::min(end + 3, text.size()));
        } else {
            at = nextTag(text, close + 1);
            element.value = rest.substr(0, at == text.npos ? rest.size() : at - close - 1);
        }
        visit(element);
    }
}

std::string readable(std::string_view value) {
    // Some servers escape what was escaped before.
    std::string text = withoutEntities(value);
    if (text.find('&') != std::string::npos) text = withoutEntities(text);
    return collapsed(text);
}

struct Entry {
    std::map<std::string, std::string, std::less<>> fields;  ///< the first of each tag
    bool otherCurrency = false;                              ///< stands in a currency of its own

    [[nodiscard]] std::string_view operator[](std::string_view tag) const {
        const auto found = fields.find(tag);
        return found == fields.end() ? std::string_view() : std::string_view(found->second);
    }
};

struct File {
    std::vector<Entry> entries;
    std::string currency;
    std::set<std::string> accounts;
};

File elements(std::string_view text, Cancel cancel) {
    static constexpr std::array<std::string_view, 7> wanted{"dtposted", "trnamt",  "fitid", "name",
                                                            "memo",     "trntype", "cursym"};
    static constexpr std::array<std::string_view, 6> ends{"/stmttrn", "/banktranlist", "ledgerbal",
                                                          "availbal", "/stmtrs",       "/ccstmtrs"};
    File file;
    bool inside = false;
    forEachElement(text, cancel, [&](const Element& element) {
        const std::string& tag = element.tag;
        if (tag == "stmttrn") {
            if (file.entries.size() == maximumLines) throw ImportError(ImportError::Code::tooLarge);
            file.entries.emplace_back();
            inside = true;
        } else if (std::find(ends.begin(), ends.end(), tag) != ends.end()) {
            inside = false;
        } else if (inside) {
            if (tag == "currency") file.entries.back().otherCurrency = true;
            if (std::find(wanted.begin(), wanted.end(), tag) == wanted.end()) return;
            std::string value = readable(element.value);
            if (!value.empty()) file.entries.back().fields.emplace(tag, std::move(value));
        } else if (tag == "curdef" && file.currency.empty()) {
            file.currency = Text::upper(readable(element.value));
        } else if (tag == "acctid" && file.accounts.size() < 1000) {
            file.accounts.insert(readable(element.value));
        }
    });
    return file;
}

/// The leading eight digits of 20260801120000.000[-5:EST].
std::optional<Day> day(std::string_view posted) {
    if (posted.size() < 8) return std::nullopt;
    int number = 0;
    const auto [end, error] = std::from_chars(posted.data(), posted.data() + 8, number);
    if (error != std::errc{} || end != posted.data() + 8 || number < 0) return std::nullopt;
    return Day::valid(number / 10000, number / 100 % 100, number % 100);
}

}  // namespace

Parsed ofx(std::string_view text, const Currency& currency, Cancel cancel) {
    const File file = elements(withoutRemarks(text), cancel);
    Parsed parsed;
    parsed.format = "OFX";
    parsed.orderReason = "Every date in this file can be read in one way only.";
    if (!file.currency.empty() && file.currency != currency.code)
        parsed.notes.push_back("The amounts in this file are in " + file.currency + ", and were read as " +
                               currency.code + ".");
    if (file.accounts.size() > 1)
        parsed.notes.push_back("This file holds lines of " + std::to_string(file.accounts.size()) + " accounts.");

    Figures figures(Figures::Style::plain);
    for (const Entry& entry : file.entries) figures.see(entry["trnamt"]);
    std::size_t negatives = 0, positiveDebits = 0;
    for (std::size_t i = 0; i < file.entries.size(); ++i) {
        stopIf(cancel);
        const Entry& entry = file.entries[i];
        const auto skip = [&](std::string reason) {
            ++parsed.skipped;
            parsed.skippedRows.push_back({i + 1,
                                          {std::string(entry["dtposted"]), std::string(entry["trnamt"]),
                                           std::string(entry["name"]), std::string(entry["memo"])},
                                          std::move(reason)});
        };
        const auto posted = day(entry["dtposted"]);
        if (!posted) {
            skip(entry["dtposted"].empty() ? "There is no date in this line."
                                           : "“" + std::string(entry["dtposted"]) + "” is not a date.");
            continue;
        }
        const AmountCell amount = amountCell(entry["trnamt"], currency, figures.decimalMark(), Figures::Style::plain);
        if (amount.state != AmountCell::State::amount) {
            skip(amount.state == AmountCell::State::blank ? "There is no amount in this line."
                                                          : whyNoAmount(amount, entry["trnamt"]));
            continue;
        }
        if (entry.otherCurrency && !file.currency.empty() && !entry["cursym"].empty() &&
            Text::upper(entry["cursym"]) != file.currency) {
            skip("This line is in " + Text::upper(entry["cursym"]) + ", the others are in " + file.currency + ".");
            continue;
        }
        const std::string_view name = entry["name"], memo = entry["memo"];
        BankTransaction line = BankTransaction::make(*posted, joinedNarration(name, memo), amount.value());
        line.reference = entry["fitid"];
        line.source = parsed.format;
        if (std::string payee = cleanVendor(name.empty() ? memo : name); !payee.empty())
            line.counterparty = std::move(payee);
        negatives += line.amount < 0;
        positiveDebits += line.amount > 0 && direction(entry["trntype"]) == Direction::out;
        parsed.transactions.push_back(std::move(line));
        parsed.rows.push_back(i + 1);
    }
    if (negatives == 0 && positiveDebits > 0)
        parsed.notes.emplace_back("Lines marked as money out have no minus in this file; they were read as money in.");
    return finished(std::move(parsed));
}

}  // namespace tamba::BankImport
