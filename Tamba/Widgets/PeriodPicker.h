#pragma once

#include "Tamba/Rows/ExpenseRows.h"

#include <QWidget>

#include <vector>

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
    /// What can be chosen; without months and quarters, the years alone. All of them unless said otherwise.
    void offer(std::vector<Span> spans);
    [[nodiscard]] Span span() const { return span_; }
    [[nodiscard]] Day day() const { return day_; }

signals:
    void chosen();

private:
    void refresh();
    Day today_, day_;
    int fyStartMonth_;
    Span span_ = Span::all;
    std::vector<Span> offered_{Span::month, Span::quarter, Span::year, Span::all};
    QToolButton* earlier_;
    QToolButton* label_;
    QToolButton* later_;
};

}  // namespace tamba
