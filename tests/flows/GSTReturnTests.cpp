#include "Tamba/Screens/ReportsScreen.h"
#include "TambaCore/Base/Files.h"
#include "tests/app/Support.h"

#include <QComboBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QListWidget>

namespace tamba {

/// From the month's invoices to the file for the GST portal, by way of what stands against it.
class GSTReturnTests : public QObject {
    Q_OBJECT

private slots:
    void fromTheReportsScreenToThePortalsFile() {
        const QTemporaryDir desk;
        Library library = testing::aBook();
        testing::billed(library, 10'000'000, {2026, 10, 12}, 1800);
        OpenWindow open(library);
        AppModel& model = open.model;
        TestPrompts& prompts = open.prompts;
        Window& window = open.window;
        prompts.file = toPath(desk.path());

        window.findChild<QAbstractButton*>(QStringLiteral("screenReports"))->click();
        auto& screen = *window.findChild<ReportsScreen*>();
        auto* list = screen.findChild<QListWidget*>(QStringLiteral("reportList"));
        const auto found = list->findItems(QStringLiteral("GSTR-1"), Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        list->setCurrentItem(found.front());
        QCOMPARE(screen.choice().day.monthKey(), std::string("2026-10"));  // the month that has ended

        // A line without its code stands in the way, and leads to the invoice.
        auto* save = screen.findChild<QPushButton*>(QStringLiteral("savePortalFile"));
        const auto file = toPath(desk.path()) / ("GSTR1_" + model.library().business.taxID + "_102026.json");
        prompts.confirmed = false;
        save->click();
        QVERIFY(!Files::exists(file));
        for (QLabel* label : screen.findChildren<QLabel*>())
            if (label->text().contains(QStringLiteral("without an HSN or SAC code")))
                emit label->linkActivated(QStringLiteral("#"));
        QCOMPARE(window.screen(), Screen::invoices);

        model.perform(QStringLiteral("Code"), [](Library library, Day) {
            library.documents.update(0, [](Document& invoice) { invoice.lines[0].hsn = "998391"; });
            return library;
        });
        window.showScreen(Screen::reports);
        QVERIFY(screen.page()->remarks.empty());
        save->click();
        const QJsonObject sent = QJsonDocument::fromJson(QByteArray::fromStdString(Files::read(file))).object();
        QCOMPARE(sent.value(QStringLiteral("fp")).toString(), QStringLiteral("102026"));
        const QJsonObject buyer = sent.value(QStringLiteral("b2b")).toArray().at(0).toObject();
        QCOMPARE(toStd(buyer.value(QStringLiteral("ctin")).toString()), model.library().clients[0].taxID);
        QCOMPARE(buyer.value(QStringLiteral("inv")).toArray().at(0).toObject().value(QStringLiteral("inum")).toString(),
                 QStringLiteral("INV/26-27/001"));
        // The offline tool's sheets, one file for each.
        screen.findChild<QPushButton*>(QStringLiteral("saveReport"))->click();
        QVERIFY(Files::exists(toPath(desk.path()) / "GSTR-1 2026-10" / "b2b,sez,de.csv"));
        QVERIFY2(prompts.alerts.isEmpty(), qPrintable(prompts.alerts.join(QLatin1Char('\n'))));
    }
};

static const TestClass<GSTReturnTests> registered;

}  // namespace tamba

#include "GSTReturnTests.moc"
