#include "Tamba/Screens/ClientInspector.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/ClientForm.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/RowDelegate.h"
#include "TambaCore/Documents/Clients.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace tamba {
namespace {

constexpr int shownDocuments = 8;

std::vector<RowsModel<ClientDocumentRow>::Column> columns() {
    return {{QString(), Qt::AlignLeft,
             [](const ClientDocumentRow& row, int role) -> QVariant {
                 if (role == Qt::DisplayRole) return toQt(row.number);
                 if (role == Qt::ToolTipRole) return toQt(row.date);
                 return {};
             }},
            {QString(), Qt::AlignRight,
             [](const ClientDocumentRow& row, int role) -> QVariant {
                 return role == Qt::DisplayRole ? toQt(row.total) : QVariant();
             }},
            {QString(), Qt::AlignLeft, [](const ClientDocumentRow& row, int role) -> QVariant {
                 if (role == Qt::DisplayRole) return toQt(row.status);
                 if (role == RowDelegate::Pill) return static_cast<int>(row.tone);
                 return {};
             }}};
}

}  // namespace

ClientInspector::ClientInspector(AppModel& model, DocumentActions& documents, QWidget* parent)
    : QFrame(parent), model_(model), documents_(documents), rows_(columns()) {
    setObjectName(QStringLiteral("inspector"));
    setFixedWidth(380);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 0, 0);
    pages_ = new QStackedWidget(this);
    auto* none = Controls::label(tr("Select a client to see and change them here."), "field", this);
    none->setAlignment(Qt::AlignCenter);
    none->setWordWrap(true);
    none->setMargin(40);
    pages_->addWidget(none);
    pages_->addWidget(makeClient());
    layout->addWidget(pages_);
}

QWidget* ClientInspector::makeClient() {
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(18, 16, 18, 18);
    column->setSpacing(12);
    auto* head = new QHBoxLayout;
    auto* invoice = Controls::button(tr("New Invoice"), "newInvoiceForClient", Controls::Kind::primary, content);
    auto* estimate = Controls::button(tr("New Estimate"), "newEstimateForClient", Controls::Kind::plain, content);
    head->addWidget(invoice);
    head->addWidget(estimate);
    head->addStretch(1);
    column->addLayout(head);
    summary_ = Controls::label({}, "field", content);
    summary_->setObjectName(QStringLiteral("clientSummary"));
    summary_->setWordWrap(true);
    column->addWidget(summary_);
    form_ = new ClientForm(content);
    column->addWidget(form_);

    documentsTitle_ = Controls::label(tr("DOCUMENTS"), "section", content);
    column->addWidget(documentsTitle_);
    table_ = new QTableView(content);
    Controls::name(*table_, "clientDocuments", tr("Documents of this client"));
    table_->setModel(&rows_);
    table_->setItemDelegate(new RowDelegate(table_));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setShowGrid(false);
    table_->setTabKeyNavigation(false);
    table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table_->horizontalHeader()->hide();
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    table_->setColumnWidth(1, 104);
    table_->setColumnWidth(2, 92);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(RowDelegate::rowHeight);
    column->addWidget(table_);
    const auto open = [this](const QModelIndex& index) { emit documents_.documentChosen(rows_.id(index.row())); };
    connect(table_, &QTableView::clicked, this, open);
    connect(table_, &QTableView::activated, this, open);

    archive_ = Controls::button(tr("Archive"), "archiveClient", Controls::Kind::link, content);
    auto* remove = Controls::button(tr("Delete Client"), "deleteClient", Controls::Kind::link, content);
    auto* foot = new QHBoxLayout;
    foot->addWidget(archive_);
    foot->addStretch(1);
    foot->addWidget(remove);
    column->addLayout(foot);
    column->addStretch(1);
    scroll->setWidget(content);

    connect(invoice, &QPushButton::clicked, this, [this] { documents_.create(DocKind::invoice, id_); });
    connect(estimate, &QPushButton::clicked, this, [this] { documents_.create(DocKind::estimate, id_); });
    connect(form_, &ClientForm::committed, this, &ClientInspector::commit);
    connect(archive_, &QPushButton::clicked, this, [this] {
        const Client* client = id_ ? model_.library().client(*id_) : nullptr;
        if (client) emit archiveChosen(!client->archived);
    });
    connect(remove, &QPushButton::clicked, this, &ClientInspector::deleteChosen);
    return scroll;
}

void ClientInspector::show(const std::optional<UUID>& id) {
    // What was being typed about the client shown before is theirs.
    if (id_ && id_ != id && form_->hasUnsavedText()) commit(tr("Client"));
    id_ = id;
    const Client* client = id ? model_.library().client(*id) : nullptr;
    pages_->setCurrentIndex(client ? 1 : 0);
    if (client) fill(*client);
}

void ClientInspector::fill(const Client& client) {
    const Library& library = model_.library();
    form_->show(client, library.business.defaultDueDays);
    archive_->setText(client.archived ? tr("Take Back from Archive") : tr("Archive"));
    archive_->setAccessibleName(archive_->text());
    rows_.setRows(clientDocuments(library, client.id, model_.today()));
    documentsTitle_->setVisible(rows_.rowCount() > 0);
    table_->setVisible(rows_.rowCount() > 0);
    table_->setFixedHeight(std::min(rows_.rowCount(), shownDocuments) * RowDelegate::rowHeight);
    table_->clearSelection();
    const auto accounts = Clients::accounts(library, standings_.update(library, model_.today()));
    const auto found = accounts.find(client.id);
    summary_->setVisible(found != accounts.end());
    if (found == accounts.end()) return;
    const Clients::Account& account = found->second;
    const Currency home = library.home();
    QStringList parts{tr("Invoiced %1").arg(toQt(MoneyFormat::string(account.invoiced, home))),
                      tr("received %1").arg(toQt(MoneyFormat::string(account.received, home)))};
    if (account.overdue > 0) parts << tr("overdue %1").arg(toQt(MoneyFormat::string(account.overdue, home)));
    if (account.daysLate) parts << tr("pays %1").arg(toQt(lateText(*account.daysLate)).toLower());
    summary_->setText(parts.join(QStringLiteral(" · ")));
}

void ClientInspector::commit(const QString& what) {
    if (!id_ || !model_.library().client(*id_)) return;
    const Client edited = form_->client();
    if (edited.id != *id_ || edited == *model_.library().client(*id_)) return;
    if (edited.name.empty()) {
        // A client without a name could not be found again.
        fill(*model_.library().client(*id_));
        return;
    }
    model_.perform(tr("Change %1").arg(what),
                   [edited](Library library, Day) { return Clients::put(std::move(library), edited); });
}

void ClientInspector::focusName() { form_->focusName(); }

}  // namespace tamba
