#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/DocumentActions.h"
#include "Tamba/Rows/ClientRows.h"
#include "Tamba/RowsModel.h"

#include <QFrame>

#include <optional>

class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace tamba {

class ClientForm;

/// The selected client, edited in place: every field that is left is one step. Below, their documents.
class ClientInspector : public QFrame {
    Q_OBJECT

public:
    ClientInspector(AppModel& model, DocumentActions& documents, QWidget* parent = nullptr);
    void show(const std::optional<UUID>& client);
    void focusName();

signals:
    void deleteChosen();
    void archiveChosen(bool archived);

private:
    QWidget* makeClient();
    void commit(const QString& what);
    void fill(const Client& client);

    AppModel& model_;
    DocumentActions& documents_;
    std::optional<UUID> id_;
    RowsModel<ClientDocumentRow> rows_;
    Books::KeptStandings standings_;
    QStackedWidget* pages_;
    ClientForm* form_;
    QLabel* summary_;
    QLabel* documentsTitle_;
    QTableView* table_;
    QPushButton* archive_;
};

}  // namespace tamba
