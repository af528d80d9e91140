#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/Rows/BankRows.h"
#include "Tamba/RowsModel.h"

#include <QWidget>

#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QStackedWidget;
class QTabBar;
class QTableView;
class QToolButton;

namespace tamba {

class EmptyState;
class PeriodPicker;
class SuggestionsPane;
class WhenSeen;

/// Statement lines on the left, on the right what the selected one could be. After each decision the next open line is
/// selected, so that a month is gone through without letting go of the keyboard.
class BankScreen : public QWidget {
    Q_OBJECT

public:
    BankScreen(AppModel& model, Prompts& prompts, QWidget* parent = nullptr);

    /// Shows this line; a list, filter or period that would hide it is changed.
    void select(const UUID& line);
    [[nodiscard]] std::optional<UUID> selected() const;
    void showList(BankList list);
    void focusSearch();
    /// Links all lines that have one clear match, in one step.
    void matchObvious();
    void addAccount();
    void renameAccount();
    /// Says that bank lines stay, and what to do instead.
    void deleteSelected();
    /// What can be done with the selected line.
    void fillMenu(QMenu& menu);

signals:
    void importChosen();
    /// Something was done to many lines; the notice offers to take it back.
    void matched(const QString& what);
    void noticed(const QString& sentence);
    void expenseChosen(const tamba::UUID& id);
    void documentChosen(const tamba::UUID& id);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Model = RowsModel<BankRow>;
    [[nodiscard]] std::vector<Model::Column> columns() const;
    QWidget* makeHeader();
    QWidget* makeFooter();
    void makeTable();
    void makeConnections();
    void refresh();
    void refreshEmptyState();
    void fillAccounts();
    void selectionChanged();
    void selectNextOpen(const UUID& after);
    void arrange();
    void sortBy(int column);
    void clearFilters();
    void accountMenu();
    [[nodiscard]] bool takeKey(const QKeyEvent& event);
    [[nodiscard]] const BankAccount* chosenAccount() const;

    AppModel& model_;
    Prompts& prompts_;
    BankFilter filter_;
    BankListing listing_;
    Model rows_;
    bool filling_ = false;
    bool narrow_ = false;  // the date has no column and goes below the name
    int lastRow_ = 0;      // where the selected line is, or was when it left the list
    QTabBar* lists_;
    QPushButton* import_;
    QPushButton* obvious_;
    QLineEdit* search_;
    QComboBox* account_;
    QToolButton* accounts_;
    PeriodPicker* period_;
    QStackedWidget* pages_;
    QTableView* table_;
    EmptyState* empty_;
    QWidget* footer_;
    QLabel* count_;
    QLabel* in_;
    QLabel* out_;
    SuggestionsPane* pane_;
    WhenSeen* seen_;
};

}  // namespace tamba
