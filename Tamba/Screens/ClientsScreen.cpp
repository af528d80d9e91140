#include "Tamba/Screens/ClientsScreen.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Screens/ClientInspector.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/EmptyState.h"
#include "Tamba/Widgets/Form.h"
#include "Tamba/Widgets/ListParts.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "Tamba/Widgets/WhenSeen.h"
#include "TambaCore/Documents/Clients.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
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

enum Column { name, place, late, overdue, owed, status };

}  // namespace

std::vector<ClientsScreen::Model::Column> ClientsScreen::columns() {
    const auto quiet = [](std::string ClientListRow::* member) {
        return [member](const ClientListRow& row, int role) -> QVariant {
            if (role == Qt::DisplayRole) return toQt(row.*member);
            return role == Qt::ForegroundRole ? QVariant(Colors::current().muted) : QVariant();
        };
    };
    return {
        {tr("Client"), Qt::AlignLeft,
         [](const ClientListRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return toQt(row.name);
             if (role == RowDelegate::Strong) return true;
             return {};
         }},
        {tr("State or country"), Qt::AlignLeft,
         [](const ClientListRow& row, int role) -> QVariant {
             if (role == Qt::ForegroundRole) return Colors::current().muted;
             return role == Qt::DisplayRole ? countryName(toQt(row.place)) : QVariant();
         }},
        {tr("Pays"), Qt::AlignLeft, quiet(&ClientListRow::late)},
        {tr("Overdue"), Qt::AlignRight,
         [](const ClientListRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.overdue);
             return role == Qt::ForegroundRole ? QVariant(Colors::current().danger) : QVariant();
         }},
        {tr("Owed"), Qt::AlignRight,
         [](const ClientListRow& row, int role) -> QVariant {
             return role == Qt::DisplayRole ? toQt(row.owed) : QVariant();
         }},
        {QString(), Qt::AlignLeft,
         [](const ClientListRow& row, int role) -> QVariant {
             if (role == Qt::DisplayRole) return toQt(row.status);
             if (role == RowDelegate::Pill) return static_cast<int>(row.tone);
             if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) return toQt(row.hint);
             return {};
         }},
    };
}

ClientsScreen::ClientsScreen(AppModel& model, Prompts& prompts, DocumentActions& documents, QWidget* parent)
    : QWidget(parent), model_(model), prompts_(prompts), documents_(documents), rows_(columns()) {
    setObjectName(QStringLiteral("clientsScreen"));
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    QWidget* header = makeHeader();
    makeTable();
    const auto body = ListParts::body(header, table_, footer_ = makeFooter(), this);
    pages_ = body.pages;
    empty_ = body.empty;
    columns->addLayout(body.column, 1);
    inspector_ = new ClientInspector(model_, documents, this);
    columns->addWidget(inspector_);

    connect(search_, &QLineEdit::textChanged, this, &ClientsScreen::refresh);
    connect(archived_, &QCheckBox::toggled, this, &ClientsScreen::refresh);
    connect(new_, &QPushButton::clicked, this, &ClientsScreen::newClient);
    connect(empty_, &EmptyState::actionChosen, this, [this] {
        if (model_.library().clients.empty()) return newClient();
        search_->clear();
        archived_->setChecked(true);
    });
    connect(inspector_, &ClientInspector::deleteChosen, this, &ClientsScreen::deleteSelected);
    connect(inspector_, &ClientInspector::archiveChosen, this, &ClientsScreen::archive);
    seen_ = new WhenSeen(*this, model_, [this] { refresh(); });
    connect(&model_, &AppModel::changed, seen_, &WhenSeen::refresh);
    connect(&model_, &AppModel::dayChanged, seen_, &WhenSeen::refresh);
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

QWidget* ClientsScreen::makeHeader() {
    const auto [header, top, tools] = ListParts::header(ListParts::Heading::tabs, this);
    head_ = top;
    new_ = Controls::button(tr("New Client"), "newClient", Controls::Kind::primary, header);
    new_->setToolTip(tr("New client (Ctrl+N)"));
    top->addStretch(1);
    top->addWidget(new_);
    search_ = ListParts::search("searchClients", tr("Search clients"), tr("Search name, contact, e-mail, GSTIN, notes"),
                                header);
    archived_ = new QCheckBox(tr("Show archived"), header);
    Controls::name(*archived_, "showArchived", archived_->text());
    tools->addWidget(search_, 1);
    tools->addWidget(archived_);
    return header;
}

QWidget* ClientsScreen::makeFooter() {
    const auto [footer, layout] = ListParts::footer(this);
    count_ = Controls::label({}, "field", footer);
    leftOut_ = Controls::label({}, "field", footer);
    overdue_ = Controls::label({}, "field", footer);
    owed_ = new QLabel(footer);
    owed_->setObjectName(QStringLiteral("clientsOwed"));
    owed_->setFont(Style::textFont(14, QFont::DemiBold));
    layout->addWidget(count_);
    layout->addWidget(leftOut_);
    layout->addStretch(1);
    layout->addWidget(overdue_);
    layout->addWidget(owed_);
    return footer;
}

void ClientsScreen::makeTable() {
    table_ = ListParts::table(rows_, "clients", tr("Clients"),
                              {.rowHeight = RowDelegate::rowHeight,
                               .stretched = Column::name,
                               .sorted = Column::name,
                               .order = Qt::AscendingOrder},
                              this);
    keepSelection(*table_, rows_);
    ListParts::setHabits(*table_, {.open = [this] { inspector_->focusName(); },
                                   .remove = [this] { deleteSelected(); },
                                   .fillMenu = [this](QMenu& menu) { fillMenu(menu); },
                                   .sort = [this](int column) { sortBy(column); }});
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ClientsScreen::refreshInspector);
}

