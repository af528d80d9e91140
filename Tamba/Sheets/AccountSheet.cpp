#include "Tamba/Sheets/AccountSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Form.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace tamba {

AccountSheet::AccountSheet(QWidget* parent, const Library& library, const BankAccount& account)
    : Sheet(parent, Icon::none, tamba::find(library.accounts, account.id) ? tr("Bank Account") : tr("New Bank Account"),
            {}),
      account_(account) {
    auto* form = new Form(*this);
    name_ = form->line(tr("Name"), "accountName", account.name);
    name_->setPlaceholderText(tr("HDFC current account"));
    currency_ = form->combo(tr("Currency"), "accountCurrency");
    fillCurrencies(*currency_, account.currency);
    chooseData(*currency_, toQt(account.currency));
    const bool used = std::any_of(library.transactions.begin(), library.transactions.end(),
                                  [&](const BankTransaction& line) { return line.accountID == account.id; });
    currency_->setEnabled(!used);
    if (used) form->note(tr("Its lines are in this currency."));
    body().addLayout(form);
    auto* main = addButtons(tamba::find(library.accounts, account.id) ? tr("Save") : tr("Add Account"), tr("Cancel"),
                            Main::keeps);
    const auto refresh = [this, main] { main->setEnabled(!name_->text().trimmed().isEmpty()); };
    connect(name_, &QLineEdit::textChanged, this, refresh);
    refresh();
    setFixedWidth(420);
    name_->setFocus();
    name_->selectAll();
}

BankAccount AccountSheet::account() const {
    BankAccount account = account_;
    account.name = toStd(name_->text().trimmed());
    account.currency = toStd(currency_->currentData().toString());
    return account;
}

}  // namespace tamba
