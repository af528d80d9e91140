#include "Tamba/Sheets/CreditNoteSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DateField.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Standing.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>

namespace tamba {

CreditNoteSheet::CreditNoteSheet(QWidget* parent, const Library& library, const Document& draft)
    : Sheet(parent, Icon::none, tr("Credit Note"), {}),
      library_(library),
      draft_(draft),
      currency_(Currency::of(draft.currency)) {
    const Document* invoice = draft.linkedID ? library.document(*draft.linkedID) : nullptr;
    if (invoice) {
        auto* words = Controls::label({}, "field", this);
        words->setText(Controls::wrapped(
            tr("For %1 of %2. Take out lines, or lower their amounts, to credit a part.")
                .arg(toQt(invoice->displayNumber()), toQt(invoice->issueDate.formatted("d MMM yyyy"))),
            *words, 510));
        body().addWidget(words);
    }
    body().addWidget(makeLines());
    auto* form = new Form(*this);
    reason_ = form->combo(tr("Reason"), "creditReason");
    reason_->setEditable(true);
    // The reasons that returns used to ask for; people may write their own.
    reason_->addItems({tr("Sales return"), tr("Discount after the sale"), tr("Deficiency in services"),
                       tr("Correction of the invoice"), tr("Change of place of supply"), tr("Others")});
    reason_->setCurrentText(draft.reason.empty() ? tr("Correction of the invoice") : toQt(draft.reason));
    date_ = form->date(tr("Date"), "creditDate", draft.issueDate);
    total_ = new QLabel(this);
    total_->setObjectName(QStringLiteral("creditTotal"));
    total_->setFont(Style::textFont(15, QFont::DemiBold));
    form->row(tr("Total with tax"), total_);
    body().addLayout(form);
    outcome_ = new QLabel(this);
    outcome_->setObjectName(QStringLiteral("creditOutcome"));
    outcome_->setWordWrap(true);
    outcome_->setMinimumHeight(36);
    body().addWidget(outcome_);
    issue_ = addButtons(tr("Issue Credit Note"), tr("Cancel"));
    keep_ = addThirdButton(tr("Keep as Draft"));
    setFixedWidth(560);
    connect(date_, &QDateEdit::dateChanged, this, &CreditNoteSheet::refresh);
    refresh();
}

QWidget* CreditNoteSheet::makeLines() {
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("card"));
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    grid->setContentsMargins(14, 10, 14, 10);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(0, 1);
    grid->addWidget(Controls::label(tr("LINE"), "section"), 0, 0);
    grid->addWidget(Controls::label(tr("TAX"), "section"), 0, 1, Qt::AlignRight);
    grid->addWidget(Controls::label(tr("AMOUNT WITHOUT TAX"), "section"), 0, 2, Qt::AlignRight);
    for (const Line& line : draft_.lines) {
        const int row = static_cast<int>(rows_.size()) + 1;
        const QString name = line.name.empty() ? tr("Line %1").arg(row) : toQt(line.name);
        auto* box = new QCheckBox(content);
        box->setText(box->fontMetrics().elidedText(name, Qt::ElideRight, 260));
        box->setToolTip(name);
        box->setObjectName(QStringLiteral("creditLine%1").arg(row));
        box->setAccessibleName(name);
        box->setChecked(true);
        auto* amount = new QLineEdit(content);
        amount->setObjectName(QStringLiteral("creditAmount%1").arg(row));
        amount->setAccessibleName(tr("Amount of %1").arg(name));
        amount->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        amount->setFixedWidth(150);
        const std::int64_t whole = DocMath::line(line, draft_.supply).taxable;
        amount->setText(toQt(MoneyFormat::string(whole, currency_, MoneyFormat::Symbol::hidden)));
        grid->addWidget(box, row, 0);
        grid->addWidget(Controls::label(toQt(MoneyFormat::rate(line.taxBP)), "field"), row, 1, Qt::AlignRight);
        grid->addWidget(amount, row, 2);
        connect(box, &QCheckBox::toggled, amount, &QWidget::setEnabled);
        connect(box, &QCheckBox::toggled, this, &CreditNoteSheet::refresh);
        connect(amount, &QLineEdit::textChanged, this, &CreditNoteSheet::refresh);
        rows_.push_back({box, amount, whole});
    }
    grid->setRowStretch(static_cast<int>(rows_.size()) + 1, 1);
    scroll->setWidget(content);
    scroll->setFixedHeight(std::min(content->sizeHint().height() + 4, 260));
    return scroll;
}

Document CreditNoteSheet::note() const {
    Document note = draft_;
    note.lines.clear();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (!rows_[i].box->isChecked()) continue;
        Line line = draft_.lines[i];
        const auto amount = amountIn(*rows_[i].amount, currency_);
        if (amount && *amount != rows_[i].whole) {
            line.qtyMilli = 1000;
            line.priceMinor = *amount;
            line.discountBP = 0;
        }
        note.lines.push_back(std::move(line));
    }
    note.issueDate = note.dueDate = dayOf(date_->date());
    note.reason = toStd(reason_->currentText().trimmed());
    return note;
}

void CreditNoteSheet::refresh() {
    QString problem, outcome;
    const char* role = "outcome";
    for (const Row& row : rows_) {
        const bool good = !row.box->isChecked() || amountIn(*row.amount, currency_).has_value();
        Controls::markProblem(*row.amount, good ? QString() : tr("Enter an amount such as 1,180.00."));
        if (!good) problem = tr("Enter an amount such as 1,180.00.");
    }
    const Document note = this->note();
    total_->setText(DocMath::isBelievable(note) ? toQt(MoneyFormat::string(DocMath::totals(note).total, currency_))
                                                : QString());
    if (problem.isEmpty()) try {
            const Library issued = Books::issue(Books::addDraft(library_, note), note.id, note.issueDate);
            const Document* invoice = note.linkedID ? issued.document(*note.linkedID) : nullptr;
            const std::int64_t left = invoice ? Books::balance(issued, *invoice) : 0;
            const auto money = [this](std::int64_t amount) { return toQt(MoneyFormat::string(amount, currency_)); };
            if (left < 0) role = "field";
            outcome = left > 0   ? tr("Leaves %1 of the invoice to be paid").arg(money(left))
                      : left < 0 ? tr("Makes a refund of %1 due").arg(money(-left))
                                 : tr("Nothing of the invoice is left to be paid");
        } catch (const BooksError& error) {
            problem = toQt(std::string_view(error.what()));
        }
    setRole(*outcome_, problem.isEmpty() ? role : "problem");
    outcome_->setText(problem.isEmpty() ? outcome : problem);
    issue_->setEnabled(problem.isEmpty());
    keep_->setEnabled(problem.isEmpty());
}

}  // namespace tamba
