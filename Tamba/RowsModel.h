#pragma once

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

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    [[nodiscard]] UUID id(int row) const { return rows_.at(static_cast<std::size_t>(row)).id; }
    [[nodiscard]] std::optional<int> rowOf(const UUID& id) const {
        const auto at = std::find_if(rows_.begin(), rows_.end(), [&id](const Row& row) { return row.id == id; });
        if (at == rows_.end()) return {};
        return static_cast<int>(at - rows_.begin());
    }

    void setRows(std::vector<Row> rows) {
        const auto sameId = [](const Row& a, const Row& b) { return a.id == b.id; };
        const auto shorter = static_cast<std::ptrdiff_t>(std::min(rows.size(), rows_.size()));
        const auto head =
            std::mismatch(rows_.begin(), rows_.begin() + shorter, rows.begin(), sameId).first - rows_.begin();
        const auto tail =
            std::mismatch(rows_.rbegin(), rows_.rbegin() + (shorter - head), rows.rbegin(), sameId).first -
            rows_.rbegin();
        const int oldRun = static_cast<int>(std::ssize(rows_) - head - tail);
        const int newRun = static_cast<int>(std::ssize(rows) - head - tail);
        const int first = static_cast<int>(head);
        if (oldRun > 0 && newRun > 0) {
            beginResetModel();
            rows_ = std::move(rows);
            endResetModel();
            return;
        }
        if (oldRun > 0) {
            beginRemoveRows({}, first, first + oldRun - 1);
            rows_.erase(rows_.begin() + first, rows_.begin() + first + oldRun);
            endRemoveRows();
        } else if (newRun > 0) {
            beginInsertRows({}, first, first + newRun - 1);
            rows_.insert(rows_.begin() + first, rows.begin() + first, rows.begin() + first + newRun);
            endInsertRows();
        }
        int from = -1, to = -1;
        for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
            if (rows_[static_cast<std::size_t>(row)] == rows[static_cast<std::size_t>(row)]) continue;
            if (from < 0) from = row;
            to = row;
        }
        rows_ = std::move(rows);
        if (from >= 0) emit dataChanged(index(from, 0), index(to, columnCount() - 1));
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
    std::vector<Row> rows_;
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
        if (!wanted.contains(model.id(row))) continue;
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
