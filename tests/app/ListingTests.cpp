#include "Tamba/History.h"
#include "Tamba/Rows/BankRows.h"
#include "Tamba/Rows/ClientRows.h"
#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/RowsModel.h"
#include "TambaCore/Bank/Matching.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Clients.h"
#include "TambaCore/Documents/Expenses.h"
#include "tests/app/Support.h"

#include <random>

namespace tamba {
namespace {

/// What a view knows of a model that tells it of changes: a row that changes without a word stays as it was.
template <class Row>
class Onlooker {
public:
    Onlooker() {
        QObject::connect(&model_, &Model::modelReset, &model_, [this] { seen_ = {all().begin(), all().end()}; });
        QObject::connect(&model_, &Model::rowsRemoved, &model_, [this](const QModelIndex&, int from, int to) {
            seen_.erase(seen_.begin() + from, seen_.begin() + to + 1);
        });
        QObject::connect(&model_, &Model::rowsInserted, &model_, [this](const QModelIndex&, int from, int to) {
            for (int row = from; row <= to; ++row) seen_.insert(seen_.begin() + row, at(row));
        });
        QObject::connect(&model_, &Model::dataChanged, &model_, [this](const QModelIndex& from, const QModelIndex& to) {
            for (int row = from.row(); row <= to.row(); ++row) seen_[static_cast<std::size_t>(row)] = at(row);
        });
    }
    bool sees(LazyRows<Row> kept, const LazyRows<Row>& afresh) {
        model_.setRows(std::move(kept));
        return std::equal(seen_.begin(), seen_.end(), afresh.begin(), afresh.end());
    }

private:
    using Model = RowsModel<Row>;
    const LazyRows<Row>& all() const { return model_.rows(); }
    const Row& at(int row) const { return all()[static_cast<std::size_t>(row)]; }

    Model model_{{{QStringLiteral("Row"), Qt::AlignLeft, [](const Row&, int) { return QVariant(); }}}};
    std::vector<Row> seen_;
};

class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    std::size_t below(std::size_t count) { return engine_() % count; }
    template <class T>
    const T& any(const T* begin, std::size_t count) {
        return begin[below(count)];
    }
    template <class T>
    const T& any(const List<T>& list) {
        return list[below(list.size())];
    }
    bool once(std::size_t in) { return below(in) == 0; }

private:
    std::mt19937 engine_;
};

Expense changed(Expense expense, const Library& library, Dice& dice) {
    switch (dice.below(7)) {
        case 0:
            expense.vendor = "Vendor " + std::to_string(dice.below(40));
            break;
        case 1:
            expense.date = expense.date.addingDays(static_cast<int>(dice.below(60)) - 30);
            break;
        case 2:
            expense.amount += static_cast<std::int64_t>(dice.below(5000));
            break;
        case 3:
            expense.categoryID = dice.once(3) ? std::nullopt : std::optional(dice.any(library.categories).id);
            break;
        case 4:
            expense.currency = dice.once(2) ? "USD" : "INR";
            expense.rateMicros = dice.once(2) ? 0 : 83'250'000;
            break;
        case 5:
            expense.check = dice.once(2) ? std::optional<std::string>("No date was found.") : std::nullopt;
            break;
        default:
            expense.notes = dice.once(2) ? "total of the shared desk" : "";
    }
    return expense;
}

Library step(Library library, Dice& dice, Day today) {
    const auto at = [&dice](const auto& list) { return dice.below(list.size()); };
    switch (dice.below(18)) {
        case 0:
        case 1:
        case 2:
            return Expenses::replace(library, changed(dice.any(library.expenses), library, dice));
        case 3:
            return Expenses::remove(library, dice.any(library.expenses).id);
        case 4: {
            Expense copy = dice.any(library.expenses);
            copy.id = UUID::derived(copy.id, std::to_string(dice.below(1'000'000)));
            copy.bankTxnID.reset();
            return Expenses::add(library, copy);
        }
        case 5:
            library.categories.update(at(library.categories), [&](Category& c) { c.name += " total"; });
            return library;
        case 6:
            library.clients.update(at(library.clients), [&](Client& c) { c.name = "Desk " + c.name; });
            return library;
        case 7: {
            Document draft = Books::newDocument(library, dice.once(2) ? DocKind::invoice : DocKind::estimate,
                                                dice.any(library.clients).id, today);
            draft.lines.push_back(Books::newLine(library, draft));
            draft.lines.back().name = "Total identity";
            draft.lines.back().priceMinor = 100'000;
            return Books::addDraft(library, draft);
        }
        case 8:
            return Books::issue(library, dice.any(library.documents).id, today);
        case 9: {
            const Document note = Books::creditNoteFor(library, dice.any(library.documents).id, today);
            return Books::issue(Books::addDraft(library, note), note.id, today);
        }
        case 10:
            return Books::voidDocument(library, dice.any(library.documents).id, "Twice");
        case 11: {
            Payment payment;
            payment.id = UUID::derived(dice.any(library.expenses).id, "paid");
            payment.date = today;
            payment.amount = 1000;
            return Books::recordPayment(library, dice.any(library.documents).id, payment);
        }
        case 12: {
            const BankTransaction& line = dice.any(library.transactions);
            return line.isMatched() ? Bank::unmatch(library, line.id)
                                    : Bank::setIgnored(library, line.id, !line.ignored);
        }
        case 13:
            library.projects.update(at(library.projects), [](Project& p) { p.name += " desk"; });
            return library;
        case 14: {
            Category added = dice.any(library.categories);
            added.id = UUID::derived(added.id, std::to_string(dice.below(1'000'000)));
            library.categories.append(added);
            return library;
        }
        case 15:
            library.categories.erase(at(library.categories));
            return library;
        case 16:
            library.business.homeCurrency = dice.once(3) ? "USD" : "INR";
            library.business.terms += "Once more.";
            return library;
        default:
            return Bank::matchToExpense(library, dice.any(library.transactions).id, dice.any(library.expenses).id);
    }
}

}  // namespace

