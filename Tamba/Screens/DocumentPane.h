#pragma once

#include "Tamba/AppModel.h"
#include "Tamba/DocumentActions.h"
#include "Tamba/Prompts.h"

#include <QFrame>

#include <optional>

class QLabel;
class QMenu;
class QPushButton;
class QScrollArea;
class QStackedWidget;
class QToolButton;
class QVBoxLayout;

namespace tamba {

class DocumentEditor;
class DocumentPreview;

/// The selected document: what can be done with it at the head, below it the editor of a draft, or the page as it is
/// printed, under what has happened to it since.
class DocumentPane : public QFrame {
    Q_OBJECT

public:
    DocumentPane(AppModel& model, Prompts& prompts, DocumentActions& actions, QWidget* parent = nullptr);

    /// Takes what is being typed into the present one first.
    void setDocument(const std::optional<UUID>& id);
    [[nodiscard]] const std::optional<UUID>& document() const { return id_; }
    void setPreferredWidth(int width);
    [[nodiscard]] QSize sizeHint() const override;
    void setPreview(bool preview);
    void togglePreview() { setPreview(!preview_); }
    void commit();
    [[nodiscard]] bool hasUnsavedText() const;
    /// Keys go to the client of a draft, or to its lines when that is known.
    void focusEditor();
    void run(DocumentActions::Action action);

signals:
    /// Another document is to be looked at.
    void documentChosen(const tamba::UUID& id);
    void deleteChosen();
    void noticed(const QString& sentence);

private:
    QWidget* makeHead();
    QWidget* makeSegments();
    QWidget* makePaper();
    void refresh();
    void fillActions(const Document& document);
    void fillFacts(const Document& document);
    [[nodiscard]] const Document* shown() const;

    AppModel& model_;
    DocumentActions& actions_;
    std::optional<UUID> id_;
    bool preview_ = false;
    int preferredWidth_ = 480;
    QWidget* head_;
    QLabel* title_;
    QLabel* pill_;
    QLabel* standing_;
    QWidget* segments_;
    QPushButton* edit_;
    QPushButton* page_;
    QPushButton* primary_;
    QPushButton* more_;
    QMenu* menu_;
    std::optional<DocumentActions::Action> first_;
    QStackedWidget* pages_;
    QLabel* none_;
    DocumentEditor* editor_;
    QScrollArea* paper_;
    QWidget* factsBox_;
    QVBoxLayout* facts_;
    DocumentPreview* view_;
};

}  // namespace tamba
