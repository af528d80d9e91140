#pragma once

#include "Tamba/QtText.h"

#include <QAbstractTableModel>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tamba {

/// One column: its title, the text of a row, and where it stands.
template <class Row>
struct Column {
    QString title;
    std::function<QString(const Row&)> text;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
};

/// The table model of every list: shows rows of finished texts and compares them by id. `setRows` tells the view what
/// really happened where that is one run of rows inserted, removed or changed, so that selection and scroll position
/// stay; anything else is a reset, after which the view selects by id again.
template <class Row>
class RowsModel : public QAbstractTableModel {
public:
    RowsModel(std::vector<Column<Row>> columns, QObject* parent)
        : QAbstractTableModel(parent), columns_(std::move(columns)) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(columns_.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid()) return {};
        const Row& row = rows_[static_cast<std::size_t>(index.row())];
        const Column<Row>& column = columns_[static_cast<std::size_t>(index.column())];
        switch (role) {
            case Qt::DisplayRole:
                return column.text(row);
            case Qt::TextAlignmentRole:
                return static_cast<int>(column.alignment);
            case Qt::ToolTipRole:
                return tooltip ? tooltip(row, index.column()) : QVariant();
            default:
                return {};
        }
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
        const Column<Row>& column = columns_[static_cast<std::size_t>(section)];
        if (role == Qt::DisplayRole) return column.title;
        if (role == Qt::TextAlignmentRole) return static_cast<int>(column.alignment);
        return {};
    }

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    [[nodiscard]] const Row& row(int index) const { return rows_[static_cast<std::size_t>(index)]; }
    /// Row of an id, or −1.
    template <class Id>
    [[nodiscard]] int indexOf(const Id& id) const {
        const auto place = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.id == id; });
        return place == rows_.end() ? -1 : static_cast<int>(place - rows_.begin());
    }

    void setRows(std::vector<Row> rows) {
        const auto [begin, oldEnd, newEnd] = difference(rows);
        if (begin == oldEnd && begin == newEnd) return;
        const int first = static_cast<int>(begin);
        if (begin == oldEnd) {
            beginInsertRows({}, first, static_cast<int>(newEnd) - 1);
            rows_ = std::move(rows);
            endInsertRows();
        } else if (begin == newEnd) {
            beginRemoveRows({}, first, static_cast<int>(oldEnd) - 1);
            rows_ = std::move(rows);
            endRemoveRows();
        } else if (rows.size() == rows_.size() && std::equal(rows.begin(), rows.end(), rows_.begin(),
                                                             [](const Row& a, const Row& b) { return a.id == b.id; })) {
            rows_ = std::move(rows);
            emit dataChanged(index(first, 0), index(static_cast<int>(oldEnd) - 1, columnCount() - 1));
        } else {
            beginResetModel();
            rows_ = std::move(rows);
            endResetModel();
        }
    }

    std::function<QVariant(const Row&, int column)> tooltip;

private:
    struct Difference {
        std::size_t begin, oldEnd, newEnd;
    };
    /// The run outside which old and new rows are the same.
    [[nodiscard]] Difference difference(const std::vector<Row>& rows) const {
        const std::size_t shorter = std::min(rows.size(), rows_.size());
        std::size_t begin = 0;
        while (begin < shorter && rows[begin] == rows_[begin]) ++begin;
        std::size_t tail = 0;
        while (tail < shorter - begin && rows[rows.size() - 1 - tail] == rows_[rows_.size() - 1 - tail]) ++tail;
        return {begin, rows_.size() - tail, rows.size() - tail};
    }

    std::vector<Column<Row>> columns_;
    std::vector<Row> rows_;
};

}  // namespace tamba
