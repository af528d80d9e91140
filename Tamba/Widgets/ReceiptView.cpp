#include "Tamba/Widgets/ReceiptView.h"

#include "Tamba/Icons.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QShortcut>

namespace tamba {

ReceiptView::ReceiptView(QWidget* parent) : QFrame(parent) {
    Controls::name(*this, "receiptView", tr("Receipt"));
    setFocusPolicy(Qt::TabFocus);
    setMinimumHeight(120);
    text_ = new QPlainTextEdit(this);
    Controls::name(*text_, "receiptText", tr("Text of the e-mail"));
    text_->setReadOnly(true);
    text_->setFrameShape(QFrame::NoFrame);
    earlier_ = Controls::iconButton(QStringLiteral("chevron-left"), tr("Previous page"), "previousPage", this);
    later_ = Controls::iconButton(QStringLiteral("chevron-right"), tr("Next page"), "nextPage", this);
    pages_ = Controls::label({}, "caption", this);
    pages_->setAlignment(Qt::AlignCenter);
    connect(earlier_, &QToolButton::clicked, this, [this] { turn(-1); });
    connect(later_, &QToolButton::clicked, this, [this] { turn(1); });
    connect(&loader_, &PictureLoader::loaded, this, [this](int request, const ReceiptPicture& picture) {
        if (request == request_) take(picture);
    });
    take({});
    loaded_ = false;
}

void ReceiptView::show(const std::optional<std::filesystem::path>& file, const QString& name) {
    setAccessibleDescription(name);
    setToolTip(name);
    if (file == file_) return;
    file_ = file;
    page_ = 0;
    take({});
    loaded_ = false;
    ask();
}

void ReceiptView::ask() {
    if (file_) request_ = loader_.request(*file_, page_, 1600);
}

void ReceiptView::turn(int pages) {
    const int page = page_ + pages;
    if (page < 0 || page >= picture_.pages) return;
    page_ = page;
    ask();
}

void ReceiptView::take(const ReceiptPicture& picture) {
    picture_ = picture;
    loaded_ = true;
    const bool several = picture_.pages > 1;
    for (QWidget* widget :
         {static_cast<QWidget*>(earlier_), static_cast<QWidget*>(later_), static_cast<QWidget*>(pages_)})
        widget->setVisible(several);
    earlier_->setEnabled(page_ > 0);
    later_->setEnabled(page_ + 1 < picture_.pages);
    pages_->setText(tr("Page %1 of %2").arg(page_ + 1).arg(picture_.pages));
    text_->setPlainText(picture_.text);
    text_->setVisible(!picture_.text.isEmpty());
    setCursor(picture_.image.isNull() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    setFullWidth(fullWidth_);
    update();
    emit loaded();
}

void ReceiptView::setFullWidth(int width) {
    fullWidth_ = width;
    if (width <= 0) return;
    const QSize size = picture_.image.isNull() ? QSize(3, 4) : picture_.image.size();
    setFixedSize(width, width * size.height() / std::max(1, size.width()) + (picture_.pages > 1 ? 48 : 16));
}

QRectF ReceiptView::pageBox() const {
    const qreal foot = picture_.pages > 1 ? 38 : 8;
    const QRectF room = QRectF(rect()).adjusted(8, 8, -8, -foot);
    QSizeF size = picture_.image.size();
    size.scale(room.size(), Qt::KeepAspectRatio);
    return {QPointF(room.center().x() - size.width() / 2, room.center().y() - size.height() / 2), size};
}

void ReceiptView::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::current();
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QColor desk = mixed(colors.surface, colors.text, colors.dark ? 0.05F : 0.06F);
    painter.setPen(hasFocus() ? QPen(colors.accent, 1) : Qt::NoPen);
    painter.setBrush(desk);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
    if (!picture_.image.isNull()) {
        const QRectF box = pageBox();
        for (int i = 3; i > 0; --i) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(0, 0, 0, colors.dark ? 28 : 12));
            painter.drawRoundedRect(box.adjusted(-i, -i + 1, i, i + 1), 3, 3);
        }
        // Scaled once to the device's pixels: the painter's own reduction of a large scan is coarse.
        const QSize pixels = (box.size() * devicePixelRatioF()).toSize();
        QImage scaled = picture_.image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        scaled.setDevicePixelRatio(devicePixelRatioF());
        painter.drawImage(box.topLeft(), scaled);
        return;
    }
    if (text_->isVisible()) return;
    painter.setPen(colors.muted);
    painter.setFont(Style::textFont(12));
    const QString words = !file_                        ? tr("No receipt yet.")
                          : !picture_.problem.isEmpty() ? picture_.problem
                                                        : tr("Opening…");
    const QRectF box = QRectF(rect()).adjusted(16, 8, -16, -8);
    Icons::paint(painter, QRectF(box.center().x() - 13, box.center().y() - 38, 26, 26),
                 picture_.problem.isEmpty() ? QStringLiteral("receipt") : QStringLiteral("alert"), colors.faint);
    painter.drawText(box.adjusted(0, box.height() / 2 - 4, 0, 0), Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     words);
}

void ReceiptView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !picture_.image.isNull()) emit clicked();
}

void ReceiptView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_PageUp:
            return turn(-1);
        case Qt::Key_Right:
        case Qt::Key_PageDown:
            return turn(1);
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (!picture_.image.isNull()) emit clicked();
            return;
        default:
            QFrame::keyPressEvent(event);
    }
}

void ReceiptView::resizeEvent(QResizeEvent*) {
    text_->setGeometry(rect().adjusted(6, 6, -6, -6));
    const int y = height() - 33;
    pages_->setGeometry(width() / 2 - 50, y, 100, 28);
    earlier_->setGeometry(width() / 2 - 82, y, 28, 28);
    later_->setGeometry(width() / 2 + 54, y, 28, 28);
}

void showLarge(QWidget* parent, const std::filesystem::path& file, const QString& name) {
    auto* dialog = new QDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("largeReceipt"));
    dialog->setWindowTitle(name);
    dialog->resize(std::min(900, parent->width() - 40), parent->height() - 20);
    auto* layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* scroll = new QScrollArea(dialog);
    scroll->setAlignment(Qt::AlignHCenter);
    auto* view = new ReceiptView;
    view->show(file, name);
    view->setFullWidth(dialog->width() - 24);
    scroll->setWidget(view);
    layout->addWidget(scroll, 1);
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(12, 8, 12, 10);
    const auto zoom = [view](int percent) { view->setFullWidth(std::clamp(view->width() * percent / 100, 240, 3200)); };
    auto* smaller = Controls::iconButton(QStringLiteral("minus"), QObject::tr("Smaller"), "zoomOut", dialog);
    auto* larger = Controls::iconButton(QStringLiteral("plus"), QObject::tr("Larger"), "zoomIn", dialog);
    smaller->setShortcut(QKeySequence::ZoomOut);
    larger->setShortcut(QKeySequence::ZoomIn);
    auto* close = Controls::button(QObject::tr("Close"), "closeLarge", Controls::Kind::plain, dialog);
    foot->addWidget(smaller);
    foot->addWidget(larger);
    foot->addStretch(1);
    foot->addWidget(close);
    layout->addLayout(foot);
    QObject::connect(smaller, &QToolButton::clicked, view, [zoom] { zoom(80); });
    QObject::connect(larger, &QToolButton::clicked, view, [zoom] { zoom(125); });
    QObject::connect(view, &ReceiptView::clicked, dialog, &QDialog::accept);
    QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::accept);
    dialog->open();
}

}  // namespace tamba
