#include "TambaCore/Bank/StatementParts.h"
#include "TambaCore/Base/Text.h"

#include <algorithm>

/// QIF: a letter and a value a line, "^" ends a record, lines with "!" say what the records are.
namespace tamba::BankImport {
namespace {

struct Record {
    std::string date, amount, payee, memo, number;
    std::string repeatedAmount;  ///< U; newer writers repeat T in it
    [[nodiscard]] bool empty() const {
        return date.empty() && amount.empty() && payee.empty() && memo.empty() && number.empty() &&
               repeatedAmount.empty();
    }
};

/// Whether records under this header are lines of a statement; lists of categories or securities use the same letters.
bool holdsLines(std::string_view header) {
    std::string type = collapsed(Text::lower(header));
    if (!type.starts_with("!type:")) return false;
    type.erase(0, 6);
    const std::string_view name = Text::trim(type);
    return name == "bank" || name == "cash" || name == "ccard" || name == "oth a" || name == "oth l";
}

/// "12/19'05" and "8/31' 0": the apostrophe stands for 20, blanks pad. Two digits without one are 1970 to 2069.
std::string plainDate(std::string_view printed, DateOrder order) {
    std::string date;
    const bool after2000 = printed.find('\'') != printed.npos;
    for (const char c : printed)
        if (c != ' ') date += c == '\'' ? '/' : c;
    const std::size_t mark = date.find_last_of("/-.");
    if (mark == std::string::npos ||
        std::count_if(date.begin(), date.end(), [](char c) { return c == '/' || c == '-' || c == '.'; }) != 2)
        return date;
    const std::string year = date.substr(mark + 1);
    if (year.size() > 2 || year.empty() || year.find_first_not_of("0123456789") != std::string::npos) return date;
    if (date.find_first_of("/-.") > 2) return date;  // the year stands first
    if (order == DateOrder::ymd && !after2000) return date;
    const std::string twoDigits = year.size() == 1 ? "0" + year : year;
    const bool last = !after2000 && twoDigits >= "70";
    return date.substr(0, mark + 1) + (last ? "19" : "20") + twoDigits;
}

std::vector<Record> records(std::string_view text, Cancel cancel) {
    std::vector<Record> result;
    Record record;
    bool inLines = true, inOptions = false;
    const auto end = [&] {
        if (inLines && !record.empty()) result.push_back(std::move(record));
        if (result.size() > maximumLines) throw ImportError(ImportError::Code::tooLarge);
        record = {};
    };
    std::size_t begin = 0;
    while (begin <= text.size()) {
        stopIf(cancel);
        const std::size_t stop = std::min(text.find_first_of("\r\n", begin), text.size());
        const std::string_view line = Text::trim(text.substr(begin, stop - begin));
        begin = stop + 1;
        if (line.empty() || line.front() == '#') continue;
        const std::string_view value = Text::trim(line.substr(1));
        const auto first = [&](std::string& field) {
            if (field.empty()) field = collapsed(value);
        };
        switch (line.front()) {
            case '!':
                end();
                inOptions = containsIgnoringCase(line.substr(0, 8), "!option") ||
                            containsIgnoringCase(line.substr(0, 8), "!clear");
                if (!inOptions) inLines = holdsLines(line);
                break;
            case '^':
                end();
                break;
            case 'D':
                first(record.date);
                break;
            case 'T':
                first(record.amount);
                break;
            case 'U':
                first(record.repeatedAmount);
                break;
            case 'P':
                first(record.payee);
                break;
            case 'M':
                first(record.memo);
                break;
            case 'N':
                first(record.number);
                break;
            default:
                break;
        }
    }
    end();
    return result;
}

}  // namespace

Parsed qif(std::string_view text, DateOrder order, const Currency& currency, Cancel cancel) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    std::vector<Record> all = records(text, cancel);
    Parsed parsed;
    parsed.format = "QIF";
    Figures figures;
    std::vector<DateCell> dates;
    for (Record& record : all) {
        stopIf(cancel);
        if (record.amount.empty()) record.amount = record.repeatedAmount;
        figures.see(record.amount);
        dates.push_back(dateCell(plainDate(record.date, order), order));
    }
    ChosenOrder chosen = chooseOrder(dates, order);
    parsed.order = chosen.order;
    parsed.orderReason = std::move(chosen.reason);
    if (chosen.doubt) parsed.notes.push_back(std::move(*chosen.doubt));

    for (std::size_t i = 0; i < all.size(); ++i) {
        stopIf(cancel);
        Record& record = all[i];
        const auto skip = [&](std::string reason) {
            ++parsed.skipped;
            parsed.skippedRows.push_back(
                {i + 1, {record.date, record.amount, record.payee, record.memo}, std::move(reason)});
        };
        const auto day = dates[i].in(parsed.order);
        if (!day) {
            skip(record.date.empty() ? "There is no date in this line." : "“" + record.date + "” is not a date.");
            continue;
        }
        const AmountCell amount = amountCell(record.amount, currency, figures.decimalMark());
        if (amount.state != AmountCell::State::amount) {
            skip(amount.state == AmountCell::State::blank ? "There is no amount in this line."
                                                          : whyNoAmount(amount, record.amount));
            continue;
        }
        BankTransaction line = BankTransaction::make(*day, joinedNarration(record.payee, record.memo), amount.value());
        line.reference = std::move(record.number);
        line.source = parsed.format;
        if (std::string payee = cleanVendor(record.payee.empty() ? record.memo : record.payee); !payee.empty())
            line.counterparty = std::move(payee);
        parsed.transactions.push_back(std::move(line));
        parsed.rows.push_back(i + 1);
    }
    return finished(std::move(parsed));
}

}  // namespace tamba::BankImport
