#include "TambaCore/Base/Files.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Reports/GSTReturns.h"
#include "TambaCore/Reports/Reports.h"

#include <functional>
#include <map>
#include <sstream>

// tests/data/gst/oracles.txt: books in words, and the figures that the returns must give.
namespace tamba {
namespace {

using namespace GSTReturns;

struct Buyer {
    std::string gstin, place;
};
const std::map<std::string, Buyer> buyers{{"pune", {"27AABCM1234K1ZM", "27"}},
                                          {"bengaluru", {"29AACCB5678L1Z2", "29"}},
                                          {"zone", {"27AADCS4321P1Z2", "27"}},
                                          {"mumbai", {"", "27"}},
                                          {"delhi", {"", "07"}},
                                          {"mysuru", {"", "29"}},
                                          {"jaipur", {"", "08"}},
                                          {"abroad", {"", ""}}};

/// One line: its words, and the options among them (less=10, USD@83.25, rounded).
class Words {
public:
    explicit Words(const std::string& line) {
        std::istringstream in(line);
        for (std::string word; in >> word;) {
            const std::size_t cut = word.find_first_of("=@");
            static const std::string flags = " rounded void claimed ";
            if (cut != std::string::npos && cut > 0)
                options_[word[cut] == '@' ? "currency" : word.substr(0, cut)] =
                    word[cut] == '@' ? word : word.substr(cut + 1);
            else if (flags.find(" " + word + " ") != flags.npos)
                options_[word];
            else
                plain_.push_back(word);
        }
    }
    [[nodiscard]] bool has(const std::string& option) const { return options_.contains(option); }
    [[nodiscard]] std::string option(const std::string& name) const { return has(name) ? options_.at(name) : ""; }
    [[nodiscard]] const std::string& operator[](std::size_t i) const { return plain_.at(i); }
    [[nodiscard]] std::int64_t money(std::size_t i, const std::string& currency = "INR") const {
        return i < plain_.size() ? MoneyFormat::parse(plain_[i], Currency::of(currency)).value() : 0;
    }
    [[nodiscard]] int percent(const std::string& text) const {
        return static_cast<int>(MoneyFormat::parse(text, Currency::inr()).value());
    }
    [[nodiscard]] std::string rest(std::size_t from) const {
        return Text::join({plain_.begin() + static_cast<std::ptrdiff_t>(from), plain_.end()}, " ");
    }
    /// "USD@83.25" onto a record.
    void price(auto& record) const {
        if (!has("currency")) return;
        const auto parts = Text::split(option("currency"), '@');
        record.currency = parts[0];
        record.rateMicros = MoneyFormat::parseFXRate(parts[1]).value();
    }

private:
    std::vector<std::string> plain_;
    std::map<std::string, std::string> options_;
};

struct Case {
    Library library = Library::make();
    std::optional<Period> period;
    int compositionBP = 0;

    Case() { library.business.taxID = "27AAPFU0939F1ZV"; }

