#include "Tamba/Sheets/RecurringSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/RowDelegate.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

namespace tamba {

QString title(Frequency frequency) {
    switch (frequency) {
        case Frequency::weekly:
            return QObject::tr("Weekly");
        case Frequency::monthly:
            return QObject::tr("Monthly");
        case Frequency::quarterly:
            return QObject::tr("Quarterly");
        case Frequency::yearly:
            return QObject::tr("Yearly");
    }
    return {};
}

RecurringSheet::RecurringSheet(QWidget* parent, const Library& library)
    : Sheet(parent, Icon::none, tr("Recurring Expenses"),
            library.recurring.empty()
                ? tr("None yet. Choose “Repeats” beside an expense that comes again.")
                : tr("Each is added on its day. What was added already stays when one is stopped.")),
      library_(library) {
    table_ = new QTableWidget(static_cast<int>(library.recurring.size()), 4, this);
    Controls::name(*table_, "recurring", tr("Recurring expenses"));
    table_->setHorizontalHeaderLabels({tr("Expense"), tr("Amount"), tr("Next"), QString()});
    table_->horizontalHeaderItem(1)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (const int column : {0, 2})
        table_->horizontalHeaderItem(column)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_->setItemDelegate(new RowDelegate(table_));
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->setColumnWidth(1, 124);
    table_->setColumnWidth(2, 190);
    table_->setColumnWidth(3, 160);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(38);
    table_->setShowGrid(false);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionMode(QAbstractItemView::NoSelection);
    table_->setFocusPolicy(Qt::NoFocus);
    table_->setTabKeyNavigation(false);
    table_->setVisible(!library.recurring.empty());
    for (const RecurringExpense& recurring : library.recurring) {
        const int row = static_cast<int>(rows_.size());
        rows_.push_back({recurring.id, recurring.paused, recurring.paused, false});
        const Expense& expense = recurring.template_;
        const auto put = [&](int column, const QString& text, Qt::Alignment alignment) {
            auto* item = new QTableWidgetItem(text);
            item->setTextAlignment(alignment | Qt::AlignVCenter);
            table_->setItem(row, column, item);
        };
        put(0, expense.vendor.empty() ? tr("No vendor") : toQt(expense.vendor), Qt::AlignLeft);
        put(1, toQt(MoneyFormat::string(expense.amount, Currency::of(expense.currency))), Qt::AlignRight);
        put(2, {}, Qt::AlignLeft);
        auto* buttons = new QWidget(table_);
        auto* layout = new QHBoxLayout(buttons);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(4);
        auto* pause = Controls::button({}, "pauseRecurring", Controls::Kind::link, buttons);
        // As wide as its longer word, so that what stands beside it stands below the others.
        pause->setMinimumWidth(pause->fontMetrics().horizontalAdvance(tr("Resume")) + 16);
        pause->setStyleSheet(QStringLiteral("text-align: left"));
        auto* stop = Controls::button({}, "stopRecurring", Controls::Kind::link, buttons);
        layout->addWidget(pause);
        layout->addWidget(stop);
        layout->addStretch(1);
        table_->setCellWidget(row, 3, buttons);
        const auto index = static_cast<std::size_t>(row);
        connect(pause, &QPushButton::clicked, this, [this, index] {
            rows_[index].paused = !rows_[index].paused;
            refresh();
        });
        connect(stop, &QPushButton::clicked, this, [this, index] {
            rows_[index].removed = !rows_[index].removed;
            refresh();
        });
    }
    table_->setFixedHeight(34 + 38 * std::min(8, std::max(1, table_->rowCount())));
    body().addWidget(table_);
    addButtons(library.recurring.empty() ? tr("Close") : tr("Done"),
               library.recurring.empty() ? QString() : tr("Cancel"), Main::keeps);
    setFixedWidth(library.recurring.empty() ? 460 : 720);
    refresh();
}

void RecurringSheet::refresh() {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const Row& row = rows_[i];
        const RecurringExpense& recurring = library_.recurring[i];
        const QString every = title(recurring.frequency);
        table_->item(static_cast<int>(i), 2)
            ->setText(row.removed  ? tr("Stopped")
                      : row.paused ? tr("%1 · paused").arg(every)
                                   : tr("%1 · %2").arg(every, toQt(recurring.nextDate.formatted("d MMM yyyy"))));
        auto* buttons = table_->cellWidget(static_cast<int>(i), 3);
        auto* pause = buttons->findChild<QPushButton*>(QStringLiteral("pauseRecurring"));
        auto* stop = buttons->findChild<QPushButton*>(QStringLiteral("stopRecurring"));
        pause->setText(row.paused ? tr("Resume") : tr("Pause"));
        pause->setEnabled(!row.removed);
        stop->setText(row.removed ? tr("Keep") : tr("Stop"));
        const QString vendor = toQt(recurring.template_.vendor);
        for (QPushButton* button : {pause, stop}) button->setAccessibleName(button->text() + QLatin1Char(' ') + vendor);
    }
}

RecurringEdit RecurringSheet::edit() const {
    RecurringEdit edit;
    for (const Row& row : rows_) {
        if (row.removed)
            edit.removed.push_back(row.id);
        else if (row.paused != row.wasPaused)
            (row.paused ? edit.paused : edit.resumed).push_back(row.id);
    }
    return edit;
}

}  // namespace tamba
