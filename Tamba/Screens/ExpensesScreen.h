#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/RowsModel.h"

#include <QWidget>

#include <vector>

class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace tamba {

class EmptyState;
class ExpenseInspector;
class PeriodPicker;
class WhenSeen;

/// The table of expenses with search, period and total, and beside it the inspector of what is selected.
class ExpensesScreen : public QWidget {
    Q_OBJECT

public:
    ExpensesScreen(AppModel& model, Prompts& prompts, QWidget* parent = nullptr);

    void showList(ExpenseList list);
    /// The whole of a list: no search and no period takes anything from it.
    void showWhole(ExpenseList list);
    /// Selects these expenses; filters that would hide them are taken off.
    void select(const std::vector<UUID>& ids);
    [[nodiscard]] std::vector<UUID> selected() const;
    /// Somebody is typing into the selected expense: the selection is not to be taken away.
    [[nodiscard]] bool isEditing() const;

    void newExpense();
    void newMileageTrip();
    void deleteSelected();
    void focusSearch();
    /// Takes the mark “check” off what is selected.
    void looksRight();
    /// What can be done with the selected expenses.
    void fillMenu(QMenu& menu);

signals:
    void addReceiptsChosen();
    void sampleChosen();
    /// The expenses that come again are to be looked through.
    void recurringChosen();
    void listChanged(tamba::ExpenseList list);
    /// Something was deleted; the notice offers to take it back.
    void removed(const QString& what);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    using Model = RowsModel<ExpenseRow>;
    [[nodiscard]] static std::vector<Model::Column> columns();
    QWidget* makeHeader();
    QWidget* makeFooter();
    void makeTable();
    void refresh();
    void refreshInspector();
    void arrange();
    void sortBy(int column);
    void setCategory(const std::optional<UUID>& category);

    AppModel& model_;
    Prompts& prompts_;
    ExpenseFilter filter_;
    ExpenseListing listing_;
    Model rows_;
    QLabel* title_;
    PeriodPicker* period_;
    QLineEdit* search_;
    QPushButton* addReceipts_;
    QPushButton* newExpense_;
    QStackedWidget* pages_;
    QTableView* table_;
    EmptyState* empty_;
    QWidget* footer_;
    QLabel* count_;
    QLabel* leftOut_;
    QLabel* tax_;
    QLabel* total_;
    ExpenseInspector* inspector_;
    WhenSeen* seen_;
};

}  // namespace tamba
