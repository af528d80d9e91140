#pragma once

#include "Tamba/Rows/ExpenseRows.h"

#include <QWidget>

#include <functional>

class QToolButton;

namespace tamba {

/// Chooses a month, quarter, financial year or all time; the arrows step to its neighbours.
class PeriodPicker : public QWidget {
    Q_OBJECT

public:
    PeriodPicker(Day today, int fyStartMonth, QWidget* parent = nullptr);
    [[nodiscard]] std::optional<Period> days() const;
    void choose(Span span, Day day);
    void setYearStart(int fyStartMonth);

signals:
    void chosen();

private:
    void refresh();
    Day today_, day_;
    int fyStartMonth_;
    Span span_ = Span::all;
    QToolButton* earlier_;
    QToolButton* label_;
    QToolButton* later_;
};

}  // namespace tamba
