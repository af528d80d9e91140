#include "Tamba/Screens/ProjectsScreen.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/EmptyState.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/ListParts.h"
#include "Tamba/Widgets/PeriodPicker.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "Tamba/Widgets/WhenSeen.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Clients.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace tamba {
namespace {

enum Column { name, client, income, expenses, profit, status };

}  // namespace

std::vector<ProjectsScreen::Model::Column> ProjectsScreen::columns() {
    const auto text = [](std::string ProjectListRow::* member, bool muted) {
        return [member, muted](const ProjectListRow& row, int role) -> QVariant {
            if (role == Qt::DisplayRole) return toQt(row.*member);
            return role == Qt::ForegroundRole && muted ? QVariant(Colors::current().muted) : QVariant();
        };
    };
    return {{tr("Project"), Qt::AlignLeft,
             [](const ProjectListRow& row, int role) -> QVariant {
                 if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return toQt(row.name);
                 return role == RowDelegate::Strong ? QVariant(true) : QVariant();
             }},
            {tr("Client"), Qt::AlignLeft, text(&ProjectListRow::client, true)},
            {tr("Income"), Qt::AlignRight, text(&ProjectListRow::income, false)},
            {tr("Spending"), Qt::AlignRight, text(&ProjectListRow::expenses, false)},
            {tr("Profit"), Qt::AlignRight,
             [](const ProjectListRow& row, int role) -> QVariant {
                 if (role == Qt::DisplayRole) return toQt(row.profit);
                 return role == Qt::ForegroundRole && row.loss ? QVariant(Colors::current().danger) : QVariant();
             }},
            {QString(), Qt::AlignLeft, [](const ProjectListRow& row, int role) -> QVariant {
                 if (role == Qt::DisplayRole) return toQt(row.status);
                 return role == RowDelegate::Pill ? QVariant(static_cast<int>(Tone::neutral)) : QVariant();
             }}};
}

std::vector<ProjectsScreen::Records::Column> ProjectsScreen::recordColumns() {
    return {{QString(), Qt::AlignLeft,
             [](const ProjectRecordRow& row, int role) -> QVariant {
                 if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return toQt(row.text);
                 if (role == RowDelegate::Second) return toQt(row.date);
                 if (role == RowDelegate::Glyph)
                     return row.document ? QStringLiteral("document") : QStringLiteral("receipt");
                 return {};
             }},
            {QString(), Qt::AlignRight, [](const ProjectRecordRow& row, int role) -> QVariant {
                 return role == Qt::DisplayRole ? toQt(row.amount) : QVariant();
             }}};
}

ProjectsScreen::ProjectsScreen(AppModel& model, Prompts& prompts, QWidget* parent)
    : QWidget(parent), model_(model), prompts_(prompts), rows_(columns()), records_(recordColumns()) {
    setObjectName(QStringLiteral("projectsScreen"));
    auto* sides = new QHBoxLayout(this);
    sides->setContentsMargins(0, 0, 0, 0);
    sides->setSpacing(0);
    QWidget* header = makeHeader();
    makeTable();
    const auto body = ListParts::body(header, table_, footer_ = makeFooter(), this);
    pages_ = body.pages;
    empty_ = body.empty;
    sides->addLayout(body.column, 1);
    sides->addWidget(makeInspector());

    connect(search_, &QLineEdit::textChanged, this, &ProjectsScreen::refresh);
    connect(archived_, &QCheckBox::toggled, this, &ProjectsScreen::refresh);
    connect(period_, &PeriodPicker::chosen, this, &ProjectsScreen::refresh);
    connect(new_, &QPushButton::clicked, this, &ProjectsScreen::newProject);
    connect(empty_, &EmptyState::actionChosen, this, [this] {
        if (model_.library().projects.empty()) return newProject();
        search_->clear();
        archived_->setChecked(true);
    });
    seen_ = new WhenSeen(*this, model_, [this] { refresh(); });
    connect(&model_, &AppModel::changed, seen_, &WhenSeen::refresh);
    connect(&model_, &AppModel::opened, this, [this] {
        {
            const QSignalBlocker quietSearch(search_), quietArchived(archived_);
            search_->clear();
            archived_->setChecked(false);
        }
        seen_->refreshThen([this] {
            if (rows_.rowCount() > 0) table_->selectRow(0);
        });
    });
    setFocusProxy(table_);
    refresh();
}

