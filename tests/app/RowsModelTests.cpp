#include "Tamba/History.h"
#include "Tamba/RowsModel.h"
#include "tests/app/Support.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace tamba {
namespace {

struct Row {
    UUID id;
    QString text;
    bool operator==(const Row&) const = default;
};

/// One row for each letter, "b" beside "B": the same row with another text.
std::vector<Row> rowsOf(const QString& letters) {
    std::vector<Row> rows;
    for (const QChar letter : letters) {
        Row row;
        row.id.bytes[0] = static_cast<std::uint8_t>(letter.toLower().unicode());
        row.text = letter;
        rows.push_back(row);
    }
    return rows;
}

}  // namespace

class RowsModelTests : public QObject {
    Q_OBJECT

    using Model = RowsModel<Row>;
    static std::vector<Model::Column> columns() {
        return {{QStringLiteral("Text"), Qt::AlignLeft,
                 [](const Row& row, int role) { return role == Qt::DisplayRole ? QVariant(row.text) : QVariant(); }}};
    }
    static QString shown(const Model& model) {
        QString letters;
        for (int row = 0; row < model.rowCount(); ++row) letters += model.index(row, 0).data().toString();
        return letters;
    }

private slots:
    void changesAreSignalledAsWhatTheyAre_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("signalled");
        const auto row = [](const char* before, const char* after, const char* signalled) {
            QTest::addRow("%s to %s", before, after)
                << QString::fromLatin1(before) << QString::fromLatin1(after) << QString::fromLatin1(signalled);
        };
        row("abc", "abc", "");
        row("abc", "aBc", "changed 1-1");
        row("abcd", "AbCd", "changed 0-2");
        row("ad", "abcd", "inserted 1-2");
        row("", "ab", "inserted 0-1");
        row("ab", "abc", "inserted 2-2");
        row("ab", "xAb", "inserted 0-0 changed 1-1");
        row("abcd", "ad", "removed 1-2");
        row("ab", "", "removed 0-1");
        row("aba", "aa", "removed 1-1");
        row("abcd", "dcba", "reset");
        row("abc", "axc", "reset");
    }
    void changesAreSignalledAsWhatTheyAre() {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(QString, signalled);
        Model model(columns());
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setRows(rowsOf(before));
        QStringList heard;
        const auto hear = [&heard](const char* what, int from, int to) {
            heard << QStringLiteral("%1 %2-%3").arg(QLatin1String(what)).arg(from).arg(to);
        };
        connect(&model, &Model::rowsInserted, this, [&](const QModelIndex&, int a, int b) { hear("inserted", a, b); });
        connect(&model, &Model::rowsRemoved, this, [&](const QModelIndex&, int a, int b) { hear("removed", a, b); });
        connect(&model, &Model::dataChanged, this,
                [&](const QModelIndex& a, const QModelIndex& b) { hear("changed", a.row(), b.row()); });
        connect(&model, &Model::modelReset, this, [&] { heard << QStringLiteral("reset"); });
        model.setRows(rowsOf(after));
        QCOMPARE(shown(model), after);
        QCOMPARE(heard.join(QLatin1Char(' ')), signalled);
    }

    void theSelectionSurvivesAResetById() {
        Model model(columns());
        model.setRows(rowsOf(QStringLiteral("abcd")));
        QTableView view;
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setModel(&model);
        keepSelection(view, model);
        selectIds(view, model, {model.id(1), model.id(2)});
        const auto kept = selectedIds(view, model);
        model.setRows(rowsOf(QStringLiteral("dcxb")));
        auto now = selectedIds(view, model);
        std::reverse(now.begin(), now.end());
        QVERIFY(now == kept);
    }
};

static const TestClass<RowsModelTests> registered;

}  // namespace tamba

#include "RowsModelTests.moc"
