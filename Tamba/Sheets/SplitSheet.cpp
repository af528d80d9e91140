#include "Tamba/Sheets/SplitSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>

#include <algorithm>

namespace tamba {

SplitSheet::SplitSheet(QWidget* parent, const Library& library, const BankTransaction& line)
    : Sheet(parent, Icon::none, tr("Split Over Several Invoices"), {}),
      library_(library),
      line_(line),
      currency_(Bank::currency(library, line)) {
    const BankLineFacts facts = factsOf(library, line);
    auto* about = Controls::label(toQt(facts.amount + " · " + facts.day), "field", this);
    body().addWidget(about);
    auto* list = new QWidget;
    auto* rows = new QVBoxLayout(list);
    rows->setContentsMargins(0, 0, 8, 0);
    rows->setSpacing(6);
    for (const OpenInvoice& invoice : openInvoices(library, line)) rows->addWidget(makeRow(invoice));
    rows->addStretch(1);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(list);
    scroll->setFixedHeight(std::min(320, list->sizeHint().height() + 4));
    scroll->setFocusPolicy(Qt::NoFocus);
    body().addWidget(scroll);
    outcome_ = new QLabel(this);
    outcome_->setObjectName(QStringLiteral("splitOutcome"));
    outcome_->setFont(Style::textFont(13, QFont::DemiBold));
    outcome_->setWordWrap(true);
    outcome_->setMinimumHeight(36);
    body().addWidget(outcome_);
    main_ = addButtons(tr("Split"), tr("Cancel"));
    setFixedWidth(756);
    if (!rows_.empty()) rows_.front().amount->setFocus();
    refresh();
}

QWidget* SplitSheet::makeRow(const OpenInvoice& invoice) {
    auto* widget = new QWidget;
    auto* columns = new QHBoxLayout(widget);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(10);
    const std::size_t index = rows_.size();
    auto* title = new QLabel(widget);
    title->setFixedWidth(320);
    title->setText(title->fontMetrics().elidedText(toQt(invoice.title), Qt::ElideRight, title->width()));
    title->setToolTip(toQt(invoice.title));
    auto* due = Controls::button(tr("%1 due").arg(toQt(invoice.due)), "takeAll", Controls::Kind::link, widget);
    due->setObjectName(QStringLiteral("takeAll%1").arg(index));
    due->setToolTip(tr("Pay as much of it as the line has left"));
    auto* amount = new QLineEdit(widget);
    Controls::name(*amount, "", tr("Share for %1").arg(toQt(invoice.title)));
    amount->setObjectName(QStringLiteral("share%1").arg(index));
    amount->setAlignment(Qt::AlignRight);
    amount->setPlaceholderText(toQt(MoneyFormat::string(0, currency_, MoneyFormat::Symbol::hidden)));
    amount->setFixedWidth(124);
    auto* tds = new QCheckBox(tr("Rest is TDS"), widget);
    tds->setObjectName(QStringLiteral("shareTDS%1").arg(index));
    tds->setToolTip(tr("The client held the rest back as tax"));
    columns->addWidget(title);
    columns->addStretch(1);
    columns->addWidget(due);
    columns->addWidget(amount);
    columns->addWidget(tds);
    rows_.push_back({invoice, amount, tds});
    connect(due, &QPushButton::clicked, this, [this, index] { takeAll(index); });
    connect(amount, &QLineEdit::textChanged, this, &SplitSheet::refresh);
    connect(tds, &QCheckBox::toggled, this, &SplitSheet::refresh);
    return widget;
}

std::optional<std::int64_t> SplitSheet::entered(const Row& row) const {
    if (row.amount->text().trimmed().isEmpty()) return 0;
    return amountIn(*row.amount, currency_);
}

std::optional<std::int64_t> SplitSheet::left(const Row* without) const {
    std::int64_t rest = line_.amount;
    for (const Row& row : rows_) {
        if (&row == without) continue;
        const auto share = entered(row);
        if (!share || __builtin_sub_overflow(rest, *share, &rest)) return {};
    }
    return rest;
}

void SplitSheet::takeAll(std::size_t index) {
    const Row& row = rows_[index];
    const std::int64_t share = std::min(row.invoice.balance, left(&row).value_or(0));
    if (share > 0) row.amount->setText(toQt(MoneyFormat::string(share, currency_, MoneyFormat::Symbol::hidden)));
}

std::vector<Bank::Share> SplitSheet::shares() const {
    std::vector<Bank::Share> shares;
    for (const Row& row : rows_)
        if (const auto amount = entered(row); amount && *amount != 0)
            shares.push_back(
                {row.invoice.id, *amount,
                 row.tds->isVisibleTo(this) && row.tds->isChecked() ? Bank::Remainder::asTDS : Bank::Remainder::due});
    return shares;
}

void SplitSheet::refresh() {
    for (const Row& row : rows_) {
        const auto amount = entered(row);
        Controls::markProblem(*row.amount, amount ? QString() : tr("Enter an amount such as 1,180.00."));
        // Tax is deducted at source on what is paid in rupees.
        const Document* invoice = library_.document(row.invoice.id);
        QSizePolicy policy = row.tds->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        row.tds->setSizePolicy(policy);
        row.tds->setVisible(amount && *amount > 0 && *amount < row.invoice.balance && invoice->currency == "INR");
    }
    const auto rest = left(nullptr);
    QString text;
    bool good = false;
    if (!rest)
        text = tr("Enter amounts such as 1,180.00.");
    else if (*rest > 0)
        text = tr("%1 still to share").arg(toQt(MoneyFormat::string(*rest, currency_)));
    else if (*rest < 0)
        text = tr("%1 more than the line").arg(toQt(MoneyFormat::string(-*rest, currency_)));
    else
        try {
            (void)Bank::splitReceipt(library_, line_.id, shares());
            text = tr("All of it is shared.");
            good = true;
        } catch (const BooksError& error) {
            text = toQt(std::string_view(error.what()));
        }
    setRole(*outcome_, good ? "outcome" : rest && *rest > 0 ? "field" : "problem");
    outcome_->setText(text);
    main_->setEnabled(good);
}

}  // namespace tamba
