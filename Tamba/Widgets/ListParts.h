#pragma once

#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTableView>

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

/// The selected rows as spreadsheets take them: cells parted by tabs, rows by line ends; hidden columns, too, since the
/// width of a window says nothing about what is wanted.
[[nodiscard]] QString selectedText(const QTableView& view);
void copyRows(const QTableView& view);
/// Copies what the widget with the keys has selected: rows of a table, text of a field.
void copySelection();

}  // namespace tamba::ListParts
