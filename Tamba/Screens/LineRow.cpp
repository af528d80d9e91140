#include "Tamba/Screens/LineRow.h"

#include "Tamba/Colors.h"
#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/GrowingText.h"
#include "TambaCore/Base/Text.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>
#include <QStylePainter>

namespace tamba {
namespace {

const char* nameOf(LineCell cell) {
    static constexpr const char* names[] = {"lineName",  "lineHsn",      "lineQuantity", "lineUnit",
                                            "linePrice", "lineDiscount", "lineTax"};
    return names[static_cast<std::size_t>(cell)];
}

/// Quantities are read like amounts of a currency with three decimals, sums included.
std::optional<std::int64_t> readMilli(const std::string& text) {
    static const Currency thousandths{"", 3, "", "", "en_IN"};
    return MoneyFormat::parseSum(text, thousandths);
}

/// "18", "18%" and "2.5 %" in basis points.
std::optional<int> readPercent(std::string text) {
    static const Currency hundredths{"", 2, "", "", "en_IN"};
    text = Text::replaceAll(std::move(text), "%", "");
    if (Text::trim(text).empty()) return 0;
    const auto value = MoneyFormat::parseEntry(text, hundredths);
    if (!value || *value < 0 || *value > 10'000) return {};
    return static_cast<int>(*value);
}

}  // namespace

int widthOf(LineCell cell) {
    static constexpr int widths[] = {0, 72, 54, 62, 96, 52, 50};
    return widths[static_cast<std::size_t>(cell)];
}

Qt::Alignment alignmentOf(LineCell cell) {
    const bool words = cell == LineCell::name || cell == LineCell::hsn || cell == LineCell::unit;
    return (words ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
}

QString titleOf(LineCell cell) {
    switch (cell) {
        case LineCell::name:
            return QObject::tr("Item");
        case LineCell::hsn:
            return QObject::tr("HSN/SAC");
        case LineCell::quantity:
            return QObject::tr("Qty");
        case LineCell::unit:
            return QObject::tr("Unit");
        case LineCell::price:
            return QObject::tr("Price");
        case LineCell::discount:
            return QObject::tr("Disc.");
        case LineCell::tax:
            break;
    }
    return QObject::tr("Tax");
}

void arrangeLine(QGridLayout& grid, bool compact, QWidget* name, QWidget* detail, QWidget* figures, QWidget* amount,
                 QWidget* menu) {
    for (QWidget* widget : {name, detail, figures, amount, menu})
        if (widget) grid.removeWidget(widget);
    grid.addWidget(name, 0, 0, 1, compact ? 2 : 1);
    if (compact)
        grid.addWidget(figures, 2, 0, 1, 4);
    else
        grid.addWidget(figures, 0, 1);
    grid.addWidget(amount, 0, 2);
    grid.addWidget(menu, 0, 3);
    if (detail) grid.addWidget(detail, 1, 0, 1, compact ? 4 : 2);
    grid.setColumnStretch(0, 1);
}

Cell::Cell(QWidget* parent) : QLineEdit(parent) { setProperty("role", QStringLiteral("cell")); }

void Cell::put(const QString& text) {
    if (isModified()) return;
    if (this->text() != text) {
        setText(text);
        setCursorPosition(0);
        if (hasFocus()) selectAll();
    }
    Controls::markProblem(*this, {});
}

bool Cell::takeSuggestion() {
    QCompleter* suggestions = completer();
    if (!suggestions || suggestions->widget() != this || !suggestions->popup()->isVisible()) return false;
    const QModelIndex index = suggestions->popup()->currentIndex();
    suggestions->popup()->hide();
    if (!index.isValid()) return false;
    emit suggestionTaken(index);
    return true;
}

bool Cell::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        // Taken before the focus moves on: cells that only then appear are next in line.
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            if (!takeSuggestion()) emit committed();
        }
    }
    return QLineEdit::event(event);
}

