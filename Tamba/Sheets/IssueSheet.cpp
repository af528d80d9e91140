#include "Tamba/Sheets/IssueSheet.h"

#include "Tamba/Icons.h"
#include "Tamba/QtText.h"
#include "Tamba/Style.h"
#include "Tamba/Translations.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/DateField.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Standing.h"

#include <QLabel>
#include <QPushButton>

namespace tamba {

IssueSheet::IssueSheet(QWidget* parent, const Library& library, const Document& draft, Day today)
    : Sheet(parent, Icon::none, tr("Issue This %1").arg(Translations::shown(Books::title(draft.kind))),
            tr("It gets its number and can no longer be changed, only voided. Steps taken before cannot be undone "
               "any more.")),
      library_(library),
      draft_(draft) {
    auto* form = new Form(*this);
    const Client* client = draft.clientID ? library.client(*draft.clientID) : nullptr;
    form->row(tr("For"), new QLabel(client ? toQt(client->name) : tr("Nobody yet"), this));
    date_ = form->date(tr("Date"), "issueDate", today);
    due_ = new QLabel(this);
    due_->setObjectName(QStringLiteral("issueDue"));
    form->row(draft.kind == DocKind::estimate ? tr("Valid until") : tr("Due"), due_);
    form->setRowVisible(due_, draft.kind != DocKind::creditNote);
    number_ = new QLabel(this);
    number_->setObjectName(QStringLiteral("issueNumber"));
    number_->setFont(Style::textFont(13, QFont::DemiBold));
    form->row(tr("Will be numbered"), number_);
    auto* total = new QLabel(this);
    total->setFont(Style::textFont(15, QFont::DemiBold));
    total->setObjectName(QStringLiteral("issueTotal"));
    if (DocMath::isBelievable(draft))
        total->setText(toQt(MoneyFormat::string(DocMath::totals(draft).total, Currency::of(draft.currency))));
    form->row(tr("Total"), total);
    body().addLayout(form);
    problem_ = Controls::label({}, "problem", this);
    problem_->setObjectName(QStringLiteral("issueProblem"));
    problem_->setWordWrap(true);
    body().addWidget(problem_);
    warnings_ = new QWidget(this);
    warnings_->setObjectName(QStringLiteral("issueWarnings"));
    warningRows_ = new QVBoxLayout(warnings_);
    warningRows_->setContentsMargins(0, 0, 0, 0);
    warningRows_->setSpacing(6);
    body().addWidget(warnings_);
    issue_ = addButtons(tr("Issue"), tr("Cancel"));
    setFixedWidth(480);
    connect(date_, &QDateEdit::dateChanged, this, &IssueSheet::refresh);
    issue_->setFocus();
    refresh();
}

Day IssueSheet::date() const { return dayOf(date_->date()); }

void IssueSheet::refresh() {
    QString number, problem;
    due_->setText(toQt(Books::withIssueDate(draft_, date()).dueDate.formatted("d MMM yyyy")));
    try {
        const Library issued = Books::issue(library_, draft_.id, date());
        if (const Document* document = issued.document(draft_.id)) number = toQt(document->displayNumber());
    } catch (const BooksError& error) {
        problem = toQt(std::string_view(error.what()));
    }
    number_->setText(number.isEmpty() ? tr("Not yet") : number);
    problem_->setText(problem);
    problem_->setVisible(!problem.isEmpty());
    issue_->setEnabled(problem.isEmpty());

    while (QLayoutItem* item = warningRows_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const auto warnings = Books::warnings(library_, draft_, date());
    for (const std::string& warning : warnings) {
        auto* row = new QWidget(warnings_);
        auto* columns = new QHBoxLayout(row);
        columns->setContentsMargins(0, 0, 0, 0);
        columns->setSpacing(8);
        auto* glyph = new QLabel(row);
        glyph->setPixmap(
            Icons::icon(QStringLiteral("alert"), &Colors::warning).pixmap(QSize(15, 15), devicePixelRatioF()));
        auto* words = new QLabel(row);
        words->setProperty("role", QStringLiteral("field"));
        words->setText(Controls::wrapped(toQt(warning), *words, 400));
        words->setObjectName(QStringLiteral("issueWarning"));
        columns->addWidget(glyph, 0, Qt::AlignTop);
        columns->addWidget(words, 1);
        warningRows_->addWidget(row);
    }
    warnings_->setVisible(!warnings.empty());
    if (isVisible()) fit();
}

}  // namespace tamba