void ClientsScreen::refresh() {
    const Library& library = model_.library();
    filter_.search = toStd(search_->text());
    filter_.archived = archived_->isChecked();
    ClientTable table = listing_.table(library, filter_, model_.today());
    const bool none = table.rows.empty();
    rows_.setRows(std::move(table.rows));
    count_->setText(toQt(table.count));
    leftOut_->setText(toQt(table.leftOut));
    overdue_->setText(toQt(table.overdue));
    owed_->setText(toQt(table.owed));
    pages_->setCurrentWidget(none ? static_cast<QWidget*>(empty_) : table_);
    footer_->setVisible(!library.clients.empty());
    inspector_->setVisible(!library.clients.empty());
    archived_->setVisible(std::any_of(library.clients.begin(), library.clients.end(),
                                      [](const Client& client) { return client.archived; }));
    if (library.clients.empty())
        empty_->set(QStringLiteral("people"), tr("Who do you work for?"),
                    tr("A client’s name and GSTIN, entered once, fill in every invoice for them."), tr("New Client"),
                    {});
    else if (none)
        empty_->set(QStringLiteral("search"), tr("Nothing here"), tr("No client fits this search."),
                    tr("Show All Clients"), {});
    refreshInspector();
    arrange();
}

void ClientsScreen::refreshInspector() { inspector_->show(selected()); }

std::optional<UUID> ClientsScreen::selected() const {
    const auto ids = selectedIds(*table_, rows_);
    return ids.empty() ? std::nullopt : std::optional(ids.front());
}

void ClientsScreen::select(const UUID& client) {
    seen_->catchUp();
    if (!rows_.rowOf(client)) {
        search_->clear();
        archived_->setChecked(true);
    }
    selectIds(*table_, rows_, {client});
}

void ClientsScreen::newClient() {
    const auto client = prompts_.newClient(model_.library(), {});
    if (!client) return;
    if (model_.perform(tr("New Client"),
                       [client](Library library, Day) { return Clients::put(std::move(library), *client); }))
        select(client->id);
}

