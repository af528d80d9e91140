#include "Tamba/Remembered.h"
#include "Tamba/Sheets/Settings/UpdatesPage.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/Updates.h"
#include "tests/app/Support.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSettings>

namespace tamba {

/// What the window tells of updates, and what the settings offer.
class UpdatesTests : public QObject {
    Q_OBJECT

    using Stage = UpdateStatus::Stage;

    /// Looks for nothing: the server is not there.
    static UpdateConfiguration aConfiguration(const QString& folder) {
        UpdateConfiguration made = Updates::configuration();
        made.feed = QUrl(QStringLiteral("https://127.0.0.1:1/feed.json"));
        made.context.keys = {UpdateKey{}};
        made.folder = toPath(folder);
        return made;
    }

private slots:
    void offersWhatCanBeDoneAtEachStage() {
        const QTemporaryDir folder;
        UpdateService updates(aConfiguration(folder.path()));
        UpdatesPage page(updates, true, nullptr);
        const struct {
            Stage stage;
            QString shown;
        } cases[] = {
            {Stage::off, QString()},
            {Stage::idle, QStringLiteral("lookNow")},
            {Stage::checking, QStringLiteral("lookNow(off)")},
            {Stage::upToDate, QStringLiteral("lookNow")},
            {Stage::offered, QStringLiteral("fetchUpdate lookNow updateNotes")},
            {Stage::managed, QStringLiteral("lookNow updateNotes")},
            {Stage::downloading, QStringLiteral("updateProgress cancelUpdate updateNotes")},
            {Stage::ready, QStringLiteral("updateNotes")},
            {Stage::failed, QStringLiteral("lookNow")},
        };
        page.QWidget::show();
        for (const auto& each : cases) {
            page.show({each.stage, QStringLiteral("A sentence."), QStringLiteral("Tamba 9.0.0"),
                       QStringLiteral("<b>New</b>"), 3'000'000'000, 4'000'000'000});
            QStringList shown;
            for (const char* name : {"updateProgress", "fetchUpdate", "lookNow", "cancelUpdate", "updateNotes"}) {
                const auto* widget = page.findChild<QWidget*>(QString::fromLatin1(name));
                if (widget->isVisible())
                    shown << QString::fromLatin1(name) + QLatin1String(widget->isEnabled() ? "" : "(off)");
            }
            QCOMPARE(shown.join(QLatin1Char(' ')), each.shown);
            QCOMPARE(page.findChild<QLabel*>(QStringLiteral("updateSentence"))->text(), QStringLiteral("A sentence."));
            QCOMPARE(page.findChild<QCheckBox*>(QStringLiteral("lookForUpdates"))->isVisible(),
                     each.stage != Stage::off);
        }
        const auto& bar = *page.findChild<QProgressBar*>(QStringLiteral("updateProgress"));
        QCOMPARE(100 * static_cast<qint64>(bar.value()) / bar.maximum(), 74);
        // Notes are shown as they are, never as marked-up text.
        QCOMPARE(page.findChild<QPlainTextEdit*>(QStringLiteral("updateNotes"))->toPlainText(),
                 QStringLiteral("<b>New</b>"));
    }

    void looksOnlyWithLeave() {
        const QTemporaryDir folder;
        UpdateService updates(aConfiguration(folder.path()));
        OpenWindow books;
        TestPrompts& prompts = books.prompts;
        Window& window = books.window;
        window.setUpdates(updates);
        QCOMPARE(updates.status().stage, Stage::idle);
        for (const bool allowed : {true, false}) {
            prompts.changeSettings = [&](const Library& library) {
                SettingsSheet sheet(nullptr, library, testDay, prompts.settingsContext);
                sheet.findChild<QCheckBox*>(QStringLiteral("lookForUpdates"))->setChecked(allowed);
                return sheet.edit();
            };
            control<QAbstractButton>(window, "settings").click();
            QCOMPARE(Remembered::looksForUpdates(), allowed);
            QTRY_COMPARE(updates.status().stage, Stage::failed);
        }
        QVERIFY(updates.status().sentence.contains(QStringLiteral("can’t be reached")));
        // Nobody asked, so nobody is told.
        QVERIFY(!window.findChild<QWidget*>(QStringLiteral("toast"))->isVisibleTo(&window));
    }

    void tellsWhatWentWrongAndLeadsToTheSettings() {
        const QTemporaryDir folder;
        const auto configuration = aConfiguration(folder.path());
        QSettings(folder.filePath(QStringLiteral("updates.ini")), QSettings::IniFormat)
            .setValue(QStringLiteral("problem"), QStringLiteral("The disk has no room."));
        UpdateService updates(configuration);
        OpenWindow books;
        TestPrompts& prompts = books.prompts;
        Window& window = books.window;
        window.setUpdates(updates);
        QCOMPARE(window.findChild<QLabel*>(QStringLiteral("toastText"))->text(),
                 QStringLiteral("The disk has no room."));
        QString page;
        prompts.changeSettings = [&](const Library& library) {
            SettingsSheet sheet(nullptr, library, testDay, prompts.settingsContext);
            page = sheet.findChild<QListWidget*>(QStringLiteral("settingsPages"))->currentItem()->text();
            return sheet.edit();
        };
        window.findChild<QPushButton*>(QStringLiteral("toastAction"))->click();
        QCOMPARE(page, QStringLiteral("Updates"));
    }
};

static const TestClass<UpdatesTests> registered;

}  // namespace tamba

#include "UpdatesTests.moc"
