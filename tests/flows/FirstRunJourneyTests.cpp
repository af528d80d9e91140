#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/WelcomeScreen.h"
#include "Tamba/StartUp.h"
#include "Tamba/Translations.h"
#include "TambaCore/Base/Files.h"
#include "tests/flows/Person.h"

#include <QLabel>
#include <QLineEdit>

namespace tamba {

/// The first minutes with the program.
class FirstRunJourneyTests : public QObject {
    Q_OBJECT

private slots:
    void twelveActionsToTheFirstInvoice() {
        QTemporaryDir place, desk;
        AppModel model([] { return testDay; });
        auto owned = std::make_unique<TestPrompts>();
        TestPrompts& prompts = *owned;
        prompts.file = toPath(desk.path());
        Window window(model, std::move(owned));
        window.resize(1440, 880);
        StartUp startUp(model, window, toPath(place.path()) / "Books");
        startUp.begin();
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QVERIFY(window.findChild<WelcomeScreen*>()->isVisible());
        QVERIFY(!Files::exists(toPath(place.path()) / "Books"));

        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY2(model.isNew(), "nothing is begun without a name");
        Person person;
        picture(window, QStringLiteral("first-run-1-welcome"));
        person.fill("Kagaz Studio", Qt::Key_Return);
        person.fill("27AAPFU0939F1ZV", Qt::Key_Tab);
        picture(window, QStringLiteral("first-run-2-tax"));
        person.click(*window.findChild<WelcomeScreen*>(), "welcomeSkip");
        QVERIFY(!model.isNew());
        QCOMPARE(model.library().business.stateCode, std::optional<std::string>("27"));
        QCOMPARE(window.screen(), Screen::invoices);
        picture(window, QStringLiteral("first-run-3-draft"));

        prompts.drive = [](QDialog&) {};
        person.fill("Monsoon Tea", Qt::Key_Return);
        QCOMPARE(model.library().clients.size(), std::size_t(1));
        person.fill("Packaging design", Qt::Key_Tab);
        auto& screen = *window.findChild<InvoicesScreen*>();
        screen.findChild<QLineEdit*>(QStringLiteral("linePrice"))->setFocus(Qt::TabFocusReason);
        person.fill("45000", Qt::Key_Tab);
        picture(window, QStringLiteral("first-run-4-line"));
        person.click(screen, "primaryAction");
        QCOMPARE(model.library().documents[0].displayNumber(), std::string("INV/26-27/001"));
        QCOMPARE(model.library().documents[0].lines[0].priceMinor, std::int64_t(4'500'000));
        picture(window, QStringLiteral("first-run-5-issued"));
        person.click(*window.findChild<Toast*>(), "toastAction");
        QVERIFY(Files::exists(toPath(desk.path()) / "INV-26-27-001.pdf"));
        picture(window, QStringLiteral("first-run-6-saved"));
        const int actions = person.actions + prompts.asked;
        QVERIFY2(actions <= 12, qPrintable(QString::number(actions)));
    }

    void onlyTheNameIsNeeded() {
        QTemporaryDir place;
        AppModel model([] { return testDay; });
        Window window(model, std::make_unique<TestPrompts>());
        StartUp startUp(model, window, toPath(place.path()));
        startUp.begin();
        window.show();
        auto& welcome = *window.findChild<WelcomeScreen*>();
        const auto button = [&](const char* name) {
            return welcome.findChild<QPushButton*>(QString::fromLatin1(name));
        };
        QVERIFY(!button("welcomeNext")->isEnabled());
        welcome.findChild<QLineEdit*>(QStringLiteral("welcomeName"))->setText(QStringLiteral(" Kagaz "));
        button("welcomeNext")->click();
        welcome.findChild<QLineEdit*>(QStringLiteral("welcomeTaxID"))->setText(QStringLiteral("27AAPFU0939F1ZX"));
        QVERIFY(welcome.findChild<QLineEdit*>(QStringLiteral("welcomeTaxID"))->property("problem").toBool());
        button("welcomeSkip")->click();
        QVERIFY(!welcome.isVisible());
        QCOMPARE(model.library().business.name, std::string("Kagaz"));
        QCOMPARE(LibraryStore(toPath(place.path())).load()->business.name, std::string("Kagaz"));
        QCOMPARE(model.undoTitle(), DocumentActions::tr("New %1").arg(Translations::shown("Invoice")));
    }
};

static const TestClass<FirstRunJourneyTests> registered;

}  // namespace tamba

#include "FirstRunJourneyTests.moc"
