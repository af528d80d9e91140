#include "Tamba/Widgets/Overlays.h"

#include "Tamba/Icons.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>

#include <chrono>

namespace tamba {

using namespace std::chrono_literals;

ActivityStrip::ActivityStrip(QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("strip"));
    setFixedHeight(44);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 0, 12, 0);
    layout->setSpacing(14);
    what_ = new QLabel(this);
    what_->setObjectName(QStringLiteral("stripText"));
    what_->setMinimumWidth(80);
    what_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    figures_ = Controls::label({}, "caption", this);
    bar_ = new QProgressBar(this);
    bar_->setTextVisible(false);
    bar_->setFixedWidth(180);
    Controls::name(*bar_, "stripBar", tr("Progress"));
    cancel_ = Controls::button(tr("Cancel"), "stripCancel", Controls::Kind::plain, this);
    layout->addWidget(what_, 1);
    layout->addWidget(figures_);
    layout->addWidget(bar_);
    layout->addWidget(cancel_);
    connect(cancel_, &QPushButton::clicked, this, &ActivityStrip::cancelled);
    hide();
}

void ActivityStrip::show(const QString& what, int done, int count) {
    if (!what.isEmpty()) what_->setText(what);
    figures_->setText(count > 0 ? tr("%1 of %2").arg(std::min(done + 1, count)).arg(count) : QString());
    bar_->setRange(0, count);
    bar_->setValue(done);
    setVisible(true);
}

QString ActivityStrip::what() const { return isHidden() ? QString() : what_->text(); }

void ActivityStrip::setCancellable(bool cancellable) { cancel_->setVisible(cancellable); }

Toast::Toast(QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("toast"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 6, 8, 6);
    layout->setSpacing(8);
    text_ = new QLabel(this);
    text_->setObjectName(QStringLiteral("toastText"));
    action_ = new QPushButton(this);
    action_->setObjectName(QStringLiteral("toastAction"));
    layout->addWidget(text_, 1);
    layout->addWidget(action_);
    timer_.setSingleShot(true);
    timer_.setInterval(8s);
    connect(&timer_, &QTimer::timeout, this, &QWidget::hide);
    connect(action_, &QPushButton::clicked, this, [this] {
        hide();
        if (work_) work_();
    });
    parent->installEventFilter(this);
    hide();
}

void Toast::show(const QString& text, const QString& action, std::function<void()> work) {
    text_->setText(text);
    text_->setWordWrap(false);
    action_->setText(action);
    action_->setAccessibleName(action);
    action_->setVisible(!action.isEmpty());
    work_ = std::move(work);
    setVisible(true);
    place();
    raise();
    timer_.start();
}

void Toast::place() {
    const int room = parentWidget()->width() - 48;
    if (sizeHint().width() > room) text_->setWordWrap(true);
    resize(std::min(sizeHint().width(), room), 0);
    resize(width(), std::max(sizeHint().height(), heightForWidth(width())));
    move((parentWidget()->width() - width()) / 2, parentWidget()->height() - height() - 96);
}

bool Toast::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) place();
    return QFrame::eventFilter(watched, event);
}

DropOverlay::DropOverlay(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("dropOverlay"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropOverlay::show(int receipts, int statements) {
    receipts_ = receipts;
    statements_ = statements;
    setGeometry(parentWidget()->rect());
    setAccessibleName(title());
    setVisible(true);
    raise();
}

QString DropOverlay::title() const {
    const QString receipts = receipts_ == 1 ? tr("1 receipt") : tr("%1 receipts").arg(receipts_);
    const QString statements = statements_ == 1 ? tr("1 statement") : tr("%1 statements").arg(statements_);
    if (receipts_ > 0 && statements_ > 0) return tr("Drop to add %1 and import %2").arg(receipts, statements);
    if (statements_ > 0)
        return statements_ == 1 ? tr("Drop to import this statement") : tr("Drop to import %1").arg(statements);
    return receipts_ == 1 ? tr("Drop to add this receipt") : tr("Drop to add %1").arg(receipts);
}

QString DropOverlay::words() const {
    if (receipts_ > 0 && statements_ > 0) return tr("Receipts become expenses, statements become bank lines.");
    return statements_ > 0 ? tr("You see each line before it comes into the books. What is there already stays out.")
                           : tr("Each photo, PDF or saved e-mail is read and becomes an expense.");
}

void DropOverlay::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor veil = colors.window;
    veil.setAlphaF(0.95F);
    painter.fillRect(rect(), veil);
    const QRectF frame = QRectF(rect()).adjusted(18, 18, -18, -18);
    painter.setPen(QPen(colors.accent, 2, Qt::DashLine));
    QColor wash = colors.accent;
    wash.setAlphaF(0.06F);
    painter.setBrush(wash);
    painter.drawRoundedRect(frame, 14, 14);
    const QPointF middle = frame.center();
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.accent);
    painter.drawEllipse(middle - QPointF(0, 46), 32, 32);
    Icons::paint(painter, QRectF(middle.x() - 15, middle.y() - 61, 30, 30),
                 statements_ > 0 && receipts_ == 0 ? QStringLiteral("category-bank") : QStringLiteral("receipt-add"),
                 colors.onAccent);
    painter.setPen(colors.text);
    painter.setFont(Style::titleFont(20));
    painter.drawText(QRectF(frame.left(), middle.y(), frame.width(), 32), Qt::AlignCenter, title());
    painter.setPen(colors.muted);
    painter.setFont(Style::textFont(13));
    painter.drawText(QRectF(frame.left(), middle.y() + 32, frame.width(), 24), Qt::AlignCenter, words());
}

}  // namespace tamba
