#include "Tamba/Printing.h"

#include "Tamba/Background.h"
#include "TambaCore/Pages/PDFPages.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QWidget>

#include <memory>

namespace tamba::Printing {

void print(QWidget& window, const QString& title, const std::string& pdf, const Heard& heard) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(title);
    printer->setPageSize(QPageSize(QPageSize::A4));
    printer->setFullPage(true);
    QPrintDialog dialog(printer.get(), &window);
    dialog.setWindowTitle(QObject::tr("Print %1").arg(title));
    if (dialog.exec() != QDialog::Accepted) return;
    // Each has its own, so that the next one does not stop it; the window waits for what is not printed yet.
    auto* background = new Background(&window);
    heard(title, Stage::running);
    background->start([=](const std::atomic<bool>&) {
        const bool printed = draw(*printer, pdf);
        return [=] {
            background->deleteLater();
            heard(title, printed ? Stage::printed : Stage::failed);
        };
    });
}

bool draw(QPrinter& printer, const std::string& pdf) {
    // 300 dots an inch on A4: what office printers show.
    constexpr int width = 2480;
    QPainter painter;
    bool printed = true;
    PDFPages::eachImage(pdf, width, [&](const Image& page) {
        if (painter.isActive())
            printed = printer.newPage() && printed;
        else if (!printed || !painter.begin(&printer)) {
            printed = false;
            return;
        }
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        const QImage image(page.pixels.data(), page.width, page.height, page.width * 4, QImage::Format_RGBA8888);
        const QRectF paper = printer.pageLayout().fullRectPixels(printer.resolution());
        const QSizeF size = QSizeF(image.size()).scaled(paper.size(), Qt::KeepAspectRatio);
        painter.drawImage(QRectF(QPointF((paper.width() - size.width()) / 2, 0), size), image);
    });
    return printed && painter.isActive() && painter.end();
}

}  // namespace tamba::Printing