class ListingTests : public QObject {
    Q_OBJECT

    template <class Table, class Row>
    static bool isAlike(Table kept, const Table& afresh, Onlooker<Row>& onlooker) {
        return onlooker.sees(std::move(kept.rows), afresh.rows) && kept.count == afresh.count;
    }

private slots:
    void whatIsKeptIsWhatWouldBeMadeAfresh_data() {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 4; ++seed) QTest::addRow("%u", seed) << seed;
    }
    void whatIsKeptIsWhatWouldBeMadeAfresh() {
        QFETCH(unsigned, seed);
        Dice dice(seed);
        Library library = Fixtures::library(testDay);
        History history;
        Day today = testDay;
        ExpenseFilter expenses;
        BankFilter bank{.list = BankList::all};
        DocumentFilter documents;
        ClientFilter clients;
        ExpenseListing expenseListing;
        BankListing bankListing;
        DocumentListing documentListing;
        ClientListing clientListing;
        Onlooker<ExpenseRow> expenseRows;
        Onlooker<BankRow> bankRows;
        Onlooker<DocumentRow> documentRows;
        static const std::string searches[] = {"",  "",     "t", "to", "tot",  "total",
                                               "5", "desk", "d", "₹1", "2026", "uPi"};
        for (int turn = 0; turn < 80; ++turn) {
            try {
                std::optional<Library> other;
                if (dice.once(6))
                    other = history.undo(library);
                else if (dice.once(8))
                    other = history.redo(library);
                else
                    history.push("Step", library), other = step(library, dice, today);
                if (other) library = std::move(*other);
            } catch (const BooksError&) {
                continue;  // refused, as the person would read
            }
            if (dice.once(5)) {
                expenses.search = bank.search = documents.search = dice.any(searches, std::size(searches));
                expenses.order = static_cast<ExpenseOrder>(dice.below(7));
                expenses.list = dice.once(2) ? ExpenseList::all : static_cast<ExpenseList>(dice.below(7));
                expenses.ascending = bank.ascending = documents.ascending = clients.ascending = dice.once(2);
                bank.order = static_cast<BankOrder>(dice.below(3));
                bank.list = static_cast<BankList>(dice.below(4));
                documents.order = static_cast<DocumentOrder>(dice.below(4));
                documents.kind = static_cast<DocKind>(dice.below(3));
                clients.order = static_cast<ClientOrder>(dice.below(5));
                expenses.days = dice.once(2) ? std::nullopt : std::optional(Period::month(today));
            }
            if (dice.once(20)) today = today.addingDays(1);

            const ExpenseTable spent = expenseListing.table(library, expenses),
                               allSpent = expenseTable(library, expenses);
            QVERIFY(isAlike(spent, allSpent, expenseRows));
            QCOMPARE(spent.total + spent.tax + spent.leftOut, allSpent.total + allSpent.tax + allSpent.leftOut);
            const BankTable lines = bankListing.table(library, bank), allLines = bankTable(library, bank);
            QVERIFY(isAlike(lines, allLines, bankRows));
            QCOMPARE(lines.counts, allLines.counts);
            QCOMPARE(lines.in + lines.out, allLines.in + allLines.out);
            const DocumentTable papers = documentListing.table(library, documents, today),
                                allPapers = documentTable(library, documents, today);
            QVERIFY(isAlike(papers, allPapers, documentRows));
            QCOMPARE(papers.total + papers.due, allPapers.total + allPapers.due);
            const ClientTable kept = clientListing.table(library, clients, today),
                              afresh = ClientListing().table(library, clients, today);
            QVERIFY(kept.rows == afresh.rows && kept.owed == afresh.owed && kept.overdue == afresh.overdue);
        }
    }

    void aSearchFindsAnyTextOfAnExpenseInSmallAndCapitalLetters() {
        Library library = Library::make();
        Expense expense = Expense::make(testDay);
        expense.vendor = "CHAI Ünlü";
        expense.amount = 3'540'000;
        expense.notes = "für die Straße";
        expense.categoryID = library.categories[0].id;
        expense.ocrText = std::string(1500, '.') + "GRAND Total \u20B9 35,400 300 \u212Aelvin";
        library.expenses.append(expense);
        const std::pair<const char*, std::size_t> cases[] = {{"chai ünlü", 1},    {"STRASSE", 0},   {"straße", 1},
                                                             {"grand 35,400", 1}, {"35400.00", 1},  {"₹35,400.00", 1},
                                                             {"kelvin", 1},       {"grind", 0},     {"35400.01", 0},
                                                             {"upi", 1},          {"chai cash", 0}, {"grand total", 1}};
        for (const auto& [search, count] : cases)
            QCOMPARE(std::pair(search, expenseTable(library, {.search = search}).rows.size()),
                     std::pair(search, count));
    }
};

static const TestClass<ListingTests> registered;

}  // namespace tamba

#include "ListingTests.moc"
