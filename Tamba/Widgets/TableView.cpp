#include "Tamba/Widgets/TableView.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/ReportRows.h"
#include "Tamba/Rows/Sentences.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/RowDelegate.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace tamba {
namespace {

using Kind = Table::Kind;

constexpr int cellHeight = 34, headerHeight = 32;

/// Also frames the cell that the keys are on.
class CellDelegate : public RowDelegate {
public:
    using RowDelegate::RowDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        RowDelegate::paint(painter, option, index);
        if (!option.state.testFlag(QStyle::State_HasFocus)) return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(Colors::current().accent, 1));
        painter->drawRoundedRect(QRectF(option.rect).adjusted(2.5, 2.5, -2.5, -3.5), 4, 4);
        painter->restore();
    }
};

bool isAtLeft(Kind kind) { return kind == Kind::text || kind == Kind::day || kind == Kind::month; }

bool less(const Table::Cell& a, const Table::Cell& b) {
    if (a.index() != b.index()) return a.index() < b.index();
    if (const auto* amount = std::get_if<Table::Amount>(&a)) return amount->minor < std::get<Table::Amount>(b).minor;
    if (const auto* text = std::get_if<std::string>(&a))
        return toQt(*text).localeAwareCompare(toQt(std::get<std::string>(b))) < 0;
    if (const auto* day = std::get_if<Day>(&a)) return *day < std::get<Day>(b);
    if (const auto* number = std::get_if<std::int64_t>(&a)) return *number < std::get<std::int64_t>(b);
    return false;
}

}  // namespace

void TableModel::setTable(Table table) {
    beginResetModel();
    table_ = std::move(table);
    endResetModel();
}

std::string TableModel::text(int row, int column) const {
    return cellText(table_, static_cast<std::size_t>(row), static_cast<std::size_t>(column));
}