    void read(const std::string& line) {
        const Words words(line);
        const std::string& first = words[0];
        if (first == "invoice" || first == "note" || first == "draft" || first == "estimate") {
            document(words);
        } else if (first == "line") {
            Line sold = Line::make(words.rest(5), MoneyFormat::parseQuantity(words[2]).value(),
                                   words.money(3, last().currency), words.percent(words[4]));
            sold.hsn = words[1];
            sold.unit = words.option("unit");
            if (words.has("less")) sold.discountBP = words.percent(words.option("less"));
            change([&sold](Document& d) { d.lines.push_back(sold); });
        } else if (first == "paid") {
            const auto payment =
                Payment::make(Day::iso(words[1]).value(), words.money(2), words.money(3), PaymentMethod::bank);
            change([&payment](Document& d) { d.payments.push_back(payment); });
        } else if (first == "spent") {
            expense(words);
        } else if (first == "period") {
            const bool isQuarter = words[1][5] == 'Q';
            period = isQuarter ? Period::quarter({std::stoi(words[1]), 3 * (words[1][6] - '0'), 1}, 4)
                               : Period::month(Day::iso(words[1] + "-01").value());
        } else if (first == "series") {
            library.series.update(0, [&words](NumberSeries& series) { series.pattern = words[1]; });
        } else if (first == "composition") {
            library.business.regime = TaxRegime::gstComposition;
            compositionBP = words.percent(words[1]);
        } else {
            FAIL() << "not understood: " << line;
        }
    }

private:
    const Document& last() { return library.documents[library.documents.size() - 1]; }
    void change(const std::function<void(Document&)>& with) {
        library.documents.update(library.documents.size() - 1, with);
    }
    void document(const Words& words) {
        const DocKind kind = words[0] == "note"       ? DocKind::creditNote
                             : words[0] == "estimate" ? DocKind::estimate
                                                      : DocKind::invoice;
        const Day date = Day::iso(words[2]).value();
        Document made = Document::make(kind, date, date);
        made.state = words[0] == "draft" ? DocState::draft : words.has("void") ? DocState::void_ : DocState::issued;
        if (words[1] != "-") made.number = words[1];
        made.seriesID = library.defaultSeries(kind)->id;
        made.supply = fromWord<SupplyType>(words[3]).value();
        const Buyer& buyer = buyers.at(words[4]);
        made.billTo = PartySnapshot{words[4], "", buyer.gstin, {}, "IN", "", {}};
        if (!buyer.place.empty()) made.placeOfSupply = buyer.place;
        made.roundOff = words.has("rounded");
        words.price(made);
        for (const Document& other : library.documents)
            if (words.has("on") && other.number == words.option("on")) made.linkedID = other.id;
        EXPECT_EQ(words.has("on"), made.linkedID.has_value());
        library.documents.append(made);
        if (!period) period = Period::month(date);
    }
    void expense(const Words& words) {
        Expense spent = Expense::make(Day::iso(words[1]).value());
        words.price(spent);
        spent.amount = words.money(2, spent.currency);
        spent.taxSplit = {words.money(3), words.money(4), words.money(5), 0};
        spent.tax = spent.taxSplit.total();
        spent.claimTax = words.has("claimed");
        spent.vendorTaxID = words.option("vendor");
        if (words.has("tax"))
            spent = Expenses::withTax(library, spent, MoneyFormat::parse(words.option("tax"), Currency::inr()).value());
        library.expenses.append(spent);
    }
};

std::string money(std::int64_t amount) { return MoneyFormat::plain(amount, Currency::inr()); }
std::string with(const TaxSplit& tax) {
    std::string text;
    if (tax.cgst != 0 || tax.sgst != 0) text += " C " + money(tax.cgst) + " S " + money(tax.sgst);
    if (tax.igst != 0) text += " I " + money(tax.igst);
    return text;
}

/// Everything the returns and reports say, by what it is called in the file.
std::map<std::string, std::string> figures(const Case& books) {
    std::map<std::string, std::string> found;
    const Library& library = books.library;
    const Reports reports{library, books.period->to};
    const auto numberOf = [&library](const UUID& id) { return library.document(id)->displayNumber(); };
    for (const Document& document : library.documents) {
        const DocTotals sums = DocMath::sums(document);
        found[document.displayNumber()] = money(sums.taxable) + with(sums.tax) +
                                          (sums.roundOff == 0 ? "" : ", round-off " + money(sums.roundOff)) +
                                          ", total " + money(sums.total) + ", balance " +
                                          money(Books::Standings(library, books.period->to).of(document)->balance);
    }
    for (const IncomeBasis basis : allIncomeBases())
        for (int year = 2024; year <= 2026; ++year)
            for (const MonthRow& row : reports.months(basis, {year, 4})) {
                found["income " + std::string(word(basis)) + " " + row.month.monthKey()] = money(row.income);
                found["spending " + row.month.monthKey()] = money(row.expenses);
            }

    const GSTR1 outward = gstr1(library, *books.period);
    const auto entries = [&found](const std::string& table, const std::vector<Entry>& list) {
        for (const Entry& entry : list) {
            std::string& text = found[table + " " + entry.number] = money(entry.value) + " at " + entry.place;
            for (const RateGroup& rate : entry.rates)
                text += "; " + MoneyFormat::rate(rate.rateBP) + " " + money(rate.taxable) + with(rate.tax);
        }
    };
    entries("b2b", outward.b2b);
    entries("b2cl", outward.b2cl);
    entries("exp", outward.exports);
    entries("cdnr", outward.cdnr);
    entries("cdnur", outward.cdnur);
    for (const ConsumerRow& row : outward.b2cs)
        found["b2cs " + row.place + " " + MoneyFormat::rate(row.rateBP)] = money(row.taxable) + with(row.tax);
    for (const NilRow& row : outward.nilRated)
        found["nil " + std::string(word(row.supply)) + (row.registered ? " registered" : " consumers")] =
            money(row.taxable);
    for (const auto& [half, rows] : {std::pair{"hsn b2b ", &outward.hsnB2B}, {"hsn b2c ", &outward.hsnB2C}})
        for (const HSNRow& row : *rows)
            found[half + row.code + " " + row.unit + " " + MoneyFormat::rate(row.rateBP)] =
                (row.qtyMilli == 0 ? "" : MoneyFormat::quantity(row.qtyMilli) + " of ") + money(row.taxable) +
                with(row.tax);
    for (const NumberRun& run : outward.numbers)
        found["numbers " + run.from + " to " + run.to] = std::to_string(run.used) + " used, " +
                                                         std::to_string(run.cancelled) + " void, " +
                                                         std::to_string(run.missing) + " missing";
    for (const UUID& id : outward.leftOut) found["left out"] += numberOf(id);
    for (const Problem& problem : problems(library, outward))
        if (problem.recordID && problem.severity == Problem::Severity::look)
            found["look " + numberOf(*problem.recordID)] = problem.sentence;

    const GSTR3B summary = gstr3b(library, outward);
    const auto tell = [&found](const std::string& key, const std::string& text) {
        if (text != "0.00" && !text.empty()) found[key] = std::string(Text::trim(text));
    };
    tell("3.1(a)", money(summary.taxed.taxable) + with(summary.taxed.tax));
    tell("3.1(b)", money(summary.zeroRated.taxable) + with(summary.zeroRated.tax));
    tell("3.1(c)", money(summary.nilRated));
    for (const PlaceRow& row : summary.interState)
        found["3.2 " + row.place] = money(row.taxable) + with({0, 0, row.igst, 0});
    tell("4(A)(5)", with(summary.credit));
    tell("not claimed", money(summary.notClaimed));
    tell("payable", with(summary.setOff.payable));
    tell("cash", with(summary.setOff.cash));
    if (books.compositionBP != 0) {
        const Composition turnover = composition(library, *books.period, books.compositionBP);
        found["turnover"] = money(turnover.turnover) + with({turnover.cgst, turnover.sgst, 0, 0});
        for (const UUID& id : turnover.outOfState) found["turnover out of state"] += numberOf(id);
    }
    return found;
}

/// The lines of each case by its heading.
std::map<std::string, std::vector<std::string>> cases() {
    std::map<std::string, std::vector<std::string>> found;
    std::vector<std::string>* current = nullptr;
    for (const std::string& line : Text::splitLines(Files::read(std::string(TEST_DATA) + "/gst/oracles.txt"))) {
        if (line.starts_with("# "))
            current = &found[line.substr(2)];
        else if (current && !line.empty())
            current->push_back(line);
    }
    return found;
}

bool isExpectation(const std::string& line) { return std::string_view("=->").find(line[0]) != std::string_view::npos; }

Case booksOf(const std::vector<std::string>& lines) {
    Case books;
    for (const std::string& line : lines) {
        if (isExpectation(line)) continue;
        if (line.starts_with("use "))
            books = booksOf(cases().at(line.substr(4)));
        else
            books.read(line);
    }
    return books;
}

TEST(GSTOracles, giveTheFiguresWorkedOutByHand) {
    const auto all = cases();
    EXPECT_GT(all.size(), 25U);
    for (const auto& [heading, lines] : all) {
        SCOPED_TRACE(heading);
        const Case books = booksOf(lines);
        const auto found = figures(books);
        const std::string file = uploadText(gstr1(books.library, *books.period));
        for (const std::string& line : lines) {
            if (!isExpectation(line)) continue;
            const std::string text = line.substr(2);
            if (line[0] == '>') {
                EXPECT_NE(file.find(text), file.npos) << text << " in " << file;
            } else if (line[0] == '-') {
                const auto next = found.lower_bound(text);
                EXPECT_FALSE(next != found.end() && next->first.starts_with(text)) << next->first;
            } else {
                const std::size_t colon = text.find(": ");
                const auto figure = found.find(text.substr(0, colon));
                EXPECT_EQ(figure == found.end() ? "" : figure->second, text.substr(colon + 2)) << text;
            }
        }
    }
}

/// A file as one line.
std::string expected(const std::string& name) {
    std::string result;
    bool quoted = false;
    for (const char c : Files::read(std::string(TEST_DATA) + "/gst/" + name)) {
        if (c == '"') quoted = !quoted;
        if (quoted || (c != ' ' && c != '\n')) result += c;
    }
    return result + "\n";
}

TEST(GSTOracles, writeTheWorkedMonthForThePortal) {
    const Case books = booksOf(cases().at("worked month"));
    const GSTR1 outward = gstr1(books.library, *books.period);
    EXPECT_EQ(uploadText(outward), expected("gstr1-102026.json"));
    const GSTR3B summary = gstr3b(books.library, outward);
    EXPECT_EQ(uploadText(summary), expected("gstr3b-102026.json"));
    const auto& expenses = books.library.expenses;
    EXPECT_EQ(summary.foreign, std::vector{expenses[3].id});
    EXPECT_EQ(summary.withoutGSTIN, (std::vector{expenses[0].id, expenses[1].id}));
    for (const Problem& problem : problems(books.library, outward))
        EXPECT_EQ(problem.severity, Problem::Severity::look) << problem.sentence;
}

}  // namespace
}  // namespace tamba
