#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/DocumentActions.h"
#include "Tamba/Prompts.h"
#include "Tamba/Rows/ClientRows.h"
#include "Tamba/RowsModel.h"

#include <QWidget>

#include <optional>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace tamba {

class ClientInspector;
class EmptyState;
class WhenSeen;

/// The table of clients with what they owe and how late they pay, and beside it the selected one.
class ClientsScreen : public QWidget {
    Q_OBJECT

public:
    ClientsScreen(AppModel& model, Prompts& prompts, DocumentActions& documents, QWidget* parent = nullptr);

    /// Selects a client; filters that would hide it are taken off.
    void select(const UUID& client);
    [[nodiscard]] std::optional<UUID> selected() const;
    void newClient();
    /// Deletes the selected client; where others refer to it, offers to archive it.
    void deleteSelected();
    void focusSearch();
    /// What can be done with the selected client.
    void fillMenu(QMenu& menu);
    /// Where the tabs stand that lead here and away.
    [[nodiscard]] QHBoxLayout& head() { return *head_; }

signals:
    /// Something was deleted; the notice offers to take it back.
    void removed(const QString& what);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    using Model = RowsModel<ClientListRow>;
    [[nodiscard]] static std::vector<Model::Column> columns();
    QWidget* makeHeader();
    QWidget* makeFooter();
    void makeTable();
    void refresh();
    void refreshInspector();
    void arrange();
    void sortBy(int column);
    void archive(bool archived);

    AppModel& model_;
    Prompts& prompts_;
    DocumentActions& documents_;
    ClientFilter filter_;
    ClientListing listing_;
    Model rows_;
    QHBoxLayout* head_;
    QLineEdit* search_;
    QCheckBox* archived_;
    QPushButton* new_;
    QStackedWidget* pages_;
    QTableView* table_;
    EmptyState* empty_;
    QWidget* footer_;
    QLabel* count_;
    QLabel* leftOut_;
    QLabel* overdue_;
    QLabel* owed_;
    ClientInspector* inspector_;
    WhenSeen* seen_;
};

}  // namespace tamba
