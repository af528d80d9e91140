#include "Tamba/Screens/DocumentPane.h"

#include "Tamba/DocumentDrag.h"
#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Rows/DocumentRows.h"
#include "Tamba/Screens/DocumentEditor.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DocumentPreview.h"

#include <QButtonGroup>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace tamba {
namespace {

const char* pillOf(Tone tone) {
    switch (tone) {
        case Tone::good:
            return "good";
        case Tone::warning:
            return "warning";
        case Tone::danger:
            return "danger";
        case Tone::none:
        case Tone::neutral:
            break;
    }
    return "neutral";
}

}  // namespace

DocumentPane::DocumentPane(AppModel& model, Prompts& prompts, DocumentActions& actions, QWidget* parent)
    : QFrame(parent), model_(model), actions_(actions) {
    setObjectName(QStringLiteral("inspector"));
    setMinimumWidth(480);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 0, 0);
    layout->setSpacing(0);
    head_ = makeHead();
    layout->addWidget(head_);
    pages_ = new QStackedWidget(this);
    none_ = Controls::label(tr("Select a document to see it here."), "field", this);
    none_->setAlignment(Qt::AlignCenter);
    editor_ = new DocumentEditor(model_, prompts, this);
    pages_->addWidget(none_);
    pages_->addWidget(editor_);
    pages_->addWidget(makePaper());
    layout->addWidget(pages_, 1);
    connect(editor_, &DocumentEditor::noticed, this, &DocumentPane::noticed);
    connect(&model_, &AppModel::changed, this, &DocumentPane::refresh);
    refresh();
}

QWidget* DocumentPane::makeHead() {
    auto* head = new QFrame(this);
    head->setObjectName(QStringLiteral("paneHead"));
    auto* rows = new QVBoxLayout(head);
    rows->setContentsMargins(20, 12, 16, 12);
    rows->setSpacing(2);
    auto* top = new QHBoxLayout;
    top->setSpacing(8);
    title_ = new QLabel(head);
    title_->setObjectName(QStringLiteral("documentTitle"));
    title_->setFont(Style::titleFont(17));
    pill_ = new QLabel(head);
    pill_->setObjectName(QStringLiteral("pill"));
    more_ = Controls::button(tr("More"), "moreActions", Controls::Kind::plain, head);
    menu_ = new QMenu(more_);
    menu_->setObjectName(QStringLiteral("documentMenu"));
    more_->setMenu(menu_);
    more_->setProperty("role", QStringLiteral("menu"));
    primary_ = Controls::button({}, "primaryAction", Controls::Kind::primary, head);
    top->addWidget(title_);
    top->addWidget(pill_);
    top->addStretch(1);
    segments_ = makeSegments();
    top->addWidget(segments_);
    top->addWidget(more_);
    top->addWidget(primary_);
    rows->addLayout(top);
    standing_ = Controls::label({}, "field", head);
    standing_->setObjectName(QStringLiteral("standing"));
    rows->addWidget(standing_);
    connect(primary_, &QPushButton::clicked, this, [this] {
        if (first_) run(*first_);
    });
    return head;
}

QWidget* DocumentPane::makeSegments() {
    auto* segments = new QFrame(this);
    segments->setObjectName(QStringLiteral("segments"));
    auto* layout = new QHBoxLayout(segments);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    auto* group = new QButtonGroup(segments);
    const auto add = [&](const QString& text, const char* name, const QString& tip) {
        auto* button = Controls::button(text, name, Controls::Kind::plain, segments);
        button->setProperty("role", QStringLiteral("segment"));
        button->setCheckable(true);
        button->setToolTip(tip);
        group->addButton(button);
        layout->addWidget(button);
        return button;
    };
    edit_ = add(tr("Edit"), "showEditor", tr("Edit (Ctrl+Shift+P)"));
    page_ = add(tr("Preview"), "showPreview", tr("The page as it is printed (Ctrl+Shift+P)"));
    edit_->setChecked(true);
    connect(edit_, &QPushButton::clicked, this, [this] { setPreview(false); });
    connect(page_, &QPushButton::clicked, this, [this] { setPreview(true); });
    return segments;
}

QWidget* DocumentPane::makePaper() {
    paper_ = new QScrollArea(this);
    Controls::name(*paper_, "paper", tr("Preview"));
    paper_->setWidgetResizable(true);
    paper_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* content = new QWidget;
    content->setObjectName(QStringLiteral("desk"));
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    factsBox_ = new QWidget(content);
    factsBox_->setObjectName(QStringLiteral("facts"));
    facts_ = new QVBoxLayout(factsBox_);
    facts_->setContentsMargins(20, 12, 16, 12);
    facts_->setSpacing(2);
    layout->addWidget(factsBox_);
    view_ = new DocumentPreview(content);
    layout->addWidget(view_);
    new DocumentDrag(model_, *view_, [this] { return id_; }, this);
    layout->addStretch(1);
    paper_->setWidget(content);
    return paper_;
}

const Document* DocumentPane::shown() const { return id_ ? model_.library().document(*id_) : nullptr; }

void DocumentPane::setDocument(const std::optional<UUID>& id) {
    if (id != id_) {
        commit();
        id_ = id;
        paper_->verticalScrollBar()->setValue(0);
    }
    refresh();
}

