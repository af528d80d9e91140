#pragma once

#include "Tamba/Rows/OverviewRows.h"

#include <QAbstractButton>
#include <QString>

class QPushButton;

namespace tamba {

/// A row or card that is clicked as a whole: hover, focus and press as everywhere, the content painted by those below.
class OverviewTile : public QAbstractButton {
    Q_OBJECT

public:
    explicit OverviewTile(QWidget* parent);
    [[nodiscard]] const OverviewGoal& goal() const { return goal_; }

protected:
    enum class Look { card, row };
    /// What is below the content; the ink of the person's colours comes with it.
    void paintGround(QPainter& painter, Look look) const;
    void describe(const QString& name, const QString& more);
    OverviewGoal goal_;
};

/// One of the four figures.
class FigureTile : public OverviewTile {
    Q_OBJECT

public:
    explicit FigureTile(QWidget* parent);
    void set(const OverviewFigure& figure);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    OverviewFigure figure_;
};

/// Something that waits, with what can be done about it at once.
class ItemTile : public OverviewTile {
    Q_OBJECT

public:
    explicit ItemTile(QWidget* parent);
    void set(const OverviewItem& item);

signals:
    void remindChosen(const tamba::UUID& invoice);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    OverviewItem item_;
    QPushButton* remind_;
};

/// A date to keep.
class DateTile : public OverviewTile {
    Q_OBJECT

public:
    explicit DateTile(QWidget* parent);
    void set(const OverviewDate& date);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    OverviewDate date_;
};

}  // namespace tamba
