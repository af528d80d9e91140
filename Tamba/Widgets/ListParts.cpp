#include "Tamba/Widgets/ListParts.h"

#include "Tamba/Icons.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/EmptyState.h"
#include "Tamba/Widgets/RowDelegate.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tamba::ListParts {
namespace {

/// Keys that the table itself would take for something else.
class Keys : public QObject {
public:
    Keys(QTableView& view, Habits habits) : QObject(&view), habits_(std::move(habits)) {
        view.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            const bool opens = key == Qt::Key_Return || key == Qt::Key_Enter;
            const bool removes = key == Qt::Key_Delete || key == Qt::Key_Backspace;
            if (opens && habits_.open) return habits_.open(), true;
            if (removes && habits_.remove) return habits_.remove(), true;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    Habits habits_;
};

}  // namespace

Header header(Heading heading, QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(QStringLiteral("screenHeader"));
    frame->setFixedHeight(108);
    auto* rows = new QVBoxLayout(frame);
    rows->setContentsMargins(20, heading == Heading::title ? 14 : 12, 16, 12);
    rows->setSpacing(10);
    auto* top = new QHBoxLayout;
    top->setSpacing(8);
    rows->addLayout(top);
    auto* tools = new QHBoxLayout;
    tools->setSpacing(12);
    // Rows stand where they stand on every other page, whatever is in them.
    for (QHBoxLayout* row : {top, tools}) row->addStrut(32);
    rows->addLayout(tools);
    return {frame, top, tools};
}

QLineEdit* search(const char* name, const QString& accessible, const QString& hint, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    Controls::name(*field, name, accessible);
    field->setPlaceholderText(hint);
    field->setClearButtonEnabled(true);
    field->addAction(Icons::icon(QStringLiteral("search"), &Colors::faint), QLineEdit::LeadingPosition);
    return field;
}

Footer footer(QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(QStringLiteral("footer"));
    frame->setFixedHeight(40);
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(20, 0, 20, 0);
    row->setSpacing(18);
    return {frame, row};
}

QTableView* table(QAbstractItemModel& rows, const char* name, const QString& accessible, const TableLook& look,
                  QWidget* parent) {
    auto* view = new QTableView(parent);
    Controls::name(*view, name, accessible);
    view->setModel(&rows);
    view->setItemDelegate(new RowDelegate(view));
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setSelectionMode(look.selection);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setShowGrid(false);
    view->setWordWrap(false);
    view->setTabKeyNavigation(false);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->verticalHeader()->hide();
    view->verticalHeader()->setMinimumSectionSize(look.rowHeight);
    view->verticalHeader()->setDefaultSectionSize(look.rowHeight);
    QHeaderView* header = view->horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicator(look.sorted, look.order);
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(look.stretched, QHeaderView::Stretch);
    header->setFixedHeight(32);
    return view;
}

Body body(QWidget* header, QTableView* table, QWidget* footer, QWidget* parent) {
    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    auto* pages = new QStackedWidget(parent);
    pages->setMinimumWidth(200);  // the empty place would ask for more than the list needs
    auto* empty = new EmptyState(pages);
    pages->addWidget(table);
    pages->addWidget(empty);
    if (header) column->addWidget(header);
    column->addWidget(pages, 1);
    column->addWidget(footer);
    return {column, pages, empty};
}

namespace {

/// What a click on a title does, for those who have only keys.
void addOrders(QMenu& menu, const QTableView& view, const std::function<void(int column)>& sort, int count) {
    const QHeaderView* header = view.horizontalHeader();
    if (!menu.isEmpty()) menu.addSeparator();
    QMenu* orders = menu.addMenu(QObject::tr("Order By"));
    for (int column = 0; column < std::min(count, view.model()->columnCount()); ++column) {
        const QString title = view.model()->headerData(column, Qt::Horizontal).toString();
        if (title.isEmpty()) continue;
        QAction* action = orders->addAction(title, orders, [sort, column] { sort(column); });
        action->setCheckable(true);
        action->setChecked(column == header->sortIndicatorSection());
    }
}

}  // namespace

void setHabits(QTableView& view, Habits habits) {
    QObject::connect(view.horizontalHeader(), &QHeaderView::sectionClicked, &view, habits.sort);
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(&view, &QWidget::customContextMenuRequested, &view,
                     [&view, fill = habits.fillMenu, sort = habits.sort, ordered = habits.ordered](const QPoint& at) {
                         QMenu menu(&view);
                         fill(menu);
                         if (sort) addOrders(menu, view, sort, ordered);
                         if (!menu.isEmpty()) menu.exec(view.viewport()->mapToGlobal(at));
                     });
    new Keys(view, std::move(habits));
}

void fitColumns(QTableView& view, int room, int least, std::span<const Width> widths, std::span<const Width> steps) {
    const auto set = [&](const Width& each) {
        view.setColumnHidden(each.column, each.width == 0);
        if (each.width > 0) view.setColumnWidth(each.column, each.width);
    };
    for (const Width& each : widths) {
        set(each);
        room -= each.width;
    }
    for (const Width& each : steps) {
        if (room >= least) break;
        room += view.columnWidth(each.column) - each.width;
        set(each);
    }
}

void beginSearch(QLineEdit& search) {
    search.setFocus(Qt::ShortcutFocusReason);
    search.selectAll();
}

QString selectedText(const QTableView& view) {
    QList<int> numbers;
    for (const QModelIndex& index : view.selectionModel()->selectedRows()) numbers << index.row();
    std::sort(numbers.begin(), numbers.end());
    QStringList lines;
    for (const int row : numbers) {
        QStringList cells;
        for (int column = 0; column < view.model()->columnCount(); ++column) {
            const QModelIndex index = view.model()->index(row, column);
            QStringList texts;
            for (const int role : {static_cast<int>(Qt::DisplayRole), static_cast<int>(RowDelegate::Second)})
                if (const QString text = index.data(role).toString(); !text.isEmpty()) texts << text.simplified();
            cells << texts.join(QStringLiteral(" · "));
        }
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n'));
}

void copyRows(const QTableView& view) {
    if (const QString text = selectedText(view); !text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

void copySelection() {
    QWidget* keys = QApplication::focusWidget();
    if (const auto* view = qobject_cast<QTableView*>(keys)) {
        copyRows(*view);
    } else if (keys && keys->metaObject()->indexOfMethod("copy()") >= 0) {
        QMetaObject::invokeMethod(keys, "copy");
    }
}

}  // namespace tamba::ListParts
