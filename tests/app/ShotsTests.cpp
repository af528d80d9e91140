#include "Tamba/Icons.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/Style.h"
#include "TambaCore/Base/Files.h"
#include "tests/app/Pictures.h"
#include "tests/app/Places.h"

namespace tamba {

/// Pictures to be looked at, of every place in light and in dark; of those in the window also at its smallest. A class
/// named …ShotsTests runs only where pictures are wanted.
class ShotsTests : public QObject {
    Q_OBJECT

private slots:
    void pictures_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void pictures() {
        QFETCH(bool, dark);
        Style::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()),
                     Colors::make(dark, Icons::colorOf("1E4A66")));
        visitPlaces([dark](const QString& place, QWidget& widget) {
            QString name = place.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
            const QString palette = dark ? QStringLiteral("-dark") : QStringLiteral("-light");
            picture(*widget.window(), name + palette);
            auto* window = qobject_cast<Window*>(&widget);
            if (!window) return;
            const QSize size = window->size();
            const QPointer<QWidget> focus = window->focusWidget();
            window->resize(960, 620);
            settle(*window);
            picture(*window, name + QStringLiteral("-small") + palette);
            window->resize(size);
            if (focus) focus->setFocus();
            if (dark || !name.startsWith(QLatin1String("report-"))) return;
            window->findChild<ReportsScreen*>()->print();
            Files::writeAtomically(toPath(picturesFolder() + QLatin1Char('/') + name + QStringLiteral(".pdf")),
                                   dynamic_cast<TestPrompts&>(window->prompts()).printed);
        });
    }
};

static const TestClass<ShotsTests> registered;

}  // namespace tamba

#include "ShotsTests.moc"
