#include "Tamba/Screens/InvoicesScreen.h"

#include "Tamba/DocumentDrag.h"
#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Screens/DocumentPane.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/EmptyState.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/ListParts.h"
#include "Tamba/Widgets/PeriodPicker.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "Tamba/Widgets/WhenSeen.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QTableView>
#include <QVBoxLayout>

namespace tamba {
namespace {

enum Column { number, client, total, status };
constexpr DocKind kinds[] = {DocKind::invoice, DocKind::estimate, DocKind::creditNote};

QString newTitle(DocKind kind) {
    switch (kind) {
        case DocKind::invoice:
            return QObject::tr("New Invoice");
        case DocKind::estimate:
            return QObject::tr("New Estimate");
        case DocKind::creditNote:
            break;
    }
    return QObject::tr("New Credit Note");
}

}  // namespace

std::vector<InvoicesScreen::Model::Column> InvoicesScreen::columns() const {
    return {
        {tr("Number"), Qt::AlignLeft,
         [](const DocumentRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.number);
             if (role == RowDelegate::Second) return toQt(row.date);
             if (role == Qt::AccessibleTextRole) return toQt(row.number + ", " + row.date);
             return {};
         }},
        {tr("Client"), Qt::AlignLeft,
         [this](const DocumentRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return row.client.empty() ? tr("No client") : toQt(row.client);
             if (role == Qt::ForegroundRole && row.client.empty()) return Colors::current().muted;
             if (role == RowDelegate::Strong) return !row.client.empty();
             if (role == RowDelegate::Second) return toQt(row.due);
             if (role == RowDelegate::Folded && folded_)
                 return toQt(row.due.empty() ? row.number : row.number + " · " + row.due);
             if (role == RowDelegate::SecondTone) return static_cast<int>(row.late ? Tone::danger : Tone::none);
             if (role == Qt::ToolTipRole) return toQt(row.client);
             if (role == Qt::AccessibleTextRole) return toQt(row.client + ", " + row.due);
             return {};
         }},
        {tr("Total"), Qt::AlignRight,
         [](const DocumentRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.total);
             if (role == RowDelegate::Second) return toQt(row.balance);
             if (role == Qt::AccessibleTextRole) return toQt(row.total + ", " + row.balance);
             return {};
         }},
        {tr("Status"), Qt::AlignLeft,
         [](const DocumentRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return toQt(row.status);
             if (role == RowDelegate::Pill) return static_cast<int>(row.tone);
             if (role == RowDelegate::Glyph) return toQt(row.glyph);
             return {};
         }},
    };
}

InvoicesScreen::InvoicesScreen(AppModel& model, Prompts& prompts, DocumentActions& actions, QWidget* parent)
    : QWidget(parent), model_(model), actions_(actions), rows_(columns()) {
    setObjectName(QStringLiteral("invoicesScreen"));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(makeHeader());
    auto* columns = new QHBoxLayout;
    columns->setSpacing(0);
    makeTable();
    const auto body = ListParts::body(nullptr, table_, footer_ = makeFooter(), this);
    pages_ = body.pages;
    empty_ = body.empty;
    columns->addLayout(body.column, 1);
    pane_ = new DocumentPane(model_, prompts, actions_, this);
    columns->addWidget(pane_);
    rows->addLayout(columns, 1);
    makeConnections();
    fillStatuses();
    refresh(Because::filterChanged);
}

QWidget* InvoicesScreen::makeHeader() {
    const auto [header, top, tools] = ListParts::header(ListParts::Heading::tabs, this);
    kinds_ = new QTabBar(header);
    Controls::name(*kinds_, "documentKinds", tr("Kind of document"));
    kinds_->setDrawBase(false);
    kinds_->setExpanding(false);
    kinds_->setElideMode(Qt::ElideNone);
    for (const DocKind kind : kinds) kinds_->addTab(Translations::shown(pluralTitle(kind)));
    newDocument_ = Controls::button({}, "newDocument", Controls::Kind::primary, header);
    top->addWidget(kinds_, 1, Qt::AlignLeft);
    top->addWidget(newDocument_);
    search_ =
        ListParts::search("documentSearch", tr("Search documents"), tr("Search number, client, amount, lines"), header);
    status_ = makeChoice(header);
    Controls::name(*status_, "statusFilter", tr("Status"));
    status_->setFixedWidth(168);
    period_ = new PeriodPicker(model_.today(), 4, header);
    tools->addWidget(search_, 1);
    tools->addWidget(status_);
    tools->addWidget(period_);
    return header;
}

