// Reading a statement of 100,000 lines and adding it to books that hold 100,000 lines, against splitting its text
// alone, in interleaved pairs. Prints the medians; the bar is 4 times.
//   bench_statements [PAIRS]
#include "TambaCore/Bank/Bank.h"
#include "TambaCore/Bank/BankImport.h"
#include "TambaCore/Base/CSV.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace tamba;

constexpr int lines = 100'000;

/// A year of a busy account, balances right.
std::string statement(int seed) {
    static const char* const payees[] = {"SWIGGY", "PRIYA SHARMA", "NORTHSEA SOFTWARE INDIA PVT LTD", "BIG BAZAAR",
                                         "ACME TRADERS"};
    std::string text =
        "Made-up Bank Ltd\nStatement of account\n\n"
        "Date,Narration,Chq./Ref.No.,Value Dt,Withdrawal Amt.,Deposit Amt.,Closing Balance\n";
    std::int64_t balance = 100'000'000'00;
    std::uint64_t state = static_cast<std::uint64_t>(seed);
    const auto dice = [&](std::uint64_t sides) {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return (state >> 33) % sides;
    };
    const auto money = [](std::int64_t minor) {
        return "\"" + MoneyFormat::string(minor, Currency::inr(), MoneyFormat::Symbol::hidden) + "\"";
    };
    for (int i = 0; i < lines; ++i) {
        const Day day = Day{2025, 4, 1}.addingDays(i * 365 / lines);
        const auto amount = static_cast<std::int64_t>(dice(5'000'000) + 100);
        const bool in = dice(3) == 0;
        balance += in ? amount : -amount;
        char date[32], number[32];
        std::snprintf(date, sizeof date, "%02d/%02d/%04d", day.d, day.m, day.y);
        std::snprintf(number, sizeof number, "%06d%06d", seed, i);
        text += std::string(date) + ",UPI-" + payees[dice(5)] + "-HANDLE@YBL-YESB0YBLUPI-" + number +
                "-PAYMENT FROM PH,0000" + number + "," + date + "," + (in ? "," + money(amount) : money(amount) + ",") +
                "," + money(balance) + "\n";
    }
    return text;
}

/// Of processor time: nothing here waits, and others may be using the machine.
double milliseconds(const std::function<void()>& work) {
    const std::clock_t begin = std::clock();
    work();
    return static_cast<double>(std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    const int pairs = argc > 1 ? std::atoi(argv[1]) : 15;
    const std::string text = statement(1);
    const auto read = [](const std::string& csv) { return BankImport::csv(csv, DateOrder::dmy, Currency::inr()); };
    const Library books = Bank::addTransactions(Library::make(), read(statement(2)).transactions, std::nullopt).library;

    std::vector<double> reading, adding, splitting;
    for (int i = 0; i < pairs; ++i) {
        BankImport::Parsed parsed;
        reading.push_back(milliseconds([&] { parsed = read(text); }));
        Bank::Added added;
        adding.push_back(
            milliseconds([&] { added = Bank::addTransactions(books, std::move(parsed.transactions), std::nullopt); }));
        if (parsed.skipped != 0 || !parsed.balanceBreaks.empty() || added.added != lines) return 1;
        splitting.push_back(milliseconds([&] {
            if (CSV::parse(text).size() < lines) std::abort();
        }));
    }
    const double ours = median(reading) + median(adding), floor = median(splitting);
    std::printf("%d lines, %.1f MB: read %.1f ms, add %.1f ms; CSV::parse alone %.1f ms; ratio %.2f (bar 4.0)\n", lines,
                static_cast<double>(text.size()) / 1e6, median(reading), median(adding), floor, ours / floor);
    return 0;
}