QWidget* ProjectsScreen::makeHeader() {
    const auto [header, top, tools] = ListParts::header(ListParts::Heading::tabs, this);
    head_ = top;
    new_ = Controls::button(tr("New Project"), "newProject", Controls::Kind::primary, header);
    new_->setToolTip(tr("New project (Ctrl+N)"));
    top->addStretch(1);
    top->addWidget(new_);
    search_ = ListParts::search("searchProjects", tr("Search projects"), tr("Search project, client"), header);
    archived_ = new QCheckBox(tr("Show archived"), header);
    Controls::name(*archived_, "showArchivedProjects", archived_->text());
    period_ = new PeriodPicker(model_.today(), model_.library().fyStart(), header);
    tools->addWidget(search_, 1);
    tools->addWidget(archived_);
    tools->addWidget(period_);
    return header;
}

QWidget* ProjectsScreen::makeFooter() {
    const auto [footer, layout] = ListParts::footer(this);
    count_ = Controls::label({}, "field", footer);
    without_ = Controls::label({}, "field", footer);
    without_->setToolTip(
        tr("Documents name no project: a line that bills an expense on counts for that expense’s project, "
           "any other for its client’s project where the client has just one."));
    profit_ = new QLabel(footer);
    profit_->setObjectName(QStringLiteral("projectsProfit"));
    profit_->setFont(Style::textFont(14, QFont::DemiBold));
    layout->addWidget(count_);
    layout->addStretch(1);
    layout->addWidget(without_);
    layout->addWidget(profit_);
    return footer;
}

void ProjectsScreen::makeTable() {
    table_ = ListParts::table(rows_, "projects", tr("Projects"),
                              {.rowHeight = RowDelegate::rowHeight,
                               .stretched = Column::name,
                               .sorted = Column::name,
                               .order = Qt::AscendingOrder},
                              this);
    keepSelection(*table_, rows_);
    ListParts::setHabits(*table_, {.open = [this] { name_->setFocus(); },
                                   .remove = [this] { deleteSelected(); },
                                   .fillMenu = [this](QMenu& menu) { fillMenu(menu); },
                                   .sort = [this](int column) { sortBy(column); }});
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ProjectsScreen::refreshInspector);
}

QWidget* ProjectsScreen::makeInspector() {
    inspector_ = new QStackedWidget(this);
    inspector_->setObjectName(QStringLiteral("inspector"));
    auto* none = Controls::label(tr("Select a project to see what it is made of."), "field", inspector_);
    none->setAlignment(Qt::AlignCenter);
    none->setWordWrap(true);
    none->setMargin(40);
    inspector_->addWidget(none);
    auto* content = new QWidget(inspector_);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(18, 16, 18, 18);
    column->setSpacing(12);
    auto* form = new Form(*content, 72);
    name_ = form->line(tr("Name"), "projectName");
    client_ = form->combo(tr("Client"), "projectClient");
    column->addLayout(form);
    recordsTitle_ = Controls::label(tr("WHAT THE FIGURES COME FROM"), "section", content);
    column->addWidget(recordsTitle_);
    recordsTable_ = ListParts::table(
        records_, "projectRecords", tr("Documents and expenses of this project"),
        {.rowHeight = RowDelegate::tallRowHeight, .stretched = 0, .sorted = 0, .order = Qt::DescendingOrder}, content);
    recordsTable_->horizontalHeader()->hide();
    column->addWidget(recordsTable_, 1);
    archive_ = Controls::button(tr("Archive"), "archiveProject", Controls::Kind::link, content);
    auto* remove = Controls::button(tr("Delete Project"), "deleteProject", Controls::Kind::link, content);
    auto* foot = new QHBoxLayout;
    foot->addWidget(archive_);
    foot->addStretch(1);
    foot->addWidget(remove);
    column->addLayout(foot);
    inspector_->addWidget(content);

    connect(name_, &QLineEdit::editingFinished, this, &ProjectsScreen::rename);
    connect(client_, &QComboBox::activated, this, &ProjectsScreen::chooseClient);
    connect(remove, &QPushButton::clicked, this, &ProjectsScreen::deleteSelected);
    connect(archive_, &QPushButton::clicked, this, [this] {
        const auto id = selected();
        if (const Project* project = id ? model_.library().project(*id) : nullptr) archive(!project->archived);
    });
    const auto open = [this](const QModelIndex& index) {
        const ProjectRecordRow row = records_.rows()[static_cast<std::size_t>(index.row())];
        row.document ? emit documentChosen(row.id) : emit expenseChosen(row.id);
    };
    connect(recordsTable_, &QTableView::clicked, this, open);
    connect(recordsTable_, &QTableView::activated, this, open);
    return inspector_;
}

