#include "Tamba/ReportFiles.h"
#include "Tamba/Rows/OverviewRows.h"
#include "Tamba/Screens/BankScreen.h"
#include "Tamba/Screens/ExpensesScreen.h"
#include "Tamba/Screens/InvoicesScreen.h"
#include "Tamba/Screens/ReportsScreen.h"
#include "Tamba/Widgets/Overlays.h"
#include "Tamba/Window.h"

#include <QDesktopServices>
#include <QUrl>

namespace tamba {

void Window::makeReports() {
    reportFiles_ = new ReportFiles(model_, *prompts_, this);
    reports_ = new ReportsScreen(model_, *reportFiles_, pages_);
    screens_[static_cast<std::size_t>(Screen::reports)] = {
        reports_, tr("&New Invoice"),           [this] { documents_->create(DocKind::invoice); }, {},
        {},       [this] { reports_->print(); }};
}

void Window::connectReports() {
    connect(reports_, &ReportsScreen::documentChosen, documents_, &DocumentActions::documentChosen);
    connect(reports_, &ReportsScreen::expenseChosen, this, [this](const UUID& id) {
        showScreen(Screen::expenses);
        expenses_->select({id});
    });
    connect(reports_, &ReportsScreen::openLinesChosen, this, [this] {
        showScreen(Screen::bank);
        bank_->showList(BankList::open);
    });
    connect(reportFiles_, &ReportFiles::progressed, this, [this](const QString& what, int done, int count) {
        strip_->show(what, done, count);
        strip_->setCancellable(true);
    });
    connect(reportFiles_, &ReportFiles::ended, this, &Window::hideStrip);
    connect(reportFiles_, &ReportFiles::cancelled, this, [this] { toast_->show(tr("Cancelled")); });
    connect(strip_, &ActivityStrip::cancelled, reportFiles_, &ReportFiles::cancel);
    connect(reportFiles_, &ReportFiles::saved, this, [this](const QString& sentence, const QString& place) {
        toast_->show(sentence, tr("Show"), [place] { QDesktopServices::openUrl(QUrl::fromLocalFile(place)); });
    });
}

void Window::showReport(const OverviewGoal& goal) {
    showScreen(Screen::reports);
    if (goal.place == OverviewGoal::Place::profitAndLoss && goal.days && goal.days == Period::month(goal.days->from))
        return reports_->showMonth(goal.days->from);
    ReportKind kind = ReportKind::profit;
    if (goal.place == OverviewGoal::Place::deadline) {
        const bool isGSTR1 = goal.deadline == Deadlines::Kind::gstr1,
                   isGSTR3B = goal.deadline == Deadlines::Kind::gstr3b,
                   isScheme = goal.deadline == Deadlines::Kind::cmp08 || goal.deadline == Deadlines::Kind::gstr4;
        kind = isGSTR1    ? ReportKind::outward
               : isGSTR3B ? ReportKind::summary
               : isScheme ? ReportKind::composition
                          : kind;
    }
    ReportChoice choice = firstChoice(kind, model_.today());
    if (goal.days) {
        choice.day = goal.days->from;
        const std::vector<Span> spans = spansOf(kind);
        for (const Span span : spans)
            if (daysOf(span, choice.day, yearStartOf(kind, model_.library())) == goal.days) choice.span = span;
    }
    reports_->choose(choice);
}

}  // namespace tamba
