#include "Tamba/Icons.h"
#include "Tamba/Screens/ClientsScreen.h"
#include "Tamba/Style.h"
#include "Tamba/TambaApp.h"
#include "Tamba/Translations.h"
#include "tests/app/Support.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace tamba {
namespace {
std::vector<std::function<QObject*()>>& classes() {
    static std::vector<std::function<QObject*()>> all;
    return all;
}
}  // namespace
/// Somebody at the program proper: opens the sheet for a new client, types, and says so.
static void typeIntoASheet() {
    auto* person = new QTimer(QCoreApplication::instance());
    QObject::connect(person, &QTimer::timeout, person, [person] {
        if (QWidget* sheet = QApplication::activeModalWidget()) {
            person->stop();
            control<QLineEdit>(*sheet, "clientName").setText(QStringLiteral("Typed at the end"));
            std::puts("typed");
            std::fflush(stdout);
            return;
        }
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* clients = window->findChild<ClientsScreen*>(); clients && window->isVisible())
                QTimer::singleShot(0, clients, &ClientsScreen::newClient);
    });
    person->start(50);
}
void addTestClass(std::function<QObject*()> make) { classes().push_back(std::move(make)); }
}  // namespace tamba

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsSet("TAMBA_TYPES")) {
        qAddPreRoutine(tamba::typeIntoASheet);
        return tamba::runTamba(argc, argv);
    }
    QApplication application(argc, argv);
    // Whatever is being built: pictures stay as they are.
    QApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    std::setlocale(LC_NUMERIC, "C");
    // What is remembered between starts is the tests' own.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    tamba::Style::install(application);
    const bool pictures = qEnvironmentVariableIsSet("TAMBA_SHOTS");
    const auto light = [&] {
        tamba::Style::apply(application, tamba::Colors::make(false, tamba::Icons::colorOf("1E4A66")));
    };
    light();
    // The same pictures show whether the longer words of another language fit.
    if (qEnvironmentVariable("TAMBA_SHOTS_LANGUAGE") == QLatin1String("hi"))
        tamba::Translations::install(application, tamba::Remembered::Appearance::Language::hindi);
    int failed = 0;
    for (const auto& make : tamba::classes()) {
        const std::unique_ptr<QObject> test(make());
        // Pictures are made to be looked at, when asked for and then alone; a journey is a test and pictures.
        const QByteArrayView name(test->metaObject()->className());
        const bool shots = name.endsWith("ShotsTests"), journey = name.endsWith("JourneyTests");
        if (!journey && shots != pictures) continue;
        // One class alone, by a part of its name.
        if (!name.contains(qgetenv("TAMBA_ONLY"))) continue;
        if (pictures) light();
        failed += QTest::qExec(test.get(), argc, argv);
    }
    return failed == 0 ? 0 : 1;
}
