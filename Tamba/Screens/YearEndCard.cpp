#include "Tamba/Screens/YearEndCard.h"

#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Segments.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

namespace tamba {

YearEndCard::YearEndCard(QWidget* parent) : QWidget(parent) {
    auto* around = new QVBoxLayout(this);
    around->setContentsMargins(20, 18, 20, 0);
    auto* card = new QFrame(this);
    card->setObjectName(QStringLiteral("card"));
    around->addWidget(card);
    auto* lines = new QVBoxLayout(card);
    lines->setContentsMargins(16, 14, 16, 16);
    lines->setSpacing(18);
    bundle_ = addLine(*lines,
                      tr("Reports, invoices as PDF, receipts by date and vendor, and every table as CSV, in one folder "
                         "and one zip file."),
                      tr("Make the Bundle…"), "makeBundle");
    bundle_.button->setProperty("role", QStringLiteral("primary"));
    basis_ = new Segments(
        {{toQt(title(IncomeBasis::accrual)), "journalAccrual"}, {toQt(title(IncomeBasis::cash)), "journalCash"}}, card);
    journal_ =
        addLine(*lines, tr("The whole book in double entry, as text that hledger and ledger read. Income stands:"),
                tr("Save Journal…"), "saveJournal", basis_);
    tables_ =
        addLine(*lines, tr("Expenses, invoices, lines, credit notes, payments, clients and bank lines as CSV files."),
                tr("Save Tables…"), "saveBooks");
    journal_.title->setText(tr("Journal"));
    connect(bundle_.button, &QPushButton::clicked, this, &YearEndCard::bundleChosen);
    connect(tables_.button, &QPushButton::clicked, this, &YearEndCard::tablesChosen);
    connect(journal_.button, &QPushButton::clicked, this,
            [this] { emit journalChosen(allIncomeBases().at(static_cast<std::size_t>(basis_->chosenIndex()))); });
}

YearEndCard::Line YearEndCard::addLine(QVBoxLayout& to, const QString& words, const QString& action, const char* name,
                                       QWidget* choice) {
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(4);
    auto* title = new QLabel(this);
    title->setFont(Style::titleFont(14));
    auto* label = Controls::label(words, "field", this);
    label->setWordWrap(true);
    texts->addWidget(title);
    texts->addWidget(label);
    if (choice) texts->addWidget(choice, 0, Qt::AlignLeft);
    row->addLayout(texts, 1);
    auto* button = Controls::button(action, name, Controls::Kind::plain, this);
    button->setMinimumWidth(150);
    row->addWidget(button, 0, Qt::AlignVCenter);
    to.addLayout(row);
    return {title, button};
}

void YearEndCard::setYear(const QString& year) {
    bundle_.title->setText(tr("Bundle for your accountant · %1").arg(year));
    tables_.title->setText(tr("Tables · %1").arg(year));
}

void YearEndCard::setBusy(bool busy) { bundle_.button->setEnabled(!busy); }

}  // namespace tamba