QWidget* InvoicesScreen::makeFooter() {
    const auto [footer, layout] = ListParts::footer(this);
    footer->setMinimumWidth(200);  // what has no room is left out
    count_ = Controls::label({}, "field", footer);
    leftOut_ = Controls::label({}, "field", footer);
    leftOut_->setMinimumWidth(0);
    leftOut_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    due_ = Controls::label({}, "field", footer);
    due_->setObjectName(QStringLiteral("documentsDue"));
    total_ = new QLabel(footer);
    total_->setObjectName(QStringLiteral("documentsTotal"));
    total_->setFont(Style::textFont(14, QFont::DemiBold));
    total_->setToolTip(tr("Total of what was issued, in your home currency"));
    layout->addWidget(count_);
    layout->addWidget(leftOut_, 1);
    layout->addWidget(due_);
    layout->addWidget(total_);
    return footer;
}

void InvoicesScreen::makeTable() {
    table_ = ListParts::table(rows_, "documents", tr("Documents"),
                              {.rowHeight = RowDelegate::tallRowHeight,
                               .stretched = Column::client,
                               .sorted = Column::number,
                               .order = Qt::DescendingOrder},
                              this);
    keepSelection(*table_, rows_);
    ListParts::setHabits(*table_, {.open = [this] { pane_->focusEditor(); },
                                   .remove = [this] { deleteSelected(); },
                                   .fillMenu = [this](QMenu& menu) { fillMenu(menu); },
                                   .sort = [this](int column) { sortBy(column); }});
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &InvoicesScreen::selectionChanged);
    new DocumentDrag(model_, *table_->viewport(), [this] { return selected(); }, this);
}

void InvoicesScreen::makeConnections() {
    connect(kinds_, &QTabBar::currentChanged, this, [this](int index) { showKind(kinds[index]); });
    connect(newDocument_, &QPushButton::clicked, this, &InvoicesScreen::newDocument);
    connect(search_, &QLineEdit::textChanged, this, [this] { refresh(Because::filterChanged); });
    connect(period_, &PeriodPicker::chosen, this, [this] { refresh(Because::filterChanged); });
    connect(status_, &QComboBox::activated, this, [this] { refresh(Because::filterChanged); });
    connect(empty_, &EmptyState::actionChosen, this, [this] {
        if (countOf(model_.library(), filter_.kind) > 0) return clearFilters();
        if (filter_.kind == DocKind::creditNote) return showKind(DocKind::invoice);
        newDocument();
    });
    connect(pane_, &DocumentPane::documentChosen, this, &InvoicesScreen::select);
    connect(pane_, &DocumentPane::deleteChosen, this, &InvoicesScreen::deleteSelected);
    connect(pane_, &DocumentPane::noticed, this, &InvoicesScreen::noticed);
    connect(&actions_, &DocumentActions::documentChosen, this, &InvoicesScreen::select);
    seen_ = new WhenSeen(*this, model_, [this] { refresh(Because::booksChanged); });
    connect(&model_, &AppModel::changed, seen_, &WhenSeen::refresh);
    connect(&model_, &AppModel::opened, this, [this] {
        pane_->setDocument({});
        seen_->refreshThen([this] {
            clearFilters();
            showKind(DocKind::invoice);
        });
    });
    connect(&model_, &AppModel::dayChanged, seen_, &WhenSeen::refresh);
    // Only while the screen is seen: a hidden widget's shortcut is nobody's.
    auto* preview = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P), this);
    connect(preview, &QShortcut::activated, pane_, &DocumentPane::togglePreview);
}

void InvoicesScreen::showKind(DocKind kind) {
    if (filter_.kind != kind) {
        filter_.kind = kind;
        const QScopedValueRollback guard(filling_, true);
        fillStatuses();
        pane_->setDocument({});
    }
    {
        const QSignalBlocker quiet(kinds_);
        kinds_->setCurrentIndex(static_cast<int>(std::find(std::begin(kinds), std::end(kinds), kind) - kinds));
    }
    refresh(Because::filterChanged);
}

void InvoicesScreen::showStatuses(DocKind kind, const std::vector<DocStatus>& statuses, Span span, Day day) {
    showKind(kind);
    {
        const QScopedValueRollback guard(filling_, true);
        search_->clear();
        const auto& choices = statusChoices(kind);
        const auto found = std::find_if(choices.begin(), choices.end(),
                                        [&](const StatusChoice& choice) { return choice.statuses == statuses; });
        status_->setCurrentIndex(found == choices.end() ? 0 : static_cast<int>(found - choices.begin()));
        period_->choose(span, day);
    }
    refresh(Because::filterChanged);
    if (!selected() && rows_.rowCount() > 0) table_->selectRow(0);
}

