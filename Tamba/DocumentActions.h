#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/Prompts.h"
#include "TambaCore/Documents/Books.h"

#include <QObject>

#include <filesystem>
#include <string>
#include <vector>

namespace tamba {

/// What can be done with a document beyond editing it. Asks through `Prompts`, changes the books through `AppModel`;
/// the Invoices screen, its menus and the Clients screen all act through it. An id that is gone does nothing.
class DocumentActions : public QObject {
    Q_OBJECT

public:
    enum class Action {
        issue,
        send,
        recordPayment,
        remind,
        credit,
        accept,
        decline,
        convert,
        duplicate,
        savePDF,
        print,
        voidDocument,
        deleteDraft,
    };

    DocumentActions(AppModel& model, Prompts& prompts, QObject* parent = nullptr);

    /// Those that make sense for the document as it stands, the most likely next one first.
    [[nodiscard]] static std::vector<Action> offered(const Library& library, const Document& document, Day today);
    [[nodiscard]] static QString title(Action action);
    [[nodiscard]] static QString icon(Action action);

    /// Carries one out, with its sheet where it has one.
    void run(Action action, const UUID& document);
    void removePayment(const UUID& invoice, const UUID& payment);
    /// A new draft of that kind, for a client when given.
    void create(DocKind kind, const std::optional<UUID>& client = {});

signals:
    /// A document that was made or changed is to be looked at.
    void documentChosen(const tamba::UUID& document);
    void noticed(const QString& sentence);
    /// It has its number now; the notice offers the PDF, which is what people want next.
    void issued(const tamba::UUID& document, const QString& sentence);
    /// Something was deleted; the notice offers to take it back.
    void removed(const QString& what);

private:
    void issue(const Document& draft);
    void write(const Document& document, Mail kind);
    void recordPayment(const Document& invoice);
    void credit(const Document& invoice);
    void voidDocument(const Document& document);
    void savePDF(const Document& document);
    /// Adds a draft that the core made, and shows it.
    void add(const QString& title, const Document& draft);
    /// Keeps the document's PDF in the books' Invoices folder and gives its place.
    [[nodiscard]] std::filesystem::path keep(const Document& document, const std::string& pdf) const;

    AppModel& model_;
    Prompts& prompts_;
};

}  // namespace tamba