void ClientsScreen::deleteSelected() {
    const auto id = selected();
    const Client* client = id ? model_.library().client(*id) : nullptr;
    if (!client) return;
    const std::string uses = Clients::usesOfClient(model_.library(), *id);
    if (!uses.empty()) {
        if (!client->archived &&
            prompts_.confirm(tr("Archive %1 instead?").arg(toQt(client->name)),
                             tr("%1 refer to this client, who therefore cannot be deleted. Archived, they are offered "
                                "for nothing new.")
                                 .arg(toQt(uses)),
                             tr("Archive")))
            archive(true);
        else if (client->archived)
            prompts_.alert(tr("%1 refer to this client.").arg(toQt(uses)));
        return;
    }
    const int row = rows_.rowOf(*id).value_or(0);
    if (!model_.perform(tr("Delete Client"),
                        [id](Library library, Day) { return Clients::removeClient(std::move(library), *id); }))
        return;
    if (rows_.rowCount() > 0) table_->selectRow(std::min(row, rows_.rowCount() - 1));
    emit removed(tr("Client deleted"));
}

void ClientsScreen::archive(bool archived) {
    const auto id = selected();
    if (!id) return;
    const int row = rows_.rowOf(*id).value_or(0);
    const bool done = model_.perform(
        archived ? tr("Archive Client") : tr("Take Back Client"),
        [id, archived](Library library, Day) { return Clients::setClientArchived(std::move(library), *id, archived); });
    if (!done || !archived) return;
    if (!selected() && rows_.rowCount() > 0) table_->selectRow(std::min(row, rows_.rowCount() - 1));
    emit removed(tr("Client archived"));
}

void ClientsScreen::fillMenu(QMenu& menu) {
    const auto id = selected();
    const Client* client = id ? model_.library().client(*id) : nullptr;
    if (!client) return;
    menu.addAction(Icons::icon(QStringLiteral("document"), &Colors::muted), tr("New Invoice"), this,
                   [this, id] { documents_.create(DocKind::invoice, id); });
    menu.addAction(tr("New Estimate"), this, [this, id] { documents_.create(DocKind::estimate, id); });
    menu.addSeparator();
    if (!client->email.empty())
        menu.addAction(tr("Copy E-mail Address"), this,
                       [email = toQt(client->email)] { QGuiApplication::clipboard()->setText(email); });
    if (!client->taxID.empty())
        menu.addAction(tr("Copy GSTIN"), this,
                       [number = toQt(client->taxID)] { QGuiApplication::clipboard()->setText(number); });
    menu.addAction(client->archived ? tr("Take Back from Archive") : tr("Archive"), this,
                   [this, archived = !client->archived] { archive(archived); });
    menu.addAction(tr("Copy"), this, [this] { ListParts::copyRows(*table_); });
    menu.addAction(Icons::icon(QStringLiteral("trash"), &Colors::danger), tr("Delete"), this,
                   &ClientsScreen::deleteSelected);
}

void ClientsScreen::focusSearch() { ListParts::beginSearch(*search_); }

void ClientsScreen::sortBy(int column) {
    static constexpr ClientOrder orders[] = {ClientOrder::name,    ClientOrder::place, ClientOrder::late,
                                             ClientOrder::overdue, ClientOrder::owed,  ClientOrder::name};
    if (column == Column::status) return;
    const ClientOrder order = orders[column];
    // Words begin with A, figures with the largest.
    const bool words = order == ClientOrder::name || order == ClientOrder::place;
    ListParts::orderBy(*table_, column, filter_, order, words);
    refresh();
}

void ClientsScreen::resizeEvent(QResizeEvent*) { arrange(); }

void ClientsScreen::arrange() {
    const int room = width() - (inspector_->isVisibleTo(this) ? inspector_->width() : 0);
    // Most books have no status to tell.
    const auto& rows = rows_.rows();
    const bool noStatus =
        std::all_of(rows.begin(), rows.end(), [](const ClientListRow& row) { return row.status.empty(); });
    const ListParts::Width widths[] = {{Column::place, 150},
                                       {Column::late, 116},
                                       {Column::overdue, 124},
                                       {Column::owed, 130},
                                       {Column::status, noStatus ? 0 : 116}};
    // What gives way first where the name would get too little room.
    static constexpr ListParts::Width steps[] = {
        {Column::place, 0}, {Column::late, 0}, {Column::status, 0}, {Column::overdue, 0}};
    ListParts::fitColumns(*table_, room, 180, widths, steps);
    overdue_->setVisible(room >= 480);
    leftOut_->setVisible(room >= 700);
}

}  // namespace tamba
