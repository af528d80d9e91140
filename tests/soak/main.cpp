// Lives through many short lives of books: each opens a folder, does some hundred things at random, and looks after
// every one of them whether the books still keep their laws. Runs until the time is over; a life that fails ends it
// with its seed, and can be lived again.
//   soak --seconds N [--seed N]      lives from that seed on, else from one of the moment
//   soak --seed N --trail            that life alone, with every step it takes
#include "Tamba/QtText.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Recurring.h"
#include "TambaCore/Fixtures.h"
#include "TambaCore/Model/Changes.h"
#include "TambaCore/Model/ModelsJSON.h"
#include "tests/soak/Laws.h"
#include "tests/soak/Somebody.h"

#include <QCoreApplication>
#include <sys/random.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>

namespace {
tamba::Fixtures::Dice identities(std::uint64_t{0});
}  // namespace

/// In the place of the system's random numbers, so that a life that is lived again has the same ids.
extern "C" ssize_t getrandom(void* buffer, std::size_t size, unsigned) {
    for (std::size_t i = 0; i < size; ++i)
        static_cast<unsigned char*>(buffer)[i] = static_cast<unsigned char>(identities.below(256));
    return static_cast<ssize_t>(size);
}

namespace tamba::soak {
namespace {

constexpr int stepsOfLife = 350;

/// Where two values of the books differ first, for whoever looks into it.
std::string difference(const Library& one, const Library& other) {
    const std::string a = ModelsJSON::encode(one), b = ModelsJSON::encode(other);
    const auto at = static_cast<std::size_t>(
        std::mismatch(a.begin(), a.begin() + std::ptrdiff_t(std::min(a.size(), b.size())), b.begin()).first -
        a.begin());
    const std::size_t from = at < 200 ? 0 : at - 200;
    return a.substr(from, 400) + "\n--- other ---\n" + b.substr(from, 400);
}

class Life {
public:
    Life(std::uint64_t seed, bool trail)
        : somebody_((identities = Fixtures::Dice(seed), seed), LibraryStore(folder_.path / "Books")),
          somebodyElse_(~seed, LibraryStore(folder_.path / "Books")),
          model_([this] { return today_; }),
          trail_(trail) {
        QObject::connect(&model_, &AppModel::refused, &screens_, [this](const QString&) { ++refusals; });
        QObject::connect(&model_, &AppModel::changed, &screens_, [this](const Library& before, const Library& after) {
            if (before != shown_) fault("A change does not begin with what was shown.");
            shown_ = after;
        });
        QObject::connect(&model_, &AppModel::conflicted, &screens_, [this](const MergeReport& report) {
            for (const Conflict& conflict : report.conflicts) told_.insert(conflict.id), decided_.insert(conflict.id);
        });
        QObject::connect(&model_, &AppModel::opened, &screens_, [this] { shown_ = model_.library(); });
        beginBooks(somebody_.upTo(2));
        model_.open(folder_.path / "Books");
        tolerate();
    }

    /// False when the books were found wrong; what was wrong is printed.
    bool live() {
        for (int step = 1; step <= stepsOfLife && faults_.empty(); ++step) {
            const Library before = model_.library();
            keepsHistory_ = step / 60 % 2 == 1;
            told_.clear();
            metSomebody_ = false;
            act();
            if (trail_) {
                std::printf("%3d %s%s\n", step, doing_.c_str(), model_.library() == before ? " (nothing)" : "");
                std::fflush(stdout);
            }
            look(before, step % 20 == 0);
            ++steps;
        }
        for (const std::string& each : faults_) std::printf("%s: %s\n", doing_.c_str(), each.c_str());
        return faults_.empty();
    }

    int steps = 0, refusals = 0, meetings = 0, walked = 0;

private:
    void fault(std::string sentence) { faults_.push_back(std::move(sentence)); }
    [[nodiscard]] LibraryStore store() const { return model_.store(); }

    /// New books, the sample ones, or some made by the dice.
    void beginBooks(std::int64_t kind) {
        const LibraryStore store(folder_.path / "Books");
        store.prepare();
        if (kind == 0) return;
        Library library = kind == 1 ? Fixtures::library(today_) : Fixtures::large(30, 15, 30, today_);
        for (std::size_t i = 0; i < library.expenses.size(); ++i)
            library.expenses.update(i, [](Expense& e) { e.attachments.clear(); });
        library.business.logoFile.reset();
        store.save(library);
    }

    void act() {
        const std::int64_t choice = somebody_.upTo(99);
        if (choice < 70)
            step();
        else if (choice < 76)
            undo();
        else if (choice < 80)
            redo();
        else if (choice < 88)
            save();
        else if (choice < 92)
            meet();
        else if (choice < 95)
            nextDay();
        else if (choice < 97)
            walk();
        else if (choice < 98)
            failToSave();
        else
            reopen();
    }

