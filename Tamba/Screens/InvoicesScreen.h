#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/DocumentActions.h"
#include "Tamba/Prompts.h"

#include <QWidget>

#include <optional>

namespace tamba {

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
    /// A draft of the shown tab's kind.
    void newDocument();
    void focusSearch();
    /// Deletes the selected draft, with a way back; of an issued document it says why not.
    void deleteSelected();
    void printSelected();
    /// Somebody is typing into the selected draft: the selection is not to be taken away.
    [[nodiscard]] bool isEditing() const;

signals:
    /// Something was deleted; the notice offers to take it back.
    void removed(const QString& what);
    void noticed(const QString& sentence);

private:
    AppModel& model_;
    Prompts& prompts_;
    DocumentActions& actions_;
};

}  // namespace tamba
