#include "Tamba/Icons.h"
#include "Tamba/Screens/ClientPages.h"
#include "Tamba/Screens/OverviewScreen.h"
#include "Tamba/Screens/ProjectsScreen.h"
#include "Tamba/Style.h"
#include "TambaCore/Fixtures.h"
#include "tests/app/Support.h"

namespace tamba {

/// Pictures of the Overview and of the projects, in both palettes and at both ends of the window's sizes.
class OverviewShotsTests : public QObject {
    Q_OBJECT

    QString folder_ = qEnvironmentVariable("TAMBA_SHOTS");
    QString palette_;

    void shoot(QWidget& widget, const QString& name) {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        for (OverviewScreen* screen : widget.findChildren<OverviewScreen*>())
            if (screen->isVisible()) QTRY_VERIFY(screen->isSettled());
        for (int rounds = 0; rounds < 5; ++rounds) QCoreApplication::processEvents();
        const QString scale = widget.devicePixelRatioF() > 1 ? QStringLiteral("@2x") : QString();
        QVERIFY(widget.grab().save(folder_ + QStringLiteral("/%1-%2%3.png").arg(name, palette_, scale)));
    }

private slots:
    void overview_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void overview() {
        QFETCH(bool, dark);
        palette_ = dark ? QStringLiteral("dark") : QStringLiteral("light");
        QDir().mkpath(folder_);
        auto& application = *qobject_cast<QApplication*>(QCoreApplication::instance());
        Style::apply(application, Colors::make(dark, Icons::colorOf("1E4A66")));
        OpenBooks books;
        Window window(books.model, std::make_unique<TestPrompts>());
        window.resize(1440, 880);
        window.showScreen(Screen::overview);
        shoot(window, QStringLiteral("overview-empty"));
        window.showScreen(Screen::clients);
        window.findChild<ClientPages*>()->showProjects();
        shoot(window, QStringLiteral("projects-empty"));
        Fixtures::write(LibraryStore(books.path() / "Studio"), testDay);
        books.model.open(books.path() / "Studio");
        shoot(window, QStringLiteral("projects"));
        window.resize(960, 620);
        shoot(window, QStringLiteral("projects-small"));
        window.showScreen(Screen::overview);
        shoot(window, QStringLiteral("overview-small"));
        window.resize(1440, 880);
        shoot(window, QStringLiteral("overview"));
        Style::apply(application, Colors::make(false, Icons::colorOf("1E4A66")));
    }
};

static const TestClass<OverviewShotsTests> registered;

}  // namespace tamba

#include "OverviewShotsTests.moc"
