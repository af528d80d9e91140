#include "Tamba/Widgets/ListParts.h"

#include "Tamba/Icons.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/RowDelegate.h"

#include <QHeaderView>
#include <QVBoxLayout>

namespace tamba::ListParts {

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

}  // namespace tamba::ListParts