    void step() {
        const Somebody::Step& chosen = somebody_.nextStep(keepsHistory_);
        doing_ = chosen.name;
        const Library before = model_.library();
        const int refused = refusals;
        const bool done = model_.perform(
            toQt(std::string_view(chosen.name)),
            [&](Library library, Day today) { return (somebody_.*chosen.take)(std::move(library), today); },
            chosen.undo);
        if (done == (refusals > refused)) fault("Done and refused, or neither.");
        if (!done && model_.library() != before) fault("A refusal changes the books.");
        if (done && chosen.undo == AppModel::Undo::beginsNewHistory)
            past_.clear(), future_.clear();
        else if (model_.library() != before) {
            past_.push_back(before);
            if (past_.size() > History::limit) past_.erase(past_.begin());
            future_.clear();
        }
    }

    void undo() {
        doing_ = "Undo";
        back(past_, future_, [this] { model_.undo(); });
    }
    void redo() {
        doing_ = "Redo";
        back(future_, past_, [this] { model_.redo(); });
    }
    void back(std::vector<Library>& from, std::vector<Library>& to, const std::function<void()>& move) {
        const Library before = model_.library();
        move();
        if (from.empty()) {
            if (model_.library() != before) fault("A step without a history.");
        } else {
            const Library was = upToDate(from.back()), is = upToDate(model_.library());
            if (was != is) fault("The value is not the one that was: " + difference(was, is));
            from.pop_back();
            to.push_back(before);
        }
        if (model_.undoTitle().isEmpty() != past_.empty() || model_.redoTitle().isEmpty() != future_.empty())
            fault("The history is longer or shorter than what was done: " + std::to_string(past_.size()) + " and " +
                  std::to_string(future_.size()) + ", then " + toStd(model_.undoTitle()) + ", " +
                  toStd(model_.redoTitle()));
    }
    /// With what recurs up to today, whenever that was added.
    [[nodiscard]] Library upToDate(const Library& library) const {
        Library now = Recurring::addDue(library, today_, Instant{}).library;
        for (std::size_t i = 0; i < now.expenses.size(); ++i)
            if (now.expenses[i].recurringID && now.expenses[i].createdAt != Instant{})
                now.expenses.update(i, [](Expense& e) { e.createdAt = Instant{}; });
        return now;
    }

    /// To the beginning of the present history and forward to its end.
    void walk() {
        while (!future_.empty()) redo();
        const Library last = model_.library();
        const auto steps = past_.size();
        for (std::size_t i = 0; i < steps; ++i) undo();
        for (std::size_t i = 0; i < steps; ++i) redo();
        doing_ = "Walk through the history";
        if (upToDate(last) != upToDate(model_.library())) fault("Forward again is not where it began.");
        walked += static_cast<int>(steps);
    }

    void save() {
        doing_ = "Save";
        const Library before = model_.library();
        if (!model_.saveNow()) return fault("The save failed: " + toStd(model_.saveProblem()));
        if (model_.saving() != AppModel::Saving::saved || model_.saveTimerRuns())
            fault("Saved, and still to be saved.");
        met(before);
        if (Files::exists(store().fileURL()) && LibraryStore::read(store().fileURL()) != model_.library())
            fault("The file does not read back as the books.");
    }

    /// A disk that is full at some point of the save: the old file or the new one, whole, and the next save works.
    void failToSave() {
        doing_ = "Fail to save";
        const auto file = store().fileURL();
        const std::string before = Files::exists(file) ? Files::read(file) : "";
        std::int64_t operations = somebody_.upTo(6);
        Files::setObserver([&operations](const char*) {
            if (operations-- == 0) throw FileError("No space left on device");
        });
        const Library books = model_.library();
        const bool saved = model_.saveNow();
        Files::setObserver({});
        met(books);
        if (saved == (model_.saving() == AppModel::Saving::failed)) fault("Saved and failed, or neither.");
        if (!saved && Files::exists(file) && Files::read(file) != before) (void)LibraryStore::read(file);
        if (!model_.saveNow()) fault("No save after one that failed.");
        met(books);
    }

    /// Another machine writes what it made of the books, as they are on disk or, before those reached it, as it wrote
    /// them.
    void meet() {
        doing_ = "Another machine’s change";
        if (!Files::exists(store().fileURL())) return;
        const Library known = LibraryStore::read(store().fileURL());
        Library theirs = elsewhere_ && somebody_.oneIn(4) ? *elsewhere_ : known;
        const Library begun = theirs;
        for (auto steps = 1 + somebody_.upTo(5); steps > 0; --steps) {
            const Somebody::Step& chosen = somebodyElse_.nextStep(false);
            try {
                theirs = (somebodyElse_.*chosen.take)(theirs, today_);
                doing_ += std::string(" · ") + chosen.name;
            } catch (const std::exception&) {
            }
        }
        const std::string done = doing_;
        if (somebody_.oneIn(2)) step();
        doing_ = done + " | " + doing_;
        store().save(theirs);
        elsewhere_ = theirs;
        const Library before = model_.library();
        if (!model_.saveNow()) fault("The save failed: " + toStd(model_.saveProblem()));
        met(before);
        tolerate();  // a file that the other machine removed is gone before its books are looked at
        if (LibraryStore::read(store().fileURL()) != model_.library()) return;  // not looked at yet
        lookForLostPaper(theirs, decided_);
        const std::set<UUID> kept = payments(model_.library());
        for (const auto& [then, since] : {std::pair(&known, &before), {&begun, &theirs}}) {
            const std::set<UUID> old = payments(*then);
            for (const UUID& id : payments(*since))
                if (!old.contains(id) && !kept.contains(id)) fault("A payment is lost: " + id.text());
        }
    }