void ProjectsScreen::refresh() {
    const Library& library = model_.library();
    period_->setYearStart(library.fyStart());
    filter_.search = toStd(search_->text());
    filter_.archived = archived_->isChecked();
    filter_.days = period_->days();
    ProjectTable table = projectTable(library, filter_);
    const bool none = table.rows.empty();
    rows_.setRows(std::move(table.rows));
    count_->setText(toQt(table.count));
    without_->setText(toQt(table.without));
    profit_->setText(toQt(table.profit));
    pages_->setCurrentWidget(none ? static_cast<QWidget*>(empty_) : table_);
    footer_->setVisible(!library.projects.empty());
    inspector_->setVisible(!library.projects.empty());
    archived_->setVisible(std::any_of(library.projects.begin(), library.projects.end(),
                                      [](const Project& project) { return project.archived; }));
    if (library.projects.empty())
        empty_->set(QStringLiteral("folder"), tr("What does a job bring in?"),
                    tr("Give expenses a project, and see here what each one earns after its costs."), tr("New Project"),
                    {});
    else if (none)
        empty_->set(QStringLiteral("search"), tr("Nothing here"), tr("No project fits this search."),
                    tr("Show All Projects"), {});
    refreshInspector();
    arrange();
}

void ProjectsScreen::refreshInspector() {
    const auto id = selected();
    const Project* project = id ? model_.library().project(*id) : nullptr;
    inspector_->setCurrentIndex(project ? 1 : 0);
    if (!project) return;
    if (!name_->hasFocus() || name_->property("project").toString() != toQt(project->id.text()))
        name_->setText(toQt(project->name));
    name_->setProperty("project", toQt(project->id.text()));
    client_->clear();
    client_->addItem(tr("No client"), QString());
    for (const Client& client : model_.library().clients)
        if (!client.archived || client.id == project->clientID)
            client_->addItem(toQt(client.name), toQt(client.id.text()));
    chooseData(*client_, project->clientID ? toQt(project->clientID->text()) : QString());
    archive_->setText(project->archived ? tr("Take Back from Archive") : tr("Archive"));
    archive_->setAccessibleName(archive_->text());
    records_.setRows(projectRecords(model_.library(), project->id, filter_.days));
    recordsTable_->clearSelection();
    const bool any = records_.rowCount() > 0;
    recordsTitle_->setText(any ? tr("WHAT THE FIGURES COME FROM") : tr("NOTHING IN THIS PERIOD"));
}

std::optional<UUID> ProjectsScreen::selected() const {
    const auto ids = selectedIds(*table_, rows_);
    return ids.empty() ? std::nullopt : std::optional(ids.front());
}

void ProjectsScreen::select(const UUID& project) {
    seen_->catchUp();
    if (!rows_.rowOf(project)) {
        search_->clear();
        archived_->setChecked(true);
    }
    selectIds(*table_, rows_, {project});
}

void ProjectsScreen::newProject() {
    const auto name = prompts_.newName(tr("New Project"));
    if (!name) return;
    const Project project = Project::make(*name, std::nullopt);
    if (model_.perform(tr("New Project"),
                       [project](Library library, Day) { return Clients::put(std::move(library), project); }))
        select(project.id);
}

void ProjectsScreen::rename() {
    // The project that was being renamed, wherever the selection went meanwhile.
    const auto id = UUID::parse(toStd(name_->property("project").toString()));
    const Project* present = id ? model_.library().project(*id) : nullptr;
    const std::string typed(Text::trim(toStd(name_->text())));
    if (!present || typed == present->name) return;
    if (typed.empty()) return name_->setText(toQt(present->name));
    Project project = *present;
    project.name = typed;
    model_.perform(tr("Rename Project"),
                   [project](Library library, Day) { return Clients::put(std::move(library), project); });
}

void ProjectsScreen::chooseClient() {
    const auto id = selected();
    const Project* present = id ? model_.library().project(*id) : nullptr;
    if (!present) return;
    Project project = *present;
    project.clientID = UUID::parse(toStd(client_->currentData().toString()));
    if (project == *present) return;
    model_.perform(tr("Change Project’s Client"),
                   [project](Library library, Day) { return Clients::put(std::move(library), project); });
}

