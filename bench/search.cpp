// Searching large books as they are typed into the search box, each letter against going through one text of all
// records once, which is what a search without an index would do at the least:
//   letter   Index::find for each beginning of some searches    against  std::string::find over every expense's text
//   change   Index after one record was altered                 against  Index of the whole books
//   bench_search [ROUNDS]
#include "TambaCore/Documents/Search.h"

#include "TambaCore/Fixtures.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace tamba;

double milliseconds(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 7;
    const Library library = Fixtures::large(25'000, 5'000, 20'000, {2026, 11, 20});
    Library altered = library;
    altered.expenses.update(1234, [](Expense& e) { e.vendor = "Chai Point"; });
    std::vector<double> whole, change, floor;
    std::vector<std::vector<double>> letters;  // each beginning of the searches in all rounds
    std::size_t found = 0;
    for (int round = 0; round < rounds; ++round) {
        Search::Index index;
        whole.push_back(milliseconds([&] { index = Search::Index(library); }));
        Search::Index after;
        change.push_back(milliseconds([&] { after = Search::Index(altered, &index); }));
        std::size_t which = 0;
        for (const std::string words : {"saffron 35,400", "total chai point", "inv/26-27/014", "upi northwind"})
            for (std::size_t length = 1; length <= words.size(); ++length, ++which) {
                if (letters.size() <= which) letters.emplace_back();
                letters[which].push_back(milliseconds([&] { found += after.find(words.substr(0, length)).size(); }));
            }
        floor.push_back(milliseconds([&] {
            for (const Expense& expense : library.expenses)
                if (expense.ocrText && expense.ocrText->find("saffron 35,400") != std::string::npos) ++found;
        }));
    }
    std::vector<double> medians;
    for (const auto& each : letters) medians.push_back(median(each));
    std::printf("25,000 expenses, 5,000 invoices, 20,000 bank lines; %zu groups\n", found);
    std::printf("letter  %7.2f ms  worst %7.2f ms (bar 16)  floor %7.2f ms\n", median(medians),
                *std::max_element(medians.begin(), medians.end()), median(floor));
    std::printf("change  %7.2f ms  whole %7.2f ms  ratio %.3f\n", median(change), median(whole),
                median(change) / median(whole));
    return found > 0 ? 0 : 1;
}
