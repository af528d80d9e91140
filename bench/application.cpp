// The application on the sample books and on 50,000 expenses, without a screen, wall time beside the time of the
// processor, medians of interleaved runs:
//   paint   from the start of the process to the first painted window, in processes of their own
//   edit    one change through AppModel with what follows from it at once, on each screen, and the painting of what it
//           changed; what other threads find out afterwards is not in it
//   letter  one letter typed into the search above the expenses, painting included
//   save    AppModel::saveNow      against  write + fsync + rename + folder fsync of the same bytes
//   bench_application [ROUNDS [overview | expenses | invoices | clients | bank | reports | letter | save]]
#include "Tamba/AppModel.h"
#include "Tamba/QtText.h"
#include "Tamba/StartUp.h"
#include "Tamba/Style.h"
#include "Tamba/TambaApp.h"
#include "Tamba/Window.h"
#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Expenses.h"
#include "TambaCore/Fixtures.h"

#include <QApplication>
#include <QLineEdit>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tamba;

const Day today{2026, 11, 20};

struct Cost {
    double wall = 0, processor = 0;
};

double milliseconds(const timespec& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double now(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return milliseconds(time);
}

/// The processor's share is this thread's.
Cost cost(const std::function<void()>& work) {
    const double wall = now(CLOCK_MONOTONIC), processor = now(CLOCK_THREAD_CPUTIME_ID);
    work();
    return {now(CLOCK_MONOTONIC) - wall, now(CLOCK_THREAD_CPUTIME_ID) - processor};
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

Cost median(const std::vector<Cost>& costs) {
    std::vector<double> wall, processor;
    for (const Cost& each : costs) wall.push_back(each.wall), processor.push_back(each.processor);
    return {median(wall), median(processor)};
}

/// The window as the application makes it at its start.
struct Running {
    explicit Running(const std::filesystem::path& folder) : model([] { return today; }) {
        Style::install(*qApp);
        window = std::make_unique<Window>(model);
        applyLooks(*qApp, model);
        window->resize(1440, 880);
        window->showScreen(Screen::overview);
        startUp = std::make_unique<StartUp>(model, *window, folder);
        startUp->begin();
        window->show();
        QCoreApplication::processEvents();
    }

    AppModel model;
    std::unique_ptr<Window> window;
    std::unique_ptr<StartUp> startUp;
};

/// Prints when the window stood there, and what the process had used up to then.
int paint(const std::filesystem::path& folder) {
    const Running running(folder);
    if (running.model.state() != AppModel::State::open) return 1;
    std::printf("%.3f %.3f\n", now(CLOCK_MONOTONIC), now(CLOCK_PROCESS_CPUTIME_ID));
    std::fflush(stdout);
    std::_Exit(0);
}

Cost paintOnce(const std::string& program, const std::filesystem::path& folder) {
    const double begin = now(CLOCK_MONOTONIC);
    FILE* pipe = popen(("'" + program + "' --paint '" + folder.string() + "'").c_str(), "r");
    Cost cost;
    if (!pipe || std::fscanf(pipe, "%lf %lf", &cost.wall, &cost.processor) != 2 || pclose(pipe) != 0) {
        std::fprintf(stderr, "measuring the first painting failed\n");
        std::exit(1);
    }
    cost.wall -= begin;
    return cost;
}

void print(const char* what, const Cost& cost, const char* bar) {
    std::printf("%-34s %8.1f ms  processor %8.1f ms  (bar %s)\n", what, cost.wall, cost.processor, bar);
}

void measurePainting(const std::string& program, const std::filesystem::path& small, const std::filesystem::path& large,
                     int rounds) {
    std::vector<Cost> onSmall, onLarge;
    for (int i = 0; i < rounds; ++i) {
        onSmall.push_back(paintOnce(program, small));
        onLarge.push_back(paintOnce(program, large));
    }
    print("first paint, sample books", median(onSmall), "400");
    print("first paint, 50,000 expenses", median(onLarge), "900");
}

struct Edit {
    const char* name;
    AppModel::Action take;
};

void measureEdits(Running& running, int rounds, std::string_view only) {
    int turn = 0;
    const auto at = [&turn](const auto& list) { return static_cast<std::size_t>(turn) * 997 % list.size(); };
    const Edit edits[] = {
        {"vendor of an expense",
         [&](Library library, Day) {
             Expense expense = library.expenses[at(library.expenses)];
             expense.vendor = "Vendor " + std::to_string(turn);
             return Expenses::replace(std::move(library), std::move(expense));
         }},
        {"expense deleted",
         [&](Library library, Day) {
             const UUID id = library.expenses[at(library.expenses)].id;
             return Expenses::remove(std::move(library), id);
         }},
        {"draft added",
         [&](Library library, Day day) {
             Document draft = Books::newDocument(library, DocKind::invoice, library.clients[0].id, day);
             draft.lines.push_back(Books::newLine(library, draft));
             return Books::addDraft(std::move(library), std::move(draft));
         }},
        {"bank line set aside",
         [&](Library library, Day) {
             const BankTransaction& line = library.transactions[at(library.transactions)];
             const UUID id = line.id;
             return line.isMatched() ? library : Bank::setIgnored(std::move(library), id, !line.ignored);
         }},
    };
    for (const auto& [screen, on] : {std::pair{Screen::overview, "overview"},
                                     {Screen::expenses, "expenses"},
                                     {Screen::invoices, "invoices"},
                                     {Screen::clients, "clients"},
                                     {Screen::bank, "bank"},
                                     {Screen::reports, "reports"}}) {
        if (!only.empty() && only != on) continue;
        running.model.saveNow();
        running.window->showScreen(screen);
        QCoreApplication::processEvents();
        for (const Edit& edit : edits) {
            std::vector<Cost> costs;
            for (int i = 0; i < rounds; ++i, ++turn) {
                costs.push_back(cost([&] {
                    running.model.perform(QStringLiteral("Edit"), edit.take);
                    QCoreApplication::sendPostedEvents();  // lays out and paints what changed
                }));
            }
            print((std::string(on) + ": " + edit.name).c_str(), median(costs), "16");
        }
    }
}

void measureLetters(Running& running, int rounds) {
    running.window->showScreen(Screen::expenses);
    auto* search = running.window->findChild<QLineEdit*>(QStringLiteral("search"));
    std::vector<Cost> letters;
    const QString words = QStringLiteral("saffron 35,400");
    for (int i = 0; i < rounds; ++i)
        for (qsizetype length = 1; length <= words.size(); ++length)
            letters.push_back(cost([&] {
                search->setText(words.left(length));
                QCoreApplication::sendPostedEvents();
                running.window->repaint();
            }));
    search->clear();
    print("letter in the search of expenses", median(letters), "16");
}

void measureSaving(Running& running, const std::filesystem::path& scratch, int rounds) {
    const std::string bytes = Files::read(running.model.store().fileURL());
    std::vector<Cost> ours, floor;
    std::vector<double> ratio;
    for (int i = 0; i < rounds; ++i) {
        running.model.perform(QStringLiteral("Edit"), [i](Library library, Day) {
            library.business.phone = std::to_string(i);
            return library;
        });
        ours.push_back(cost([&] { running.model.saveNow(); }));
        floor.push_back(cost([&] { Files::writeAtomically(scratch / "copy.json", bytes); }));
        ratio.push_back(ours.back().wall / floor.back().wall);
    }
    print("save", median(ours), "2 × the floor");
    print("  write, flush, rename alone", median(floor), "–");
    std::printf("  ratio %.2f of %.1f MB\n", median(ratio), static_cast<double>(bytes.size()) / 1e6);
}

}  // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*.debug=false;qt.text.font*=false");
    const auto scratch = std::filesystem::temp_directory_path() / "tamba-bench-application";
    // Nothing of whoever measures is read or written.
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, QByteArray::fromStdString((scratch / "home").string()));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tamba"));
    if (argc == 3 && std::string_view(argv[1]) == "--paint") return paint(argv[2]);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 7;
    const std::string_view only = argc > 2 ? argv[2] : "";
    std::filesystem::remove_all(scratch);
    std::filesystem::create_directories(scratch / "home");
    std::filesystem::permissions(scratch / "home", std::filesystem::perms::owner_all);
    LibraryStore(scratch / "small").save(Fixtures::library(today));
    LibraryStore(scratch / "large").save(Fixtures::large(50'000, 5'000, 20'000, today));
    if (only.empty()) measurePainting(argv[0], scratch / "small", scratch / "large", rounds);
    {
        Running running(scratch / "large");
        measureEdits(running, rounds, only);
        if (only.empty() || only == "letter") measureLetters(running, rounds);
        if (only.empty() || only == "save") measureSaving(running, scratch, rounds);
    }
    std::filesystem::remove_all(scratch);
    return 0;
}