    /// Where another machine's changes came in a new history begins, and what two machines can leave is put up with.
    void met(const Library& before) {
        if (model_.library() == before) return;
        ++meetings;
        metSomebody_ = true;
        past_.clear();
        future_.clear();
        tolerate();
    }
    void tolerate() {
        for (const Fault& each : faultsOf(model_.library(), store()))
            if (each.fromMeeting) tolerated_.insert(each.key);
    }

    void nextDay() {
        doing_ = "Another day";
        today_ = today_.addingDays(1 + somebody_.upTo(20));
        model_.lookAtDay();
    }

    void reopen() {
        save();
        doing_ = "Open again";
        const Library before = model_.library();
        if (!model_.open(folder_.path / "Books")) fault("The books did not close.");
        if (model_.state() != AppModel::State::open) return fault(toStd(model_.problem()));
        if (Files::exists(store().fileURL()) && upToDate(before) != upToDate(model_.library()))
            fault("The books are not what they were.");
        past_.clear();
        future_.clear();
        // Books that are opened anew know no earlier version that somebody may still work on.
        elsewhere_.reset();
    }

    void look(const Library& before, bool thoroughly) {
        const Library& now = model_.library();
        auto found = faultsOf(now, store());
        if (thoroughly)
            for (Fault& each : reportFaults(now, today_)) found.push_back(std::move(each));
        for (const Fault& each : found)
            if (!tolerated_.contains(each.key)) fault(each.sentence);
        lookForLostPaper(before, told_);
        if (shown_ != now) fault("The screens were not told of a change.");
    }

    /// What was issued then is still there, or a person was asked about it.
    void lookForLostPaper(const Library& then, const std::set<std::string>& told) {
        for (const LostPaper& lost : lostPaper(then, model_.library()))
            if (!told.contains(lost.id.text()) && !(lost.standsAgain && metSomebody_)) fault(lost.sentence);
    }

    struct Folder {
        ~Folder() { Files::removeTree(path); }
        const std::filesystem::path path = Files::temporaryFolder() / ("tamba-soak-" + std::to_string(getpid()));
    } folder_;
    Day today_{2026, 11, 20};
    Somebody somebody_, somebodyElse_;
    AppModel model_;
    bool trail_;
    bool keepsHistory_ = false;
    std::string doing_ = "Begin";
    Library shown_;
    std::optional<Library> elsewhere_;  // what the other machine wrote last
    std::vector<Library> past_, future_;
    std::set<std::string> tolerated_;
    std::set<std::string> told_, decided_;  // what meetings asked a person about, in this step and ever
    bool metSomebody_ = false;
    std::vector<std::string> faults_;
    QObject screens_;  // gone before the model saves for the last time
};

int run(std::uint64_t seed, int seconds, bool alone, bool trail) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    int lives = 0, steps = 0, refusals = 0, meetings = 0, walked = 0;
    do {
        std::printf("seed %llu\n", static_cast<unsigned long long>(seed));
        std::fflush(stdout);
        Life life(seed, trail);
        const bool well = life.live();
        ++lives, steps += life.steps, refusals += life.refusals, meetings += life.meetings, walked += life.walked;
        if (!well) {
            std::printf("failed in step %d; again by: scripts/soak --seed %llu\n", life.steps,
                        static_cast<unsigned long long>(seed));
            return 1;
        }
        ++seed;
    } while (!alone && std::chrono::steady_clock::now() < end);
    std::printf("%d lives, %d steps, %d refused, %d meetings of machines, %d steps walked back and forward\n", lives,
                steps, refusals, meetings, walked);
    return 0;
}

}  // namespace
}  // namespace tamba::soak

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    std::optional<std::uint64_t> seed;
    int seconds = 0;
    bool trail = false;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--trail") == 0) trail = true;
        if (i + 1 < argc && std::strcmp(argv[i], "--seed") == 0)
            seed = std::strtoull(argv[++i], nullptr, 10);
        else if (i + 1 < argc && std::strcmp(argv[i], "--seconds") == 0)
            seconds = std::atoi(argv[++i]);
    }
    const auto moment = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
    return tamba::soak::run(seed.value_or(moment / 1000 % 1'000'000'000), seconds, seconds == 0, trail);
}
