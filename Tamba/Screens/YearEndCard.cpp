#include "Tamba/Screens/YearEndCard.h"

#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Segments.h"

#include <QLabel>
#include <QVBoxLayout>

namespace tamba {

YearEndCard::YearEndCard(const QString& year, QWidget* parent) : QFrame(parent) {
    setObjectName(QStringLiteral("card"));
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(16, 14, 16, 16);
    lines->setSpacing(18);
    auto* bundle = addLine(tr("Bundle for your accountant · %1").arg(year),
                           tr("Reports, invoices as PDF, receipts by date and vendor, and every table as CSV, in one "
                              "folder and one zip file."),
                           tr("Make the Bundle…"), "makeBundle");
    bundle->setProperty("role", QStringLiteral("primary"));
    auto* basis = new Segments({{Translations::shown(title(IncomeBasis::accrual)), "journalAccrual"},
                                {Translations::shown(title(IncomeBasis::cash)), "journalCash"}},
                               this);
    auto* journal = addLine(tr("Journal"),
                            tr("The whole book in double entry, as text that hledger and ledger read. Income counts:"),
                            tr("Save Journal…"), "saveJournal", basis);
    auto* books = addLine(tr("Tables · %1").arg(year),
                          tr("Expenses, invoices, lines, credit notes, payments, clients and bank lines as CSV files."),
                          tr("Save Tables…"), "saveBooks");
    connect(bundle, &QPushButton::clicked, this, &YearEndCard::bundleChosen);
    connect(books, &QPushButton::clicked, this, &YearEndCard::booksChosen);
    connect(journal, &QPushButton::clicked, this,
            [this, basis] { emit journalChosen(allIncomeBases().at(static_cast<std::size_t>(basis->chosenIndex()))); });
}

QPushButton* YearEndCard::addLine(const QString& title, const QString& words, const QString& action, const char* name,
                                  QWidget* choice) {
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(4);
    auto* head = new QLabel(title, this);
    head->setFont(Style::titleFont(14));
    auto* label = Controls::label(words, "field", this);
    label->setWordWrap(true);
    texts->addWidget(head);
    texts->addWidget(label);
    if (choice) texts->addWidget(choice, 0, Qt::AlignLeft);
    row->addLayout(texts, 1);
    auto* button = Controls::button(action, name, Controls::Kind::plain, this);
    button->setMinimumWidth(152);
    row->addWidget(button, 0, Qt::AlignVCenter);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    return button;
}

}  // namespace tamba
