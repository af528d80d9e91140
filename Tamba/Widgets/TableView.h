#pragma once

#include "TambaCore/Reports/Table.h"

#include <QAbstractTableModel>
#include <QTableView>

namespace tamba {

/// The rows of one report. Sums stay below what they sum up, however the rest is sorted.
class TableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;
    void setTable(Table table);
    [[nodiscard]] const Table& table() const { return table_; }
    /// The cell's text for people; empty where the row is shorter.
    [[nodiscard]] std::string text(int row, int column) const;
    /// The texts of the details that follow the column, " · " between them.
    [[nodiscard]] QString details(int row, int column) const;
    /// Whether details stand below the column before them.
    void setStacked(bool stacked) { stacked_ = stacked; }
    [[nodiscard]] bool isStacked() const { return stacked_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    Table table_;
    bool stacked_ = false;
};

/// A report's table as high as its rows, to stand in a page that scrolls. Figures can be chosen with a click or Enter;
/// Ctrl+C copies the selected rows, or all where no more than one is.
class TableView : public QTableView {
    Q_OBJECT

public:
    explicit TableView(QWidget* parent = nullptr);
    void setTable(const Table& table);
    [[nodiscard]] const Table& table() const { return model_.table(); }
    /// What Ctrl+C puts on the clipboard.
    [[nodiscard]] std::string copiedText() const;
    void copy() const;
    [[nodiscard]] QSize sizeHint() const override;
    /// The titles stand this far below their place, over the rows, and so stay in sight while the page scrolls.
    void lowerTitles(int by);

signals:
    /// A figure, by its row and column.
    void chosen(int row, int column);
    void printChosen();
    void saveChosen();
    /// The keys have gone to another cell, at this place in the view.
    void moved(const QRect& cell);

protected:
    void updateGeometries() override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    /// A cell with records behind it.
    [[nodiscard]] bool isFigure(const QModelIndex& index) const;
    void measure();
    void arrange();
    [[nodiscard]] int rowHeight() const;
    void placeTitles();

    TableModel model_;
    /// The width of each column by its texts, and with its details below it.
    std::vector<int> asked_, askedStacked_;
    int lowered_ = 0;
};

}  // namespace tamba
