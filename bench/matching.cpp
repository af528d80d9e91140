// Matching bank lines with expenses and invoices in books of one size and of twice that size:
//   spent     every line is an expense of the books, most of them obvious
//   received  every line pays an invoice and names it
//   equal     the same, but all invoices have one amount and a few clients
//   typed     the same, and every payment was typed before
//   alike     all expenses have one amount on few days: nothing is obvious
//   one       the suggestions for one line, as a window asks for them
//   bench_matching [ROUNDS [WHICH]]
#include "TambaCore/Bank/Matching.h"

#include "TambaCore/Bank/Matcher.h"
#include "TambaCore/Documents/DocMath.h"
#include "TambaCore/Fixtures.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tamba;

double milliseconds(const std::function<void()>& work) {
    const std::clock_t begin = std::clock();  // the time of this process alone
    work();
    return 1e3 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// As many lines as expenses, each an expense of the books a day or two later.
Library spent(int size) {
    Library library = Fixtures::large(size, 0, size, {2026, 11, 20});
    for (std::size_t i = 0; i < library.expenses.size(); ++i) {
        library.expenses.update(i, [](Expense& expense) { expense.bankTxnID.reset(); });
        const Expense& expense = library.expenses[i];
        library.transactions.update(i, [&](BankTransaction& line) {
            line.expenseID.reset();
            line.date = expense.date.addingDays(static_cast<std::int64_t>(i % 3));
            line.amount = -expense.amount;
            line.text = "UPI/DR/" + std::to_string(i) + "/" + expense.vendor;
        });
    }
    return library;
}

/// As many lines as invoices, none of them paid yet.
Library received(int size) {
    Library library = Fixtures::large(0, size, size, {2026, 11, 20});
    for (std::size_t i = 0; i < library.documents.size(); ++i) {
        library.documents.update(i, [](Document& invoice) { invoice.payments.clear(); });
        const Document& invoice = library.documents[i];
        library.transactions.update(i, [&](BankTransaction& line) {
            line.date = invoice.issueDate.addingDays(10);
            line.amount = DocMath::totals(invoice).total;
            line.text = "NEFT CR " + *invoice.number + " " + invoice.billTo->name;
        });
    }
    return library;
}

Library equal(int size) {
    Library library = received(size);
    for (std::size_t i = 0; i < library.documents.size(); ++i) {
        library.documents.update(
            i, [](Document& invoice) { invoice.lines = {Line::make("Retainer", 1000, 2'500'000, 1800)}; });
        library.transactions.update(
            i, [&](BankTransaction& line) { line.amount = DocMath::totals(library.documents[i]).total; });
    }
    return library;
}

/// As `equal`, and the payments were typed before the statement came.
Library typed(int size) {
    Library library = equal(size);
    for (std::size_t i = 0; i < library.documents.size(); ++i)
        library.documents.update(i, [&](Document& invoice) {
            const BankTransaction& line = library.transactions[i];
            invoice.payments = {Payment::make(line.date.addingDays(-2), line.amount, 0, PaymentMethod::bank)};
        });
    return library;
}

Library alike(int size) {
    Library library = spent(size);
    for (std::size_t i = 0; i < library.expenses.size(); ++i) {
        library.expenses.update(i, [&](Expense& expense) {
            expense.amount = 50'000;
            expense.date = Day{2026, 4, 1}.addingDays(static_cast<std::int64_t>(i % 5));
        });
        library.transactions.update(i, [&](BankTransaction& line) {
            line.amount = -50'000;
            line.date = {2026, 4, 3};
        });
    }
    return library;
}

void report(const char* what, int rounds, const std::function<Library(int)>& books,
            const std::function<int(const Library&)>& work) {
    constexpr int size = 20'000;
    const Library once = books(size), twice = books(2 * size);
    std::vector<double> first, second, ratio;
    int count = 0;
    for (int i = 0; i < rounds; ++i) {
        first.push_back(milliseconds([&] { count = work(once); }));
        second.push_back(milliseconds([&] { (void)work(twice); }));
        ratio.push_back(second.back() / first.back());
    }
    std::printf("%-9s %6.0f ms  twice the size %6.0f ms  ratio %.2f (bar 2.3)  %d found\n", what, median(first),
                median(second), median(ratio), count);
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 7;
    const auto all = [](const Library& library) { return Bank::autoMatch(library).count; };
    const auto one = [](const Library& library) {
        const auto found = Matcher::suggestions(library.transactions[777], library, Matcher::listDays);
        return static_cast<int>(found.size());
    };
    const struct {
        const char* name;
        Library (*books)(int);
        std::function<int(const Library&)> work;
    } paths[] = {{"spent", spent, all}, {"received", received, all}, {"typed", typed, all},
                 {"equal", equal, all}, {"alike", alike, all},       {"one", spent, one}};
    for (const auto& path : paths)
        if (argc < 3 || std::string_view(path.name) == argv[2]) report(path.name, rounds, path.books, path.work);
    return 0;
}