void ProjectsScreen::archive(bool archived) {
    const auto id = selected();
    if (!id) return;
    const int row = rows_.rowOf(*id).value_or(0);
    const bool done = model_.perform(archived ? tr("Archive Project") : tr("Take Back Project"),
                                     [id, archived](Library library, Day) {
                                         return Clients::setProjectArchived(std::move(library), *id, archived);
                                     });
    if (!done || !archived) return;
    if (!selected() && rows_.rowCount() > 0) table_->selectRow(std::min(row, rows_.rowCount() - 1));
    emit removed(tr("Project archived"));
}

void ProjectsScreen::deleteSelected() {
    const auto id = selected();
    const Project* project = id ? model_.library().project(*id) : nullptr;
    if (!project) return;
    const std::string uses = Clients::usesOfProject(model_.library(), *id);
    if (!uses.empty()) {
        if (project->archived) return prompts_.alert(tr("%1 refer to this project.").arg(toQt(uses)));
        if (prompts_.confirm(tr("Archive %1 instead?").arg(toQt(project->name)),
                             tr("%1 refer to this project, which therefore cannot be deleted. Archived, it is offered "
                                "for nothing new.")
                                 .arg(toQt(uses)),
                             tr("Archive")))
            archive(true);
        return;
    }
    const int row = rows_.rowOf(*id).value_or(0);
    if (!model_.perform(tr("Delete Project"),
                        [id](Library library, Day) { return Clients::removeProject(std::move(library), *id); }))
        return;
    if (rows_.rowCount() > 0) table_->selectRow(std::min(row, rows_.rowCount() - 1));
    emit removed(tr("Project deleted"));
}

void ProjectsScreen::fillMenu(QMenu& menu) {
    const auto id = selected();
    const Project* project = id ? model_.library().project(*id) : nullptr;
    if (!project) return;
    menu.addAction(tr("Rename"), this, [this] {
        name_->setFocus(Qt::OtherFocusReason);
        name_->selectAll();
    });
    menu.addAction(project->archived ? tr("Take Back from Archive") : tr("Archive"), this,
                   [this, archived = !project->archived] { archive(archived); });
    menu.addSeparator();
    menu.addAction(tr("Copy"), this, [this] { ListParts::copyRows(*table_); });
    menu.addAction(Icons::icon(QStringLiteral("trash"), &Colors::danger), tr("Delete"), this,
                   &ProjectsScreen::deleteSelected);
}

void ProjectsScreen::focusSearch() { ListParts::beginSearch(*search_); }

void ProjectsScreen::sortBy(int column) {
    static constexpr ProjectOrder orders[] = {ProjectOrder::name, ProjectOrder::client, ProjectOrder::income,
                                              ProjectOrder::expenses, ProjectOrder::profit};
    if (column == Column::status) return;
    const ProjectOrder order = orders[column];
    // Words begin with A, figures with the largest.
    const bool words = order == ProjectOrder::name || order == ProjectOrder::client;
    ListParts::orderBy(*table_, column, filter_, order, words);
    refresh();
}

void ProjectsScreen::resizeEvent(QResizeEvent*) { arrange(); }

void ProjectsScreen::arrange() {
    const bool narrow = width() < 900;
    inspector_->setFixedWidth(narrow ? 300 : 380);
    recordsTable_->setColumnWidth(1, narrow ? 112 : 130);
    archived_->setText(narrow ? tr("Archived") : tr("Show archived"));
    const int room = width() - (inspector_->isVisibleTo(this) ? inspector_->width() : 0);
    const auto& rows = rows_.rows();
    const bool noStatus =
        std::all_of(rows.begin(), rows.end(), [](const ProjectListRow& row) { return row.status.empty(); });
    const ListParts::Width widths[] = {{Column::client, room >= 780 ? 204 : 150},
                                       {Column::expenses, 120},
                                       {Column::income, 120},
                                       {Column::status, noStatus ? 0 : 96},
                                       {Column::profit, 120}};
    // What gives way first where the name would get too little room.
    static constexpr ListParts::Width steps[] = {{Column::client, 0}, {Column::expenses, 0}, {Column::income, 0}};
    ListParts::fitColumns(*table_, room, 170, widths, steps);
    without_->setVisible(room >= 620);
}

}  // namespace tamba