void Cell::paintEvent(QPaintEvent* event) {
    QStyleOptionFrame option;
    initStyleOption(&option);
    // QLineEdit leaves two more pixels beside its text.
    const QRect room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).adjusted(2, 0, -2, 0);
    if (hasFocus() || fontMetrics().horizontalAdvance(text()) <= room.width()) return QLineEdit::paintEvent(event);
    QStylePainter painter(this);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room, static_cast<int>(alignment() | Qt::AlignVCenter),
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

void Cell::keyPressEvent(QKeyEvent* event) {
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool suggesting = completer() && completer()->widget() == this && completer()->popup()->isVisible();
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (takeSuggestion()) return;
            emit committed();
            emit moved(1);
            return;
        case Qt::Key_Up:
        case Qt::Key_Down: {
            const int lines = event->key() == Qt::Key_Up ? -1 : 1;
            if (alt) {
                emit committed();
                emit lineMoved(lines);
                return;
            }
            if (suggesting) break;
            emit committed();
            emit moved(lines);
            return;
        }
        case Qt::Key_Delete:
            if (!control) break;
            emit lineRemoved();
            return;
        case Qt::Key_Escape:
            if (suggesting || !isModified()) break;
            emit reverted();
            return;
        default:
            break;
    }
    QLineEdit::keyPressEvent(event);
}

void Cell::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Keyboard) return QLineEdit::contextMenuEvent(event);
    emit menuChosen(mapToGlobal(QPoint(0, height())));
}

void Cell::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) emit committed();
}

LineRow::LineRow(std::size_t index, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("line%1").arg(index));
    grid_ = new QGridLayout(this);
    grid_->setContentsMargins(0, 4, 0, 5);
    grid_->setHorizontalSpacing(2);
    grid_->setVerticalSpacing(0);
    figures_ = new QWidget(this);
    auto* figures = new QHBoxLayout(figures_);
    figures->setContentsMargins(0, 0, 0, 0);
    figures->setSpacing(2);
    const QString where = tr("%1, line %2");
    const auto make = [&](LineCell column, QWidget* owner) {
        auto* cell = new Cell(owner);
        Controls::name(*cell, nameOf(column), where.arg(titleOf(column)).arg(index + 1));
        cell->setAlignment(alignmentOf(column));
        cells_[static_cast<std::size_t>(column)] = cell;
        return cell;
    };
    make(LineCell::name, this)->setFont([this] {
        QFont bold = font();
        bold.setWeight(QFont::DemiBold);
        return bold;
    }());
    detail_ = new GrowingText(1, this);
    Controls::name(*detail_, "lineDetail", tr("Details, line %1").arg(index + 1));
    detail_->setPlaceholderText(tr("Details"));
    detail_->setProperty("role", QStringLiteral("cell"));
    for (std::size_t i = 1; i < lineCells; ++i) {
        const auto column = static_cast<LineCell>(i);
        Cell* cell = make(column, figures_);
        cell->setFixedWidth(widthOf(column));
        figures->addWidget(cell);
    }
    figures->addStretch(1);
    amount_ = new QLabel(this);
    Controls::name(*amount_, "lineAmount", tr("Amount, line %1").arg(index + 1));
    amount_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    amount_->setMinimumWidth(amountWidth);
    menu_ = Controls::iconButton(QStringLiteral("more"), tr("More for line %1").arg(index + 1), "lineMenu", this);
    menu_->setFocusPolicy(Qt::NoFocus);
    menu_->setIconSize(QSize(16, 16));
    menu_->setFixedWidth(26);
    for (Cell* cell : cells_) cell->installEventFilter(this);
    detail_->installEventFilter(this);
    arrangeLine(*grid_, compact_, cells_[0], detail_, figures_, amount_, menu_);
    clear();
}