QString TableModel::details(int row, int column) const {
    QStringList texts;
    const auto& columns = table_.columns;
    for (auto at = static_cast<std::size_t>(column) + 1; at < columns.size() && columns[at].isDetail; ++at)
        if (const std::string each = text(row, static_cast<int>(at)); !each.empty()) texts << toQt(each);
    return texts.join(QStringLiteral(" · "));
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.rows.size());
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(table_.columns.size());
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const Kind kind = table_.columns[static_cast<std::size_t>(index.column())].kind;
    const Table::Row& row = table_.rows[static_cast<std::size_t>(index.row())];
    switch (role) {
        case Qt::DisplayRole:
            return toQt(text(index.row(), index.column()));
        case RowDelegate::Second:
            return stacked_ ? details(index.row(), index.column()) : QVariant();
        case Qt::ToolTipRole: {
            if (kind != Kind::text && !stacked_) return {};
            QStringList texts{toQt(text(index.row(), index.column()))};
            if (stacked_) texts << details(index.row(), index.column());
            texts.removeAll(QString());
            return texts.join(QLatin1Char('\n'));
        }
        case Qt::TextAlignmentRole:
            return QVariant((isAtLeft(kind) ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        case RowDelegate::Strong:
            return row.isSum;
        case Qt::ForegroundRole: {
            const auto at = static_cast<std::size_t>(index.column());
            if (at >= row.cells.size() || row.isSum) return {};
            const auto* amount = std::get_if<Table::Amount>(&row.cells[at]);
            const auto* count = std::get_if<std::int64_t>(&row.cells[at]);
            // Nothing is quieter than something.
            const bool nothing = (amount && amount->minor == 0) || (count && *count == 0);
            return nothing ? QVariant(Colors::current().muted) : QVariant();
        }
        default:
            return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    const Table::Column& column = table_.columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return toQt(Sentences::shown(column.title));
    if (role == Qt::TextAlignmentRole)
        return QVariant((isAtLeft(column.kind) ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    return {};
}

void TableModel::sort(int column, Qt::SortOrder order) {
    if (column < 0 || column >= columnCount()) return;
    const auto at = static_cast<std::size_t>(column);
    const auto inOrder = [&](const Table::Row& a, const Table::Row& b) {
        const Table::Cell nothing;
        const Table::Cell &one = at < a.cells.size() ? a.cells[at] : nothing,
                          &other = at < b.cells.size() ? b.cells[at] : nothing;
        return order == Qt::AscendingOrder ? less(one, other) : less(other, one);
    };
    emit layoutAboutToBeChanged();
    for (auto from = table_.rows.begin(); from != table_.rows.end();) {
        const auto to = std::find_if(from, table_.rows.end(), [](const Table::Row& row) { return row.isSum; });
        std::stable_sort(from, to, inOrder);
        from = to == table_.rows.end() ? to : to + 1;
    }
    emit layoutChanged();
}

TableView::TableView(QWidget* parent) : QTableView(parent) {
    setModel(&model_);
    setItemDelegate(new CellDelegate(this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setMouseTracking(true);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(cellHeight);
    verticalHeader()->setDefaultSectionSize(cellHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* header = horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsClickable(true);
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setFixedHeight(headerHeight);
    connect(header, &QHeaderView::sectionClicked, this, [this, header](int column) {
        const bool again = header->isSortIndicatorShown() && header->sortIndicatorSection() == column;
        const Kind kind = table().columns.at(static_cast<std::size_t>(column)).kind;
        // Words and days begin with the first, figures with the largest.
        const Qt::SortOrder order =
            again ? (header->sortIndicatorOrder() == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder)
                  : (isAtLeft(kind) ? Qt::AscendingOrder : Qt::DescendingOrder);
        header->setSortIndicatorShown(true);
        header->setSortIndicator(column, order);
        model_.sort(column, order);
    });
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
        const bool choosesRows = QGuiApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
        if (!choosesRows && isFigure(index)) emit chosen(index.row(), index.column());
    });
}

void TableView::setTable(const Table& table) {
    horizontalHeader()->setSortIndicatorShown(false);
    model_.setTable(table);
    setAccessibleName(toQt(Sentences::shown(table.title)));
    measure();
    arrange();
    updateGeometry();
}

bool TableView::isFigure(const QModelIndex& index) const {
    if (!index.isValid()) return false;
    const Table::Row& row = table().rows[static_cast<std::size_t>(index.row())];
    return row.isSum || !row.documentIDs.empty() || !row.expenseIDs.empty();
}

std::string TableView::copiedText() const {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows()) rows.push_back(index.row());
    if (rows.size() < 2) return Tables::text(table());
    std::sort(rows.begin(), rows.end());
    Table part;
    part.columns = table().columns;
    for (const int row : rows) part.rows.push_back(table().rows[static_cast<std::size_t>(row)]);
    return Tables::text(part);
}

void TableView::copy() const { QGuiApplication::clipboard()->setText(toQt(copiedText())); }

QSize TableView::sizeHint() const {
    const int bar = horizontalScrollBar()->maximum() > 0 ? horizontalScrollBar()->sizeHint().height() : 0;
    return {360, headerHeight + model_.rowCount() * rowHeight() + bar};
}

void TableView::lowerTitles(int by) {
    lowered_ = by;
    placeTitles();
}

void TableView::placeTitles() {
    // The last row is never without its titles, nor hidden by them.
    QHeaderView* header = horizontalHeader();
    header->move(header->x(), std::clamp(lowered_, 0, std::max(0, height() - headerHeight - rowHeight())));
    header->raise();
}

void TableView::updateGeometries() {
    QTableView::updateGeometries();
    placeTitles();
}

void TableView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) return copy();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (isFigure(currentIndex())) emit chosen(currentIndex().row(), currentIndex().column());
        return;
    }
    QTableView::keyPressEvent(event);
}

void TableView::mouseMoveEvent(QMouseEvent* event) {
    viewport()->setCursor(isFigure(indexAt(event->pos())) ? Qt::PointingHandCursor : Qt::ArrowCursor);
    QTableView::mouseMoveEvent(event);
}

void TableView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    const QModelIndex index = indexAt(event->pos());
    if (isFigure(index)) {
        menu.addAction(Icons::icon(QStringLiteral("open"), &Colors::muted), tr("Show the Records"), this,
                       [this, index] { emit chosen(index.row(), index.column()); });
        menu.addSeparator();
    }
    const bool part = selectionModel()->selectedRows().size() > 1;
    menu.addAction(Icons::icon(QStringLiteral("copy"), &Colors::muted),
                   part ? tr("Copy the Selected Rows") : tr("Copy the Table"), this, &TableView::copy)
        ->setShortcut(QKeySequence::Copy);
    menu.addAction(Icons::icon(QStringLiteral("file"), &Colors::muted), tr("Save as CSV…"), this,
                   &TableView::saveChosen);
    menu.addAction(Icons::icon(QStringLiteral("print"), &Colors::muted), tr("Print…"), this, &TableView::printChosen);
    menu.exec(event->globalPos());
}

