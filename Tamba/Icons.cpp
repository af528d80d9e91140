#include "Tamba/Icons.h"

#include "Tamba/QtText.h"

#include <QFile>
#include <QIconEngine>
#include <QPaintDevice>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <array>
#include <functional>
#include <utility>

namespace tamba::Icons {
namespace {

QPixmap pixmap(const QString& name, const QColor& color, QSize pixels) {
    const QString key =
        QStringLiteral("tamba-icon/%1/%2/%3x%4")
            .arg(name, color.name(QColor::HexArgb), QString::number(pixels.width()), QString::number(pixels.height()));
    QPixmap result;
    if (QPixmapCache::find(key, &result)) return result;
    QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QSvgRenderer renderer(file.readAll().replace("currentColor", color.name().toLatin1()));
    result = QPixmap(pixels);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter);
    painter.end();
    QPixmapCache::insert(key, result);
    return result;
}

class Engine : public QIconEngine {
public:
    using Ink = std::function<QColor(const Colors&)>;
    Engine(QString name, Ink ink) : name_(std::move(name)), ink_(std::move(ink)) {}
    void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode, QIcon::State) override {
        Icons::paint(*painter, rectangle, name_, color(mode));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        return Icons::pixmap(name_, color(mode), size);
    }
    QIconEngine* clone() const override { return new Engine(name_, ink_); }

private:
    QColor color(QIcon::Mode mode) const {
        QColor result = ink_(Colors::current());
        if (mode == QIcon::Disabled) result.setAlphaF(0.4F);
        return result;
    }
    QString name_;
    Ink ink_;
};

}  // namespace

void paint(QPainter& painter, const QRectF& rectangle, const QString& name, const QColor& color) {
    const qreal ratio = painter.device() ? painter.device()->devicePixelRatioF() : 1;
    const QPixmap picture = pixmap(name, color, (rectangle.size() * ratio).toSize());
    painter.drawPixmap(rectangle, picture, QRectF(picture.rect()));
}

QIcon icon(const QString& name, QColor Colors::* ink) {
    return QIcon(new Engine(name, [ink](const Colors& colors) { return colors.*ink; }));
}

QColor colorOf(std::string_view hex) {
    const QColor color(QLatin1Char('#') + toQt(hex));
    return color.isValid() ? color : QColor(0x7D7466);
}

QIcon categoryIcon(std::string_view symbol, std::string_view colorHex) {
    return QIcon(new Engine(ofCategory(symbol),
                            [color = colorOf(colorHex)](const Colors& colors) { return colors.readable(color); }));
}

QString ofCategory(std::string_view symbol) {
    static constexpr std::array<std::pair<std::string_view, const char*>, 13> glyphs{{
        {"app.badge", "category-app"},
        {"desktopcomputer", "category-desktop"},
        {"airplane", "category-airplane"},
        {"car", "category-car"},
        {"fork.knife", "category-meal"},
        {"paperclip", "category-clip"},
        {"house", "category-house"},
        {"wifi", "category-wifi"},
        {"briefcase", "category-briefcase"},
        {"megaphone", "category-megaphone"},
        {"building.columns", "category-bank"},
        {"road.lanes", "category-road"},
        {"tray", "category-tray"},
    }};
    for (const auto& [known, glyph] : glyphs)
        if (known == symbol) return QString::fromLatin1(glyph);
    return QStringLiteral("category-none");
}

}  // namespace tamba::Icons
