#include "Tamba/Printing.h"

#include "TambaCore/Pages/PDFPages.h"

#include <QApplication>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace tamba::Printing {

void print(QWidget& window, const QString& title, const std::string& pdf) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFullPage(true);
    QPrintDialog dialog(&printer, &window);
    dialog.setWindowTitle(QObject::tr("Print %1").arg(title));
    if (dialog.exec() != QDialog::Accepted) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    draw(printer, pdf);
    QApplication::restoreOverrideCursor();
}

void draw(QPrinter& printer, const std::string& pdf) {
    // 300 dots an inch on A4: what office printers show.
    constexpr int width = 2480;
    const std::vector<Image> pages = PDFPages::images(pdf, width);
    QPainter painter;
    if (pages.empty() || !painter.begin(&printer)) return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (i > 0) printer.newPage();
        const Image& page = pages[i];
        const QImage image(page.pixels.data(), page.width, page.height, page.width * 4, QImage::Format_RGBA8888);
        const QRectF paper = printer.pageLayout().fullRectPixels(printer.resolution());
        const QSizeF size = QSizeF(image.size()).scaled(paper.size(), Qt::KeepAspectRatio);
        painter.drawImage(QRectF(QPointF((paper.width() - size.width()) / 2, 0), size), image);
    }
}

}  // namespace tamba::Printing
