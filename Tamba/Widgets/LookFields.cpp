#include "Tamba/Widgets/LookFields.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "TambaCore/Pages/Images.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>

namespace tamba {
namespace {

/// A patch of colour, round or with round corners, sharp at any scale.
QPixmap patch(const QWidget& on, QSize size, const QColor& color, qreal radius) {
    QPixmap pixmap(size * on.devicePixelRatioF());
    pixmap.setDevicePixelRatio(on.devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    // Seen on a ground of its own colour, too.
    painter.setPen(Colors::current().strongBorder);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(QPointF(), QSizeF(size)).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    return pixmap;
}

}  // namespace

LogoField::LogoField(const std::optional<Path>& present, std::function<std::optional<Path>()> choose, QWidget* parent)
    : QWidget(parent), choose_(std::move(choose)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    picture_ = new QLabel(this);
    picture_->setObjectName(QStringLiteral("logoPicture"));
    picture_->setFixedSize(132, 64);
    picture_->setAlignment(Qt::AlignCenter);
    picture_->setProperty("role", QStringLiteral("well"));
    auto* choosing = Controls::button(tr("Choose…"), "chooseLogo", Controls::Kind::plain, this);
    remove_ = Controls::button(tr("Remove"), "removeLogo", Controls::Kind::link, this);
    row->addWidget(picture_);
    row->addWidget(choosing);
    row->addWidget(remove_);
    row->addStretch(1);
    setFocusProxy(choosing);
    connect(choosing, &QPushButton::clicked, this, [this] {
        const auto file = choose_();
        if (!file) return;
        chosen_ = file;
        show(file);
        emit edited();
    });
    connect(remove_, &QPushButton::clicked, this, [this] {
        chosen_.reset();
        removed_ = true;
        show({});
        emit edited();
    });
    show(present);
}

void LogoField::show(const std::optional<Path>& file) {
    const auto picture = file ? ImageFile::load(*file) : std::nullopt;
    remove_->setVisible(file.has_value());
    if (!picture) return picture_->setText(file ? tr("No picture") : tr("None"));
    const QImage image(picture->pixels.data(), picture->width, picture->height, picture->width * 4,
                       QImage::Format_RGBA8888);
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap =
        QPixmap::fromImage(image.scaled(QSize(120, 54) * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(ratio);
    picture_->setPixmap(pixmap);
}

AccentField::AccentField(const std::string& hex, QWidget* parent, const char* name) : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    swatch_ = new QLabel(this);
    swatch_->setFixedSize(30, 30);
    digits_ = new QLineEdit(toQt(hex), this);
    Controls::name(*digits_, name, tr("Colour"));
    digits_->setMaxLength(7);
    digits_->setFixedWidth(88);
    row->addWidget(swatch_);
    row->addSpacing(4);
    row->addWidget(digits_);
    row->addSpacing(4);
    // A few that print well.
    for (const char* colour : {"1E4A66", "2F5D50", "6B3A5B", "8A4B2A", "3D4A8A", "3A3733"}) {
        const QString text = QString::fromLatin1(colour);
        auto* dot = new QToolButton(this);
        Controls::name(*dot, "accentDot", tr("Colour %1").arg(text));
        dot->setIcon(patch(*this, QSize(18, 18), Icons::colorOf(colour), 9));
        dot->setIconSize(QSize(18, 18));
        dot->setFixedSize(28, 28);
        dot->setToolTip(text);
        connect(dot, &QToolButton::clicked, this, [this, text] { digits_->setText(text); });
        row->addWidget(dot);
    }
    row->addStretch(1);
    setFocusProxy(digits_);
    connect(digits_, &QLineEdit::textChanged, this, &AccentField::refresh);
    refresh();
}

void AccentField::setHex(const std::string& hex) { digits_->setText(toQt(hex)); }

std::optional<std::string> AccentField::hex() const {
    static const QRegularExpression colour(QStringLiteral("^#?([0-9A-Fa-f]{6})$"));
    const auto match = colour.match(digits_->text().trimmed());
    return match.hasMatch() ? std::optional(toStd(match.captured(1).toUpper())) : std::nullopt;
}

void AccentField::refresh() {
    const auto colour = hex();
    Controls::markProblem(*digits_, colour ? QString() : tr("Enter six hex digits such as 1E4A66."));
    if (colour) swatch_->setPixmap(patch(*this, QSize(30, 30), Icons::colorOf(*colour), 6));
    emit edited();
}

}  // namespace tamba