void TableView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    arrange();
}

void TableView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (current.isValid() && hasFocus()) emit moved(visualRect(current).translated(viewport()->pos()));
}

void TableView::focusInEvent(QFocusEvent* event) {
    if (!currentIndex().isValid() && model_.rowCount() > 0 && event->reason() != Qt::MouseFocusReason)
        selectionModel()->setCurrentIndex(model_.index(0, 0), QItemSelectionModel::NoUpdate);
    QTableView::focusInEvent(event);
}

void TableView::measure() {
    constexpr int padding = 25, indicator = 2;  // the cell leaves 12 at either side
    const QFontMetrics plain(Style::textFont(13)), strong(Style::textFont(13, QFont::DemiBold)),
        title(Style::textFont(11, QFont::DemiBold)), detail(Style::textFont(11));
    asked_.clear();
    askedStacked_.clear();
    for (int column = 0; column < model_.columnCount(); ++column) {
        int width = title.horizontalAdvance(model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        width += indicator;
        // Most rows are shorter than the widest by far: only those that come near it are measured.
        qsizetype longest = 0;
        int below = 0;
        for (int row = 0; row < model_.rowCount(); ++row) {
            const QString text = toQt(model_.text(row, column));
            below = std::max(below, detail.horizontalAdvance(model_.details(row, column)));
            if (text.size() + 4 < longest) continue;
            longest = std::max(longest, text.size());
            const bool sum = table().rows[static_cast<std::size_t>(row)].isSum;
            width = std::max(width, (sum ? strong : plain).horizontalAdvance(text));
        }
        asked_.push_back(width + padding);
        askedStacked_.push_back(std::max(width, below) + padding);
    }
}

int TableView::rowHeight() const { return model_.isStacked() ? RowDelegate::tallRowHeight : cellHeight; }

void TableView::arrange() {
    if (asked_.empty()) return;
    constexpr int comfortable = 240, tight = 150, tightest = 132;
    const auto isDetail = [this](std::size_t column) { return table().columns[column].isDetail; };
    const auto isText = [this](std::size_t column) { return table().columns[column].kind == Kind::text; };
    std::vector<int> widths;
    int over = 0;
    const auto measureRoom = [&](bool stacked) {
        widths = stacked ? askedStacked_ : asked_;
        over = viewport()->width();
        for (std::size_t i = 0; i < widths.size(); ++i) {
            if (isText(i)) widths[i] = std::min(widths[i], comfortable);
            if (stacked && isDetail(i)) widths[i] = 0;
            over -= widths[i];
        }
    };
    const auto shrinkTexts = [&](int to) {
        while (over < 0) {
            std::size_t widest = widths.size();
            for (std::size_t i = 0; i < widths.size(); ++i)
                if (isText(i) && widths[i] > to && (widest == widths.size() || widths[i] > widths[widest])) widest = i;
            if (widest == widths.size()) return;
            const int taken = std::min({-over, widths[widest] - to, 16});
            widths[widest] -= taken;
            over += taken;
        }
    };
    measureRoom(false);
    shrinkTexts(tight);
    const auto& columns = table().columns;
    const bool stacked =
        over < 0 && std::any_of(columns.begin(), columns.end(), [](const auto& c) { return c.isDetail; });
    if (stacked) {
        measureRoom(true);
        shrinkTexts(tight);
        shrinkTexts(tightest);
        // With a bar below anyhow, names are whole.
        if (over < 0) measureRoom(true);
    }
    if (stacked != model_.isStacked()) {
        model_.setStacked(stacked);
        verticalHeader()->setDefaultSectionSize(rowHeight());
    }
    // What is over goes to the texts that need most.
    std::size_t widest = 0;
    for (std::size_t i = 1; i < widths.size(); ++i)
        if (widths[i] > 0 && isText(i) && (!isText(widest) || asked_[i] > asked_[widest])) widest = i;
    if (over > 0) widths[widest] += over;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        setColumnHidden(static_cast<int>(i), widths[i] == 0);
        if (widths[i] > 0) setColumnWidth(static_cast<int>(i), widths[i]);
    }
    // The height asks whether there is a bar.
    updateGeometries();
    updateGeometry();
}

}  // namespace tamba
