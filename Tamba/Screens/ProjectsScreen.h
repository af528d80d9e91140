#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "Tamba/Rows/ProjectRows.h"
#include "Tamba/RowsModel.h"

#include <QWidget>

#include <optional>

class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace tamba {

class EmptyState;
class PeriodPicker;
class WhenSeen;

/// Projects with what they earn and cost; beside the table the selected one, to be renamed, and the records its figures
/// come from.
class ProjectsScreen : public QWidget {
    Q_OBJECT

public:
    ProjectsScreen(AppModel& model, Prompts& prompts, QWidget* parent = nullptr);

    void select(const UUID& project);
    [[nodiscard]] std::optional<UUID> selected() const;
    void newProject();
    /// Deletes the selected project; where others refer to it, offers to archive it.
    void deleteSelected();
    void focusSearch();
    /// What can be done with the selected project.
    void fillMenu(QMenu& menu);
    /// Where the tabs stand that lead here and away.
    [[nodiscard]] QHBoxLayout& head() { return *head_; }

signals:
    void removed(const QString& what);
    void documentChosen(const tamba::UUID& id);
    void expenseChosen(const tamba::UUID& id);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    using Model = RowsModel<ProjectListRow>;
    using Records = RowsModel<ProjectRecordRow>;
    [[nodiscard]] static std::vector<Model::Column> columns();
    [[nodiscard]] static std::vector<Records::Column> recordColumns();
    QWidget* makeHeader();
    QWidget* makeFooter();
    QWidget* makeInspector();
    void makeTable();
    void refresh();
    void refreshInspector();
    void arrange();
    void sortBy(int column);
    void rename();
    void chooseClient();
    void archive(bool archived);

    AppModel& model_;
    Prompts& prompts_;
    ProjectFilter filter_;
    Model rows_;
    Records records_;
    QHBoxLayout* head_;
    QLineEdit* search_;
    QCheckBox* archived_;
    PeriodPicker* period_;
    QPushButton* new_;
    QStackedWidget* pages_;
    QTableView* table_;
    EmptyState* empty_;
    QWidget* footer_;
    QLabel* count_;
    QLabel* without_;
    QLabel* profit_;
    QStackedWidget* inspector_;
    QLineEdit* name_;
    QComboBox* client_;
    WhenSeen* seen_;
    QLabel* recordsTitle_;
    QTableView* recordsTable_;
    QPushButton* archive_;
};

}  // namespace tamba
