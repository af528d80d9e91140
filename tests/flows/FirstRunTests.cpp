#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/WelcomeScreen.h"
#include "Tamba/StartUp.h"
#include "TambaCore/Base/Files.h"
#include "tests/app/Support.h"

#include <QLabel>
#include <QLineEdit>

namespace tamba {

/// The first minutes with the program.
class FirstRunTests : public QObject {
    Q_OBJECT

    /// A person at the keyboard: what is typed into one field, or one key, is one action.
    struct Typist {
        int actions = 0;
        void type(const char* text) {
            ++actions;
            QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
        }
        void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            ++actions;
            QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        }
    };

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

        Typist typist;
        const auto click = [&](QWidget& within, const char* name) {
            ++typist.actions;
            within.findChild<QPushButton*>(QString::fromLatin1(name))->click();
        };
        const auto enter = [&](QWidget& within, const char* name, const char* text) {
            within.findChild<QLineEdit*>(QString::fromLatin1(name))->setFocus();
            typist.type(text);
        };
        typist.press(Qt::Key_Return);
        QVERIFY2(model.isNew(), "nothing is begun without a name");
        typist.actions = 0;
        typist.type("Kagaz Studio");
        typist.press(Qt::Key_Return);
        typist.type("27AAPFU0939F1ZV");
        click(*window.findChild<WelcomeScreen*>(), "welcomeSkip");
        QVERIFY(!model.isNew());
        QCOMPARE(model.library().business.stateCode, std::optional<std::string>("27"));
        QCOMPARE(window.screen(), Screen::invoices);

        // The sheets are answered with Return, which is one more action each.
        prompts.drive = [&](QDialog&) { ++typist.actions; };
        typist.type("Monsoon Tea");
        typist.press(Qt::Key_Return);
        QCOMPARE(model.library().clients.size(), std::size_t(1));
        typist.type("Packaging design");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        auto& screen = *window.findChild<InvoicesScreen*>();
        enter(screen, "linePrice", "45000");
        click(screen, "primaryAction");
        const Document& invoice = model.library().documents[0];
        QCOMPARE(invoice.displayNumber(), std::string("INV/26-27/001"));
        screen.run(DocumentActions::Action::savePDF);
        ++typist.actions;
        QVERIFY(Files::exists(toPath(desk.path()) / "INV-26-27-001.pdf"));
        QVERIFY2(typist.actions <= 12, qPrintable(QString::number(typist.actions)));
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
        QCOMPARE(model.undoTitle(), QStringLiteral("New Invoice"));
    }
};

static const TestClass<FirstRunTests> registered;

}  // namespace tamba

#include "FirstRunTests.moc"
