#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

/// Draws the mark in the sizes that desktops ask for: `render LARGE.svg SMALL.svg FOLDER`. Up to 32 pixels a drawing of
/// its own stays clear where the large one would blur.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 4) return 2;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        QSvgRenderer drawing(QString::fromLocal8Bit(argv[size <= 32 ? 2 : 1]));
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        drawing.render(&painter);
        painter.end();
        if (!drawing.isValid() ||
            !image.save(QStringLiteral("%1/%2.png").arg(QString::fromLocal8Bit(argv[3])).arg(size))) {
            std::fprintf(stderr, "The icon of %d pixels could not be drawn.\n", size);
            return 1;
        }
    }
    return 0;
}
