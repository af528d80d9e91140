#pragma once

#include "Tamba/Rows/Listing.h"
#include "TambaCore/Base/UUID.h"

#include <QAbstractTableModel>
#include <QItemSelectionModel>
#include <QTableView>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tamba {

/// The table model of every screen: rows of finished texts that carry an `id`. `setRows` compares with the rows shown:
/// one run inserted or removed, and rows changed in place, are signalled as such; anything else is a reset, over which
/// `keepSelection` holds the selection.
template <class Row>
class RowsModel : public QAbstractTableModel {
public:
    struct Column {
        QString title;
        Qt::Alignment alignment = Qt::AlignLeft;
        std::function<QVariant(const Row&, int role)> value;
    };

    explicit RowsModel(std::vector<Column> columns, QObject* parent = nullptr)
        : QAbstractTableModel(parent), columns_(std::move(columns)) {}

    [[nodiscard]] const LazyRows<Row>& rows() const { return rows_; }
    [[nodiscard]] UUID id(int row) const { return rows_.id(static_cast<std::size_t>(row)); }
    [[nodiscard]] std::optional<int> rowOf(const UUID& id) const {
        for (std::size_t row = 0; row < rows_.size(); ++row)
            if (rows_.id(row) == id) return static_cast<int>(row);
        return {};
    }

    void setRows(LazyRows<Row> rows) {
        const std::size_t old = rows_.size(), now = rows.size(), shorter = std::min(old, now);
        std::size_t head = 0, tail = 0;
        while (head < shorter && rows_.id(head) == rows.id(head)) ++head;
        while (tail < shorter - head && rows_.id(old - 1 - tail) == rows.id(now - 1 - tail)) ++tail;
        if (head + tail < shorter) {
            beginResetModel();
            rows_ = std::move(rows);
            endResetModel();
            return;
        }
        std::optional<std::size_t> from, to;
        for (std::size_t row = 0; row < now; ++row) {
            if (row == head) row = now - tail;  // what is new is no change
            if (row == now || rows.isSame(row, rows_, row < head ? row : row + old - now)) continue;
            if (!from) from = row;
            to = row;
        }
        const int first = static_cast<int>(head);
        if (old > now)
            beginRemoveRows({}, first, static_cast<int>(old - tail) - 1);
        else if (now > old)
            beginInsertRows({}, first, static_cast<int>(now - tail) - 1);
        // Views may look at what stays while rows come and go: what changes does so afterwards.
        if (old != now && from)
            rows_.takeBetween(head, tail, rows);
        else
            rows_ = std::move(rows);
        if (old > now)
            endRemoveRows();
        else if (now > old)
            endInsertRows();
        if (!from) return;
        if (old != now) rows_ = std::move(rows);
        emit dataChanged(index(static_cast<int>(*from), 0), index(static_cast<int>(*to), columnCount() - 1));
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(columns_.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
        const Column& column = columns_[static_cast<std::size_t>(index.column())];
        if (role == Qt::TextAlignmentRole) return QVariant(column.alignment | Qt::AlignVCenter);
        return column.value(rows_[static_cast<std::size_t>(index.row())], role);
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
        const Column& column = columns_[static_cast<std::size_t>(section)];
        if (role == Qt::DisplayRole) return column.title;
        if (role == Qt::TextAlignmentRole) return QVariant(column.alignment | Qt::AlignVCenter);
        return {};
    }

    void setTitle(int column, const QString& title) {
        QString& present = columns_.at(static_cast<std::size_t>(column)).title;
        if (present == title) return;
        present = title;
        emit headerDataChanged(Qt::Horizontal, column, column);
    }

private:
    std::vector<Column> columns_;
    LazyRows<Row> rows_;
};

/// Ids of the selected rows, in the table's order.
template <class Row>
[[nodiscard]] std::vector<UUID> selectedIds(const QTableView& view, const RowsModel<Row>& model) {
    std::vector<int> rows;
    for (const QModelIndex& index : view.selectionModel()->selectedRows()) rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    std::vector<UUID> ids;
    for (const int row : rows) ids.push_back(model.id(row));
    return ids;
}

/// Selects the rows with these ids and scrolls to the first of them.
template <class Row>
void selectIds(QTableView& view, const RowsModel<Row>& model, const std::vector<UUID>& ids) {
    const std::unordered_set<UUID> wanted(ids.begin(), ids.end());
    QItemSelection selection;
    QModelIndex first;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (ids.size() == 1 ? model.id(row) != ids.front() : !wanted.contains(model.id(row))) continue;
        selection.select(model.index(row, 0), model.index(row, model.columnCount() - 1));
        if (!first.isValid()) first = model.index(row, 0);
    }
    view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!first.isValid()) return;
    view.selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    view.scrollTo(first);
}

/// Lets the selection survive a reset of the model, by id.
template <class Row>
void keepSelection(QTableView& view, RowsModel<Row>& model) {
    auto kept = std::make_shared<std::vector<UUID>>();
    QObject::connect(&model, &QAbstractItemModel::modelAboutToBeReset, &view,
                     [&view, &model, kept] { *kept = selectedIds(view, model); });
    QObject::connect(&model, &QAbstractItemModel::modelReset, &view,
                     [&view, &model, kept] { selectIds(view, model, *kept); });
}

}  // namespace tamba
