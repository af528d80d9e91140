#pragma once

#include "Tamba/Icons.h"
#include "Tamba/Screens/OverviewScreen.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/DocumentPreview.h"
#include "Tamba/Widgets/ReceiptView.h"
#include "tests/app/Support.h"

namespace tamba {

/// The folder for pictures, empty where none are wanted.
inline QString picturesFolder() { return qEnvironmentVariable("TAMBA_SHOTS"); }

/// Keeps a picture of the widget as it is now, where pictures are wanted.
inline void picture(QWidget& widget, const QString& name) {
    if (picturesFolder().isEmpty()) return;
    for (int rounds = 0; rounds < 5; ++rounds) QCoreApplication::processEvents();
    const QString scale = widget.devicePixelRatioF() > 1 ? QStringLiteral("@2x") : QString();
    QVERIFY(QDir().mkpath(picturesFolder()));
    QVERIFY(widget.grab().save(picturesFolder() + QStringLiteral("/%1%2.png").arg(name, scale)));
}

/// Pictures to be looked at, of everything in light and in dark. A class of this kind runs only where pictures are
/// wanted, and is named …ShotsTests.
class Shots : public QObject {
protected:
    static void palettes() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    /// The palette of this row; each test begins with it.
    void setPalette() {
        QFETCH(bool, dark);
        palette_ = dark ? QStringLiteral("dark") : QStringLiteral("light");
        Style::apply(*qobject_cast<QApplication*>(QCoreApplication::instance()),
                     Colors::make(dark, Icons::colorOf("1E4A66")));
    }
    [[nodiscard]] bool isDark() const { return palette_ == QLatin1String("dark"); }
    /// Once all that is read or drawn a moment later is there.
    void shoot(QWidget& widget, const QString& name) const {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        for (ReceiptView* view : widget.findChildren<ReceiptView*>())
            if (view->isVisible()) QTRY_VERIFY(view->isLoaded());
        for (DocumentPreview* view : widget.findChildren<DocumentPreview*>())
            if (view->isVisible()) QTRY_VERIFY(view->isSettled() && view->pageCount() > 0);
        for (OverviewScreen* screen : widget.findChildren<OverviewScreen*>())
            if (screen->isVisible()) QTRY_VERIFY(screen->isSettled());
        picture(widget, name + QLatin1Char('-') + palette_);
    }

private:
    QString palette_;
};

}  // namespace tamba
