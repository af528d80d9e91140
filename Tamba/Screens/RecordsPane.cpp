#include "Tamba/Screens/RecordsPane.h"

#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/ListParts.h"
#include "Tamba/Widgets/RowDelegate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace tamba {

std::vector<RecordsPane::Model::Column> RecordsPane::columns() {
    return {{tr("Record"), Qt::AlignLeft,
             [](const RecordRow& row, int role) -> QVariant {
                 switch (role) {
                     case Qt::DisplayRole:
                         return row.who.empty() ? tr("No name") : toQt(row.who);
                     case Qt::ToolTipRole:
                     case Qt::AccessibleDescriptionRole:
                         return toQt(row.who + " · " + row.what + " · " + row.date);
                     case RowDelegate::Second:
                         return toQt(row.date + " · " + row.what);
                     default:
                         return {};
                 }
             }},
            {tr("Amount"), Qt::AlignRight, [](const RecordRow& row, int role) -> QVariant {
                 return role == Qt::DisplayRole ? toQt(row.amount) : QVariant();
             }}};
}

RecordsPane::RecordsPane(QWidget* parent) : QFrame(parent), rows_(columns()) {
    setObjectName(QStringLiteral("inspector"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* head = new QHBoxLayout;
    head->setContentsMargins(16, 14, 10, 10);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    title_ = new QLabel(this);
    title_->setObjectName(QStringLiteral("recordsTitle"));
    title_->setFont(Style::titleFont(14));
    title_->setWordWrap(true);
    count_ = Controls::label({}, "field", this);
    count_->setObjectName(QStringLiteral("recordsCount"));
    words->addWidget(title_);
    words->addWidget(count_);
    head->addLayout(words, 1);
    auto* close = Controls::iconButton(QStringLiteral("close"), tr("Close"), "closeRecords", this);
    head->addWidget(close, 0, Qt::AlignTop);
    layout->addLayout(head);
    table_ = ListParts::table(
        rows_, "records", tr("Records"),
        {.rowHeight = RowDelegate::tallRowHeight, .stretched = 0, .sorted = 0, .order = Qt::DescendingOrder}, this);
    table_->horizontalHeader()->hide();
    table_->setColumnWidth(1, 130);
    table_->installEventFilter(this);
    layout->addWidget(table_, 1);
    const auto [footer, row] = ListParts::footer(this);
    auto* hint = Controls::label(tr("Double-click to open"), "caption", footer);
    sum_ = new QLabel(footer);
    sum_->setObjectName(QStringLiteral("recordsSum"));
    sum_->setFont(Style::textFont(14, QFont::DemiBold));
    row->addWidget(hint);
    row->addStretch(1);
    row->addWidget(sum_);
    layout->addWidget(footer);
    connect(close, &QToolButton::clicked, this, &RecordsPane::closed);
    connect(table_, &QTableView::doubleClicked, this, [this](const QModelIndex& index) { open(index.row()); });
}

void RecordsPane::show(const Library& library, const ReportRecords& records) {
    RecordTable table = recordTable(library, records);
    title_->setText(toQt(records.title));
    count_->setText(toQt(table.count));
    sum_->setText(toQt(table.sum));
    rows_.setRows(std::move(table.rows));
    int widest = 80;
    const QFontMetrics metrics(Style::textFont(13));
    for (const RecordRow& row : rows_.rows()) widest = std::max(widest, metrics.horizontalAdvance(toQt(row.amount)));
    table_->setColumnWidth(1, std::min(widest + 26, 190));
    table_->scrollToTop();
    setVisible(true);
}

void RecordsPane::takeKeys() {
    table_->setFocus();
    if (rows_.rowCount() > 0) table_->selectRow(0);
}

void RecordsPane::open(int row) {
    const RecordRow& record = rows_.rows()[static_cast<std::size_t>(row)];
    if (record.isDocument)
        emit documentChosen(record.id);
    else
        emit expenseChosen(record.id);
}

bool RecordsPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && table_->currentIndex().isValid())
            return open(table_->currentIndex().row()), true;
    }
    return QFrame::eventFilter(watched, event);
}

void RecordsPane::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return emit closed();
    QFrame::keyPressEvent(event);
}

}  // namespace tamba