void DocumentPane::setPreferredWidth(int width) {
    if (width == preferredWidth_) return;
    preferredWidth_ = width;
    updateGeometry();
}

QSize DocumentPane::sizeHint() const { return {preferredWidth_, QFrame::sizeHint().height()}; }

void DocumentPane::setPreview(bool preview) {
    commit();
    preview_ = preview;
    refresh();
}

void DocumentPane::commit() {
    const Document* document = shown();
    if (document && document->state == DocState::draft) editor_->commit();
}

bool DocumentPane::hasUnsavedText() const {
    const Document* document = shown();
    return document && document->state == DocState::draft && editor_->hasUnsavedText();
}

void DocumentPane::focusEditor() {
    const Document* document = shown();
    if (!document || document->state != DocState::draft) return;
    setPreview(false);
    if (document->clientID)
        editor_->focusLines();
    else
        editor_->focusClient();
}

void DocumentPane::run(DocumentActions::Action action) {
    commit();
    const Document* document = shown();
    if (!document) return;
    if (action == DocumentActions::Action::deleteDraft) return void(emit deleteChosen());
    actions_.run(action, document->id);
}

void DocumentPane::refresh() {
    const Document* document = shown();
    head_->setVisible(document != nullptr);
    if (!document) return pages_->setCurrentWidget(none_);
    const Library& library = model_.library();
    const bool draft = document->state == DocState::draft;
    const QString kind = Translations::shown(Books::title(document->kind));
    title_->setText(draft ? tr("Draft %1").arg(kind.toLower()) : toQt(document->displayNumber()));
    const DocStatus status = Books::status(library, *document, model_.today());
    pill_->setText(Translations::shown(Books::title(status)));
    Controls::restyle(*pill_, "pill", QString::fromLatin1(pillOf(toneOf(status))));
    pill_->setVisible(!draft);
    standing_->setText(draft ? QString() : toQt(standingText(library, *document, model_.today())));
    standing_->setVisible(!standing_->text().isEmpty());
    segments_->setVisible(draft);
    edit_->setChecked(!preview_);
    page_->setChecked(preview_);
    fillActions(*document);
    if (draft && !preview_) {
        pages_->setCurrentWidget(editor_);
        editor_->setDocument(document->id);
        return;
    }
    fillFacts(*document);
    view_->setDocument(library, model_.store(), *document);
    pages_->setCurrentWidget(paper_);
}

void DocumentPane::fillActions(const Document& document) {
    const auto offered = DocumentActions::offered(model_.library(), document, model_.today());
    menu_->clear();
    first_.reset();
    for (const DocumentActions::Action action : offered) {
        if (!first_) {
            first_ = action;
            primary_->setText(DocumentActions::title(action));
            primary_->setAccessibleName(primary_->text());
            continue;
        }
        const bool removes =
            action == DocumentActions::Action::deleteDraft || action == DocumentActions::Action::voidDocument;
        if (removes) menu_->addSeparator();
        menu_->addAction(Icons::icon(DocumentActions::icon(action), removes ? &Colors::danger : &Colors::muted),
                         DocumentActions::title(action), this, [this, action] { run(action); });
    }
    primary_->setVisible(first_.has_value());
    more_->setVisible(!menu_->isEmpty());
}

void DocumentPane::fillFacts(const Document& document) {
    while (QLayoutItem* item = facts_->takeAt(0)) {
        // Deleted when the event loop comes round: it may be one of its own buttons that asked.
        if (QWidget* line = item->widget()) line->hide(), line->deleteLater();
        delete item;
    }
    const auto facts = documentFacts(model_.library(), document);
    factsBox_->setVisible(!facts.empty());
    for (const DocumentFact& fact : facts) {
        auto* line = new QWidget(factsBox_);
        line->setMinimumHeight(26);
        auto* row = new QHBoxLayout(line);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(8);
        if (fact.kind == DocumentFact::Kind::link) {
            auto* link = Controls::button(toQt(fact.text), "linkedDocument", Controls::Kind::link, line);
            link->setStyleSheet(QStringLiteral("margin-left: -7px"));
            row->addWidget(link);
            connect(link, &QPushButton::clicked, this, [this, id = *fact.id] { emit documentChosen(id); });
        } else {
            auto* text = Controls::label(toQt(fact.text), "field", line);
            text->setObjectName(QStringLiteral("fact"));
            text->setWordWrap(true);
            row->addWidget(text, 1);
        }
        row->addStretch();
        row->addWidget(new QLabel(toQt(fact.amount), line));
        if (fact.kind == DocumentFact::Kind::payment) {
            auto* remove = Controls::iconButton(
                QStringLiteral("close"), tr("Remove the payment of %1").arg(toQt(fact.amount)), "removePayment", line);
            remove->setIconSize(QSize(14, 14));
            row->addWidget(remove);
            connect(remove, &QToolButton::clicked, this,
                    [this, invoice = document.id, payment = *fact.id] { actions_.removePayment(invoice, payment); });
        } else
            row->addSpacing(35);  // as wide as what removes a payment
        facts_->addWidget(line);
    }
}

}  // namespace tamba
