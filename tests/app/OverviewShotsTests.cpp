#include "Tamba/Screens/ClientPages.h"
#include "Tamba/Screens/ProjectsScreen.h"
#include "tests/app/Pictures.h"

namespace tamba {

/// Pictures of the Overview and of the projects, in both palettes and at both ends of the window's sizes.
class OverviewShotsTests : public Shots {
    Q_OBJECT

private slots:
    void overview_data() { palettes(); }
    void overview() {
        setPalette();
        OpenBooks books;
        Window window(books.model, std::make_unique<TestPrompts>());
        window.resize(1440, 880);
        window.showScreen(Screen::overview);
        shoot(window, QStringLiteral("overview-empty"));
        window.showScreen(Screen::clients);
        window.findChild<ClientPages*>()->showProjects();
        shoot(window, QStringLiteral("projects-empty"));
        books.openSample();
        shoot(window, QStringLiteral("projects"));
        window.resize(960, 620);
        shoot(window, QStringLiteral("projects-small"));
        window.showScreen(Screen::overview);
        shoot(window, QStringLiteral("overview-small"));
        window.resize(1440, 880);
        shoot(window, QStringLiteral("overview"));
    }
};

static const TestClass<OverviewShotsTests> registered;

}  // namespace tamba

#include "OverviewShotsTests.moc"
