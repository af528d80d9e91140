#include "Tamba/Sheets/PaymentSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Rows/ExpenseRows.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DateField.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Base/Check.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Standing.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tamba {

PaymentSheet::PaymentSheet(QWidget* parent, const Library& library, const Document& invoice, Day today)
    : Sheet(parent, Icon::none, tr("Record a Payment"), {}),
      library_(library),
      invoice_(invoice),
      currency_(Currency::of(invoice.currency)),
      id_(UUID::random()),
      balance_(Books::balance(library, invoice)) {
    const std::string who = invoice.billTo ? invoice.billTo->name : std::string();
    body().addWidget(Controls::label(
        tr("%1 · %2 · %3 due")
            .arg(toQt(invoice.displayNumber()), toQt(who), toQt(MoneyFormat::string(balance_, currency_))),
        "field", this));
    auto* form = new Form(*this);
    amount_ = form->amount(tr("Received"), "paymentAmount");
    amount_->setText(toQt(MoneyFormat::string(balance_, currency_, MoneyFormat::Symbol::hidden)));
    tds_ = form->amount(tr("TDS held back"), "paymentTDS");
    tds_->setPlaceholderText(toQt(MoneyFormat::string(0, currency_, MoneyFormat::Symbol::hidden)));
    auto* rates = new QWidget(this);
    auto* row = new QHBoxLayout(rates);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    for (const int rate : Books::tdsRates()) {
        const QString text = toQt(MoneyFormat::rate(rate));
        auto* button = Controls::button(text, "tdsRate", Controls::Kind::link, rates);
        button->setObjectName(QStringLiteral("tdsRate%1").arg(rate));
        button->setToolTip(tr("%1 of the value without GST").arg(text));
        button->setAccessibleName(tr("%1 TDS").arg(text));
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, rate] { deduct(rate); });
    }
    auto* none = Controls::button(tr("None"), "tdsNone", Controls::Kind::link, rates);
    connect(none, &QPushButton::clicked, this, [this] { deduct(0); });
    row->addWidget(none);
    row->addStretch(1);
    form->addRow(QString(), rates);
    // Tax is deducted at source on what is paid in rupees, by clients in India.
    form->setRowVisible(tds_, invoice.currency == "INR");
    form->setRowVisible(rates, invoice.currency == "INR");
    date_ = form->date(tr("Date"), "paymentDate", today);
    method_ = form->combo(tr("Method"), "paymentMethod");
    for (const PaymentMethod method : allMethods())
        method_->addItem(Translations::shown(title(method)), static_cast<int>(method));
    method_->setCurrentIndex(method_->findData(static_cast<int>(PaymentMethod::bank)));
    reference_ = form->line(tr("Reference"), "paymentReference");
    reference_->setPlaceholderText(tr("UTR or cheque number"));
    body().addLayout(form);
    outcome_ = new QLabel(this);
    outcome_->setObjectName(QStringLiteral("paymentOutcome"));
    outcome_->setFont(Style::textFont(13, QFont::DemiBold));
    outcome_->setWordWrap(true);
    outcome_->setMinimumHeight(36);
    body().addWidget(outcome_);
    record_ = addButtons(tr("Record Payment"), tr("Cancel"));
    setFixedWidth(460);
    for (QLineEdit* field : {amount_, tds_}) connect(field, &QLineEdit::textChanged, this, &PaymentSheet::refresh);
    connect(date_, &QDateEdit::dateChanged, this, &PaymentSheet::refresh);
    amount_->setFocus();
    amount_->selectAll();
    refresh();
}

std::optional<std::int64_t> PaymentSheet::entered(const QLineEdit& field) const {
    if (field.text().trimmed().isEmpty()) return 0;
    return amountIn(field, currency_);
}

void PaymentSheet::deduct(int rateBP) {
    const std::int64_t received = entered(*amount_).value_or(balance_);
    const std::int64_t settled = Checked::add(received, entered(*tds_).value_or(0));
    const auto put = [this](QLineEdit* field, std::int64_t minor) {
        field->setText(minor == 0 && field == tds_
                           ? QString()
                           : toQt(MoneyFormat::string(minor, currency_, MoneyFormat::Symbol::hidden)));
    };
    // Where the two come to the balance they go on doing so; else what came in stands.
    if (settled == balance_) {
        const std::int64_t tds = Books::suggestedTDS(invoice_, balance_, rateBP);
        put(tds_, tds);
        put(amount_, Checked::sub(balance_, tds));
    } else {
        put(tds_, Books::tdsBeside(library_, invoice_, received, rateBP));
    }
}

Payment PaymentSheet::payment() const {
    Payment payment;
    payment.id = id_;
    payment.date = dayOf(date_->date());
    payment.amount = entered(*amount_).value_or(0);
    payment.tds = entered(*tds_).value_or(0);
    payment.method = static_cast<PaymentMethod>(method_->currentData().toInt());
    payment.reference = toStd(reference_->text().trimmed());
    return payment;
}

void PaymentSheet::refresh() {
    QString problem, outcome;
    for (QLineEdit* field : {amount_, tds_}) {
        const bool good = entered(*field).has_value();
        Controls::markProblem(*field, good ? QString() : tr("Enter an amount such as 1,180.00."));
        if (!good) problem = tr("Enter an amount such as 1,180.00.");
    }
    if (problem.isEmpty()) try {
            const Library paid = Books::recordPayment(library_, invoice_.id, payment());
            const Document* invoice = paid.document(invoice_.id);
            const std::int64_t left = invoice ? Books::balance(paid, *invoice) : balance_;
            outcome = left < 1 ? tr("Settles the invoice")
                               : tr("Leaves %1 open").arg(toQt(MoneyFormat::string(left, currency_)));
        } catch (const BooksError& error) {
            problem = toQt(std::string_view(error.what()));
        }
    setRole(*outcome_, problem.isEmpty() ? "outcome" : "problem");
    outcome_->setText(problem.isEmpty() ? outcome : problem);
    record_->setEnabled(problem.isEmpty());
}

}  // namespace tamba
