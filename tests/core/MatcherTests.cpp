#include "TambaCore/Bank/Matcher.h"
#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Documents/Standing.h"
#include "tests/support/Books.h"

#include <algorithm>
#include <cstdlib>
#include <random>

namespace tamba {
namespace {

using testing::aBook;
using Kind = MatchSuggestion::Target::Kind;

constexpr Day day{2026, 10, 14};

BankTransaction line(std::int64_t amount, std::string text, Day date = day) {
    return BankTransaction::make(date, std::move(text), amount);
}

/// An issued invoice of one line without tax.
Document invoice(std::string number, std::int64_t total, std::string client, Day date = {2026, 10, 1}) {
    Document d = Document::make(DocKind::invoice, date, date.addingDays(15));
    d.state = DocState::issued;
    d.number = std::move(number);
    d.billTo.emplace().name = std::move(client);
    d.supply = SupplyType::exportLUT;
    d.lines = {Line::make("Design", 1000, total, 0)};
    return d;
}

TEST(Matcher, tellsWordsApart) {
    const struct {
        const char* text;
        std::set<std::string> words;
    } cases[] = {
        {"UPI/DR/409212345678/Northwind/HDFC-ref", {"409212345678", "northwind", "hdfc"}},
        {"The Chulha & Charcha Pvt. Ltd., INDIA", {"chulha", "charcha"}},
        {"NEFT to M/s O’Neil", {"neil"}},
        {"ÉCLAIR  éclair", {"éclair"}},
        {"चाय की दुकान", {"चाय", "दुकान"}},
        {"24/7 a-b", {}},
        {"", {}},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(Matcher::words(text), expected) << text;
}

TEST(Matcher, scoresExpenses) {
    const struct {
        std::int64_t spent;
        const char* text;
        std::int64_t amount;
        const char* vendor;
        int daysLater;
        int score;  // 0: no candidate
        const char* reason;
    } cases[] = {
        {250'000, "CARD 1234", 250'000, "Chai Point", 0, 80, "same amount, same day"},
        {250'000, "POS POINT CHAI", 250'000, "Chai Point", 0, 100, "same amount, same day, mentions chai"},
        {5'000, "x", 5'090, "y", 0, 60, "amount within 1%, same day"},
        {5'000, "x", 5'101, "y", 0, 0, ""},
        {9'999, "x", 9'899, "y", 0, 60, "amount within 1%, same day"},
        {500'000, "x", 506'000, "y", 0, 0, ""},
        {500'000, "x", 495'000, "y", 1, 57, "amount within 1%, 1 day apart"},
        {10'199, "x", 10'300, "y", -3, 51, "amount within 1%, 3 days apart"},
        {10'199, "x", 10'301, "y", 0, 0, ""},
        {100, "x", 100, "y", -6, 62, "same amount, 6 days apart"},
        {100, "x", 100, "y", 7, 60, "same amount, 7 days apart"},
        {100, "x", 100, "y", 8, 0, ""},
        {50, "x", -50, "y", 0, 60, "amount within 1%, same day"},
    };
    for (const auto& c : cases) {
        Library library = aBook();
        library.expenses.append(testing::spent(c.vendor, c.amount, day.addingDays(c.daysLater)));
        const auto found = Matcher::suggestions(line(-c.spent, c.text), library, 7);
        ASSERT_EQ(found.size(), c.score == 0 ? 0u : 1u) << c.spent << " " << c.amount << " " << c.daysLater;
        if (c.score == 0) continue;
        EXPECT_EQ(found[0].score, c.score);
        EXPECT_EQ(found[0].reason, c.reason);
        EXPECT_EQ(found[0].target, (MatchSuggestion::Target{Kind::expense, library.expenses[0].id}));
    }
}

TEST(Matcher, scoresInvoices) {
    const struct {
        std::int64_t received, total, paid;
        const char *text, *number, *client;
        Day date;
        int score;
        const char* reason;
    } cases[] = {
        {10'000'000, 10'000'000, 0, "NEFT", "A1", "Saffron Labs", day, 55, "pays the balance"},
        {9'000'000, 10'000'000, 0, "NEFT", "A1", "Saffron Labs", day, 30, "close to the balance (TDS?)"},
        {8'999'900, 10'000'000, 0, "NEFT", "A1", "Saffron Labs", day, 30, "close to the balance (TDS?)"},
        {8'999'899, 10'000'000, 0, "NEFT", "A1", "Saffron Labs", day, 0, ""},
        {10'000'001, 10'000'000, 0, "NEFT A1", "A1", "Saffron Labs", day, 0, ""},
        {100, 10'000'000, 0, "neft a1", "A1", "Saffron Labs", day, 70, "part payment, mentions A1"},
        {0, 10'000'000, 0, "neft a1", "A1", "Saffron Labs", day, 70, "part payment, mentions A1"},
        {9'000'000, 10'000'000, 0, "A 1", "A1", "", day, 65, "close to the balance (TDS?), mentions A1"},
        {100, 10'000'000, 0, "A 1", "A1", "", day, 0, ""},
        {60'000, 60'000, 30'000, "LABS", "A1", "Saffron Labs", day, 65, "same as invoice total, from Saffron Labs"},
        {30'000, 60'000, 30'000, "labs a1", "a 1", "Saffron Labs", day, 100,
         "pays the balance, mentions a 1, from Saffron Labs"},
        {30'000, 60'000, 60'000, "labs a1", "A1", "Saffron Labs", day, 0, ""},
        {60'000, 60'000, 0, "x", "A1", "", {2026, 9, 30}, 0, ""},
        {60'000, 60'000, 0, "labs", "A1", "Saffron Labs", {2026, 9, 30}, 45, "pays the balance, from Saffron Labs"},
        {60'000,
         60'000,
         0,
         "labs A1",
         "A1",
         "Saffron Labs",
         {2026, 9, 30},
         80,
         "pays the balance, mentions A1, from Saffron Labs"},
    };
    for (const auto& c : cases) {
        Library library = aBook();
        Document open = invoice(c.number, c.total, c.client);
        open.payments = {Payment::make(day, c.paid, 0, PaymentMethod::bank)};
        library.documents.append(open);
        const auto found = Matcher::suggestions(line(c.received, c.text, c.date), library, 7);
        ASSERT_EQ(found.size(), c.score == 0 ? 0u : 1u) << c.received << " " << c.text << " " << c.number;
        if (c.score == 0) continue;
        EXPECT_EQ(found[0].score, c.score) << c.reason;
        EXPECT_EQ(found[0].reason, c.reason);
    }
}

/// Everything compared with everything.
std::vector<MatchSuggestion> slowSuggestions(const BankTransaction& txn, const Library& library, int dayWindow) {
    const BankAccount* account = txn.accountID ? find(library.accounts, *txn.accountID) : nullptr;
    const std::string currency = account ? account->currency : "INR";
    const std::int64_t rate = library.rate(currency).value_or(0);
    const auto atHome = [&](std::int64_t amount, const std::string& in, std::int64_t itsRate) {
        return MoneyMath::tryConvert(amount, Currency::of(in), Currency::inr(), in == currency ? rate : itsRate);
    };
    const auto converted = atHome(txn.amount, currency, rate);
    if (!converted) return {};
    const auto named = Matcher::words(txn.text);
    const auto firstShared = [&](const std::string& name) -> std::optional<std::string> {
        for (const std::string& word : Matcher::words(name))
            if (named.contains(word)) return word;
        return {};
    };
    std::vector<MatchSuggestion> result;
    if (txn.amount < 0) {
        const std::int64_t spent = -*converted;
        for (const Expense& e : library.expenses) {
            const auto linksIt = [&](const auto& other) { return other.id != txn.id && other.expenseID == e.id; };
            if (e.bankTxnID || std::any_of(library.transactions.begin(), library.transactions.end(), linksIt)) continue;
            const auto value = atHome(e.amount, e.currency, e.rateMicros);
            if (!value || !Expenses::inHomeCurrency(library, e, e.amount)) continue;
            const std::int64_t diff = std::abs(*value - spent), d = std::abs(e.date.daysUntil(txn.date));
            if (d > dayWindow || (diff != 0 && diff > (spent < 10000 ? 100 : spent / 100))) continue;
            MatchSuggestion s{
                {Kind::expense, e.id}, diff == 0 ? 60 : 40, diff == 0 ? "same amount" : "amount within 1%"};
            s.score += static_cast<int>(std::max<std::int64_t>(0, 20 - 3 * d));
            s.reason += d == 0 ? ", same day" : ", " + std::to_string(d) + " day" + (d == 1 ? "" : "s") + " apart";
            if (const auto word = firstShared(e.vendor)) s.score += 20, s.reason += ", mentions " + *word;
            result.push_back(s);
        }
    } else {
        const std::int64_t amount = *converted;
        const std::string text = Text::upper(txn.text), squeezed = Text::replaceAll(text, " ", "");
        for (const Document& d : library.documents) {
            if (d.kind != DocKind::invoice || d.state != DocState::issued || Books::balance(library, d) < 1) continue;
            const auto due = atHome(Books::balance(library, d), d.currency, d.rateMicros);
            const auto total = atHome(DocMath::totals(d).total, d.currency, d.rateMicros);
            if (!due || !total || *due < 1 || (d.currency != "INR" && d.rateMicros < 1)) continue;
            const std::int64_t balance = *due;
            std::string number = Text::upper(d.number.value_or(""));
            if (number == " ") number.clear();
            MatchSuggestion s{{Kind::invoice, d.id}, 0, ""};
            if (amount == balance)
                s.score = 55, s.reason = "pays the balance";
            else if (amount < balance && !number.empty() && Text::contains(text, number))
                s.score = 35, s.reason = "part payment";
            else if (std::abs(amount - balance) <= balance / 10 + 100 && amount < balance)
                s.score = 30, s.reason = "close to the balance (TDS?)";
            else if (amount == *total)
                s.score = 45, s.reason = "same as invoice total";
            else
                continue;
            if (!number.empty() && Text::contains(squeezed, Text::replaceAll(number, " ", "")))
                s.score += 35, s.reason += ", mentions " + *d.number;
            if (d.billTo && firstShared(d.billTo->name)) s.score += 20, s.reason += ", from " + d.billTo->name;
            if (txn.date < d.issueDate) s.score -= 30;
            if (s.score < 26) continue;
            if (s.score > 99) s.score = 100;
            result.push_back(s);
        }
    }
    std::stable_sort(result.begin(), result.end(), [](const auto& a, const auto& b) { return a.score > b.score; });
    return result;
}

Bank::AutoMatched slowAutoMatch(Library library) {
    Bank::AutoMatched result{std::move(library), 0};
    for (std::size_t i = 0; i < result.library.transactions.size(); ++i) {
        const BankTransaction txn = result.library.transactions[i];
        if (txn.expenseID || txn.paymentID || txn.ignored) continue;
        const auto found = slowSuggestions(txn, result.library, 7);
        if (found.empty() || found[0].score < 80) continue;
        if (found.size() > 1 && found[1].score >= found[0].score - 15) continue;
        const auto& [kind, id] = found[0].target;
        try {
            result.library = kind == Kind::expense
                                 ? Bank::matchToExpense(result.library, txn.id, id)
                                 : Bank::matchToInvoice(result.library, txn.id, id, Bank::Remainder::due);
            ++result.count;
        } catch (const BooksError&) {
        }
    }
    return result;
}

/// Books where amounts, days, names and numbers meet often.
Library crowded(std::mt19937& dice) {
    const auto any = [&dice](auto... choices) {
        const std::array<std::common_type_t<decltype(choices)...>, sizeof...(choices)> all{choices...};
        return all[dice() % all.size()];
    };
    const auto date = [&] { return Day{2026, 10, 10}.addingDays(any(0, 0, 0, 1, 2, 6, 7, 9)); };
    const auto amount = [&] { return any(100, 100, 150, 5'000, 5'090, 10'000, 10'050, 11'111, 12'345, 832'500); };
    const auto name = [&] { return std::string(any("Chai Point", "Point Blank Ltd", "Saffron Labs", "", "चाय")); };
    const auto money = [&] {
        return std::pair{any("INR", "INR", "INR", "USD", "EUR"), any(0, 83'000'000, 84'000'000)};
    };
    Library library = aBook();
    library.accounts.append(BankAccount::make("Dollars", "USD"));
    library.accounts.append(BankAccount::make("Euros", "EUR"));
    library.rates = {{"USD", 83'250'000, day, {}}};
    for (int i = 0; i < 14; ++i) {
        Expense e = testing::spent(name(), amount(), date());
        std::tie(e.currency, e.rateMicros) = money();
        library.expenses.append(e);
        Document d = invoice(any("A1", "a 1", "7", "INV/26-27/001", " ", ""), amount(), name(), date());
        std::tie(d.currency, d.rateMicros) = money();
        d.state = any(DocState::issued, DocState::issued, DocState::issued, DocState::draft);
        // Of no line's amount: payments that a line may be are no candidates of comparing everything.
        if (any(true, false)) d.payments = {Payment::make(date(), any(50, 4'900), 0, PaymentMethod::bank)};
        library.documents.append(d);
        if (any(true, false, false)) {
            Document note = invoice("C1", any(100, 5'000), "");
            note.kind = DocKind::creditNote;
            note.linkedID = d.id;
            library.documents.append(note);
        }
        BankTransaction txn = line(any(-1, 1, 1) * amount(),
                                   any("UPI chai point", "NEFT A1 saffron", "a 1 labs", "inv/26-27/0017 चाय"), date());
        txn.accountID = library.accounts[any(0U, 0U, 0U, 1U, 2U)].id;
        txn.ignored = any(false, false, false, true);
        if (any(true, false, false, false)) txn.expenseID = library.expenses[dice() % library.expenses.size()].id;
        if (any(true, false, false, false))
            library.expenses.update(0, [&](Expense& linked) { linked.bankTxnID = UUID::random(); });
        library.transactions.append(txn);
    }
    return library;
}

RC_GTEST_PROP(Matcher, findsWhatComparingEverythingFinds, (std::uint32_t seed)) {
    std::mt19937 dice(seed);
    const Library library = crowded(dice);
    const int window = std::array{-1, 0, 7, 30}[dice() % 4];
    for (const BankTransaction& txn : library.transactions)
        RC_ASSERT(Matcher::suggestions(txn, library, window) == slowSuggestions(txn, library, window));
    const auto fast = Bank::autoMatch(library);
    const auto slow = slowAutoMatch(library);
    RC_ASSERT(fast.count == slow.count);
    RC_ASSERT(fast.library == slow.library);
}

}  // namespace
}  // namespace tamba
