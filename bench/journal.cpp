// The twelve months of a book of 100,000 records, from a cold start to the printed table, in interleaved pairs:
//   tamba-cli report months      against  ledger's monthly report of the same book's journal, at least 5 times faster
//   bench_journal [PAIRS]
#include "TambaCore/Base/Files.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Reports/Export.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace tamba;

/// Runs a command that is to succeed.
double milliseconds(const std::string& command) {
    const auto begin = std::chrono::steady_clock::now();
    if (std::system((command + " >/dev/null").c_str()) != 0) {
        std::printf("failed: %s\n", command.c_str());
        std::exit(1);
    }
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    const int pairs = argc > 1 ? std::atoi(argv[1]) : 7;
    if (std::system("ledger --version >/dev/null 2>&1") != 0) {
        std::printf("ledger is not installed: nothing to measure against\n");
        return 0;
    }
    const auto folder = std::filesystem::temp_directory_path() / ("tamba-bench-" + UUID::random().text());
    const Library library = Fixtures::large(60'000, 20'000, 20'000, {2026, 11, 20});
    const LibraryStore store(folder);
    store.save(library);
    const auto begin = std::chrono::steady_clock::now();
    const std::string journal = Export::journal(library, IncomeBasis::accrual);
    const std::chrono::duration<double, std::milli> made = std::chrono::steady_clock::now() - begin;
    Files::writeAtomically(folder / "books.journal", journal);
    std::printf("journal made in %.1f ms, %.1f MB\n", made.count(), static_cast<double>(journal.size()) / 1e6);

    const std::string place = "'" + folder.string() + "'";
    const std::string ours = TAMBA_CLI " --library " + place + " report months --period 2026";
    const std::string theirs = "ledger -f " + place +
                               "/books.journal register --monthly --collapse ^income ^expenses"
                               " --begin 2026-04-01 --end 2027-04-01";
    std::vector<double> own, floor, ratio;
    for (int i = 0; i < pairs; ++i) {
        own.push_back(milliseconds(ours));
        floor.push_back(milliseconds(theirs));
        ratio.push_back(floor.back() / own.back());
    }
    std::filesystem::remove_all(folder);
    std::printf("twelve months %7.1f ms  ledger %7.1f ms  %.1f times faster (bar 5)\n", median(own), median(floor),
                median(ratio));
    return median(ratio) >= 5 ? 0 : 1;
}