void LineRow::fill(const Line& line, const Currency& currency, const QString& amount) {
    if (id_ != line.id) forget();
    const bool appeared = !id_;
    id_ = line.id;
    cell(LineCell::name).put(toQt(line.name));
    cell(LineCell::hsn).put(toQt(line.hsn));
    cell(LineCell::quantity).put(toQt(MoneyFormat::quantity(line.qtyMilli)));
    cell(LineCell::unit).put(toQt(line.unit));
    cell(LineCell::price).put(toQt(MoneyFormat::string(line.priceMinor, currency, MoneyFormat::Symbol::hidden)));
    cell(LineCell::discount).put(line.discountBP == 0 ? QString() : toQt(MoneyFormat::rate(line.discountBP)));
    cell(LineCell::tax).put(toQt(MoneyFormat::rate(line.taxBP)));
    detail_->put(toQt(line.detail));
    showDetail();
    setAmount(amount);
    if (!appeared) return;
    cell(LineCell::name).setPlaceholderText(tr("Item"));
    cell(LineCell::discount).setPlaceholderText(QStringLiteral("–"));
    cell(LineCell::hsn).setPlaceholderText(QStringLiteral("–"));
    cell(LineCell::unit).setPlaceholderText(QStringLiteral("–"));
    figures_->show();
    menu_->show();
}

void LineRow::clear() {
    if (id_) forget();
    id_.reset();
    cell(LineCell::name).put({});
    cell(LineCell::name).setPlaceholderText(tr("Add an item"));
    amount_->clear();
    for (QWidget* widget : {static_cast<QWidget*>(detail_), figures_, static_cast<QWidget*>(menu_)}) widget->hide();
}

void LineRow::forget() {
    for (Cell* cell : cells_) cell->setModified(false);
    detail_->setModified(false);
}

void LineRow::setCompact(bool compact) {
    if (compact == compact_) return;
    compact_ = compact;
    arrangeLine(*grid_, compact_, cells_[0], detail_, figures_, amount_, menu_);
}

void LineRow::showDetail() {
    // An empty one takes room only while the line is worked on.
    const QWidget* keys = QApplication::focusWidget();
    const bool worked = keys && isAncestorOf(keys);
    detail_->setVisible(id_ && (worked || detail_->isModified() || !detail_->toPlainText().isEmpty()));
}

void LineRow::setTaxShown(bool shown) { cell(LineCell::tax).setVisible(shown); }

void LineRow::setAmount(const QString& amount) { amount_->setText(amount); }

bool LineRow::hasUnsavedText() const {
    return detail_->isModified() ||
           std::any_of(cells_.begin(), cells_.end(), [](const Cell* cell) { return cell->isModified(); });
}

Line LineRow::pending(Line line, const Currency& currency) const {
    for (std::size_t i = 0; i < lineCells; ++i) {
        Line changed = line;
        if (cells_[i]->isModified() && read(changed, static_cast<LineCell>(i), cells_[i]->text(), currency).isEmpty())
            line = std::move(changed);
    }
    return line;
}

QString LineRow::read(Line& line, LineCell cell, const QString& text, const Currency& currency) {
    const std::string typed = toStd(text.trimmed());
    switch (cell) {
        case LineCell::name:
            line.name = typed;
            return {};
        case LineCell::hsn:
            line.hsn = typed;
            return {};
        case LineCell::unit:
            line.unit = typed;
            return {};
        case LineCell::quantity: {
            const auto value = typed.empty() ? std::optional<std::int64_t>(0) : readMilli(typed);
            if (!value || *value < 0) return tr("Enter a quantity such as 2.5.");
            line.qtyMilli = *value;
            return {};
        }
        case LineCell::price: {
            const auto value = typed.empty() ? std::optional<std::int64_t>(0) : MoneyFormat::parseSum(typed, currency);
            if (!value || *value < 0) return tr("Enter a price such as 1,180.00, or a sum such as 3*1200.");
            line.priceMinor = *value;
            return {};
        }
        case LineCell::discount:
        case LineCell::tax:
            break;
    }
    const auto value = readPercent(typed);
    if (!value) return tr("Enter a percentage from 0 to 100.");
    (cell == LineCell::tax ? line.taxBP : line.discountBP) = *value;
    return {};
}

bool LineRow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) showDetail();
    // Once the keys have arrived where they go.
    if (event->type() == QEvent::FocusOut) QMetaObject::invokeMethod(this, &LineRow::showDetail, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

void LineRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(QRect(0, height() - 1, width(), 1), Colors::current().border);
}

}  // namespace tamba
