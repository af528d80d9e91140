#include "Tamba/Widgets/OverviewParts.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"

#include <QPainter>
#include <QPushButton>

namespace tamba {
namespace {

QColor inkOf(Tone tone, const Colors& colors, const QColor& otherwise) {
    return tone == Tone::danger ? colors.danger : tone == Tone::warning ? colors.warning : otherwise;
}

QColor tintOf(Tone tone, const Colors& colors) {
    return tone == Tone::danger ? colors.dangerTint : tone == Tone::warning ? colors.warningTint : colors.neutralTint;
}

void draw(QPainter& painter, const QRectF& box, const QString& text, const QFont& font, const QColor& ink,
          Qt::Alignment alignment = Qt::AlignLeft) {
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(box, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                     QFontMetricsF(font).elidedText(text, Qt::ElideRight, box.width()));
}

/// The widest font of these sizes in which the text fits: an amount that is cut off would be another amount.
QFont fitting(const QString& text, qreal width, int pixels) {
    while (pixels > 11 && QFontMetricsF(Style::textFont(pixels, QFont::DemiBold)).horizontalAdvance(text) > width)
        --pixels;
    return Style::textFont(pixels, QFont::DemiBold);
}

}  // namespace

OverviewTile::OverviewTile(QWidget* parent) : QAbstractButton(parent) {
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void OverviewTile::paintGround(QPainter& painter, Look look) const {
    const Colors colors = Colors::current();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool card = look == Look::card;
    const QRectF box = card ? QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5) : QRectF(rect()).adjusted(6, 1, -6, -1);
    const bool lit = isDown() || underMouse();
    painter.setPen(hasFocus() ? QPen(colors.accent, 1) : card ? QPen(colors.border, 1) : QPen(Qt::NoPen));
    painter.setBrush(lit ? QBrush(colors.hover) : card ? QBrush(colors.surface) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(box, 8, 8);
}

void OverviewTile::describe(const QString& name, const QString& more) {
    setAccessibleName(name);
    setAccessibleDescription(more);
    updateGeometry();
    update();
}

FigureTile::FigureTile(QWidget* parent) : OverviewTile(parent) {
    setMinimumWidth(150);
    setFixedHeight(96);
}

void FigureTile::set(const OverviewFigure& figure) {
    figure_ = figure;
    goal_ = figure.goal;
    setToolTip(toQt(figure.note));
    describe(toQt(figure.title + ": " + figure.amount), toQt(figure.note));
}

void FigureTile::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::current();
    QPainter painter(this);
    paintGround(painter, Look::card);
    const QRectF box = QRectF(rect()).adjusted(16, 0, -12, 0);
    draw(painter, QRectF(box.left(), 12, box.width(), 18), toQt(figure_.title), Style::textFont(12), colors.muted);
    const QString amount = toQt(figure_.amount);
    draw(painter, QRectF(box.left(), 31, box.width(), 32), amount, fitting(amount, box.width(), 22),
         inkOf(figure_.tone, colors, colors.text));
    draw(painter, QRectF(box.left(), 65, box.width(), 18), toQt(figure_.note), Style::textFont(11), colors.muted);
}

ItemTile::ItemTile(QWidget* parent) : OverviewTile(parent) {
    setFixedHeight(46);
    remind_ = Controls::button(tr("Send Reminder"), "sendReminder", Controls::Kind::plain, this);
    connect(remind_, &QPushButton::clicked, this, [this] {
        if (item_.remind) emit remindChosen(*item_.remind);
    });
}

void ItemTile::set(const OverviewItem& item) {
    item_ = item;
    goal_ = item.goal;
    remind_->setVisible(item.remind.has_value());
    remind_->setAccessibleDescription(toQt(item.title));
    describe(toQt(item.title + (item.amount.empty() ? "" : ", " + item.amount)), toQt(item.detail));
}

void ItemTile::resizeEvent(QResizeEvent*) {
    const QSize size = remind_->sizeHint();
    remind_->setGeometry(width() - 16 - size.width(), (height() - 32) / 2, size.width(), 32);
}

void ItemTile::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::current();
    QPainter painter(this);
    paintGround(painter, Look::row);
    const QRectF round(16, (height() - 32) / 2.0, 32, 32);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tintOf(item_.tone, colors));
    painter.drawEllipse(round);
    Icons::paint(painter, round.adjusted(7, 7, -7, -7), toQt(item_.icon), inkOf(item_.tone, colors, colors.muted));
    qreal right = item_.remind ? remind_->x() - 12 : width() - 18;
    if (!item_.amount.empty()) {
        const QFont font = Style::textFont(13, QFont::DemiBold);
        const QString amount = toQt(item_.amount);
        const qreal wide = QFontMetricsF(font).horizontalAdvance(amount) + 2;
        draw(painter, QRectF(right - wide, 0, wide, height()), amount, font, colors.text, Qt::AlignRight);
        right -= wide + 12;
    }
    const QRectF words(60, 0, std::max(20.0, right - 60), height());
    const bool two = !item_.detail.empty();
    draw(painter, two ? words.adjusted(0, 4, 0, -22) : words, toQt(item_.title), Style::textFont(13, QFont::DemiBold),
         colors.text);
    if (two)
        draw(painter, words.adjusted(0, 23, 0, -5), toQt(item_.detail), Style::textFont(11),
             inkOf(item_.remind ? item_.tone : Tone::none, colors, colors.muted));
}

DateTile::DateTile(QWidget* parent) : OverviewTile(parent) { setFixedHeight(66); }

void DateTile::set(const OverviewDate& date) {
    date_ = date;
    goal_ = date.goal;
    setToolTip(toQt(date.note));
    describe(tr("%1, due %2, %3").arg(toQt(date.title), toQt(date.day + " " + date.month), toQt(date.when)),
             toQt(date.holds + ". " + (date.problems.empty() ? "" : date.problems + ". ") + date.note));
}

void DateTile::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::current();
    QPainter painter(this);
    paintGround(painter, Look::row);
    const QRectF leaf(16, (height() - 46) / 2.0, 42, 46);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tintOf(date_.tone, colors));
    painter.drawRoundedRect(leaf, 7, 7);
    const QColor ink = inkOf(date_.tone, colors, colors.text);
    draw(painter, leaf.adjusted(0, 3, 0, -18), toQt(date_.day), Style::textFont(17, QFont::DemiBold), ink,
         Qt::AlignHCenter);
    draw(painter, leaf.adjusted(0, 25, 0, -4), toQt(date_.month), Style::textFont(11), ink, Qt::AlignHCenter);

    const QFont small = Style::textFont(11);
    const QString when = toQt(date_.when);
    const qreal wide = QFontMetricsF(small).horizontalAdvance(when) + 2;
    const qreal right = width() - 18;
    draw(painter, QRectF(right - wide, 8, wide, 18), when, small, colors.muted, Qt::AlignRight);
    const QRectF words(70, 0, right - 70, height());
    draw(painter, QRectF(words.left(), 8, words.width() - wide - 10, 18), toQt(date_.title),
         Style::textFont(13, QFont::DemiBold), colors.text);
    draw(painter, QRectF(words.left(), 26, words.width(), 17), toQt(date_.holds), Style::textFont(12), colors.text);
    const QString last =
        date_.problems.empty() ? toQt(date_.note) : tr("%1 to mend before it is sent").arg(toQt(date_.problems));
    draw(painter, QRectF(words.left(), 43, words.width(), 16), last, small,
         date_.problems.empty() ? colors.muted : colors.warning);
}

}  // namespace tamba