void InvoicesScreen::fillStatuses() {
    status_->clear();
    for (const StatusChoice& choice : statusChoices(filter_.kind)) status_->addItem(toQt(choice.title));
}

void InvoicesScreen::refresh(Because because) {
    const Library& library = model_.library();
    period_->setYearStart(library.fyStart());
    filter_.days = period_->days();
    filter_.search = toStd(search_->text());
    filter_.statuses =
        statusChoices(filter_.kind).at(static_cast<std::size_t>(std::max(0, status_->currentIndex()))).statuses;
    for (int i = 0; i < 3; ++i) {
        const std::size_t count = countOf(library, kinds[i]);
        const QString title = Translations::shown(pluralTitle(kinds[i]));
        kinds_->setTabText(i, count == 0 ? title : QStringLiteral("%1  %2").arg(title).arg(count));
    }
    newDocument_->setText(newTitle(filter_.kind));
    newDocument_->setAccessibleName(newDocument_->text());
    newDocument_->setToolTip(tr("%1 (Ctrl+N)").arg(newDocument_->text()));
    // A credit note begins at the invoice it credits.
    newDocument_->setVisible(filter_.kind != DocKind::creditNote);

    DocumentTable table = listing_.table(library, filter_, model_.today());
    const bool none = table.rows.empty();
    {
        const QScopedValueRollback guard(filling_, true);
        rows_.setRows(std::move(table.rows));
        const auto shown = pane_->document();
        const bool gone = shown && !library.document(*shown);
        if (shown && rows_.rowOf(*shown))
            selectIds(*table_, rows_, {*shown});
        else if (because == Because::filterChanged || gone || !shown) {
            const int row = gone ? std::clamp(table_->currentIndex().row(), 0, std::max(0, rows_.rowCount() - 1)) : 0;
            if (none)
                pane_->setDocument({});
            else
                selectIds(*table_, rows_, {rows_.id(row)});
        }
    }
    selectionChanged();
    count_->setText(toQt(table.count));
    leftOut_->setText(toQt(table.leftOut));
    due_->setText(tr("%1 due").arg(toQt(table.due)));
    due_->setVisible(filter_.kind == DocKind::invoice);
    total_->setText(toQt(table.total));
    pages_->setCurrentWidget(none ? static_cast<QWidget*>(empty_) : table_);
    const bool any = countOf(library, filter_.kind) > 0;
    footer_->setVisible(any);
    pane_->setVisible(any);
    refreshEmptyState();
    arrange();
}

void InvoicesScreen::refreshEmptyState() {
    if (countOf(model_.library(), filter_.kind) > 0)
        return empty_->set(QStringLiteral("search"), tr("Nothing here"),
                           tr("No document fits this search, period and status."), tr("Show All"), {});
    switch (filter_.kind) {
        case DocKind::invoice:
            return empty_->set(QStringLiteral("file"), tr("Bill your first client"),
                               tr("Choose who it is for, type what you did, and the invoice is ready to send."),
                               tr("New Invoice"), {});
        case DocKind::estimate:
            return empty_->set(QStringLiteral("file"), tr("Say what it will cost"),
                               tr("An estimate that is accepted becomes an invoice with one click."),
                               tr("New Estimate"), {});
        case DocKind::creditNote:
            return empty_->set(
                QStringLiteral("file"), tr("No credit notes"),
                tr("When an invoice was too high, open it and choose “Credit Note…”: it is made from it."),
                tr("Show Invoices"), {});
    }
}

void InvoicesScreen::clearFilters() {
    {
        const QScopedValueRollback guard(filling_, true);
        search_->clear();
        status_->setCurrentIndex(0);
        period_->choose(Span::all, model_.today());
    }
    refresh(Because::filterChanged);
}

void InvoicesScreen::selectionChanged() {
    if (filling_) return;
    const auto ids = selectedIds(*table_, rows_);
    // A document that has left the list while it is worked on stays where it is.
    if (!ids.empty()) pane_->setDocument(ids.front());
}

