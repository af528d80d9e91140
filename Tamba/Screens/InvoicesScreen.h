#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/DocumentActions.h"
#include "Tamba/Prompts.h"
#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/RowsModel.h"

#include <QPointer>
#include <QWidget>

#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTabBar;
class QTableView;

namespace tamba {

class DocumentPane;
class EmptyState;
class PeriodPicker;
class WhenSeen;

/// Invoices, estimates and credit notes as three tabs: the list on the left, on the right the document itself. A draft
/// is edited in place, what was issued is shown as the page it is.
class InvoicesScreen : public QWidget {
    Q_OBJECT

public:
    InvoicesScreen(AppModel& model, Prompts& prompts, DocumentActions& actions, QWidget* parent = nullptr);

    /// Shows this document; a tab, filter or period that would hide it is changed.
    void select(const UUID& document);
    [[nodiscard]] std::optional<UUID> selected() const;
    void showKind(DocKind kind);
    /// Those of one of the kind's status choices and nothing else; none: all. With a span, those of its days.
    void showStatuses(DocKind kind, const std::vector<DocStatus>& statuses, Span span, Day day);
    /// A draft of the shown tab's kind.
    void newDocument();
    void focusSearch();
    /// Deletes the selected draft, with a way back; of an issued document it says why not.
    void deleteSelected();
    void printSelected();
    /// Carries out an action on the selected document, with what is being typed into it.
    void run(DocumentActions::Action action);
    /// Somebody is typing into the selected draft: the selection is not to be taken away.
    [[nodiscard]] bool isEditing() const;

signals:
    /// Something was deleted; the notice offers to take it back.
    void removed(const QString& what);
    void noticed(const QString& sentence);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Model = RowsModel<DocumentRow>;
    /// What was changed decides whether the document on the right gives way to one of the list.
    enum class Because { booksChanged, filterChanged };
    [[nodiscard]] std::vector<Model::Column> columns() const;
    QWidget* makeHeader();
    QWidget* makeFooter();
    void makeTable();
    void makeConnections();
    void refresh(Because because);
    void refreshEmptyState();
    void fillStatuses();
    void selectionChanged();
    void arrange();
    void sortBy(int column);
    void fillMenu(QMenu& menu);
    void clearFilters();

    AppModel& model_;
    DocumentActions& actions_;
    DocumentFilter filter_;
    DocumentListing listing_;
    Model rows_;
    bool filling_ = false;
    bool folded_ = false;        // numbers stand below the clients
    QPointer<QWidget> watched_;  // the window whose closing takes what is being typed
    QTabBar* kinds_;
    QPushButton* newDocument_;
    QLineEdit* search_;
    QComboBox* status_;
    PeriodPicker* period_;
    QStackedWidget* pages_;
    QTableView* table_;
    EmptyState* empty_;
    QWidget* footer_;
    QLabel* count_;
    QLabel* leftOut_;
    QLabel* due_;
    QLabel* total_;
    DocumentPane* pane_;
    WhenSeen* seen_;
};

}  // namespace tamba
