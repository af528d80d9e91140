#include "Tamba/Sheets/BillableSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"
#include "TambaCore/Documents/Rebilling.h"

#include <QListWidget>
#include <QPushButton>

namespace tamba {

BillableSheet::BillableSheet(QWidget* parent, const Library& library, const Document& draft)
    : Sheet(parent, Icon::none, tr("Bill Expenses On"),
            tr("Each becomes a line of its own, at the tax rate of the first line.")) {
    list_ = new QListWidget(this);
    Controls::name(*list_, "billableExpenses", tr("Expenses to bill on"));
    for (const Expense* expense : Rebilling::candidates(library, draft)) {
        const Client* client = expense->clientID ? library.client(*expense->clientID) : nullptr;
        const QString vendor = expense->vendor.empty() ? tr("No vendor") : toQt(expense->vendor);
        const QString amount = toQt(MoneyFormat::string(expense->amount, Currency::of(expense->currency)));
        QStringList words{toQt(expense->date.formatted("d MMM yyyy")), vendor, amount};
        if (!client) words << tr("no client");
        auto* item = new QListWidgetItem(words.join(QStringLiteral(" · ")), list_);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        // Those without a client may be meant for somebody else.
        item->setCheckState(client ? Qt::Checked : Qt::Unchecked);
        ids_.push_back(expense->id);
    }
    list_->setMinimumHeight(220);
    body().addWidget(list_, 1);
    auto* main = addButtons(tr("Add Lines"), tr("Cancel"));
    const auto refresh = [this, main] { main->setEnabled(!chosen().empty()); };
    connect(list_, &QListWidget::itemChanged, main, refresh);
    refresh();
    setMinimumWidth(520);
}

std::vector<UUID> BillableSheet::chosen() const {
    std::vector<UUID> ids;
    for (int row = 0; row < list_->count(); ++row)
        if (list_->item(row)->checkState() == Qt::Checked) ids.push_back(ids_[static_cast<std::size_t>(row)]);
    return ids;
}

}  // namespace tamba
