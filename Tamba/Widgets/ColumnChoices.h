#pragma once

#include <QHeaderView>

#include <functional>
#include <vector>

class QComboBox;

namespace tamba {

/// A table's header with a choice above each column.
class ColumnChoices : public QHeaderView {
    Q_OBJECT

public:
    explicit ColumnChoices(QWidget* parent);
    /// One choice for each column; `fill` gives it its entries.
    void setCount(int columns, const std::function<void(QComboBox&, int column)>& fill);
    void choose(int column, int data);
    [[nodiscard]] QSize sizeHint() const override;

signals:
    void chosen(int column, int data);
    /// The keys have come to the choice above a column, which may be out of sight.
    void focused(int column);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void updateGeometries() override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

private:
    void place();
    std::vector<QComboBox*> choices_;
};

}  // namespace tamba