void InvoicesScreen::select(const UUID& document) {
    const Document* wanted = model_.library().document(document);
    if (!wanted) return;
    seen_->catchUp();
    if (filter_.kind != wanted->kind) showKind(wanted->kind);
    if (!rows_.rowOf(document)) clearFilters();
    selectIds(*table_, rows_, {document});
    pane_->setDocument(document);
}

std::optional<UUID> InvoicesScreen::selected() const { return pane_->document(); }

void InvoicesScreen::newDocument() {
    if (filter_.kind == DocKind::creditNote) {
        emit noticed(tr("A credit note begins at its invoice: open it and choose “Credit Note…”."));
        return;
    }
    pane_->commit();
    const auto before = pane_->document();
    actions_.create(filter_.kind);
    if (pane_->document() != before) pane_->focusEditor();
}

void InvoicesScreen::deleteSelected() {
    const auto id = pane_->document();
    const Document* document = id ? model_.library().document(*id) : nullptr;
    if (!document) return;
    if (document->state != DocState::draft) {
        emit noticed(toQt(std::string_view(BooksError(BooksError::Code::issuedCannotDelete).what())));
        return;
    }
    const QString kind = Translations::shown(Books::title(document->kind));
    const bool done = model_.perform(
        tr("Delete Draft"), [id = *id](Library library, Day) { return Books::deleteDraft(std::move(library), id); });
    if (done) emit removed(tr("Draft %1 deleted").arg(kind.toLower()));
}

void InvoicesScreen::run(DocumentActions::Action action) { pane_->run(action); }

void InvoicesScreen::printSelected() { run(DocumentActions::Action::print); }

void InvoicesScreen::focusSearch() { ListParts::beginSearch(*search_); }

bool InvoicesScreen::isEditing() const { return pane_->isAncestorOf(focusWidget()) && pane_->hasUnsavedText(); }

void InvoicesScreen::sortBy(int column) {
    static constexpr DocumentOrder orders[] = {DocumentOrder::date, DocumentOrder::client, DocumentOrder::total,
                                               DocumentOrder::status};
    const DocumentOrder order = orders[column];
    // Figures and dates begin with the largest, words with A.
    const bool figures = order == DocumentOrder::date || order == DocumentOrder::total;
    ListParts::orderBy(*table_, column, filter_, order, !figures);
    refresh(Because::booksChanged);
}

void InvoicesScreen::fillMenu(QMenu& menu) {
    const auto id = pane_->document();
    const Document* document = id ? model_.library().document(*id) : nullptr;
    if (!document || selectedIds(*table_, rows_).empty()) return;
    for (const auto action : DocumentActions::offered(model_.library(), *document, model_.today()))
        menu.addAction(Icons::icon(DocumentActions::icon(action), &Colors::muted), DocumentActions::title(action), this,
                       [this, action] { pane_->run(action); });
    menu.addSeparator();
    menu.addAction(tr("Copy"), this, [this] { ListParts::copyRows(*table_); });
}

bool InvoicesScreen::eventFilter(QObject* watched, QEvent* event) {
    // Before anything is saved for the last time.
    if (watched == watched_ && event->type() == QEvent::Close) pane_->commit();
    return QWidget::eventFilter(watched, event);
}

void InvoicesScreen::showEvent(QShowEvent*) {
    if (watched_ == window()) return;
    if (watched_) watched_->removeEventFilter(this);
    watched_ = window();
    watched_->installEventFilter(this);
}

void InvoicesScreen::hideEvent(QHideEvent*) { pane_->commit(); }

void InvoicesScreen::resizeEvent(QResizeEvent*) { arrange(); }

void InvoicesScreen::arrange() {
    const int wanted = std::clamp(width() * 5 / 8 - 84, 480, 900);
    pane_->setPreferredWidth(wanted);
    const int room = width() - (pane_->isHidden() ? 0 : wanted);
    // What gives way first where the client's name would get too little room: numbers are then told below it.
    static constexpr ListParts::Width widths[] = {{Column::number, 116}, {Column::total, 116}, {Column::status, 94}};
    static constexpr ListParts::Width steps[] = {{Column::number, 0}, {Column::status, 40}, {Column::total, 112}};
    ListParts::fitColumns(*table_, room, 214, widths, steps);
    folded_ = table_->isColumnHidden(Column::number);
    // A glyph needs no title.
    rows_.setTitle(Column::status, table_->columnWidth(Column::status) < 60 ? QString() : tr("Status"));
    count_->setVisible(room >= 420);
    leftOut_->setVisible(room >= 360);
}

}  // namespace tamba
