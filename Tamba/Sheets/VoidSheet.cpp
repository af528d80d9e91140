#include "Tamba/Sheets/VoidSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Rows/Sentences.h"
#include "Tamba/Widgets/Controls.h"
#include "Tamba/Widgets/Form.h"
#include "TambaCore/Base/Text.h"
#include "TambaCore/Documents/Books.h"
#include "TambaCore/Documents/Standing.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tamba {
namespace {

QString meaning(const Library& library, const Document& document, Day today) {
    QString text = QObject::tr(
        "The number stays in the series and the page is stamped “Void”; nothing on it counts any more. This, and "
        "the steps before it, cannot be undone.");
    // A return is filed by calendar month or quarter; a figure that was filed may not vanish from it.
    if (document.kind == DocKind::invoice && isIndia(library.business.regime) &&
        document.issueDate.lastOfMonth() < today)
        text += QStringLiteral("\n\n") +
                QObject::tr("%1 has ended. If its GST return is filed already, make a credit note instead.")
                    .arg(toQt(Sentences::months(document.issueDate.formatted("MMMM yyyy"))));
    return text;
}

}  // namespace

VoidSheet::VoidSheet(QWidget* parent, const Library& library, const Document& document, Day today)
    : Sheet(parent, Icon::alert, tr("Void %1?").arg(toQt(document.displayNumber())),
            meaning(library, document, today)) {
    auto* form = new Form(*this);
    reason_ = form->line(tr("Reason"), "voidReason");
    reason_->setPlaceholderText(tr("Sent to the wrong client"));
    body().addLayout(form);
    auto* main = addButtons(tr("Void"), tr("Cancel"));
    try {
        (void)Books::voidDocument(library, document.id, {});
    } catch (const BooksError& error) {
        auto* problem = Controls::label(toQt(std::string_view(error.what())), "problem", this);
        problem->setObjectName(QStringLiteral("voidProblem"));
        problem->setWordWrap(true);
        body().insertWidget(body().count() - 1, problem);
        main->setEnabled(false);
    }
    setFixedWidth(500);
    reason_->setFocus();
}

std::string VoidSheet::reason() const { return toStd(reason_->text().trimmed()); }

}  // namespace tamba
