#include "Tamba/Screens/WelcomeScreen.h"
#include "Tamba/Sheets/Settings/UpdatesPage.h"
#include "Tamba/Sheets/SettingsSheet.h"
#include "Tamba/StartUp.h"
#include "Tamba/Updates.h"
#include "TambaCore/Documents/Books.h"
#include "tests/app/Pictures.h"

namespace tamba {

/// The first steps, and books that are gone or changed elsewhere.
class StartUpShotsTests : public Shots {
    Q_OBJECT

    /// Pages of the sample invoice are drawn a moment later.
    void shoot(QWidget& widget, const QString& name) const {
        widget.show();
        QTest::qWait(200);
        Shots::shoot(widget, name);
    }

    /// What two sides changed in the sample books.
    static MergeReport conflict(const Library& base) {
        Library ours = base, theirs = base;
        ours.expenses.update(0, [](Expense& e) { e.vendor = "Chai Point", e.amount = 12'000; });
        theirs.expenses.update(0, [](Expense& e) { e.vendor = "Chai Point Koramangala", e.amount = 12'500; });
        ours.business.terms = "Payment within 15 days.";
        theirs.business.terms = "Payment within 7 days. Interest of 1.5 % a month is charged on what is late.";
        ours.clients.update(0, [](Client& c) { c.phone = "98200 12345"; });
        theirs.clients.erase(0);
        Merged merged = merge(base, ours, theirs);
        return {merged.library, ours, theirs, merged.conflicts};
    }

    /// What a server would bring about is put there by hand.
    void shootUpdates(Window& window, const Library& library) {
        UpdateService updates(Updates::configuration());
        SettingsSheet settings(&window, library, testDay, {{}, {}, {}, SettingsPlace::updates, {}, &updates, true});
        shoot(settings, QStringLiteral("settings-updates-off"));
        const QString name = QStringLiteral("Tamba 0.2.0"),
                      notes = QStringLiteral(
                          "Statements of two more banks are "
                          "read.\n\nThe year’s bundle holds a list of the documents that were voided.");
        using Stage = UpdateStatus::Stage;
        const std::pair<Stage, QString> stages[] = {
            {Stage::offered, name + QStringLiteral(" is available.")},
            {Stage::downloading, QStringLiteral("Fetching Tamba 0.2.0…")},
            {Stage::failed,
             QStringLiteral(
                 "The list of updates is out of date, and a newer one may be held back. Nothing in it was used.")}};
        for (const auto& [stage, sentence] : stages) {
            settings.findChild<UpdatesPage*>()->show({stage, sentence, name, notes, 20'000'000, 31'000'000});
            shoot(settings, QStringLiteral("settings-updates-%1").arg(static_cast<int>(stage)));
        }
    }

private slots:
    void pictures_data() { palettes(); }

    void pictures() {
        setPalette();

        QTemporaryDir place;
        const auto path = toPath(place.path());
        AppModel model([] { return testDay; });
        Window window(model, std::make_unique<TestPrompts>());
        window.resize(1200, 760);
        StartUp startUp(model, window, path / "Books");
        startUp.begin();
        auto& welcome = *window.findChild<WelcomeScreen*>();
        shoot(window, QStringLiteral("welcome-1"));
        const auto type = [&](const char* field, const char* text) {
            welcome.findChild<QLineEdit*>(QString::fromLatin1(field))->setText(QString::fromUtf8(text));
        };
        type("welcomeName", "Kagaz Studio");
        type("welcomeTaxID", "27AAPFU0939F1ZX");
        welcome.showStep(1);
        shoot(window, QStringLiteral("welcome-2"));
        type("welcomeTaxID", "27AAPFU0939F1ZV");
        welcome.showStep(2);
        shoot(window, QStringLiteral("welcome-3"));
        welcome.showStep(3);
        window.resize(960, 620);
        shoot(window, QStringLiteral("welcome-4"));
        window.resize(1200, 760);
        model.open(path / "Gone", AppModel::Expect::books);
        shoot(window, QStringLiteral("missing"));

        Fixtures::write(LibraryStore(path / "Studio"), testDay);
        model.open(path / "Studio");
        const Library& library = model.library();
        ConflictSheet conflicts(&window, conflict(library));
        shoot(conflicts, QStringLiteral("sheet-conflicts"));
        Library less = library;
        less.expenses.erase(0);
        less.business.name = "Before";
        BackupSheet backups(&window, {model.backups(), [&](const std::string&) { return less; }, library});
        shoot(backups, QStringLiteral("sheet-backup-changes"));
        shootUpdates(window, library);
    }
};

static const TestClass<StartUpShotsTests> registered;

}  // namespace tamba

#include "StartUpShotsTests.moc"
