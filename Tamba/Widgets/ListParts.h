#pragma once

#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

#include <functional>
#include <limits>
#include <span>

class QMenu;
class QStackedWidget;
class QVBoxLayout;

namespace tamba {
class EmptyState;
}

namespace tamba::ListParts {

/// The parts that every screen with a list is made of, all with the same looks and habits.

/// The head of a screen: a row with its title or tabs and its buttons, below it one with search and filters.
struct Header {
    QFrame* frame;
    QHBoxLayout* top;
    QHBoxLayout* tools;
};
enum class Heading { title, tabs };
[[nodiscard]] Header header(Heading heading, QWidget* parent);
/// `name` for tests, `accessible` for screen readers, `hint` tells what is searched.
[[nodiscard]] QLineEdit* search(const char* name, const QString& accessible, const QString& hint, QWidget* parent);

/// The foot of a screen: counts and sums side by side.
struct Footer {
    QFrame* frame;
    QHBoxLayout* row;
};
[[nodiscard]] Footer footer(QWidget* parent);

struct TableLook {
    int rowHeight;
    int stretched;  ///< the column that takes the room that is left
    int sorted;     ///< the column the rows come ordered by, and how
    Qt::SortOrder order;
    QAbstractItemView::SelectionMode selection = QAbstractItemView::SingleSelection;
};
[[nodiscard]] QTableView* table(QAbstractItemModel& rows, const char* name, const QString& accessible,
                                const TableLook& look, QWidget* parent);

/// A list from its head to its foot, and what stands in its place while nothing is in it.
struct Body {
    QVBoxLayout* column;
    QStackedWidget* pages;
    EmptyState* empty;
};
[[nodiscard]] Body body(QWidget* header, QTableView* table, QWidget* footer, QWidget* parent);

/// What keys and mouse do in every list: Return opens what is selected, Delete and Backspace take it away, the right
/// button shows what can be done with it, and a click on a title orders by it. What is left empty does nothing.
struct Habits {
    std::function<void()> open = {}, remove = {};
    std::function<void(QMenu&)> fillMenu;
    std::function<void(int column)> sort;
    int ordered = std::numeric_limits<int>::max();  ///< so many columns, from the first, rows can be ordered by
};
void setHabits(QTableView& view, Habits habits);

/// Orders by the column of a title that was clicked, and turns the order round where it was by that already.
/// `ascending`: how it begins, words with A and figures with the largest.
template <class Filter, class Order>
void orderBy(QTableView& view, int column, Filter& filter, Order order, bool ascending) {
    filter.ascending = order == filter.order ? !filter.ascending : ascending;
    filter.order = order;
    view.horizontalHeader()->setSortIndicator(column, filter.ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

struct Width {
    int column, width;  ///< 0: not shown
};
/// Gives columns their widths. While less than `least` of `room` is left for the column that stretches, `steps` are
/// taken one after the other: what gives way first.
void fitColumns(QTableView& view, int room, int least, std::span<const Width> widths, std::span<const Width> steps);

/// The keys go to a search field, over what it holds.
void beginSearch(QLineEdit& search);

/// The selected rows as spreadsheets take them: cells parted by tabs, rows by line ends; hidden columns, too, since the
/// width of a window says nothing about what is wanted.
[[nodiscard]] QString selectedText(const QTableView& view);
void copyRows(const QTableView& view);
/// Copies what the widget with the keys has selected: rows of a table, text of a field.
void copySelection();

}  // namespace tamba::ListParts
