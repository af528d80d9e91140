#include "Tamba/DocumentActions.h"
#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ClientPages.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/OverviewScreen.h"
#include "Tamba/Screens/ProjectsScreen.h"
#include "Tamba/Window.h"

namespace tamba {

void Window::connectOverview() {
    connect(overview_, &OverviewScreen::goalChosen, this, &Window::showGoal);
    connect(overview_, &OverviewScreen::reminderChosen, this,
            [this](const UUID& invoice) { documents_->run(DocumentActions::Action::remind, invoice); });
    connect(overview_, &OverviewScreen::newInvoiceChosen, this, [this] { documents_->create(DocKind::invoice); });
    connect(overview_, &OverviewScreen::addReceiptsChosen, this, [this] { addReceipts(prompts_->receiptFiles()); });
    connect(overview_, &OverviewScreen::sampleChosen, this, &Window::openSample);
}

void Window::connectProjects() {
    connect(projects_, &ProjectsScreen::removed, this, &Window::showRemoved);
    connect(projects_, &ProjectsScreen::documentChosen, documents_, &DocumentActions::documentChosen);
    connect(projects_, &ProjectsScreen::expenseChosen, this, [this](const UUID& id) {
        showScreen(Screen::expenses);
        expenses_->select({id});
    });
    connect(clientPages_, &ClientPages::tabChanged, this, [this] {
        const bool projects = clientPages_->currentWidget() == projects_;
        screens_[static_cast<std::size_t>(Screen::clients)].newTitle =
            projects ? tr("&New Project") : tr("&New Client");
        refreshMenus();
    });
}

void Window::showGoal(const OverviewGoal& goal) {
    using Place = OverviewGoal::Place;
    using enum DocStatus;
    const auto invoices = [this](DocKind kind, const std::vector<DocStatus>& statuses, Span span, Day day) {
        showScreen(Screen::invoices);
        invoices_->showStatuses(kind, statuses, span, day);
    };
    const Day today = model_.today();
    switch (goal.place) {
        case Place::unpaid:
            return invoices(DocKind::invoice, {sent, partial, overdue}, Span::all, today);
        case Place::overdue:
            return invoices(DocKind::invoice, {overdue}, Span::all, today);
        case Place::drafts:
            return invoices(goal.kind, {draft}, Span::all, today);
        case Place::document:
            if (goal.document) emit documents_->documentChosen(*goal.document);
            return;
        case Place::expenses:
            showScreen(Screen::expenses);
            return expenses_->showWhole(goal.list);
        case Place::bank:
            showScreen(Screen::bank);
            return bank_->showList(BankList::open);
        case Place::deadline:
            // The reference of this year's letter is all that is kept of it.
            if (goal.deadline == Deadlines::Kind::lut) return editSettings(SettingsPlace::tax);
            [[fallthrough]];
        case Place::profitAndLoss:
            return showReport(goal);
    }
}

}  // namespace tamba
