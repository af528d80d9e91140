#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/ReportFiles.h"
#include "Tamba/Rows/ReportRows.h"

#include <QWidget>

#include <map>
#include <memory>
#include <optional>

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QToolButton;

namespace tamba {

class PeriodPicker;
class RecordsPane;
class ReportView;
class Segments;

/// The list of reports, the chosen one with its period, and beside it the records behind a figure that was clicked.
/// Figures are worked out when they are shown, on a thread of their own where the books are large.
class ReportsScreen : public QWidget {
    Q_OBJECT

public:
    ReportsScreen(AppModel& model, ReportFiles& files, QWidget* parent = nullptr);
    ~ReportsScreen() override;

    void showReport(ReportKind kind);
    /// One report, of one time. `month`: one of its months, whose records are shown beside it.
    void choose(const ReportChoice& choice, const std::optional<Day>& month = {});
    /// Profit and loss of the month’s year, and beside it what the month is made of.
    void showMonth(const Day& month);
    [[nodiscard]] const ReportChoice& choice() const { return choice_; }
    /// What is shown; nothing while it is being worked out.
    [[nodiscard]] const ReportPage* page() const;
    void print();

signals:
    void documentChosen(const tamba::UUID& id);
    void expenseChosen(const tamba::UUID& id);
    void openLinesChosen();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeHeader();
    void makeList();
    void connectFiles();
    void fillList();
    /// Words and controls that belong to the chosen report.
    void refreshHeader();
    void refresh();
    void compute();
    void take(const ReportPage& page);
    void showRecords(const ReportRecords& records);
    void closeRecords();
    void arrange();

    AppModel& model_;
    ReportFiles& files_;
    ReportChoice choice_;
    std::map<ReportKind, ReportChoice> choices_;  // where one was left
    bool stale_ = true;
    bool ready_ = false;
    int turn_ = 0;  // what was worked out for an earlier one is dropped
    std::optional<ReportRecords> records_;
    std::optional<Day> month_;  // whose records are shown once the figures are there
    QListWidget* list_;
    QComboBox* narrowList_ = nullptr;
    QLabel* title_ = nullptr;
    QLabel* asOf_ = nullptr;
    PeriodPicker* period_ = nullptr;
    Segments* basis_ = nullptr;
    QComboBox* rate_ = nullptr;
    QToolButton* copy_ = nullptr;
    QToolButton* print_ = nullptr;
    QPushButton* save_ = nullptr;
    QPushButton* portal_ = nullptr;
    ReportView* view_;
    QWidget* body_;
    RecordsPane* pane_;
};

}  // namespace tamba
