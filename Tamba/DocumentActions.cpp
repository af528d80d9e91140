#include "Tamba/DocumentActions.h"

#include "Tamba/DocumentPDF.h"
#include "Tamba/QtText.h"
#include "Tamba/Translations.h"
#include "TambaCore/Base/Files.h"
#include "TambaCore/Documents/Reminders.h"
#include "TambaCore/Documents/Standing.h"

namespace tamba {
namespace {

using Action = DocumentActions::Action;

QString kindTitle(DocKind kind) { return Translations::shown(Books::title(kind)); }

std::string pdfOf(const AppModel& model, const Document& document) {
    return DocumentPDF::make(model.library(), document, model.store());
}

std::string senderOf(const Business& business) {
    return business.email.empty() ? business.name : business.name + " <" + business.email + ">";
}

std::vector<Action> offeredForInvoice(const Document& invoice, const Books::Standing& standing) {
    std::vector<Action> actions;
    const bool open = standing.balance > 0;
    if (standing.status == DocStatus::overdue)
        actions = {Action::remind, Action::recordPayment};
    else if (open && invoice.sentOn)
        actions = {Action::recordPayment, Action::remind};
    else if (open)
        actions = {Action::send, Action::recordPayment, Action::remind};
    if (invoice.sentOn || !open) actions.push_back(Action::send);
    for (const Action action :
         {Action::savePDF, Action::print, Action::credit, Action::duplicate, Action::voidDocument})
        actions.push_back(action);
    return actions;
}

std::vector<Action> offeredForEstimate(const Document& estimate, DocStatus status) {
    std::vector<Action> actions;
    switch (status) {
        case DocStatus::accepted:
            actions = {Action::convert, Action::send};
            break;
        case DocStatus::declined:
        case DocStatus::converted:
            actions = {Action::send};
            break;
        default:
            actions = estimate.sentOn ? std::vector{Action::accept, Action::decline, Action::convert, Action::send}
                                      : std::vector{Action::send, Action::accept, Action::decline, Action::convert};
    }
    for (const Action action : {Action::savePDF, Action::print, Action::duplicate, Action::voidDocument})
        actions.push_back(action);
    return actions;
}

}  // namespace

DocumentActions::DocumentActions(AppModel& model, Prompts& prompts, QObject* parent)
    : QObject(parent), model_(model), prompts_(prompts) {}

std::vector<Action> DocumentActions::offered(const Library& library, const Document& document, Day today) {
    const auto standing = Books::Standings(library, today).of(document);
    // Figures beyond belief: all that is left to do is to take them away.
    if (!standing)
        return document.state == DocState::draft ? std::vector{Action::deleteDraft} : std::vector{Action::voidDocument};
    if (document.state == DocState::draft)
        return {Action::issue, Action::savePDF, Action::print, Action::duplicate, Action::deleteDraft};
    if (document.state == DocState::void_) return {Action::duplicate, Action::savePDF, Action::print};
    switch (document.kind) {
        case DocKind::invoice:
            return offeredForInvoice(document, *standing);
        case DocKind::estimate:
            return offeredForEstimate(document, standing->status);
        case DocKind::creditNote:
            return {Action::send, Action::savePDF, Action::print, Action::voidDocument};
    }
    return {};
}

QString DocumentActions::title(Action action) {
    switch (action) {
        case Action::issue:
            return tr("Issue…");
        case Action::send:
            return tr("Send…");
        case Action::recordPayment:
            return tr("Record Payment…");
        case Action::remind:
            return tr("Send Reminder…");
        case Action::credit:
            return tr("Credit Note…");
        case Action::accept:
            return tr("Mark as Accepted");
        case Action::decline:
            return tr("Mark as Declined");
        case Action::convert:
            return tr("Make Invoice");
        case Action::duplicate:
            return tr("Duplicate");
        case Action::savePDF:
            return tr("Save PDF…");
        case Action::print:
            return tr("Print…");
        case Action::voidDocument:
            return tr("Void…");
        case Action::deleteDraft:
            return tr("Delete Draft");
    }
    return {};
}

QString DocumentActions::icon(Action action) {
    switch (action) {
        case Action::issue:
            return QStringLiteral("done");
        case Action::send:
            return QStringLiteral("send");
        case Action::recordPayment:
            return QStringLiteral("payment");
        case Action::remind:
            return QStringLiteral("bell");
        case Action::credit:
            return QStringLiteral("credit");
        case Action::accept:
            return QStringLiteral("check");
        case Action::decline:
            return QStringLiteral("close");
        case Action::convert:
            return QStringLiteral("document");
        case Action::duplicate:
            return QStringLiteral("copy");
        case Action::savePDF:
            return QStringLiteral("file-pdf");
        case Action::print:
            return QStringLiteral("print");
        case Action::voidDocument:
            return QStringLiteral("void");
        case Action::deleteDraft:
            return QStringLiteral("trash");
    }
    return {};
}

void DocumentActions::run(Action action, const UUID& id) {
    const Document* found = model_.library().document(id);
    if (!found) return;
    const Document document = *found;  // the books may change while a sheet asks
    switch (action) {
        case Action::issue:
            return issue(document);
        case Action::send:
            return write(document, Mail::sending);
        case Action::remind:
            return write(document, Mail::reminder);
        case Action::recordPayment:
            return recordPayment(document);
        case Action::credit:
            return credit(document);
        case Action::accept:
            model_.perform(tr("Accept Estimate"),
                           [id](Library l, Day) { return Books::acceptEstimate(std::move(l), id); });
            return;
        case Action::decline:
            model_.perform(tr("Decline Estimate"),
                           [id](Library l, Day) { return Books::declineEstimate(std::move(l), id); });
            return;
        case Action::convert:
            model_.attempt([&] {
                const Document invoice = Books::invoiceFrom(model_.library(), id, model_.today());
                if (model_.perform(tr("Make Invoice"),
                                   [&](Library l, Day) { return Books::convertEstimate(std::move(l), id, invoice); }))
                    emit documentChosen(invoice.id);
            });
            return;
        case Action::duplicate:
            model_.attempt([&] {
                add(tr("Duplicate %1").arg(kindTitle(document.kind)),
                    Books::duplicateOf(model_.library(), id, model_.today()));
            });
            return;
        case Action::savePDF:
            return savePDF(document);
        case Action::print:
            model_.attempt([&] { prompts_.print(toQt(document.displayNumber()), pdfOf(model_, document)); });
            return;
        case Action::voidDocument:
            return voidDocument(document);
        case Action::deleteDraft:
            if (model_.perform(tr("Delete Draft"),
                               [id](Library l, Day) { return Books::deleteDraft(std::move(l), id); }))
                emit removed(tr("Draft deleted"));
            return;
    }
}

void DocumentActions::issue(const Document& draft) {
    const auto date = prompts_.issue(model_.library(), draft, model_.today());
    if (!date) return;
    const bool done = model_.perform(
        tr("Issue %1").arg(kindTitle(draft.kind)),
        [id = draft.id, date](Library l, Day) { return Books::issue(std::move(l), id, *date); },
        AppModel::Undo::beginsNewHistory);
    const Document* numbered = model_.library().document(draft.id);
    if (!done || !numbered) return;
    emit documentChosen(draft.id);
    emit issued(draft.id, tr("Issued as %1").arg(toQt(numbered->displayNumber())));
}

void DocumentActions::write(const Document& document, Mail kind) {
    model_.attempt([&] {
        const auto draft = prompts_.mail(model_.library(), document, kind, model_.today());
        if (!draft) return;
        const std::string pdf = pdfOf(model_, document);
        const auto kept = keep(document, pdf);
        if (!prompts_.openMail(*draft, kept)) {
            const auto file = prompts_.saveFile(tr("Save E-mail"),
                                                std::filesystem::path(draft->attachmentName).stem().string() + ".eml");
            if (!file) return;
            Files::writeAtomically(*file,
                                   Reminders::message(*draft, senderOf(model_.library().business), pdf, tamba::now()));
            emit noticed(tr("Saved. Open “%1” in your mail program to send it.").arg(toQt(file->filename())));
        }
        const bool reminder = kind == Mail::reminder;
        // Only the person knows whether it went.
        if (!prompts_.confirm(reminder ? tr("Has the reminder gone?") : tr("Has it gone?"),
                              tr("Once the e-mail is sent, mark it here; that, and the steps before it, cannot be "
                                 "undone. The PDF is also in your books, as Invoices/%1.")
                                  .arg(toQt(kept.filename())),
                              reminder ? tr("Mark as Reminded") : tr("Mark as Sent")))
            return;
        model_.perform(
            reminder ? tr("Mark as Reminded") : tr("Mark as Sent"),
            [id = document.id, reminder](Library l, Day today) {
                return reminder ? Reminders::recordReminder(std::move(l), id, today)
                                : Books::markSent(std::move(l), id, today);
            },
            AppModel::Undo::beginsNewHistory);
    });
}

void DocumentActions::recordPayment(const Document& invoice) {
    const auto payment = prompts_.payment(model_.library(), invoice, model_.today());
    if (!payment) return;
    model_.perform(tr("Record Payment"), [id = invoice.id, payment](Library l, Day) {
        return Books::recordPayment(std::move(l), id, *payment);
    });
}

void DocumentActions::removePayment(const UUID& invoice, const UUID& payment) {
    if (model_.perform(tr("Remove Payment"), [invoice, payment](Library l, Day) {
            return Books::removePayment(std::move(l), invoice, payment);
        }))
        emit removed(tr("Payment removed"));
}

void DocumentActions::credit(const Document& invoice) {
    model_.attempt([&] {
        const Document draft = Books::creditNoteFor(model_.library(), invoice.id, model_.today());
        const auto chosen = prompts_.creditNote(model_.library(), draft);
        if (!chosen) return;
        if (!chosen->issue) return add(tr("New Credit Note"), chosen->note);
        const bool done = model_.perform(
            tr("Issue Credit Note"),
            [&note = chosen->note](Library l, Day) {
                return Books::issue(Books::addDraft(std::move(l), note), note.id, note.issueDate);
            },
            AppModel::Undo::beginsNewHistory);
        const Document* numbered = model_.library().document(chosen->note.id);
        if (!done || !numbered) return;
        emit documentChosen(numbered->id);
        emit issued(numbered->id, tr("Issued as %1").arg(toQt(numbered->displayNumber())));
    });
}

void DocumentActions::voidDocument(const Document& document) {
    const auto reason = prompts_.voiding(model_.library(), document, model_.today());
    if (!reason) return;
    if (model_.perform(
            tr("Void %1").arg(kindTitle(document.kind)),
            [id = document.id, reason](Library l, Day) { return Books::voidDocument(std::move(l), id, *reason); },
            AppModel::Undo::beginsNewHistory))
        emit noticed(tr("%1 is void").arg(toQt(document.displayNumber())));
}

void DocumentActions::savePDF(const Document& document) {
    model_.attempt([&] {
        const std::string pdf = pdfOf(model_, document);
        const auto file = prompts_.saveFile(tr("Save PDF"), Books::fileName(model_.library(), document));
        if (!file) return;
        Files::writeAtomically(*file, pdf);
        if (document.state != DocState::draft) (void)keep(document, pdf);
        emit noticed(tr("Saved “%1”").arg(toQt(file->filename())));
    });
}

std::filesystem::path DocumentActions::keep(const Document& document, const std::string& pdf) const {
    const LibraryStore store = model_.store();
    return store.folder() / store.keepInvoice(Books::fileName(model_.library(), document), pdf);
}

void DocumentActions::create(DocKind kind, const std::optional<UUID>& client) {
    model_.attempt([&] {
        add(tr("New %1").arg(kindTitle(kind)), Books::newDocument(model_.library(), kind, client, model_.today()));
    });
}

void DocumentActions::add(const QString& title, const Document& draft) {
    if (model_.perform(title, [&draft](Library l, Day) { return Books::addDraft(std::move(l), draft); }))
        emit documentChosen(draft.id);
}

}  // namespace tamba
