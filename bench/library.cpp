// Opening and encoding a large book, each against its floor, in processes of their own run in interleaved pairs:
//   open    LibraryStore::load                       against  simdjson's DOM: read, parse, fill the same plain records
//   encode  ModelsJSON::encode                       against  write + fsync + rename + folder fsync of the same bytes
//   bench_library [PAIRS]
#include "TambaCore/Base/Files.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Model/Fields.h"
#include "TambaCore/Model/LibraryStore.h"
#include "TambaCore/Model/ModelsJSON.h"

#include <simdjson.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace tamba;
namespace dom = simdjson::dom;

/// The floor's filling: what a program would write over a parsed tree, for every record of the books, with the list of
/// the books replaced by a plain vector.
namespace Floor {

void fill(dom::element v, bool& out) { out = bool(v); }
void fill(dom::element v, std::int64_t& out) { out = std::int64_t(v); }
void fill(dom::element v, int& out) { out = static_cast<int>(std::int64_t(v)); }
void fill(dom::element v, std::string& out) { out = std::string_view(v); }
void fill(dom::element v, UUID& out) { out = UUID::parse(std::string_view(v)).value(); }
void fill(dom::element v, Day& out) { out = Day::iso(std::string_view(v)).value(); }
void fill(dom::element v, Instant& out) { out = parseInstant(std::string_view(v)).value(); }
template <class E>
    requires std::is_enum_v<E>
void fill(dom::element v, E& out) {
    out = fromWord<E>(std::string_view(v)).value();
}
void fill(dom::element v, std::map<std::string, std::int64_t>& out) {
    for (const auto& [key, value] : dom::object(v)) out[std::string(key)] = std::int64_t(value);
}
template <IsRecord R>
void fill(dom::element v, R& out);
template <class T>
void fill(dom::element v, std::vector<T>& out) {
    for (const dom::element item : dom::array(v)) fill(item, out.emplace_back());
}
template <class T>
void fill(dom::element v, std::optional<T>& out) {
    fill(v, out.emplace());
}
template <IsRecord R>
void fill(dom::element v, R& out) {
    dom::object object = v;
    auto place = object.begin();
    const auto one = [&](const auto& field) {
        if (place == object.end() || place.key() != field.key) return;  // an optional that is absent
        fill(place.value(), out.*field.member);
        ++place;
    };
    std::apply([&](const auto&... field) { (..., one(field)); }, Fields<R>);
}

template <class T>
std::size_t records(const dom::element& root, const char* key, std::vector<T>& out) {
    fill(root[key], out);
    return out.size();
}

std::size_t open(const std::filesystem::path& file) {
    dom::parser parser;
    const dom::element root = parser.load(file.string());
    static std::vector<Client> clients;
    static std::vector<CatalogItem> items;
    static std::vector<Category> categories;
    static std::vector<Project> projects;
    static std::vector<Expense> expenses;
    static std::vector<RecurringExpense> recurring;
    static std::vector<Document> documents;
    static std::vector<NumberSeries> series;
    static std::vector<BankAccount> accounts;
    static std::vector<BankTransaction> transactions;
    static std::vector<CategoryRule> rules;
    static std::vector<FXRate> rates;
    static Business business;
    fill(root["business"], business);
    return records(root, "clients", clients) + records(root, "items", items) + records(root, "categories", categories) +
           records(root, "projects", projects) + records(root, "expenses", expenses) +
           records(root, "recurring", recurring) + records(root, "documents", documents) +
           records(root, "series", series) + records(root, "accounts", accounts) +
           records(root, "transactions", transactions) + records(root, "rules", rules) + records(root, "rates", rates);
}

}  // namespace Floor

double milliseconds(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// One measurement in this process; prints milliseconds and peak memory.
int measure(const std::string& what, const std::filesystem::path& folder) {
    const LibraryStore store(folder);
    static std::optional<Library> library;
    static std::string bytes;
    double time = 0;
    if (what == "open") {
        time = milliseconds([&] { library = store.load(); });
    } else if (what == "openFloor") {
        std::size_t count = 0;
        time = milliseconds([&] { count = Floor::open(store.fileURL()); });
        if (count < 45'000) return 1;
    } else if (what == "encode") {
        library = store.load();
        std::size_t size = 0;
        time = milliseconds([&] { ModelsJSON::encode(*library, [&size](auto piece) { size += piece.size(); }); });
        if (size != Files::size(store.fileURL())) return 1;
    } else if (what == "encodeFloor") {
        bytes = Files::read(store.fileURL());
        time = milliseconds([&] { Files::writeAtomically(folder / "copy.json", bytes); });
    } else {
        return 2;
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%.2f %ld\n", time, usage.ru_maxrss / 1024);
    return 0;
}

struct Sample {
    double time = 0;
    long peak = 0;
};

Sample run(const std::string& program, const std::string& what, const std::filesystem::path& folder) {
    Sample sample;
    FILE* pipe = popen(("'" + program + "' --measure " + what + " '" + folder.string() + "'").c_str(), "r");
    if (!pipe || std::fscanf(pipe, "%lf %ld", &sample.time, &sample.peak) != 2 || pclose(pipe) != 0) {
        std::fprintf(stderr, "measuring %s failed\n", what.c_str());
        std::exit(1);
    }
    return sample;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 4 && std::string_view(argv[1]) == "--measure") return measure(argv[2], argv[3]);
    const int pairs = argc > 1 ? std::atoi(argv[1]) : 15;
    const auto folder = std::filesystem::temp_directory_path() / "tamba-bench-library";
    std::filesystem::remove_all(folder);
    LibraryStore(folder).save(Fixtures::large(20'000, 5'000, 20'000, {2026, 11, 20}));
    std::printf("20,000 expenses, 5,000 invoices, 20,000 bank lines: %.1f MB\n",
                static_cast<double>(Files::size(folder / "tamba.json").value()) / 1e6);
    for (const std::string what : {"open", "encode"}) {
        std::vector<double> ours, floor, ratio;
        long peak = 0, floorPeak = 0;
        for (int i = 0; i < pairs; ++i) {
            const Sample a = run(argv[0], what, folder);
            const Sample b = run(argv[0], what + "Floor", folder);
            ours.push_back(a.time), floor.push_back(b.time), ratio.push_back(a.time / b.time);
            peak = std::max(peak, a.peak), floorPeak = std::max(floorPeak, b.peak);
        }
        std::printf("%-7s %7.1f ms  floor %7.1f ms  ratio %.2f (bar %.1f)  peak %ld MB, floor %ld MB\n", what.c_str(),
                    median(ours), median(floor), median(ratio), what == "open" ? 1.3 : 2.0, peak, floorPeak);
    }
    std::filesystem::remove_all(folder);
    return 0;
}
