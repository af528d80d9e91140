#include "Tamba/GuideWindow.h"
#include "tests/app/Support.h"

#include <QDirIterator>
#include <QListWidget>
#include <QTextBlock>
#include <QTextBrowser>

namespace tamba {

class GuideTests : public QObject {
    Q_OBJECT

    static QStringList pagesIn(const QListWidget& contents) {
        QStringList pages;
        for (int row = 0; row < contents.count(); ++row)
            pages << contents.item(row)->data(Qt::UserRole).toUrl().fileName();
        return pages;
    }

private slots:
    void everyPageIsListedAndWhole() {
        GuideWindow guide(nullptr);
        guide.open(QStringLiteral("README.md"));
        const QStringList listed = pagesIn(*guide.findChild<QListWidget*>());
        auto& page = *guide.findChild<QTextBrowser*>();
        int pages = 0, pictures = 0;
        for (QDirIterator files(QStringLiteral(":/guide")); files.hasNext(); ++pages) {
            const QString name = QFileInfo(files.next()).fileName();
            QVERIFY2(listed.contains(name), qPrintable(name));
            page.setSource(QUrl(QStringLiteral("qrc:/guide/") + name));
            QCOMPARE(guide.findChild<QListWidget*>()->currentRow(), listed.indexOf(name));
            for (QTextBlock block = page.document()->begin(); block.isValid(); block = block.next())
                for (auto part = block.begin(); !part.atEnd(); ++part) {
                    const QTextCharFormat format = part.fragment().charFormat();
                    if (const QString link = format.anchorHref(); link.endsWith(QLatin1String(".md")))
                        QVERIFY2(listed.contains(link), qPrintable(name + QStringLiteral(" leads to ") + link));
                    if (!format.isImageFormat()) continue;
                    const QUrl picture(format.toImageFormat().name());
                    const auto image = page.document()->resource(QTextDocument::ImageResource, picture).value<QImage>();
                    QVERIFY2(!image.isNull(), qPrintable(name + QStringLiteral(" lacks ") + picture.toString()));
                    QVERIFY(image.deviceIndependentSize().width() < page.viewport()->width());
                    ++pictures;
                }
        }
        QCOMPARE(pages, listed.size());
        QVERIFY(pictures >= 10);
    }

    void helpOpensWhereOneIs() {
        OpenWindow desk(Fixtures::library(testDay));
        desk.window.showScreen(Screen::bank);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
        auto* guide = desk.window.findChild<GuideWindow*>();
        QVERIFY(guide && guide->isVisible());
        auto& page = *guide->findChild<QTextBrowser*>();
        QCOMPARE(page.source().fileName(), QStringLiteral("bank.md"));
        QVERIFY(QTest::qWaitForWindowActive(guide));
        auto& contents = *guide->findChild<QListWidget*>();
        QTest::keyClick(&contents, Qt::Key_Down);
        QCOMPARE(page.source().fileName(), QStringLiteral("gst.md"));
        QTest::keyClick(&contents, Qt::Key_Escape);
        QVERIFY(!guide->isVisible());
    }
};

static const TestClass<GuideTests> registered;

}  // namespace tamba

#include "GuideTests.moc"
